#include "popup/QVFocusTrap.h"

#include <QApplication>
#include <QWidget>

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
    if (m_active)
        return;
    m_active = true;
    m_before = m_root->isWindow() ? QApplication::focusWidget() : m_root->window()->focusWidget();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { followFocus(now); });
    focusInside();
}

void QVFocusTrap::leaveWindow()
{
    QWidget *const focused = m_root->window()->focusWidget();
    if (!focused || !holds(focused))
        return;
    m_isLeaving = true;
    focused->clearFocus();
    m_isLeaving = false;
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
    if (m_before && m_before->isVisible() && m_before->isEnabled())
        m_before->setFocus(Qt::PopupFocusReason);
    else if (!m_root->isWindow())
        m_root->parentWidget()->setFocus(Qt::PopupFocusReason);
    m_before = nullptr;
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
        // Before it has the focus, which it may refuse by moving on from there.
        m_inside = widget;
        widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
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
    if (m_isLeaving)
        return;
    // Other windows, and no window at all, are the user's choice.
    if (now ? now->window() != m_root->window() : !m_root->isActiveWindow())
        return;
    if (holds(now))
        m_inside = now;
    else if (isOnTop() && now)
        focusInside();
    else if (isOnTop())
        m_root->setFocus(); // Given up inside: keys would go to the host's window.
}

void QVFocusTrap::focusInside()
{
    QWidget *const target = m_inside && m_inside->isVisible() ? m_inside.data() : m_root;
    target->setFocus(Qt::PopupFocusReason);
}
