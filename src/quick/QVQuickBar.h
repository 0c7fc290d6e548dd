#pragma once

#include "settings/QVText.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// One of the bars over the picture's lower edge, as it is to be shown.
class QVQuickBar : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoBar)
    QML_UNCREATABLE("Belongs to a surface")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    Q_PROPERTY(bool acceptsTouches READ acceptsTouches NOTIFY changed)
    /// The bar that came last lies over the others.
    Q_PROPERTY(int order READ order NOTIFY changed)

public:
    [[nodiscard]] QString text() const { return m_text.text(); }
    [[nodiscard]] bool isShown() const { return m_isShown; }
    [[nodiscard]] bool acceptsTouches() const { return m_acceptsTouches; }
    [[nodiscard]] int order() const { return m_order; }

    void slideIn(const QVText &text, bool acceptsTouches, int order)
    {
        m_text = text;
        m_acceptsTouches = acceptsTouches;
        m_order = order;
        m_isShown = true;
        Q_EMIT changed();
        Q_EMIT slidIn();
    }
    void slideOut()
    {
        m_isShown = false;
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();
    /// Screen readers are to say what it says.
    void slidIn();

private:
    QVText m_text;
    bool m_isShown = false;
    bool m_acceptsTouches = false;
    int m_order = 0;
};
