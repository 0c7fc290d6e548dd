#include "draw/QVAdButton.h"
#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "settings/QVConfigurationManager.h"
#include "support/QVPointerInput.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QDesktopServices>
#include <QLoggingCategory>
#include <QMutex>

using namespace std::chrono_literals;

namespace {

QStringList logged;
QStringList serviceLog;

// Qt's network threads log too.
void take(QtMsgType, const QMessageLogContext &context, const QString &message)
{
    static QMutex mutex;
    const QMutexLocker lock(&mutex);
    logged.append(message);
    if (QByteArrayView(context.category) == "quarvo.service" && !message.endsWith(q(" dealloc")))
        serviceLog.append(message);
}

} // namespace

/// What is the user's own stays out of the log, and what the network says stays plain text.
class TestSecrecy : public ModesTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void takePage(const QUrl &url) { m_opened.append(url.toString()); }

private Q_SLOTS:
    void logsTheStepsAndNothingThatIdentifies_data()
    {
        addColumns<QString, QString, QString>({"mode", "steps", "logged"});
        const auto row = [](const char *name, const char *mode, const char *done, const QByteArray &log) {
            QTest::newRow(name) << q(mode) << q(done) << q(log);
        };
        const QByteArray answered = "Asking for the outage switch|Request for the outage switch answered|"
                                    "Asking for the configuration|Request for the configuration answered|";
        const QByteArray opened = answered +
                                  "Asking for the click's decision|Request for the click's decision "
                                  "answered|Attempt goes on in a popup|Picture is shown|";
        const QByteArray pictured =
            answered + "Asking for a picture|Request for a picture answered|Picture is shown|";
        const QByteArray judged = "Asking for a verdict|Request for a verdict answered|Attempt passed";
        row("click", "click", "start, picture, stroke, wait 3000",
            "Attempt begins: popup|" + opened + judged);
        row("invisible", "invisible", "start, picture, stroke, wait 3000",
            "Attempt begins: invisible|" + opened + judged);
        row("closed", "click", "start, picture, close",
            "Attempt begins: popup|" + opened + "Attempt closed: User");
        row("panel", "embed", "start, picture, stroke, wait 3000",
            "Attempt begins: embed|" + pictured + judged);
        row("characters", "embed", "characters, start, picture, type typed7, tap doneButton, wait 3000",
            "Attempt begins: embed|" + pictured + judged);
        row("outage", "embed", "outage, start, picture, stroke, wait 3000",
            "Attempt begins: embed|Asking for the outage switch|Request for the outage switch answered|"
            "Asking for an outage picture|Request for an outage picture answered|Picture is shown|"
            "Asking for an outage verdict|Request for an outage verdict answered|Attempt passed");
        row("failed", "invisible", "answer switch secret-answer, start, wait 100",
            "Attempt begins: invisible|Asking for the outage switch|Request for the outage switch failed: "
            "NotJson (code 3840)|Attempt failed: code 3840");
    }

    void logsTheStepsAndNothingThatIdentifies()
    {
        QFETCH(QString, mode);
        QFETCH(QString, steps);
        setMode(mode);
        logged.clear();
        serviceLog.clear();
        // The log of accessibility is full of addresses in memory, which contain short traces by chance.
        QLoggingCategory::setFilterRules(q("*=true\nqt.accessibility*=false"));
        const QtMessageHandler usual = qInstallMessageHandler(take);
        go(steps);
        qInstallMessageHandler(usual);
        QLoggingCategory::setFilterRules(QString());
        QTEST(serviceLog.join(u'|'), "logged");
        QStringList secrets = service().query(verify).values() + service().query(q("outage verify")).values();
        secrets.append({QVConfigurationManager::sharedManager().deviceId(), q("-token"), q("http"),
                        q("challenge"), q("secret"), q("typed7")});
        for (const QString &message : std::as_const(logged)) {
            for (const QString &secret : std::as_const(secrets))
                QVERIFY2(secret.size() < 4 || !message.contains(secret), qPrintable(message));
        }
    }

    void takesMarkupForWhatItSays()
    {
        // Were it markup, there would be nothing to see.
        const QString markup = q("<i></i>&amp;%s%n");
        for (const char *answer : {"get", "verify"}) {
            service().extend(QLatin1String(answer), {{q("adlinkword"), markup},
                                                     {q("adlink"), q("https://ad.example")},
                                                     {q("passline"), markup},
                                                     {q("score"), markup}});
        }
        go(q("start, picture"));
        auto &ad = static_cast<QVAdButton &>(*part("adButton"));
        QVERIFY(ad.accessibleName().endsWith(markup));
        const QSize size = ad.size();
        const QImage word = ad.grab().toImage();
        ad.setWord(q("&%s%n"), {});
        ad.resize(size);
        QVERIFY(ad.grab().toImage() != word);
        go(q("stroke, wait 300"));
        auto &bar = *static_cast<QVRenderDrawOverlayView *>(part("successOverlayView"))->overlayLabel();
        QVERIFY2(bar.text().contains(markup), qPrintable(bar.text()));
        const QImage line = bar.grab().toImage();
        bar.setText(QString(bar.text()).replace(markup, q("&%s%n")));
        QVERIFY(bar.grab().toImage() != line);
    }

    void opensWebPagesThatTheUserPresses_data()
    {
        const auto row = addColumns<QString, bool>({"link", "isOpened"});
        row("web", q("https://ad.example/a"), true);
        row("file", q("file:///etc/passwd"), false);
        row("script", q("javascript:alert(1)"), false);
        row("mail", q("mailto:a@ad.example"), false);
        row("no host", q("https://"), false);
        row("no scheme", q("ad.example"), false);
        row("broken host", q("https://a b/"), false);
    }

    void opensWebPagesThatTheUserPresses()
    {
        QFETCH(const QString, link);
        QFETCH(const bool, isOpened);
        m_opened.clear();
        for (const char *scheme : schemes)
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "takePage");
        service().extend(q("get"), {{q("adlinkword"), q("Offer")}, {q("adlink"), link}});
        go(q("start, picture"));
        QVERIFY(part("adButton")->isVisible());
        QCOMPARE(m_opened, QStringList());
        clickPart("adButton");
        QCOMPARE(m_opened, isOpened ? QStringList{link} : QStringList());
    }

protected:
    void prepare() override
    {
        ModesTestCase::prepare();
        setMode(q("embed"));
    }

    void finish() override
    {
        for (const char *scheme : schemes)
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
        ModesTestCase::finish();
    }

private:
    static constexpr std::array schemes{"http", "https", "file", "javascript", "mailto"};
    QStringList m_opened;
};

QV_TEST(TestSecrecy)
#include "TestSecrecy.moc"
