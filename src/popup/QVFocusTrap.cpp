#include "popup/QVFocusTrap.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace {

bool takesTabFocus(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && !widget->focusProxy() &&
           (widget->focusPolicy() & Qt::TabFocus) != 0;
}

} // namespace

QVFocusTrap::QVFocusTrap(QWidget *root)
    : QObject(root)
    , m_root(root)
{
}

void QVFocusTrap::activate()
{
    // If the host starts again in a focus handler, the two would fight for the focus without end.
    if (m_active && isMoving())
        return;
    const bool wasActive = std::exchange(m_active, true);
    // In another window another widget had the focus.
    if (!wasActive || (!m_root->isWindow() && (!m_before || m_before->window() != m_root->window())))
        rememberFocus();
    if (!wasActive)
        connect(qApp, &QApplication::focusChanged, this,
                [this](QWidget *, QWidget *now) { followFocus(now); });
    focusInside();
}

void QVFocusTrap::rememberFocus()
{
    QWidget *const now = m_root->isWindow() ? QApplication::focusWidget() : m_root->window()->focusWidget();
    m_before = holds(now) ? nullptr : now;
}

void QVFocusTrap::leaveWindow()
{
    QWidget *const focused = m_root->window()->focusWidget();
    if (!holds(focused))
        return;
    move([focused] { focused->clearFocus(); });
}

void QVFocusTrap::moveInside()
{
    if (m_active)
        focusInside();
}

void QVFocusTrap::release()
{
    if (!m_active)
        return;
    m_active = false;
    disconnect(qApp, nullptr, this, nullptr);
    QWidget *const before = std::exchange(m_before, nullptr);
    if (before && before->isVisible() && before->isEnabled())
        moveTo(before, Qt::PopupFocusReason);
    else if (!m_root->isWindow())
        moveTo(m_root->parentWidget(), Qt::PopupFocusReason);
}

void QVFocusTrap::moveFocus(bool next)
{
    const auto step = [next](QWidget *from) {
        return next ? from->nextInFocusChain() : from->previousInFocusChain();
    };
    QWidget *const start = m_inside ? m_inside.data() : m_root;
    for (QWidget *widget = step(start); widget != start; widget = step(widget)) {
        if (!m_root->isAncestorOf(widget) || !takesTabFocus(widget))
            continue;
        // Set before the focus is moved: the widget may refuse the focus and move on from there.
        m_inside = widget;
        moveTo(widget, next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return;
    }
}

bool QVFocusTrap::holds(const QWidget *widget) const
{
    return widget == m_root || m_root->isAncestorOf(widget);
}

bool QVFocusTrap::isOnTop() const
{
    if (m_root->isWindow())
        return true;
    const QWidget *topmost = nullptr;
    for (const QObject *sibling : m_root->parentWidget()->children()) {
        const auto *const widget = qobject_cast<const QWidget *>(sibling);
        const bool isLayer = widget && widget->metaObject() == m_root->metaObject();
        if (isLayer && widget->isVisible() && !widget->isWindow())
            topmost = widget;
    }
    return topmost == m_root;
}

void QVFocusTrap::followFocus(QWidget *now)
{
    // The user may move the focus to another window, or to none.
    if (now ? now->window() != m_root->window() : !m_root->isActiveWindow())
        return;
    if (holds(now))
        m_inside = now;
    else if (isMoving())
        return; // The host has taken the focus back and keeps it, or the two would fight for it without end.
    else if (isOnTop())
        // If a part has given the focus up, keys would go to the host.
        now ? focusInside() : moveTo(m_root, Qt::OtherFocusReason);
}

void QVFocusTrap::focusInside()
{
    QWidget *const target = m_inside && m_inside->isVisible() ? m_inside.data() : m_root;
    moveTo(target, Qt::PopupFocusReason);
}

void QVFocusTrap::moveTo(QWidget *target, Qt::FocusReason reason)
{
    move([target, reason] { target->setFocus(reason); });
}

void QVFocusTrap::move(const std::function<void()> &work)
{
    const QPointer<QVFocusTrap> self(this);
    ++m_moves;
    work();
    if (self && --m_moves == 0)
        Q_EMIT settled();
}
