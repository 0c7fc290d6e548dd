#pragma once

#include "support/QVVirtualScheduler.h"

#include <QObject>
#include <QTest>

#include <functional>
#include <memory>

/// Base of the test classes: virtual time in each test function, and any warning that the function
/// did not announce fails it.
class QVTestCase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

protected:
    [[nodiscard]] QVVirtualScheduler &time() const { return *m_time; }
    /// Moves virtual time on and delivers what that makes due.
    void advance(std::chrono::milliseconds duration) const { m_time->advance(duration); }
    /// Delivers real events (sockets, threads) until \a condition holds; false after 5 real seconds.
    [[nodiscard]] static bool waitFor(const std::function<bool()> &condition);

    /// What a class does besides at the start and end of each test function.
    virtual void prepare() {}
    virtual void finish() {}

private:
    std::unique_ptr<QVVirtualScheduler> m_time;
};

/// Makes a test class known to the test program under its own name.
class QVTestRegistry
{
public:
    using Factory = std::function<std::unique_ptr<QObject>()>;

    template<class Test>
    static bool add()
    {
        return addFactory(QString::fromLatin1(Test::staticMetaObject.className()),
                          [] { return std::make_unique<Test>(); });
    }

    static std::unique_ptr<QObject> create(const QString &name);
    static QStringList names();

private:
    static bool addFactory(const QString &name, Factory factory);
};

// A macro, since a registration is a static object that needs no name in the test's own code.
#define QV_TEST(Class) static const bool registered##Class = QVTestRegistry::add<Class>();
