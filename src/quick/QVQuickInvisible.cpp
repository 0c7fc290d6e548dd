#include "quick/QVQuickInvisible.h"

#include "platform/QVScheduler.h"
#include "quick/QVQuickValues.h"
#include "quick/QVQuickWindows.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

QVQuickInvisible::QVQuickInvisible(QObject *parent)
    : QVQuickVerification(parent)
    , QVQuickTeller(static_cast<QVQuickVerification &>(*this))
    , m_flow(presenter(), *this)
{
}

QVQuickInvisible::~QVQuickInvisible()
{
    m_flow.abandon();
    QVQuickInvisible::removeBadge();
}

void QVQuickInvisible::start()
{
    m_flow.startInsivible();
}

void QVQuickInvisible::reset()
{
    m_flow.reset();
}

QObject *QVQuickInvisible::host() const
{
    return QVQuickWindows::active(parent());
}

QQuickItem *QVQuickInvisible::badge(QObject *host)
{
    auto *const window = qobject_cast<QQuickWindow *>(host);
    QQmlEngine *const engine = qmlEngine(this);
    if (!m_animation || !window || !engine) {
        removeBadge();
        return nullptr;
    }
    if (m_badge && m_badge->window() == window)
        return m_badge;
    removeBadge();
    QQmlComponent component(engine, qv_moduleFile(QStringLiteral("Badge.qml")));
    m_badge = qobject_cast<QQuickItem *>(component.createWithInitialProperties(
        {{QStringLiteral("parent"), QVariant::fromValue(window->contentItem())}}));
    // Deleted by removeBadge(), or with the window.
    if (m_badge)
        m_badge->setParent(window->contentItem());
    return m_badge;
}

void QVQuickInvisible::showBadge(QObject *host)
{
    (void)badge(host);
}

bool QVQuickInvisible::passBadge(QObject *host, const std::function<void()> &completion)
{
    QQuickItem *const item = badge(host);
    if (!item)
        return false;
    item->setProperty("passed", true);
    QVScheduler::shared().schedule(passDuration, completion);
    return true;
}

void QVQuickInvisible::removeBadge()
{
    if (m_badge) {
        // It is deleted only when a nested event loop of the host has ended.
        m_badge->setVisible(false);
        m_badge->deleteLater();
    }
    m_badge.clear();
}
