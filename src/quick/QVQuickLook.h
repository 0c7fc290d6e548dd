#pragma once

#include "paint/QVEasing.h"
#include "settings/QVColors.h"
#include "settings/QVSystemFont.h"

#include <QAccessible>
#include <QObject>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

/// Tells that a setting was changed which parts on screen follow.
class QVQuickLookNotice final : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] static QVQuickLookNotice &shared();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void changed();

private:
    QVQuickLookNotice();
};

/// Colours, texts and sizes that the parts of the module share: its singleton `QuarvoLook`, for its own
/// files.
class QVQuickLook : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoLook)
    QML_SINGLETON
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor surface READ surface NOTIFY changed)
    Q_PROPERTY(QColor strip READ strip NOTIFY changed)
    Q_PROPERTY(QColor stripHover READ stripHover NOTIFY changed)
    Q_PROPERTY(QColor field READ field NOTIFY changed)
    Q_PROPERTY(QColor fieldText READ fieldText NOTIFY changed)
    Q_PROPERTY(QColor fieldBorder READ fieldBorder NOTIFY changed)
    Q_PROPERTY(QColor caption READ caption NOTIFY changed)
    Q_PROPERTY(QColor promptText READ promptText NOTIFY changed)
    Q_PROPERTY(QColor doneTitle READ doneTitle NOTIFY changed)
    Q_PROPERTY(QColor placeholder READ placeholder NOTIFY changed)
    Q_PROPERTY(QColor supportText READ supportText NOTIFY changed)
    Q_PROPERTY(QColor picture READ picture CONSTANT)
    Q_PROPERTY(QColor badge READ badge CONSTANT)
    Q_PROPERTY(QColor promptBar READ promptBar CONSTANT)
    Q_PROPERTY(QColor errorBar READ errorBar CONSTANT)
    Q_PROPERTY(QColor successBar READ successBar CONSTANT)
    Q_PROPERTY(QColor hoverTint READ hoverTint CONSTANT)
    Q_PROPERTY(QColor discHoverTint READ discHoverTint CONSTANT)
    Q_PROPERTY(QEasingCurve easeIn READ easeIn CONSTANT)
    Q_PROPERTY(QEasingCurve easeOut READ easeOut CONSTANT)
    Q_PROPERTY(QEasingCurve easeInEaseOut READ easeInEaseOut CONSTANT)
    Q_PROPERTY(QEasingCurve usualEasing READ usualEasing CONSTANT)
    /// How much larger than usual the platform shows text, from 1 to 2.
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)
    Q_PROPERTY(bool isMotionReduced READ isMotionReduced NOTIFY changed)
    Q_PROPERTY(QAccessible::Role messageRole READ messageRole CONSTANT)
    /// Another one with each language, for text().
    Q_PROPERTY(int language READ language NOTIFY changed)

public:
    explicit QVQuickLook(QObject *parent = nullptr);

    [[nodiscard]] static QColor accent() { return QVColors::accent(); }
    [[nodiscard]] static QColor surface() { return QVColors::surface(); }
    [[nodiscard]] static QColor strip() { return QVColors::strip(); }
    [[nodiscard]] static QColor stripHover() { return QVColors::stripHover(); }
    [[nodiscard]] static QColor field() { return QVColors::field(); }
    [[nodiscard]] static QColor fieldText() { return QVColors::fieldText(); }
    [[nodiscard]] static QColor fieldBorder() { return QVColors::fieldBorder(); }
    [[nodiscard]] static QColor caption() { return QVColors::caption(); }
    [[nodiscard]] static QColor promptText() { return QVColors::promptText(); }
    [[nodiscard]] static QColor doneTitle() { return QVColors::doneTitle(); }
    [[nodiscard]] static QColor placeholder() { return QVColors::placeholder(); }
    [[nodiscard]] static QColor supportText() { return QVColors::supportText(); }
    [[nodiscard]] static QColor picture() { return QVColors::picture; }
    [[nodiscard]] static QColor badge() { return QVColors::badge; }
    [[nodiscard]] static QColor promptBar() { return QVColors::promptBar; }
    [[nodiscard]] static QColor errorBar() { return QVColors::errorBar; }
    [[nodiscard]] static QColor successBar() { return QVColors::successBar; }
    [[nodiscard]] static QColor hoverTint() { return QVColors::hoverTint; }
    [[nodiscard]] static QColor discHoverTint() { return QVColors::discHoverTint; }
    [[nodiscard]] static QEasingCurve easeIn() { return QVEasing::easeIn(); }
    [[nodiscard]] static QEasingCurve easeOut() { return QVEasing::easeOut(); }
    [[nodiscard]] static QEasingCurve easeInEaseOut() { return QVEasing::easeInEaseOut(); }
    [[nodiscard]] static QEasingCurve usualEasing() { return QVEasing::usual(); }
    [[nodiscard]] static double textScale() { return qv_textScale(); }
    [[nodiscard]] static bool isMotionReduced();
    [[nodiscard]] static QAccessible::Role messageRole();
    [[nodiscard]] int language() const { return m_language; }

    /// The text of one of QVKey's keys. A binding names \a language so that it follows it.
    [[nodiscard]] Q_INVOKABLE static QString text(const QString &key, int language);
    /// The application's font at \a pixelSize, in logical pixels where text has its usual size.
    [[nodiscard]] Q_INVOKABLE static QFont font(int pixelSize, double textScale);
    /// \a text without line breaks or control characters, as one of a stranger's making is shown.
    [[nodiscard]] Q_INVOKABLE static QString oneLine(const QString &text);
    /// Has screen readers say the accessible name of \a item, whose role is messageRole.
    Q_INVOKABLE static void announce(QQuickItem *item);

Q_SIGNALS:
    void changed();

private:
    int m_language = 0;
};
