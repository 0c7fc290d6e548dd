#include "modes/QVClickManager.h"

#include "modes/QVAlternative.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManagerDelegate.h"
#include "modes/QVClickManagerPrivate.h"
#include "modes/QVLostManager.h"
#include "platform/QVMainThread.h"

#include <QPointer>

QVClickManager::QVClickManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<QVClickManagerPrivate>(this))
{
    qv_mayCall(Q_FUNC_INFO);
}

QVClickManager::~QVClickManager()
{
    if (!d->button)
        return;
    disconnect(d->button, nullptr, this, nullptr);
    if (d->button->parent())
        qv_warnOfLostManager("QVClickManager", "button", d->button);
    else
        delete d->button;
}

QVClickManagerDelegate *QVClickManager::delegate() const
{
    return d->delegate.get();
}

void QVClickManager::setDelegate(QVClickManagerDelegate *delegate)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->delegate = delegate;
}

QString QVClickManager::vid() const
{
    return d->identity.ownVid;
}

void QVClickManager::setVid(const QString &vid)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->identity.ownVid = vid;
    if (d->button)
        d->button->setVid(vid);
}

QString QVClickManager::scene() const
{
    return d->identity.ownScene;
}

void QVClickManager::setScene(const QString &scene)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->identity.ownScene = scene;
    if (d->button)
        d->button->setScene(scene);
}

QVClickButton *QVClickManager::button()
{
    return d->buttonFor(Q_FUNC_INFO);
}

QAbstractButton *QVClickManager::clickButton()
{
    return d->buttonFor(Q_FUNC_INFO);
}

void QVClickManager::clickButtonVerifyPassedWithToken(const QString &token)
{
    const QPointer<QVClickManager> self(this);
    if (auto *const delegate = d->delegate.get())
        delegate->clickManagerVerifyPassedWithToken(token);
    if (self)
        Q_EMIT passed(token);
}

void QVClickManager::reset()
{
    if (auto *const button = d->buttonFor(Q_FUNC_INFO))
        button->reset();
}

void QVClickManager::connectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->offerAlternative(); });
}

void QVClickManager::disconnectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->offerAlternative(); });
}
