#pragma once

#include "flow/QVIdentity.h"
#include "platform/QVDelegate.h"

#include <QPointer>

class QVClickButton;
class QVClickManager;
class QVClickManagerDelegate;

/// The state of the click manager, and the connections with its button.
class QVClickManagerPrivate
{
public:
    explicit QVClickManagerPrivate(QVClickManager *manager)
        : q(manager)
    {
    }

    /// The button, created where there is none. Null, with a warning that names \a call, where none can be
    /// created.
    [[nodiscard]] QVClickButton *buttonFor(const char *call);
    void createButton();
    void buttonDestroyed();
    void offerAlternative() const;

    QVClickManager *const q;
    QVWeakDelegate<QVClickManagerDelegate> delegate;
    QPointer<QVClickButton> button;
    bool isUnderWay = false;
    /// The number of attempts that have not ended. It is more than one if the host starts another attempt in
    /// a slot of a status change.
    int openAttempts = 0;
    QVIdentity identity;
};
