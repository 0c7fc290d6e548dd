#include "platform/QVScheduler.h"

#include "platform/QVQtScheduler.h"

namespace {

QVScheduler *replacement = nullptr;

} // namespace

QVScheduler::~QVScheduler() = default;

QVScheduler &QVScheduler::shared()
{
    return replacement ? *replacement : QVQtScheduler::instance();
}

void QVScheduler::setShared(QVScheduler *scheduler)
{
    replacement = scheduler;
}
