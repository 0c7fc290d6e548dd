#include "draw/QVAdButton.h"
#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "settings/QVConfigurationManager.h"
#include "support/QVPointerInput.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLoggingCategory>
#include <QMutex>

using namespace std::chrono_literals;

namespace {

QStringList logged;

// Qt's network threads log too.
void take(QtMsgType, const QMessageLogContext &, const QString &message)
{
    static QMutex mutex;
    const QMutexLocker lock(&mutex);
    logged.append(message);
}

} // namespace

/// What is the user's own stays out of the log, and what the network says stays plain text.
class TestSecrecy : public ModesTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void takePage(const QUrl &url) { m_opened.append(url.toString()); }

private Q_SLOTS:
    void logsNothingThatIdentifies_data()
    {
        const auto row = addColumns<int, QString>({"style", "kind"});
        row("embed", 0, q("verify"));
        row("click", 1, q("verify"));
        row("invisible", 2, q("verify"));
        row("outage", 0, q("outage verify"));
        row("characters", 0, q("characters"));
    }

    void logsNothingThatIdentifies()
    {
        QFETCH(const int, style);
        QFETCH(const QString, kind);
        const bool isOutage = kind == QLatin1String("outage verify");
        const bool isTyped = kind == QLatin1String("characters");
        service().answer(q("switch"), {{q("active"), isOutage}});
        if (isTyped)
            service().extend(q("config"), {{q("type"), q("character")}});
        logged.clear();
        QLoggingCategory::setFilterRules(q("*=true"));
        const QtMessageHandler usual = qInstallMessageHandler(take);
        openAndWait(style);
        answer(isTyped);
        // The main service's trace is told of by its length, and its record by its type.
        const bool isTold = isOutage || waitFor([this] {
                                advance(100ms);
                                return !logged.filter(q("dealloc")).isEmpty();
                            });
        qInstallMessageHandler(usual);
        QLoggingCategory::setFilterRules(QString());
        QVERIFY(!QTest::currentTestFailed());

        QStringList secrets = service().query(isTyped ? q("verify") : kind).values();
        QVERIFY(secrets.size() > 3);
        secrets.append(
            {QVConfigurationManager::sharedManager().deviceId(), q("-token"), q("http"), q("challenge")});
        QVERIFY(isTold);
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
        openAndWait(QVVerifyStyleEmbed);
        auto &ad = static_cast<QVAdButton &>(*part("adButton"));
        QVERIFY(ad.accessibleName().endsWith(markup));
        const QSize size = ad.size();
        const QImage word = ad.grab().toImage();
        ad.setWord(q("&%s%n"), {});
        ad.resize(size);
        QVERIFY(ad.grab().toImage() != word);

        answer();
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
        for (const char *scheme : {"http", "https", "file", "javascript", "mailto"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "takePage");
        service().extend(q("get"), {{q("adlinkword"), q("Offer")}, {q("adlink"), link}});
        openAndWait(QVVerifyStyleEmbed);
        QCOMPARE(m_opened, QStringList());
        auto &ad = static_cast<QVAdButton &>(*part("adButton"));
        QVERIFY(ad.isVisible());
        QVPointerInput::click(ad, ad.rect().center());
        QCOMPARE(m_opened, isOpened ? QStringList{link} : QStringList());
    }

protected:
    void finish() override
    {
        m_opened.clear();
        for (const char *scheme : {"http", "https", "file", "javascript", "mailto"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
        ModesTestCase::finish();
    }

private:
    void openAndWait(int style)
    {
        start(QVVerifyStyle(style));
        QVERIFY(waitForPicture());
    }

    void answer(bool isTyped = false)
    {
        if (isTyped) {
            clickPart("inputTF");
            QTest::keyClicks(part("inputTF"), q("typed7"));
            clickPart("doneButton");
        } else {
            advance(500ms);
            stroke();
        }
        QVERIFY(
            waitFor([this] { return service().count(verify) + service().count(q("outage verify")) > 0; }));
        settle();
        advance(3s);
    }

    QStringList m_opened;
};

QV_TEST(TestSecrecy)
#include "TestSecrecy.moc"
