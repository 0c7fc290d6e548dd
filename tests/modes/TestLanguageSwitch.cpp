#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "popup/QVWindow.h"
#include "settings/QVSDKManager.h"
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
        const auto row = addColumns<QStringList, QStringList>({"steps", "said"});
        row("verifying", words("hold click, tap"), words("passed click-token"));
        row("drawing", words("tap, picture"), words("popup, passed main-token"));
        row("wrong", words("tap, picture, reject, stroke"), words("popup"));
        row("judged", words("tap, picture, hold verify, stroke"), words("popup, passed main-token"));
        row("failed", words("refuse config, tap, rest"), words("failed 101"));
        row("passed", words("pass, tap, short"), words("passed click-token"));
        row("outage", words("outage, start, picture"), words("popup, passed outage-token"));
        row("badge", words("badge, hold click, start"), words("passed click-token"));
        row("badge passed", words("badge, pass, start, short"), words("passed click-token"));
        row("broken", words("break, start, rest"), words("popup, in popup 10000"));
        row("advertisement", words("advertise, start, picture"), words("popup, passed main-token"));
        row("pen", words("start, picture, tab"), words("popup, passed main-token"));
        row("panel", words("panel, picture"), words("ready, passed main-token"));
        row("panel loading", words("hold get, panel"), words("ready, passed main-token"));
        row("panel passed", words("panel, picture, stroke, short"), words("ready, passed main-token"));
        row("panel timed out", words("limit, hold get, panel, rest"), words("failed -1001"));
        row("characters", words("type, panel, picture"), words("ready, passed main-token"));
    }

    void everythingFollows()
    {
        QFETCH(QStringList, steps);
        QVSDKManager::setPreferredLanguage(q("zh-Hant"));
        go(steps);
        const QStringList expected = texts();
        finish();
        prepare();
        go(steps);
        const QStringList before = texts();
        const QImage seen = image();
        const QStringList askedBefore = asked();
        QVSDKManager::setPreferredLanguage(q("zh-Hant"));
        settle();
        QCOMPARE(texts(), expected);
        QVERIFY(texts() != before);
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
        QCOMPARE(asked(), askedBefore);
        complete();
        QTEST(outcomes().said(), "said");
    }

private:
    void finish() override
    {
        QVSDKManager::setAttemptTimeout(0ms);
        ModesTestCase::finish();
    }

    void go(const QStringList &steps)
    {
        for (const QString &step : steps)
            go(step);
    }

    void go(const QString &step)
    {
        const QString what = step.section(u' ', 1);
        if (step == q("tap") || step == q("start")) {
            start(step == q("start"));
            settle();
        } else if (step == q("panel")) {
            start(QVVerifyStyleEmbed);
            pass(200ms);
        } else if (step == q("picture")) {
            QVERIFY(waitForPicture());
            pass(500ms);
            if (auto *const field = drawView()->findChild<QVCharVerifyTextField *>(); field->isVisible())
                field->setText(q("typed"));
        } else if (step == q("stroke")) {
            strokeOn(*drawView());
            settle();
        } else if (step == q("tab")) {
            drawView()->findChild<QVRenderDrawImageView *>()->setFocus(Qt::TabFocusReason);
        } else if (step == q("rest") || step == q("short")) {
            pass(step == q("rest") ? 3s : 300ms);
        } else if (step.startsWith(q("hold "))) {
            passByClick();
            answerCode(click, what == click ? q("0103") : q("0104"));
            delay(what, 3s);
        } else {
            answer(step);
        }
    }

    void answer(const QString &step)
    {
        if (step == q("reject"))
            answerCode(verify, q("0104"));
        else if (step == q("refuse config"))
            answerCode(config, q("0101"));
        else if (step == q("pass"))
            passByClick();
        else if (step == q("outage"))
            service().answer(outageSwitch, {{q("active"), true}});
        else if (step == q("badge"))
            invisibleManager().setAnimation(true);
        else if (step == q("break"))
            service().breakPictures(true);
        else if (step == q("advertise"))
            service().extend(click, {{q("adlinkword"), q("Buy")}, {q("adlink"), q("https://shop.example")}});
        else if (step == q("type"))
            service().extend(config, {{q("type"), q("character")}, {q("guide"), true}});
        else if (step == q("limit"))
            QVSDKManager::setAttemptTimeout(2s);
        else
            QFAIL(qPrintable(step));
    }

    /// Brings to its end what was going on, as a user would.
    void complete()
    {
        pass(10s);
        auto *const field = drawView() ? drawView()->findChild<QVCharVerifyTextField *>() : nullptr;
        if (field && field->isVisible()) {
            QCOMPARE(field->text(), q("typed"));
            drawView()->findChild<QVCharVerifyInputViewDoneButton *>()->click();
        } else if (drawView() && drawView()->canDirectlyShow()) {
            strokeOn(*drawView());
        }
        settle();
        pass(2s);
    }

    [[nodiscard]] static QImage image()
    {
        return drawView() ? drawView()->findChild<QVRenderDrawImageView *>()->image() : QImage();
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
            else if (const auto *const field = qobject_cast<QVCharVerifyTextField *>(widget))
                shown = field->placeholder();
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
