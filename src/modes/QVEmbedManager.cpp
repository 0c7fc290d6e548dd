#include "modes/QVEmbedManager.h"

#include "draw/QVRenderDrawView.h"
#include "modes/QVAlternative.h"
#include "modes/QVCannotBeShown.h"
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
