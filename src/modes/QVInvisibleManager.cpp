#include "modes/QVInvisibleManager.h"

#include "modes/QVAlternative.h"
#include "modes/QVCannotBeShown.h"
#include "modes/QVInvisibleDelegate.h"
#include "modes/QVInvisibleManagerPrivate.h"
#include "platform/QVMainThread.h"

QVInvisibleManager::QVInvisibleManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<QVInvisibleManagerPrivate>(this))
{
    qv_mayCall(Q_FUNC_INFO);
}

QVInvisibleManager::~QVInvisibleManager() = default;

QVInvisibleDelegate *QVInvisibleManager::delegate() const
{
    return d->delegate.get();
}

void QVInvisibleManager::setDelegate(QVInvisibleDelegate *delegate)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->delegate = delegate;
}

QString QVInvisibleManager::vid() const
{
    return d->flow.identity().ownVid;
}

void QVInvisibleManager::setVid(const QString &vid)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->flow.setIdentity({vid, scene()});
}

QString QVInvisibleManager::scene() const
{
    return d->flow.identity().ownScene;
}

void QVInvisibleManager::setScene(const QString &scene)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->flow.setIdentity({vid(), scene});
}

bool QVInvisibleManager::animation() const
{
    return d->animation;
}

void QVInvisibleManager::setAnimation(bool animation)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->animation = animation;
}

void QVInvisibleManager::startInsivible()
{
    if (qv_mayCall(Q_FUNC_INFO))
        d->flow.startInsivible();
    else
        qv_failToShow(this);
}

void QVInvisibleManager::reset()
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->flow.reset();
}

void QVInvisibleManager::connectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->flow.alternativeHasChanged(); });
}

void QVInvisibleManager::disconnectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->flow.alternativeHasChanged(); });
}
