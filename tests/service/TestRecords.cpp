#include "model/QVModelMapper.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVConfigurationManager.h"
#include "support/QVTestCase.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLoggingCategory>

using namespace std::chrono_literals;

namespace {

QString plain(const char *value)
{
    return QString::fromLatin1(value);
}

QString defaultCdn()
{
    return QVConfigurationManager::sharedManager().serviceAddresses().cdn();
}

} // namespace

class TestRecords : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void success_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<bool>("usual");
        QTest::addColumn<bool>("click");
        QTest::newRow("0103") << plain("0103") << true << true;
        QTest::newRow("0104") << plain("0104") << false << true;
        QTest::newRow("103") << plain("103") << false << false;
        QTest::newRow("104") << plain("104") << false << false;
        QTest::newRow("trailing space") << plain("0103 ") << false << false;
        QTest::newRow("absent") << QString() << false << false;
    }

    void success()
    {
        QFETCH(const QString, code);
        QFETCH(const bool, usual);
        QFETCH(const bool, click);
        QVVerifyResponseModel verifyRecord;
        QVClickResponseModel clickRecord;
        verifyRecord.setCode(code);
        clickRecord.setCode(code);
        QCOMPARE(verifyRecord.responseSuccess(), usual);
        QCOMPARE(clickRecord.responseSuccess(), click);
    }

    void apiServer_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("stored");
        QTest::newRow("bare") << plain("a.example") << plain("https://a.example");
        QTest::newRow("plain") << plain("http://a.example") << plain("http://a.example");
        QTest::newRow("secure") << plain("https://a.example") << plain("https://a.example");
        QTest::newRow("four letters") << plain("httpd.example") << plain("httpd.example");
        QTest::newRow("capitals") << plain("HTTP://a") << plain("https://HTTP://a");
        QTest::newRow("empty") << plain("") << plain("https://earlier");
        QTest::newRow("absent") << QString() << plain("https://earlier");
    }

    void apiServer()
    {
        QFETCH(const QString, given);
        QFETCH(const QString, stored);
        QVConfigResponseModel record;
        record.setApi_server(given);
        QCOMPARE(record.api_server().isNull(), given.isEmpty());
        record.setApi_server(plain("earlier"));
        record.setApi_server(given);
        QCOMPARE(record.api_server(), stored);
    }

    void pictureServers_data()
    {
        QTest::addColumn<QStringList>("servers");
        QTest::addColumn<QString>("source");
        QTest::newRow("none") << QStringList() << defaultCdn();
        QTest::newRow("bare") << QStringList{plain("p"), plain("q")} << plain("https://p");
        QTest::newRow("with scheme") << QStringList{plain("http://p")} << plain("http://p");
        QTest::newRow("first absent") << QStringList{QString(), plain("q")} << defaultCdn();
    }

    void pictureServers()
    {
        QFETCH(const QStringList, servers);
        QFETCH(const QString, source);
        QVConfigResponseModel record;
        record.setSource_server(plain("earlier"));
        record.setCdn_servers(servers);
        QCOMPARE(record.source_server(), source);
        QCOMPARE(record.cdn_servers(), servers);
    }

    void characterKindSticks()
    {
        QVConfigResponseModel record;
        record.setType(plain("Character"));
        QVERIFY(!record.isCharVerify());
        record.setType(plain("character"));
        QVERIFY(record.isCharVerify());
        record.setType(plain("draw"));
        QVERIFY(record.isCharVerify());
        QCOMPARE(record.type(), plain("draw"));
    }

    void mapsEveryMember()
    {
        const QJsonObject object{
            {plain("code"), plain("0103")},      {plain("key"), plain("k")},
            {plain("type"), plain("character")}, {plain("challenge"), plain("c")},
            {plain("api_server"), plain("a")},   {plain("cdn_servers"), QJsonArray{QJsonValue(), plain("q")}},
            {plain("guide"), plain("YES")},      {plain("configTimeInterval"), 1.5},
            {plain("getRefreshCount"), 4}};
        QVConfigResponseModel record;
        QVModelMapper::fill(record, object);
        QCOMPARE(
            QStringList(
                {record.code(), record.key(), record.type(), record.challenge(), record.api_server()}),
            QStringList({plain("0103"), plain("k"), plain("character"), plain("c"), plain("https://a")}));
        QCOMPARE(record.source_server(), defaultCdn());
        QVERIFY(record.guide() && record.isCharVerify());
        QCOMPARE(record.configTimeInterval(), 1.5);
        QCOMPARE(record.getRefreshCount(), 4);
    }

    void mapsWhatBasesHold()
    {
        QVClickResponseModel record;
        QVModelMapper::fill(record, {{plain("code"), plain("0104")},
                                     {plain("img"), plain("i")},
                                     {plain("verifyCount"), 2},
                                     {plain("token"), plain("t")},
                                     {plain("fireTimeDown"), plain("now")},
                                     {plain("handler"), QJsonObject{}}});
        QCOMPARE(record.code() + record.img() + record.token(), plain("0104it"));
        QCOMPARE(record.verifyCount(), 2);
    }

    void outagePictureAddress()
    {
        QVGetOutageResponseModel record;
        record.setImgid(plain("a/b c"));
        QCOMPARE(record.imgUrlString(),
                 QVConfigurationManager::sharedManager().serviceAddresses().imageHost() +
                     plain("/a/b c.jpg"));
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
        advance(1000s);
        QCOMPARE(fired, 1);
    }

    void endedCountdownDoesNotFire()
    {
        const auto record = std::make_shared<QVGetRefreshResponseModel>();
        record->setFireTimeDown([] { QFAIL("fired after its end"); });
        record->endTimeDown();
        record->startTimeDown();
        record->endTimeDown();
        record->endTimeDown();
        QCOMPARE(time().pendingCount(), 0);
    }

    void countdownWithoutActionEnds()
    {
        std::make_shared<QVGetRefreshResponseModel>()->startTimeDown();
        advance(179s);
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

    void saysGoodbyeUnderItsName()
    {
        QLoggingCategory::setFilterRules(plain("quarvo.service.debug=true"));
        QTest::ignoreMessage(QtDebugMsg, "QVGetRefreshResponseModel dealloc");
        QTest::ignoreMessage(QtDebugMsg, "QVClickResponseModel dealloc");
        QVGetRefreshResponseModel();
        QVClickResponseModel();
        QLoggingCategory::setFilterRules({});
    }
};

QV_TEST(TestRecords)
#include "TestRecords.moc"
