#pragma once

#include "service/QVErrorClassification.h"

#include <QMetaObject>
#include <QThread>

/// Makes \a manager emit failed() with the code QVError::CannotBeShown, unless this is called on another
/// thread. It is emitted from the event loop, since the host may not have connected its slots yet.
template<class Manager>
void qv_failToShow(Manager *manager)
{
    if (QThread::currentThread() != manager->thread())
        return;
    const auto tell = [manager] {
        Q_EMIT manager->failed(QVErrorClassification::parseError(QVError({}, QVError::CannotBeShown)));
    };
    QMetaObject::invokeMethod(manager, tell, Qt::QueuedConnection);
}
