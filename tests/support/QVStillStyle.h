#pragma once

#include <QApplication>
#include <QProxyStyle>

/// While it lives, the application's style says that the user wants no motion.
class QVStillStyle
{
public:
    QVStillStyle()
        : m_usualName(QApplication::style()->name())
    {
        QApplication::setStyle(new Style);
    }
    ~QVStillStyle() { QApplication::setStyle(m_usualName); }
    Q_DISABLE_COPY(QVStillStyle)

private:
    class Style : public QProxyStyle
    {
    public:
        int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                      QStyleHintReturn *result) const override
        {
            return hint == SH_Widget_Animation_Duration
                       ? 0
                       : QProxyStyle::styleHint(hint, option, widget, result);
        }
    };

    QString m_usualName;
};
