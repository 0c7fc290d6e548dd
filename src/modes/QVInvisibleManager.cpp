#include "modes/QVInvisibleManager.h"

#include "modes/QVInvisibleDelegate.h"
#include "modes/QVInvisibleManagerPrivate.h"
#include "platform/QVMainThread.h"

QVInvisibleManager::QVInvisibleManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<QVInvisibleManagerPrivate>(this))
{
    qv_assertMainThread();
}

QVInvisibleManager::~QVInvisibleManager() = default;

QVInvisibleDelegate *QVInvisibleManager::delegate() const
{
    return d->delegate.get();
}

void QVInvisibleManager::setDelegate(QVInvisibleDelegate *delegate)
{
    d->delegate = delegate;
}

QString QVInvisibleManager::vid() const
{
    return d->identity.ownVid;
}

void QVInvisibleManager::setVid(const QString &vid)
{
    d->identity.ownVid = vid;
}

QString QVInvisibleManager::scene() const
{
    return d->identity.ownScene;
}

void QVInvisibleManager::setScene(const QString &scene)
{
    d->identity.ownScene = scene;
}

bool QVInvisibleManager::animation() const
{
    return d->animation;
}

void QVInvisibleManager::setAnimation(bool animation)
{
    d->animation = animation;
}

void QVInvisibleManager::startInsivible()
{
    qv_assertMainThread();
    d->startInsivible();
}

void QVInvisibleManager::reset()
{
    qv_assertMainThread();
    d->reset();
}
