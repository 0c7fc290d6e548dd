#include "platform/QVMainThread.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QThread>

namespace {

Q_LOGGING_CATEGORY(hostLog, "quarvo.host", QtInfoMsg)

bool isMainThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

bool warn(const char *call, const char *rule)
{
    qCWarning(hostLog, "%s %s", call, rule);
    return false;
}

} // namespace

void qv_assertMainThread()
{
    Q_ASSERT_X(QCoreApplication::instance(), "Quarvo", "create the application object first");
    Q_ASSERT_X(isMainThread(), "Quarvo", "call from the thread of the application object only");
}

bool qv_mayCall(const char *call)
{
    if (!QCoreApplication::instance())
        return warn(call, "is to be called once there is an application object");
    return isMainThread() || warn(call, "is to be called in the thread of the application object");
}

bool qv_hasWidgets(const char *call)
{
    const auto *const application = QCoreApplication::instance();
    return (application && application->inherits("QApplication")) || warn(call, "needs a QApplication");
}
