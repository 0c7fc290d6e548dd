#include "service/QVGetRefreshResponseModel.h"
#include "support/QVTestCase.h"

using namespace std::chrono_literals;

class TestCountdown : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void countdownFiresOnce()
    {
        int fired = 0;
        const auto record = std::make_shared<QVGetRefreshResponseModel>();
        record->setFireTimeDown([&] { ++fired; });
        record->startTimeDown();
        advance(100s);
        record->startTimeDown();
        advance(179s - 1ms);
        QCOMPARE(fired, 0);
        advance(1ms);
        QCOMPARE(fired, 1);
        QCOMPARE(record->handler().delegate(), record.get());
        record->fireTimeDown()();
        QCOMPARE(fired, 2);
        record->startTimeDown();
        QVERIFY(record->handler().timer().isActive());
        record->endTimeDown();
        record->endTimeDown();
        QVERIFY(!record->handler().timer().isActive());
        QCOMPARE(time().pendingCount(), 0);
    }

    void runningCountdownKeepsTheRecord()
    {
        auto record = std::make_shared<QVGetRefreshResponseModel>();
        const std::weak_ptr<QVGetRefreshResponseModel> watched = record;
        QVGetRefreshResponseModel *bare = record.get();
        record->startTimeDown();
        record.reset();
        QVERIFY(!watched.expired());
        bare->endTimeDown();
        QVERIFY(watched.expired());
    }

    void actionMayStartAnewOrLetGo()
    {
        int fired = 0;
        auto record = std::make_shared<QVGetRefreshResponseModel>();
        const std::weak_ptr<QVGetRefreshResponseModel> watched = record;
        record->setFireTimeDown([&] {
            if (++fired == 1)
                watched.lock()->startTimeDown();
            else
                watched.lock()->setFireTimeDown({});
        });
        record->startTimeDown();
        record.reset();
        advance(2 * 179s);
        QCOMPARE(fired, 2);
        QVERIFY(watched.expired());
    }
};

QV_TEST(TestCountdown)
#include "TestCountdown.moc"
