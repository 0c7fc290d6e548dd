#include "modes/QVClickManager.h"

#include "modes/QVClickButton.h"
#include "modes/QVClickManagerDelegate.h"
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
    void buttonDestroyed() const;

    QVClickManager *const q;
    QVWeakDelegate<QVClickManagerDelegate> delegate;
    QPointer<QVClickButton> button;
    QVClickStatus lastStatus = QVClickStatusNormal;
};

void QVClickManager::Private::createButton()
{
    button = new QVClickButton;
    button->setDelegate(q);
    lastStatus = button->clickStatus();
    connect(button, &QVClickButton::clickStatusChanged, q,
            [this](QVClickStatus status) { lastStatus = status; });
    connect(button, &QVClickButton::popupOpened, q, &QVClickManager::popupOpened);
    connect(button, &QVClickButton::outageStarted, q, &QVClickManager::outageStarted);
    connect(button, &QVClickButton::failed, q, &QVClickManager::failed);
    connect(button, &QVClickButton::closed, q, &QVClickManager::closed);
    connect(button, &QObject::destroyed, q, [this] { buttonDestroyed(); });
}

void QVClickManager::Private::buttonDestroyed() const
{
    if (lastStatus != QVClickStatusVerifying && lastStatus != QVClickStatusDrawing)
        return;
    // Not at once: the window around the button may be in its destructor, where its slots must not
    // be called any more.
    QVScheduler::shared().schedule({}, [manager = QPointer(q)] {
        if (manager)
            Q_EMIT manager->closed();
    });
}

QVClickManager::QVClickManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
    qv_assertMainThread();
}

QVClickManager::~QVClickManager()
{
    if (!d->button)
        return;
    disconnect(d->button, nullptr, this, nullptr);
    if (!d->button->parent())
        delete d->button;
}

QVClickManagerDelegate *QVClickManager::delegate() const
{
    return d->delegate.get();
}

void QVClickManager::setDelegate(QVClickManagerDelegate *delegate)
{
    d->delegate = delegate;
}

QVClickButton *QVClickManager::button()
{
    qv_assertMainThread();
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
    button()->reset();
}
