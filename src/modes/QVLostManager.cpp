#include "modes/QVLostManager.h"

#include "platform/QVScheduler.h"

#include <QLoggingCategory>
#include <QPointer>
#include <QWidget>

namespace {

Q_LOGGING_CATEGORY(modesLog, "quarvo.modes", QtInfoMsg)

} // namespace

void qv_warnOfLostManager(const char *manager, const char *part, QWidget *widget)
{
    // From the event loop: a window destroys its members before its children.
    QVScheduler::shared().schedule({}, [manager, part, widget = QPointer(widget)] {
        if (widget)
            qCWarning(
                modesLog,
                "%s was destroyed while its %s is still in a window, so nobody hears its signals: keep the "
                "manager as long as the window, for instance as a member of it",
                manager, part);
    });
}
