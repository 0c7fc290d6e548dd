#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/QVEmbedManager.h"

#include <QLoggingCategory>

using namespace std::chrono_literals;

namespace {

QStringList messages;

void keep(QtMsgType /*type*/, const QMessageLogContext &context, const QString &message)
{
    if (QByteArrayView(context.category) == "quarvo.service" && !message.endsWith(q(" dealloc")))
        messages.append(message);
}

} // namespace

/// What a host's developer reads of an attempt.
class TestLogging : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsEachStep_data()
    {
        const auto row = addColumns<QString, QString>({"mode", "said"});
        const QString asked = q("Asking for the outage switch|Request for the outage switch answered|"
                                "Asking for the configuration|Request for the configuration answered|");
        const QString clicked =
            asked + q("Asking for the click's decision|Request for the click's decision answered|");
        const QString judged =
            q("Picture is shown|Asking for a verdict|Request for a verdict answered|Attempt passed");
        row("click", q("click"),
            q("Attempt begins: popup|") + clicked + q("Attempt goes on in a popup|") + judged);
        row("closed", q("closed"),
            q("Attempt begins: popup|") + clicked +
                q("Attempt goes on in a popup|Picture is shown|Attempt closed: User"));
        row("panel", q("panel"),
            q("Attempt begins: embed|") + asked + q("Asking for a picture|Request for a picture answered|") +
                judged);
        row("failed", q("failed"),
            q("Attempt begins: invisible|Asking for the outage switch|Request for the outage switch failed: "
              "NotJson (code 3840)|Attempt failed: code 3840"));
    }

    void tellsEachStep()
    {
        QFETCH(QString, mode);
        clickManager();
        if (mode == q("failed"))
            service().answerBytes(outageSwitch, "secret-answer");
        messages.clear();
        QLoggingCategory::setFilterRules(q("quarvo.*.debug=true"));
        const auto former = qInstallMessageHandler(keep);
        run(mode);
        qInstallMessageHandler(former);
        QLoggingCategory::setFilterRules({});
        QFETCH(QString, said);
        QVERIFY2(messages == said.split(u'|'), qPrintable(messages.join(u'|')));
        const QString all = messages.join(u'|');
        for (const char *const secret :
             {"some-id", "main-challenge", "token", "http", "deviceid", "secret", "drawtime"})
            QVERIFY2(!all.contains(QLatin1String(secret)), secret);
    }

private:
    void run(const QString &mode)
    {
        QVEmbedManager panel;
        if (mode == q("panel")) {
            panel.renderView()->setParent(&host());
            panel.renderView()->setGeometry(0, 0, 400, 270);
            panel.renderView()->show();
            pass(200ms);
        } else {
            start(mode == q("failed"));
            settle();
        }
        QVRenderDrawView *const view = mode == q("panel") ? panel.renderView() : drawView();
        if (!view)
            return;
        QVERIFY(waitFor([view] { return view->canInput().value_or(false); }));
        pass(500ms);
        if (mode == q("closed"))
            pressClose();
        else
            strokeOn(*view);
        pass(2s);
    }
};

QV_TEST(TestLogging)
#include "TestLogging.moc"
