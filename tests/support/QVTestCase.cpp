#include "support/QVTestCase.h"

#include "support/QVWait.h"

#include <QRegularExpression>

#include <map>

namespace {

std::map<QString, QVTestRegistry::Factory> &factories()
{
    static std::map<QString, QVTestRegistry::Factory> instance;
    return instance;
}

} // namespace

void QVTestCase::init()
{
    // All but what a platform says of itself, and what a host's developer reads of failures that tests make.
    QTest::failOnWarning(QRegularExpression(
        q("^(?!This plugin does not support|QVncServer |Request for |No verification id)")));
    m_time = std::make_unique<QVVirtualScheduler>();
    prepare();
}

void QVTestCase::cleanup()
{
    finish();
    // Widgets and replies that were told to delete themselves go before their clock does.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_time.reset();
}

bool QVTestCase::waitFor(const std::function<bool()> &condition)
{
    return qv_waitFor(condition);
}

bool QVTestRegistry::addFactory(const QString &name, Factory factory)
{
    return factories().emplace(name, std::move(factory)).second;
}

std::unique_ptr<QObject> QVTestRegistry::create(const QString &name)
{
    const auto found = factories().find(name);
    return found == factories().end() ? nullptr : found->second();
}

QStringList QVTestRegistry::names()
{
    QStringList result;
    for (const auto &entry : factories())
        result.append(entry.first);
    return result;
}
