#pragma once

#include <QMetaMethod>
#include <QObject>

/// For connectNotify() and disconnectNotify() of a class with the signal alternativeRequested(). Calls
/// \a offer from the event loop of \a sender if \a changed is that signal or invalid, which means all
/// signals. Not at once, since a slot that is being disconnected still counts as connected.
template<class Sender, class Offer>
void qv_followAlternative(Sender *sender, const QMetaMethod &changed, Offer offer)
{
    if (!changed.isValid() || changed == QMetaMethod::fromSignal(&Sender::alternativeRequested))
        QMetaObject::invokeMethod(sender, offer, Qt::QueuedConnection);
}
