#include "draw/QVAdButton.h"
#include "draw/QVRenderDrawView.h"
#include "faults/FaultsTestCase.h"
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
class TestSecrecy : public FaultsTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void takePage(const QUrl &url) { m_opened.append(url.toString()); }

private Q_SLOTS:
    void logsNothingThatIdentifies_data()
    {
        const auto row = addColumns<int, QString>({"style", "kind"});
        row("embed", 0, QStringLiteral("verify"));
        row("click", 1, QStringLiteral("verify"));
        row("invisible", 2, QStringLiteral("verify"));
        row("outage", 0, QStringLiteral("outage verify"));
        row("characters", 0, QStringLiteral("characters"));
    }

    void logsNothingThatIdentifies()
    {
        QFETCH(const int, style);
        QFETCH(const QString, kind);
        const bool isOutage = kind == QLatin1String("outage verify");
        const bool isTyped = kind == QLatin1String("characters");
        service().answer(QStringLiteral("switch"), {{QStringLiteral("active"), isOutage}});
        if (isTyped)
            service().extend(QStringLiteral("config"),
                             {{QStringLiteral("type"), QStringLiteral("character")}});
        logged.clear();
        QLoggingCategory::setFilterRules(QStringLiteral("*=true"));
        const QtMessageHandler usual = qInstallMessageHandler(take);
        openAndWait(style);
        answer(isTyped);
        // The main service's trace is told of by its length, and its record by its type.
        const bool isTold = isOutage || waitFor([this] {
                                advance(100ms);
                                return !logged.filter(QStringLiteral("dealloc")).isEmpty();
                            });
        qInstallMessageHandler(usual);
        QLoggingCategory::setFilterRules(QString());
        QVERIFY(!QTest::currentTestFailed());

        QStringList secrets = service().query(isTyped ? QStringLiteral("verify") : kind).values();
        QVERIFY(secrets.size() > 3);
        secrets.append({QVConfigurationManager::sharedManager().deviceId(), QStringLiteral("-token"),
                        QStringLiteral("http"), QStringLiteral("challenge")});
        QVERIFY(isTold);
        for (const QString &message : std::as_const(logged)) {
            for (const QString &secret : std::as_const(secrets))
                QVERIFY2(secret.size() < 4 || !message.contains(secret), qPrintable(message));
        }
    }

    void takesMarkupForWhatItSays()
    {
        // Were it markup, there would be nothing to see.
        const QString markup = QStringLiteral("<i></i>&amp;%s%n");
        for (const char *answer : {"get", "verify"}) {
            service().extend(QLatin1String(answer),
                             {{QStringLiteral("adlinkword"), markup},
                              {QStringLiteral("adlink"), QStringLiteral("https://ad.example")},
                              {QStringLiteral("passline"), markup},
                              {QStringLiteral("score"), markup}});
        }
        openAndWait(QVVerifyStyleEmbed);
        auto &ad = static_cast<QVAdButton &>(*part("adButton"));
        QVERIFY(ad.accessibleName().endsWith(markup));
        const QSize size = ad.size();
        const QImage word = ad.grab().toImage();
        ad.setWord(QStringLiteral("&%s%n"), {});
        ad.resize(size);
        QVERIFY(ad.grab().toImage() != word);

        answer();
        auto &bar = *static_cast<QVRenderDrawOverlayView *>(part("successOverlayView"))->overlayLabel();
        QVERIFY2(bar.text().contains(markup), qPrintable(bar.text()));
        const QImage line = bar.grab().toImage();
        bar.setText(QString(bar.text()).replace(markup, QStringLiteral("&%s%n")));
        QVERIFY(bar.grab().toImage() != line);
    }

    void opensWebPagesThatTheUserPresses_data()
    {
        const auto row = addColumns<QString, bool>({"link", "isOpened"});
        row("web", QStringLiteral("https://ad.example/a"), true);
        row("file", QStringLiteral("file:///etc/passwd"), false);
        row("script", QStringLiteral("javascript:alert(1)"), false);
        row("mail", QStringLiteral("mailto:a@ad.example"), false);
        row("no host", QStringLiteral("https://"), false);
        row("no scheme", QStringLiteral("ad.example"), false);
        row("broken host", QStringLiteral("https://a b/"), false);
    }

    void opensWebPagesThatTheUserPresses()
    {
        QFETCH(const QString, link);
        QFETCH(const bool, isOpened);
        for (const char *scheme : {"http", "https", "file", "javascript", "mailto"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "takePage");
        service().extend(QStringLiteral("get"), {{QStringLiteral("adlinkword"), QStringLiteral("Offer")},
                                                 {QStringLiteral("adlink"), link}});
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
        FaultsTestCase::finish();
    }

private:
    void openAndWait(int style)
    {
        openMode(QVVerifyStyle(style));
        begin();
        QVERIFY(waitForReady());
    }

    void answer(bool isTyped = false)
    {
        if (isTyped)
            type();
        else
            draw();
        QVERIFY(waitFor([this] {
            return service().count(QStringLiteral("verify")) +
                       service().count(QStringLiteral("outage verify")) >
                   0;
        }));
        settle();
        advance(3s);
    }

    void type()
    {
        clickPart("inputTF");
        QTest::keyClicks(part("inputTF"), QStringLiteral("typed7"));
        clickPart("doneButton");
    }

    QStringList m_opened;
};

QV_TEST(TestSecrecy)
#include "TestSecrecy.moc"
