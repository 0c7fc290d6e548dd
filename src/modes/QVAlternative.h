#pragma once

#include <QMetaMethod>
#include <QObject>

/// For the connectNotify() and disconnectNotify() of a class with the signal alternativeRequested(): has
/// \a offer called from the event loop of \a sender where \a changed is that signal, or any. Not at once:
/// what is being disconnected still counts as connected.
template<class Sender, class Offer>
void qv_followAlternative(Sender *sender, const QMetaMethod &changed, Offer offer)
{
    if (!changed.isValid() || changed == QMetaMethod::fromSignal(&Sender::alternativeRequested))
        QMetaObject::invokeMethod(sender, offer, Qt::QueuedConnection);
}
