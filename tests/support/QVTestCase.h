#pragma once

#include "support/QVText.h"
#include "support/QVVirtualScheduler.h"

#include <QObject>
#include <QTest>

#include <array>
#include <functional>
#include <memory>
#include <tuple>
#include <vector>

/// A table of cases that need no fresh set-up each.
template<class... Columns>
using QVCases = std::vector<std::tuple<Columns...>>;

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
    /// Delivers real events (sockets, threads) until \a condition holds; false after 15 real seconds.
    [[nodiscard]] static bool waitFor(const std::function<bool()> &condition);

    /// Names the columns of a data-driven test. Gives what adds a row.
    template<class... Values>
    static auto addColumns(const std::array<const char *, sizeof...(Values)> &names)
    {
        std::size_t next = 0;
        (QTest::addColumn<Values>(names[next++]), ...);
        return [](const char *name, const auto &...values) {
            QTestData &row = QTest::newRow(name);
            (row << ... << values);
        };
    }

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
