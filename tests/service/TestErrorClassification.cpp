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
    return localized("systemError").replace(q("{domain}"), localized("otherRequestError"));
}

} // namespace

class TestErrorClassification : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void serviceCodes()
    {
        const QVCases<const char *, int, const char *> cases{{"0101", 101, "AccessDenied"},
                                                             {"0105", 105, "RefreshTooFast"},
                                                             {"0106", 106, "refreshMany"},
                                                             {"0315", 315, "RequestToMouch"},
                                                             {"1002", 1002, "expired"},
                                                             {"0104", 104, ""},
                                                             {"-1001", -1001, ""},
                                                             {"oops", 0, ""},
                                                             {"", 0, ""}};
        for (const auto &[code, expected, key] : cases) {
            QVResponseModel record;
            record.setCode(q(code));
            const QVError error = QVErrorClassification::customErrorWithErrorResponse(&record);
            QCOMPARE(error.code(), expected);
            QCOMPARE(error.domain(), *key ? localized(key) : composite());
            QCOMPARE(error.userInfo(), QVariantMap({{q("QVCustonErrorKey"), 1}}));
            QVERIFY(QVErrorClassification::isQVCustomError(error));
            QCOMPARE(QVErrorClassification::parseError(error), error);
        }
    }

    void platformCodes()
    {
        const QVCases<qint64, const char *> cases{{-1001, "-1001"}, {-1005, "-1005"}, {-1009, "-1005"},
                                                  {-999, ""},       {-1200, ""},      {0, ""},
                                                  {101, ""},        {3840, ""}};
        const QVariantMap extra{{q("other"), 5}};
        for (const auto &[code, key] : cases) {
            const QVError error = QVErrorClassification::parseError(QVError(q("platform"), code, extra));
            QCOMPARE(error, QVError(*key ? localized(key) : composite(), code, extra));
            QVERIFY(!QVErrorClassification::isQVCustomError(error));
        }
        QCOMPARE(QVErrorClassification::parseError(std::nullopt), QVError(q("No Error!!!")));
    }
};

QV_TEST(TestErrorClassification)
#include "TestErrorClassification.moc"
