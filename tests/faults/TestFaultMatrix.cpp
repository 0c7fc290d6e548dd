#include "faults/FaultsTestCase.h"
#include "support/QVMemory.h"
#include "support/QVStillStyle.h"

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
class TestFaultMatrix : public FaultsTestCase
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
        service().answer(QStringLiteral("switch"), {{QStringLiteral("active"), m_operation->isOutage}});
        // Nothing moves, so that virtual seconds of waiting cost no painting.
        const QVStillStyle still;
        openMode(m_style);
        // An embedded panel asks for no click decision, the others for no first picture.
        const QByteArray name = m_operation->name;
        const int modes = name == "get" ? 1 : name == "click" ? 2 : 3;
        for (int index = 0; index < faults().faults().size(); ++index) {
            if ((index + operation + style) % modes != 0)
                continue;
            meet(faults().faults().at(index).second);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(faults().faults().at(index).first));
        }
        QCOMPARE(faults().downgrades(), 0);
        QVERIFY(outcomes().told().filter(QStringLiteral("token")).isEmpty());
    }

private:
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
            faults().misbehave(target, fault);
        begin();
        if (m_operation->step == Step::Start)
            return;
        QVERIFY(waitForReady());
        faults().misbehave(target, fault);
        if (m_operation->step == Step::Verify)
            draw();
        else
            clickPart("refreshButton");
    }

    void meet(const FaultService::Fault &fault)
    {
        qv_forgetPeakOfMemory();
        const qint64 memory = qv_memory("VmRSS");
        const qsizetype failuresBefore = panelFailures();
        reach(fault);
        QVERIFY(waitFor([this] { return faults().hits() > 0; }));
        QVERIFY(passUntil([this] { return !message().isEmpty(); }));
        settle();
        QVERIFY2(qv_memory("VmHWM") - memory < memoryLimit, "memory has grown");
        if (failsBeforeItsPanel())
            QCOMPARE(ended(), begun());
        else
            QCOMPARE(panelFailures(), failuresBefore + 1);
        retry();
    }

    void retry()
    {
        faults().behave();
        if (failsBeforeItsPanel())
            begin();
        else
            clickPart("errorOverlayView");
        QVERIFY(waitForReady());
        QCOMPARE(message(), QString());
        if (m_style == QVVerifyStyleEmbed)
            return;
        QCOMPARE(ended(), begun() - 1);
        reset();
        QCOMPARE(ended(), begun());
    }

    QVVerifyStyle m_style{};
    const Operation *m_operation = nullptr;
};

QV_TEST(TestFaultMatrix)
#include "TestFaultMatrix.moc"
