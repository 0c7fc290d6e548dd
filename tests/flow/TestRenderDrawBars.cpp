#include "flow/QVPassText.h"
#include "flow/QVRenderDrawBars.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

namespace {

/// Keeps which bar lies on top, and what it says.
struct Screen final : QVOverlaySurface, QVRenderDrawImageViewDelegate
{
    void slideIn(Bar bar, const QVText &text, bool acceptsTouches) override
    {
        shown.removeAll(bar);
        shown.append(bar);
        said = text.text();
        takesTaps = acceptsTouches;
    }
    void slideOut(Bar bar) override { shown.removeAll(bar); }
    void renderDrawImageViewHiddenDelayErrorCompleted() override { ++hides; }

    QList<Bar> shown;
    QString said;
    bool takesTaps = false;
    int hides = 0;
};

} // namespace

/// Steps: p, c prompt (characters); e passing and t tappable error; s success; P, E, S, A hide; 1 to 9
/// tenths of a second.
class TestRenderDrawBars : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void decides_data()
    {
        const auto row = addColumns<QString, QString, int>({"shown", "said", "hides"});
        row("p", q("Prompt"), q("Draw along the curve"), 0);
        row("c", q("Prompt"), q("Type the characters you see"), 0);
        row("pc", q("Prompt"), q("Type the characters you see"), 0);
        row("ps", q("Success"), q("passed"), 0);
        row("pe", q("Error"), q("wrong"), 0);
        row("ep", q("Error"), q("wrong"), 0);
        row("tp", q("Error"), q("failed"), 0);
        row("sp", q("Success"), q("passed"), 0);
        row("ts", q("Success"), q("passed"), 0);
        row("se", q("Success Error"), q("wrong"), 0);
        row("e9", q("Error"), q("wrong"), 0);
        row("e91", q(""), q("wrong"), 1);
        row("t99", q("Error"), q("failed"), 0);
        row("e5t9", q("Error"), q("failed"), 0);
        row("e5e5", q(""), q("wrong"), 1);
        row("e5e55", q(""), q("wrong"), 2);
        row("t5e5", q("Error"), q("wrong"), 0);
        row("t5e55", q(""), q("wrong"), 1);
        // Any hide forgets any bar.
        row("tPp", q("Error Prompt"), q("Draw along the curve"), 0);
        row("sEp", q("Success Prompt"), q("Draw along the curve"), 0);
        row("sSp", q("Prompt"), q("Draw along the curve"), 0);
        row("sA", q(""), q("passed"), 0);
        row("stA", q(""), q("failed"), 0);
    }

    void decides()
    {
        QFETCH(QString, shown);
        Screen screen;
        const auto bars = std::make_shared<QVRenderDrawBars>(&screen, &screen);
        for (const char *step = QTest::currentDataTag(); *step; ++step)
            take(*bars, *step);
        QStringList names;
        for (const QVOverlaySurface::Bar bar : screen.shown)
            names.append(QStringList{q("Prompt"), q("Error"), q("Success")}.at(int(bar)));
        QCOMPARE(names.join(u' '), shown);
        QTEST(screen.said, "said");
        QTEST(screen.hides, "hides");
        QCOMPARE(screen.takesTaps, screen.said == q("failed"));
    }

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

    void take(QVRenderDrawBars &bars, char step) const
    {
        if (step == 'p' || step == 'c')
            bars.showPrompt(step == 'c');
        else if (step == 'e' || step == 't')
            bars.showError(step == 't' ? q("failed") : q("wrong"), step == 't');
        else if (step == 's')
            bars.showSuccess(q("passed"));
        else if (step == 'P')
            bars.hiddenPrompt();
        else if (step == 'E')
            bars.hiddenError();
        else if (step == 'S')
            bars.hiddenSuccess();
        else if (step == 'A')
            bars.hiddernAll();
        else
            advance(std::chrono::milliseconds(100 * (step - '0')));
    }
};

QV_TEST(TestRenderDrawBars)
#include "TestRenderDrawBars.moc"
