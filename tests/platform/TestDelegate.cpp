#include "platform/QVDelegate.h"
#include "support/QVTestCase.h"

namespace {

class Listener : public QObject, public QVDelegate
{
};

} // namespace

class TestDelegate : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void becomesNullWithTheDelegate()
    {
        auto listener = std::make_unique<Listener>();
        const QVWeakDelegate<Listener> weak(listener.get());
        QCOMPARE(weak.get(), listener.get());
        listener.reset();
        QVERIFY(!weak);
    }

    void copyHasALifeOfItsOwn()
    {
        struct Plain : QVDelegate
        {
        };
        auto original = std::make_unique<Plain>();
        Plain copy(*original);
        const QVWeakDelegate<Plain> toCopy(&copy);
        const QVWeakDelegate<Plain> toOriginal(original.get());
        original.reset();
        QVERIFY(toCopy);
        QVERIFY(!toOriginal);
    }
};

QV_TEST(TestDelegate)
#include "TestDelegate.moc"
