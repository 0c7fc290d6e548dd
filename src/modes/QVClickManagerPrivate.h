#pragma once

#include "flow/QVIdentity.h"
#include "platform/QVDelegate.h"

#include <QPointer>

class QVClickButton;
class QVClickManager;
class QVClickManagerDelegate;

/// What the click manager knows of its button, whose signals it relays.
class QVClickManagerPrivate
{
public:
    explicit QVClickManagerPrivate(QVClickManager *manager)
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
