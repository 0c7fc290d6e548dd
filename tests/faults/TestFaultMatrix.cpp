#include "draw/QVRenderDrawView.h"
#include "faults/FaultService.h"
#include "modes/ModesTestCase.h"
#include "support/QVMemory.h"
#include "support/QVStillStyle.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QRegularExpression>

using namespace std::chrono_literals;

namespace {

/// How far the process may grow while it is badly served. The server's own 10 MiB are in it thrice,
/// in its script, its socket and the system's; a picture of the giant's size would be 10 GiB.
constexpr qint64 memoryLimit = 96 << 20;

enum class Step { Start, Refresh, Verify };

struct Operation
{
    const char *name;
    const char *target;
    Step step;
    bool isOutage;
};

constexpr Operation operations[] = {
    {"switch", "/config", Step::Start, false},
    {"config", "/app/config/v1", Step::Start, false},
    {"get", "/api/get/v1", Step::Start, false},
    {"click", "/api/click/v1", Step::Start, false},
    {"picture", "/pictures/", Step::Start, false},
    {"refresh", "/api/refresh/v1", Step::Refresh, false},
    {"verify", "/api/verify/v1", Step::Verify, false},
    {"outage get", "/outage?action=get", Step::Start, true},
    {"outage picture", "/outage-pictures/", Step::Start, true},
    {"outage verify", "/outage?action=verify", Step::Verify, true},
};

} // namespace

/// Every fault at every operation, in the modes by turns: the user is told, the host hears of one end,
/// nothing grows, and what is tried again works once the service does.
class TestFaultMatrix : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void endsInAMessageAndCanBeRetried_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("operation");
        const char *const styles[] = {"embed", "click", "invisible"};
        for (int style = 0; style < 3; ++style) {
            for (std::size_t index = 0; index < std::size(operations); ++index) {
                const QByteArray name = operations[index].name;
                // The click decision takes the place of the first picture's answer where there is one.
                if (name != (style == QVVerifyStyleEmbed ? "click" : "get"))
                    QTest::addRow("%s, %s", styles[style], name.constData()) << style << int(index);
            }
        }
    }

    void endsInAMessageAndCanBeRetried()
    {
        QFETCH(int, style);
        QFETCH(int, operation);
        m_style = QVVerifyStyle(style);
        m_operation = &operations[operation];
        service().answer(outageSwitch, {{q("active"), m_operation->isOutage}});
        // Nothing moves, so that virtual seconds of waiting cost no painting.
        const QVStillStyle still;
        // An embedded panel asks for no click decision, the others for no first picture.
        const QByteArray name = m_operation->name;
        const int modes = name == "get" ? 1 : name == "click" ? 2 : 3;
        for (int index = 0; index < m_faults->faults().size(); ++index) {
            if ((index + operation + style) % modes != 0)
                continue;
            meet(m_faults->faults().at(index).second);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(m_faults->faults().at(index).first));
        }
        QCOMPARE(m_faults->downgrades(), 0);
        QVERIFY(outcomes().told().filter(q("token")).isEmpty());
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_faults = std::make_unique<FaultService>(service());
    }

    void finish() override
    {
        ModesTestCase::finish();
        m_faults.reset();
    }

    [[nodiscard]] bool failsBeforeItsPanel() const
    {
        return m_style != QVVerifyStyleEmbed && m_operation->step == Step::Start && !m_operation->isOutage &&
               QByteArray(m_operation->name) != "picture";
    }

    /// Goes as far as the operation in question.
    void reach(const FaultService::Fault &fault)
    {
        const QString target = QString::fromLatin1(m_operation->target);
        if (m_operation->step == Step::Start)
            m_faults->misbehave(target, fault);
        start(m_style);
        if (m_operation->step == Step::Start)
            return;
        QVERIFY(waitForPicture());
        m_faults->misbehave(target, fault);
        if (m_operation->step == Step::Verify)
            stroke();
        else
            clickPart("refreshButton");
    }

    [[nodiscard]] qsizetype failures() const
    {
        static const QRegularExpression failure(q("^(failed|in popup)"));
        return outcomes().said().filter(failure).size();
    }

    [[nodiscard]] bool isUserTold()
    {
        if (!failsBeforeItsPanel())
            return !static_cast<QVRenderDrawOverlayView *>(part("errorOverlayView"))
                        ->overlayLabel()
                        ->text()
                        .isEmpty();
        // In invisible mode the host tells the user.
        return m_style == QVVerifyStyleInvisible ||
               clickManager().button()->clickStatus() == QVClickStatusFailed;
    }

    void meet(const FaultService::Fault &fault)
    {
        qv_forgetPeakOfMemory();
        const qint64 memory = qv_memory("VmRSS");
        outcomes().clear();
        reach(fault);
        QVERIFY(waitFor([this] { return m_faults->hits() > 0; }));
        QVERIFY(waitFor([this] {
            if (failures() == 0)
                advance(250ms);
            return failures() > 0;
        }));
        settle();
        QVERIFY2(qv_memory("VmHWM") - memory < memoryLimit, "memory has grown");
        QCOMPARE(failures(), 1);
        QVERIFY(isUserTold());
        retry();
    }

    void retry()
    {
        m_faults->behave();
        if (failsBeforeItsPanel())
            start(m_style);
        else
            clickPart("errorOverlayView");
        QVERIFY(waitForPicture());
        QCOMPARE(failures(), 1);
        if (m_style == QVVerifyStyleEmbed)
            return;
        m_style == QVVerifyStyleInvisible ? invisibleManager().reset() : clickManager().reset();
        QCOMPARE(outcomes().ends().size(), failsBeforeItsPanel() ? 2 : 1);
    }

    std::unique_ptr<FaultService> m_faults;
    QVVerifyStyle m_style{};
    const Operation *m_operation = nullptr;
};

QV_TEST(TestFaultMatrix)
#include "TestFaultMatrix.moc"
