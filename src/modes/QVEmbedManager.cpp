#include "modes/QVEmbedManager.h"

#include "draw/QVRenderDrawView.h"
#include "flow/QVIdentity.h"
#include "modes/QVAlternative.h"
#include "modes/QVCannotBeShown.h"
#include "modes/QVEmbedManagerDelegate.h"
#include "modes/QVLostManager.h"
#include "platform/QVMainThread.h"

#include <QPointer>

/// Owns the view while nobody else does, and relays its token.
class QVEmbedManager::Private final : public QVRenderDrawViewDelegate
{
public:
    explicit Private(QVEmbedManager &manager)
        : m_manager(manager)
    {
    }

    ~Private() override
    {
        if (m_renderView && m_renderView->parentWidget())
            qv_warnOfLostManager("QVEmbedManager", "panel", m_renderView);
        else
            delete m_renderView;
    }

    [[nodiscard]] QVRenderDrawView *renderView();
    void renderDrawViewVerifySuccess(const QString &token) override;

    void offerAlternative() const;
    void setIdentity(const QVIdentity &identity);
    [[nodiscard]] QVIdentity identity() const { return m_identity; }

    QVWeakDelegate<QVEmbedManagerDelegate> delegate;

private:
    QVEmbedManager &m_manager;
    QPointer<QVRenderDrawView> m_renderView;
    QVIdentity m_identity;
};

void QVEmbedManager::Private::setIdentity(const QVIdentity &identity)
{
    m_identity = identity;
    if (m_renderView)
        m_renderView->setIdentity(identity);
}

QVRenderDrawView *QVEmbedManager::Private::renderView()
{
    if (m_renderView)
        return m_renderView;
    m_renderView = new QVRenderDrawView(QVVerifyStyleEmbed);
    m_renderView->setDelegate(this);
    m_renderView->setIdentity(m_identity);
    connect(m_renderView, &QVRenderDrawView::ready, &m_manager, &QVEmbedManager::ready);
    connect(m_renderView, &QVRenderDrawView::wrongAnswer, &m_manager, &QVEmbedManager::wrongAnswer);
    connect(m_renderView, &QVRenderDrawView::outageStarted, &m_manager, &QVEmbedManager::outageStarted);
    connect(m_renderView, &QVRenderDrawView::failed, &m_manager, &QVEmbedManager::failed);
    connect(m_renderView, &QVRenderDrawView::expired, &m_manager, &QVEmbedManager::expired);
    connect(m_renderView, &QVRenderDrawView::alternativeRequested, &m_manager,
            &QVEmbedManager::alternativeRequested);
    // A widget tells of its end while pointers to it still hold.
    connect(m_renderView, &QObject::destroyed, &m_manager, [this] { m_renderView = nullptr; });
    offerAlternative();
    return m_renderView;
}

void QVEmbedManager::Private::offerAlternative() const
{
    if (m_renderView)
        m_renderView->setOffersAlternative(
            m_manager.isSignalConnected(QMetaMethod::fromSignal(&QVEmbedManager::alternativeRequested)));
}

void QVEmbedManager::Private::renderDrawViewVerifySuccess(const QString &token)
{
    // The delegate may destroy the manager.
    const QPointer<QVEmbedManager> manager(&m_manager);
    if (auto *host = delegate.get())
        host->embedManagerVerifyPassedWithToken(token);
    if (manager)
        Q_EMIT manager->passed(token);
}

QVEmbedManager::QVEmbedManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(*this))
{
    qv_mayCall(Q_FUNC_INFO);
}

QVEmbedManager::~QVEmbedManager() = default;

QVEmbedManagerDelegate *QVEmbedManager::delegate() const
{
    return d->delegate.get();
}

void QVEmbedManager::setDelegate(QVEmbedManagerDelegate *delegate)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->delegate = delegate;
}

QString QVEmbedManager::vid() const
{
    return d->identity().ownVid;
}

void QVEmbedManager::setVid(const QString &vid)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->setIdentity({vid, scene()});
}

QString QVEmbedManager::scene() const
{
    return d->identity().ownScene;
}

void QVEmbedManager::setScene(const QString &scene)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->setIdentity({vid(), scene});
}

QWidget *QVEmbedManager::embedView()
{
    return renderView();
}

QVRenderDrawView *QVEmbedManager::renderView()
{
    if (qv_mayCall(Q_FUNC_INFO) && qv_hasWidgets(Q_FUNC_INFO))
        return d->renderView();
    qv_failToShow(this);
    return nullptr;
}

void QVEmbedManager::reset()
{
    if (auto *const view = renderView())
        view->reset();
}

void QVEmbedManager::connectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->offerAlternative(); });
}

void QVEmbedManager::disconnectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->offerAlternative(); });
}
