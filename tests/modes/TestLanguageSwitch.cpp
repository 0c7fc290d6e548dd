#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawImageView.h"

#include <QApplication>
#include <QTranslator>

using namespace std::chrono_literals;

/// Each case shows the same twice: once in a language that was chosen before, once in one that was switched
/// to in the middle.
class TestLanguageSwitch : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everythingFollows_data()
    {
        // What is done, one after another; what ends it after the switch.
        addColumns<QString, QString, QString>({"mode", "steps", "end"});
        const auto row = [](const char *name, const char *mode, const char *steps, const char *end) {
            QTest::newRow(name) << q(mode) << q(steps) << q(end);
        };
        row("verifying", "click", "pass, hold click 3000, start, wait 0", "passed click-token");
        row("drawing", "click", "start, picture", "passed main-token");
        row("wrong", "click", "answer verify 0104, start, picture, stroke", "popup");
        row("judged", "click", "hold verify 3000, start, picture, stroke", "passed main-token");
        row("failed", "click", "answer config 0101, start, wait 3000", "failed 101");
        row("passed", "click", "pass, start, wait 300", "passed click-token");
        row("outage", "invisible", "outage, start, picture", "passed outage-token");
        row("badge", "invisible", "badge, pass, hold click 3000, start, wait 0", "passed click-token");
        row("badge passed", "invisible", "badge, pass, start, wait 300", "passed click-token");
        row("broken", "invisible", "break, start, wait 3000", "in popup 10000");
        row("advertisement", "invisible", "advertise, start, picture", "passed main-token");
        row("pen", "invisible", "start, picture, pen", "passed main-token");
        row("panel", "embed", "start, picture", "passed main-token");
        row("panel loading", "embed", "hold get 3000, start, wait 0", "passed main-token");
        row("panel passed", "embed", "start, picture, stroke, wait 300", "passed main-token");
        row("panel timed out", "embed", "limit 2000, hold get 3000, start, wait 3000", "failed -1001");
        row("characters", "embed", "characters, guide, start, picture, type", "passed main-token");
    }

    void everythingFollows()
    {
        QFETCH(QString, mode);
        QFETCH(QString, steps);
        QVSDKManager::setPreferredLanguage(q("zh-Hant"));
        setMode(mode);
        go(steps);
        const QStringList expected = texts();
        finish();
        prepare();
        setMode(mode);
        go(steps);
        const QStringList before = texts();
        const QImage seen = image();
        forgetAsked();
        QVSDKManager::setPreferredLanguage(q("zh-Hant"));
        settle();
        QCOMPARE(texts(), expected);
        QVERIFY(texts() != before);
        QVERIFY2(farthest(onScreen(host()), pixelsOf(host())) == 0, "not painted anew");
        // Neither a translator of the host's nor its users' changing the language of their desktop does
        // anything.
        QVSDKManager::setPreferredLanguage(q("en"));
        QTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator) || translator.isEmpty());
        QEvent changed(QEvent::LanguageChange);
        for (QWidget *const widget : QApplication::allWidgets())
            QCoreApplication::sendEvent(widget, &changed);
        settle();
        QCOMPARE(texts(), before);
        QCOMPARE(image(), seen);
        QCOMPARE(asked(), QStringList());
        complete();
        QTEST(outcomes().said().constLast(), "end");
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        addStep("break", [this](auto) { service().breakPictures(true); });
        addStep("pen", [](auto) { part("imageView")->setFocus(Qt::TabFocusReason); });
        addStep("type", [](auto) { field()->setText(q("typed")); });
    }

    /// Brings to its end what was going on, as a user would.
    void complete()
    {
        pass(10s);
        if (field() && field()->isVisible()) {
            QCOMPARE(field()->text(), q("typed"));
            clickPart("doneButton");
        } else if (drawView() && drawView()->canDirectlyShow()) {
            stroke();
        }
        settle();
        pass(2s);
    }

    static QVCharVerifyTextField *field() { return static_cast<QVCharVerifyTextField *>(part("inputTF")); }

    [[nodiscard]] static QImage image()
    {
        return drawView() ? static_cast<QVRenderDrawImageView *>(part("imageView"))->image() : QImage();
    }

    /// All that can be read or heard of what is on screen.
    [[nodiscard]] static QStringList texts()
    {
        QStringList all;
        for (QWidget *const widget : QApplication::allWidgets()) {
            if (!widget->isVisible())
                continue;
            QString shown;
            if (const auto *const label = qobject_cast<QVLabel *>(widget))
                shown = label->text() + q(" %1").arg(label->width());
            else if (const auto *const input = qobject_cast<QVCharVerifyTextField *>(widget))
                shown = input->placeholder();
            else if (const auto *const done = qobject_cast<QVCharVerifyInputViewDoneButton *>(widget))
                shown = done->title();
            const QStringList heard{widget->accessibleName(), widget->accessibleDescription(), shown};
            if (!heard.join(QString()).isEmpty())
                all.append(QLatin1String(widget->metaObject()->className()) + u'|' + heard.join(u'|'));
        }
        all.sort();
        return all;
    }
};

QV_TEST(TestLanguageSwitch)
#include "TestLanguageSwitch.moc"
