#include "flow/QVPassText.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

class TestPassText : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fillsInTimeAndScore()
    {
        QVVerifyResponseModel answer;
        answer.setDrawtime(q("1234"));
        QCOMPARE(qv_passText(answer), q("Verified"));
        answer.setPassline(q(""));
        QCOMPARE(qv_passText(answer), q("Verified"));
        answer.setPassline(q("60"));
        answer.setScore(q("<b>5</b>"));
        // A tie goes to even.
        const QVCases<QString, QString> cases{{q("1960"), q("2.0")},  {q("1250"), q("1.2")},
                                              {q("soon"), q("0.0")},  {QString(), q("0.0")},
                                              {q("1e999"), q("0.0")}, {q(" 4200ms"), q("4.2")}};
        for (const auto &[drawtime, shown] : cases) {
            answer.setDrawtime(drawtime);
            QCOMPARE(qv_passText(answer), q("%1 s, better than <b>5</b>% of users").arg(shown));
        }
    }

private:
    void prepare() override { QVSDKManager::setPreferredLanguage(q("en")); }
};

QV_TEST(TestPassText)
#include "TestPassText.moc"
