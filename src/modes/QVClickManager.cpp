#include "modes/QVClickManager.h"

#include "flow/QVIdentity.h"
#include "modes/QVAlternative.h"
#include "modes/QVCannotBeShown.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManagerDelegate.h"
#include "modes/QVLostManager.h"
#include "platform/QVDelegate.h"
#include "platform/QVMainThread.h"
#include "platform/QVScheduler.h"

#include <QPointer>

class QVClickManager::Private
{
public:
    explicit Private(QVClickManager *manager)
        : q(manager)
    {
    }

    void createButton();
    void buttonDestroyed();
    void offerAlternative() const;

    QVClickManager *const q;
    QVWeakDelegate<QVClickManagerDelegate> delegate;
    QPointer<QVClickButton> button;
    bool isUnderWay = false;
    /// Attempts whose end was not told yet and will not come by the delegate. A host that starts again in a
    /// change of status makes it more than one.
    int openAttempts = 0;
    QVIdentity identity;
};

void QVClickManager::Private::createButton()
{
    button = new QVClickButton;
    button->setDelegate(q);
    button->setVid(identity.ownVid);
    button->setScene(identity.ownScene);
    isUnderWay = false;
    openAttempts = 0;
    connect(button, &QVClickButton::clickStatusChanged, q, [this](QVClickStatus status) {
        const bool was = isUnderWay;
        isUnderWay = status == QVClickStatusVerifying || status == QVClickStatusDrawing;
        if (isUnderWay && !was)
            ++openAttempts;
        else if (status == QVClickStatusPassed)
            --openAttempts;
    });
    connect(button, &QVClickButton::failed, q, [this] { --openAttempts; });
    connect(button, &QVClickButton::closed, q, [this] { --openAttempts; });
    connect(button, &QVClickButton::popupOpened, q, &QVClickManager::popupOpened);
    connect(button, &QVClickButton::outageStarted, q, &QVClickManager::outageStarted);
    connect(button, &QVClickButton::failed, q, &QVClickManager::failed);
    connect(button, &QVClickButton::closed, q, &QVClickManager::closed);
    connect(button, &QVClickButton::popupFailed, q, &QVClickManager::popupFailed);
    connect(button, &QVClickButton::expired, q, &QVClickManager::expired);
    connect(button, &QObject::destroyed, q, [this] { buttonDestroyed(); });
    offerAlternative();
}

void QVClickManager::Private::offerAlternative() const
{
    if (!button)
        return;
    // Connected only while the host listens, so that the button offers it only then.
    if (q->isSignalConnected(QMetaMethod::fromSignal(&QVClickManager::alternativeRequested)))
        connect(button, &QVClickButton::alternativeRequested, q, &QVClickManager::alternativeRequested,
                Qt::UniqueConnection);
    else
        disconnect(button, &QVClickButton::alternativeRequested, q, &QVClickManager::alternativeRequested);
}

void QVClickManager::Private::buttonDestroyed()
{
    // A widget tells of its end while pointers to it still hold.
    button = nullptr;
    // Not at once: the window around the button may be in its destructor, where its slots must not
    // be called any more.
    for (int i = 0; i < openAttempts; ++i) {
        QVScheduler::shared().schedule({}, [manager = QPointer(q)] {
            if (manager)
                Q_EMIT manager->closed(QVCloseReason::WindowGone);
        });
    }
}

QVClickManager::QVClickManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
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
    if (!qv_mayCall(Q_FUNC_INFO) || !qv_hasWidgets(Q_FUNC_INFO)) {
        qv_failToShow(this);
        return nullptr;
    }
    if (!d->button)
        d->createButton();
    return d->button;
}

QAbstractButton *QVClickManager::clickButton()
{
    return button();
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
    if (auto *const button = this->button())
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
