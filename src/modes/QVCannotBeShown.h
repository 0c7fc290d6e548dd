#pragma once

#include "service/QVErrorClassification.h"

#include <QMetaObject>
#include <QThread>

/// Has \a manager tell by failed() that there is nothing to show it with, unless it was called from another
/// thread. From the event loop: its host may not have connected anything yet.
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
