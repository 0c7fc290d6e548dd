#include "views/QVCharVerifyTextField.h"

#include "settings/QVColors.h"
#include "settings/QVSystemFont.h"

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int answerFontSize = 15;
constexpr int tallestAnswer = 22; // in a box of 30
// The most characters that are measured: real answers are short, and a pasted book must not stall the host.
constexpr qsizetype measuredLength = 100;
// The space that QLineEdit leaves before its text in every style.
constexpr int innerMargin = 2;

// Each rule in the widget's own style sheet overrides the same rule of the host's. So all rules that could
// change the look of the field are listed.
QString isolatingSheet()
{
    QString family = QApplication::font().family();
    family.remove(u'"').remove(u'\\');
    return QStringLiteral(
               "QLineEdit { background: transparent; border: none; border-radius: 0px; margin: 0px;"
               " padding: 0px; min-width: 0px; min-height: 0px; max-width: 16777215px;"
               " max-height: 16777215px; color: %3; selection-color: white;"
               " selection-background-color: %1; text-decoration: none; font: normal normal %2px"
               " \"%4\"; lineedit-password-character: 9679; }")
        .arg(QVColors::accent().name())
        .arg(std::min(qv_systemFont(answerFontSize).pixelSize(), tallestAnswer))
        .arg(QVColors::fieldText().name())
        .arg(family);
}

// Whether the focus changes only because the window becomes active or inactive, or because the field's menu
// opens or closes.
bool isPassing(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

// QLineEdit would select, paste or show its menu even without the focus.
bool needsFocus(QEvent::Type type)
{
    return type == QEvent::MouseMove || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick || type == QEvent::ContextMenu;
}

} // namespace

QVCharVerifyTextField::QVCharVerifyTextField(QWidget *parent)
    : QLineEdit(parent)
    , m_placeholder({.pixelSize = 14, .alignment = Qt::AlignLeft})
{
    // As the rest of the strip, also in a host that is written from right to left.
    setLayoutDirection(Qt::LeftToRight);
    setFrame(false);
    applyColors();
    // Not Qt::ClickFocus: a refused click must not take the focus away from another widget.
    setFocusPolicy(Qt::TabFocus);
    setAcceptDrops(false);
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, &QLineEdit::textChanged, this, [this] { levelLine({}); });
    setInputMethodHints(Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
}

// QLineEdit centres the line by its height, but then places it by the ascent of the font. So letters of a
// taller fallback font, mostly Chinese ones, would make the whole line jump up.
void QVCharVerifyTextField::levelLine(const QString &composed)
{
    QTextLayout layout(text().left(measuredLength) + composed.left(measuredLength), font());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    // The line has a height only after endLayout().
    layout.endLayout();
    const int height = line.isValid() ? qRound(line.height()) : 0;
    setTextMargins(0, std::max(0, height - fontMetrics().height()), 0, 0);
}

void QVCharVerifyTextField::applyColors()
{
    if (const QString sheet = isolatingSheet(); sheet != styleSheet())
        setStyleSheet(sheet);
}

void QVCharVerifyTextField::showEvent(QShowEvent *event)
{
    applyColors();
    QLineEdit::showEvent(event);
}

void QVCharVerifyTextField::setPlaceholder(const QString &text)
{
    m_placeholder.setText(text);
    update();
}

bool QVCharVerifyTextField::isEditing() const
{
    return window()->focusWidget() == this;
}

QVariant QVCharVerifyTextField::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImEnterKeyType)
        return static_cast<int>(Qt::EnterKeyDone);
    return QLineEdit::inputMethodQuery(query);
}

bool QVCharVerifyTextField::event(QEvent *event)
{
    if (needsFocus(event->type()) && !isEditing())
        return true;
    return QLineEdit::event(event);
}

void QVCharVerifyTextField::mousePressEvent(QMouseEvent *event)
{
    if (!isEditing()) {
        if (!mayBegin())
            return;
        m_hasAsked = true;
        setFocus(Qt::MouseFocusReason);
        m_hasAsked = false;
    }
    QLineEdit::mousePressEvent(event);
}

void QVCharVerifyTextField::focusInEvent(QFocusEvent *event)
{
    const bool isReturning = m_wasEditing && isPassing(event->reason());
    m_wasEditing = isReturning || m_hasAsked || mayBegin();
    if (!m_wasEditing) {
        refuseFocus(event->reason());
        return;
    }
    QLineEdit::focusInEvent(event);
    Q_EMIT focusChanged(true);
}

void QVCharVerifyTextField::focusOutEvent(QFocusEvent *event)
{
    m_wasEditing = m_wasEditing && isPassing(event->reason());
    QLineEdit::focusOutEvent(event);
    Q_EMIT focusChanged(false);
}

void QVCharVerifyTextField::refuseFocus(Qt::FocusReason reason)
{
    const bool isForward = reason == Qt::TabFocusReason;
    if (isForward || reason == Qt::BacktabFocusReason)
        focusNextPrevChild(isForward);
    else
        clearFocus();
}

void QVCharVerifyTextField::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || !m_shouldReturn || m_shouldReturn())
        QLineEdit::keyPressEvent(event);
    // Accepted, or a host's dialog would press its default button.
    if (isReturn)
        event->accept();
}

void QVCharVerifyTextField::inputMethodEvent(QInputMethodEvent *event)
{
    const QString composed = event->preeditString();
    m_isComposing = !composed.isEmpty();
    QLineEdit::inputMethodEvent(event);
    levelLine(composed);
}

void QVCharVerifyTextField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (!text().isEmpty() || m_isComposing)
        return;
    QPainter painter(this);
    const QRect line = rect().adjusted(innerMargin, 0, -innerMargin, 0);
    m_placeholder.paint(painter, line, QVColors::placeholder());
}
