#include "modes/QVEmbedManager.h"

#include "draw/QVRenderDrawView.h"
#include "modes/QVAlternative.h"
#include "modes/QVEmbedManagerDelegate.h"
#include "modes/QVEmbedManagerPrivate.h"
#include "platform/QVMainThread.h"

QVEmbedManager::QVEmbedManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<QVEmbedManagerPrivate>(*this))
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
    return d->renderView(Q_FUNC_INFO);
}

QVRenderDrawView *QVEmbedManager::renderView()
{
    return d->renderView(Q_FUNC_INFO);
}

void QVEmbedManager::reset()
{
    if (auto *const view = d->renderView(Q_FUNC_INFO))
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
