#include "modes/QVClickManagerPrivate.h"

#include "modes/QVCannotBeShown.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"
#include "platform/QVMainThread.h"
#include "platform/QVScheduler.h"

#include <QMetaMethod>

QVClickButton *QVClickManagerPrivate::buttonFor(const char *call)
{
    if (!qv_mayCall(call) || !qv_hasWidgets(call)) {
        qv_failToShow(q);
        return nullptr;
    }
    if (!button)
        createButton();
    return button;
}

void QVClickManagerPrivate::createButton()
{
    button = new QVClickButton;
    button->setDelegate(q);
    button->setVid(identity.ownVid);
    button->setScene(identity.ownScene);
    isUnderWay = false;
    openAttempts = 0;
    QObject::connect(button, &QVClickButton::clickStatusChanged, q, [this](QVClickStatus status) {
        const bool was = isUnderWay;
        isUnderWay = status == QVClickStatusVerifying || status == QVClickStatusDrawing;
        if (isUnderWay && !was)
            ++openAttempts;
        else if (status == QVClickStatusPassed)
            --openAttempts;
    });
    QObject::connect(button, &QVClickButton::failed, q, [this] { --openAttempts; });
    QObject::connect(button, &QVClickButton::closed, q, [this] { --openAttempts; });
    QObject::connect(button, &QVClickButton::popupOpened, q, &QVClickManager::popupOpened);
    QObject::connect(button, &QVClickButton::outageStarted, q, &QVClickManager::outageStarted);
    QObject::connect(button, &QVClickButton::failed, q, &QVClickManager::failed);
    QObject::connect(button, &QVClickButton::closed, q, &QVClickManager::closed);
    QObject::connect(button, &QVClickButton::popupFailed, q, &QVClickManager::popupFailed);
    QObject::connect(button, &QVClickButton::expired, q, &QVClickManager::expired);
    QObject::connect(button, &QObject::destroyed, q, [this] { buttonDestroyed(); });
    offerAlternative();
}

void QVClickManagerPrivate::offerAlternative() const
{
    if (!button)
        return;
    // Connected only while the host has connected the manager's signal, so that the button offers it only
    // then.
    if (q->isSignalConnected(QMetaMethod::fromSignal(&QVClickManager::alternativeRequested)))
        QObject::connect(button, &QVClickButton::alternativeRequested, q,
                         &QVClickManager::alternativeRequested, Qt::UniqueConnection);
    else
        QObject::disconnect(button, &QVClickButton::alternativeRequested, q,
                            &QVClickManager::alternativeRequested);
}

void QVClickManagerPrivate::buttonDestroyed()
{
    // A QWidget emits destroyed() before QPointers to it become null.
    button = nullptr;
    // From the event loop: the window around the button may be in its destructor, when its slots must not be
    // called any more.
    for (int i = 0; i < openAttempts; ++i) {
        QVScheduler::shared().schedule({}, [manager = QPointer(q)] {
            if (manager)
                Q_EMIT manager->closed(QVCloseReason::WindowGone);
        });
    }
}
