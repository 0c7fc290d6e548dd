#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVVerifyResponseModel.h"
#include "support/QVTestCase.h"

using namespace std::chrono_literals;

class TestRecords : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void success()
    {
        const auto passes = [](auto record, const QString &code) {
            record.setCode(code);
            return record.responseSuccess();
        };
        for (const QString &code : {q("0103"), q("0104"), q("104"), q("0103 "), QString()}) {
            QCOMPARE(passes(QVVerifyResponseModel(), code), code == q("0103"));
            QCOMPARE(passes(QVClickResponseModel(), code), code == q("0103") || code == q("0104"));
        }
    }

    void apiServer()
    {
        const QVCases<QString, QString> cases{{q("a.example"), q("https://a.example")},
                                              {q("httpd.example"), q("httpd.example")},
                                              {q("HTTP://a"), q("https://HTTP://a")},
                                              {q(""), q("https://earlier")}};
        for (const auto &[given, stored] : cases) {
            QVConfigResponseModel record;
            record.setApi_server(q("earlier"));
            record.setApi_server(given);
            QCOMPARE(record.api_server(), stored);
        }
    }

    void characterKindSticks()
    {
        QVConfigResponseModel record;
        record.setType(q("Character"));
        QVERIFY(!record.isCharVerify());
        record.setType(q("character"));
        QVERIFY(record.isCharVerify());
        record.setType(q("draw"));
        QVERIFY(record.isCharVerify());
        QCOMPARE(record.type(), q("draw"));
    }

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

QV_TEST(TestRecords)
#include "TestRecords.moc"
