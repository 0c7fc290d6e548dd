#include "platform/QVMainThread.h"

#include <QCoreApplication>
#include <QThread>

void qv_assertMainThread()
{
    Q_ASSERT_X(QCoreApplication::instance(), "Quarvo", "create the application object first");
    Q_ASSERT_X(QThread::currentThread() == QCoreApplication::instance()->thread(), "Quarvo",
               "call from the thread of the application object only");
}
