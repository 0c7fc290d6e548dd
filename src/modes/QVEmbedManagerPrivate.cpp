#include "modes/QVEmbedManagerPrivate.h"

#include "draw/QVRenderDrawView.h"
#include "modes/QVCannotBeShown.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVEmbedManagerDelegate.h"
#include "modes/QVLostManager.h"
#include "platform/QVMainThread.h"

#include <QMetaMethod>

QVEmbedManagerPrivate::QVEmbedManagerPrivate(QVEmbedManager &manager)
    : m_manager(manager)
{
}

QVEmbedManagerPrivate::~QVEmbedManagerPrivate()
{
    if (m_renderView && m_renderView->parentWidget())
        qv_warnOfLostManager("QVEmbedManager", "panel", m_renderView);
    else
        delete m_renderView;
}

void QVEmbedManagerPrivate::setIdentity(const QVIdentity &identity)
{
    m_identity = identity;
    if (m_renderView)
        m_renderView->setIdentity(identity);
}

QVRenderDrawView *QVEmbedManagerPrivate::renderView(const char *call)
{
    if (!qv_mayCall(call) || !qv_hasWidgets(call)) {
        qv_failToShow(&m_manager);
        return nullptr;
    }
    if (m_renderView)
        return m_renderView;
    m_renderView = new QVRenderDrawView(QVVerifyStyleEmbed);
    m_renderView->setDelegate(this);
    m_renderView->setIdentity(m_identity);
    QObject::connect(m_renderView, &QVRenderDrawView::ready, &m_manager, &QVEmbedManager::ready);
    QObject::connect(m_renderView, &QVRenderDrawView::wrongAnswer, &m_manager, &QVEmbedManager::wrongAnswer);
    QObject::connect(m_renderView, &QVRenderDrawView::outageStarted, &m_manager,
                     &QVEmbedManager::outageStarted);
    QObject::connect(m_renderView, &QVRenderDrawView::failed, &m_manager, &QVEmbedManager::failed);
    QObject::connect(m_renderView, &QVRenderDrawView::expired, &m_manager, &QVEmbedManager::expired);
    QObject::connect(m_renderView, &QVRenderDrawView::alternativeRequested, &m_manager,
                     &QVEmbedManager::alternativeRequested);
    // A QWidget emits destroyed() before QPointers to it become null.
    QObject::connect(m_renderView, &QObject::destroyed, &m_manager, [this] { m_renderView = nullptr; });
    offerAlternative();
    return m_renderView;
}

void QVEmbedManagerPrivate::offerAlternative() const
{
    if (m_renderView)
        m_renderView->setOffersAlternative(
            m_manager.isSignalConnected(QMetaMethod::fromSignal(&QVEmbedManager::alternativeRequested)));
}

void QVEmbedManagerPrivate::renderDrawViewVerifySuccess(const QString &token)
{
    // The delegate may destroy the manager.
    const QPointer<QVEmbedManager> manager(&m_manager);
    if (auto *host = delegate.get())
        host->embedManagerVerifyPassedWithToken(token);
    if (manager)
        Q_EMIT manager->passed(token);
}
