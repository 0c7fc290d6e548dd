#include "service/QVErrorClassification.h"
#include "service/QVResponseModel.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLocalization.h"
#include "support/QVTestCase.h"

namespace {

QString localized(const char *key)
{
    return qv_localizedStringForKey(QString::fromLatin1(key));
}

QString composite()
{
    return localized("systemError").replace(QStringLiteral("{domain}"), localized("otherRequestError"));
}

const QString customKey = QStringLiteral("QVCustonErrorKey");

} // namespace

class TestErrorClassification : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void serviceCodes_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<qint64>("expectedCode");
        QTest::addColumn<QByteArray>("key");
        const auto row = [](const char *code, qint64 expected, const char *key) {
            QTest::newRow(code) << QString::fromLatin1(code) << expected << QByteArray(key);
        };
        row("0101", 101, "AccessDenied");
        row("0105", 105, "RefreshTooFast");
        row("0106", 106, "refreshMany");
        row("0315", 315, "RequestToMouch");
        row("1002", 1002, "expired");
        row("0104", 104, "");
        row("-1001", -1001, "");
        row("-1009", -1009, "");
        row("9999", 9999, "");
        row("oops", 0, "");
        row("", 0, "");
    }

    void serviceCodes()
    {
        QFETCH(const QString, code);
        QFETCH(const qint64, expectedCode);
        QFETCH(const QByteArray, key);
        QVResponseModel record;
        record.setCode(code);
        const QVError error = qv_customErrorWithErrorResponse(&record);
        QCOMPARE(error.code(), expectedCode);
        QCOMPARE(error.domain(), key.isEmpty() ? composite() : localized(key.constData()));
        QCOMPARE(error.userInfo(), QVariantMap({{customKey, 1}}));
        QVERIFY(qv_isQVCustomError(error));
        QCOMPARE(qv_parseError(error), error);
    }

    void absentRecord()
    {
        const QVError error = qv_customErrorWithErrorResponse(nullptr);
        QCOMPARE(error, QVError(composite(), 0, qv_customUserInfo()));
    }

    void platformCodes_data()
    {
        QTest::addColumn<qint64>("code");
        QTest::addColumn<QByteArray>("key");
        const auto row = [](qint64 code, const char *key) {
            QTest::addRow("%lld", static_cast<long long>(code)) << code << QByteArray(key);
        };
        row(-1001, "-1001");
        row(-1005, "-1005");
        row(-1009, "-1005");
        for (const qint64 code : {-999, -1003, -1200, -1, 0, 101, 105, 106, 315, 1002, 3840})
            row(code, "");
    }

    void platformCodes()
    {
        QFETCH(const qint64, code);
        QFETCH(const QByteArray, key);
        const QVariantMap extra{{QStringLiteral("other"), 5}};
        const QVError error = qv_parseError(QVError(QStringLiteral("platform"), code, extra));
        QCOMPARE(error.domain(), key.isEmpty() ? composite() : localized(key.constData()));
        QCOMPARE(error.code(), code);
        QCOMPARE(error.userInfo(), extra);
        QVERIFY(!qv_isQVCustomError(error));
    }

    void absentError() { QCOMPARE(qv_parseError(std::nullopt), QVError(QStringLiteral("No Error!!!"))); }

    void anyMarkCounts()
    {
        QVERIFY(qv_isQVCustomError(QVError(QString(), 0, {{customKey, false}})));
        QVERIFY(!qv_isQVCustomError(QVError(QString(), 0, {{customKey.toUpper(), 1}})));
    }

    void messagesFollowTheLanguage()
    {
        const auto message = [](const QString &language) {
            QVConfigurationManager::sharedManager().setPreferredLanguage(language);
            return qv_parseError(QVError(QString(), -1001)).domain();
        };
        const QString english = message(QStringLiteral("en"));
        QVERIFY(message(QStringLiteral("zh-Hans")) != english);
        QVERIFY(english != QStringLiteral("-1001"));
        QVERIFY(!composite().contains(u'{'));
    }
};

QV_TEST(TestErrorClassification)
#include "TestErrorClassification.moc"
