#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "popup/QVCloseButton.h"
#include "popup/QVWindow.h"
#include "support/QVPointerInput.h"

#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QDialog>
#include <QGraphicsProxyWidget>
#include <QGraphicsView>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace std::chrono_literals;

/// Hosts that do what no guide tells them to do, when it suits them least. Whatever they do, an attempt
/// ends once, and a popup that is on screen can be used.
class TestClumsyHosts : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void disablesItsWindow_data()
    {
        const auto row = addColumns<bool>({"isOpen"});
        row("while asked", false);
        row("under the popup", true);
    }

    void disablesItsWindow()
    {
        QFETCH(bool, isOpen);
        for (const bool closes : {false, true}) {
            m_click->reset();
            m_outcomes->clear();
            host().setEnabled(true);
            m_click->button()->click();
            if (isOpen)
                QVERIFY(waitForPicture());
            host().setEnabled(false);
            QVERIFY(waitForPicture());
            pass(10ms);
            if (closes) {
                pressClose();
                settle();
                QCOMPARE(m_outcomes->said(), words("popup, closed User"));
            } else {
                strokeAndVerify();
                pass(1600ms);
                QCOMPARE(m_outcomes->said(), words("popup, passed main-token"));
            }
        }
    }

    void rejectsItsDialog_data()
    {
        const auto row = addColumns<bool, bool>({"isInvisible", "isOpen"});
        row("button, popup open", false, true);
        row("button, asked", false, false);
        row("invisible, popup open", true, true);
        row("invisible, asked", true, false);
    }

    void rejectsItsDialog()
    {
        QFETCH(bool, isInvisible);
        QFETCH(bool, isOpen);
        QDialog dialog(&host());
        dialog.resize(600, 500);
        m_click->button()->setParent(&dialog);
        m_click->button()->show();
        showActive(dialog);
        start(isInvisible);
        if (isOpen)
            QVERIFY(waitForPicture());
        dialog.reject();
        pass(100ms);
        QCOMPARE(m_outcomes->ends(), words("closed WindowGone"));
        QCOMPARE(popupCount(), 0);
        QCOMPARE(m_click->button()->clickStatus(), QVClickStatusNormal);
        showActive(dialog);
        m_outcomes->clear();
        start(isInvisible);
        QVERIFY(waitForPicture());
        QCOMPARE(m_outcomes->said(), words("popup"));
    }

    void closesThePopupThenRejectsItsDialog()
    {
        auto dialog = std::make_unique<QDialog>(&host());
        dialog->resize(600, 500);
        showActive(*dialog);
        m_invisible->startInsivible();
        QVERIFY(waitForPicture());
        pressClose();
        dialog->reject();
        settle();
        host().activateWindow();
        m_invisible->startInsivible();
        QVERIFY(waitFor([] { return popup() && popup()->window()->isVisible(); }));
        QCOMPARE(popup()->window(), &host());
        dialog.reset();
        QVERIFY(popup());
    }

    void asksForPatience()
    {
        QDialog wait(&host());
        wait.setModal(true);
        wait.resize(200, 100);
        m_invisible->startInsivible();
        showActive(wait);
        QVERIFY(waitForPicture());
        QVERIFY(popup()->isWindow());
        QVERIFY(popup()->rect().contains(pictureFrame()));
        // What many do as soon as something else is on screen.
        wait.close();
        settle();
        QVERIFY(popup());
        strokeAndVerify();
        pass(1600ms);
        QCOMPARE(m_outcomes->said(), words("popup, passed main-token"));
    }

    void startsAgainAsItsWindowCloses_data()
    {
        const auto row = addColumns<bool>({"isInvisible"});
        row("button", false);
        row("invisible", true);
    }

    void startsAgainAsItsWindowCloses()
    {
        QFETCH(bool, isInvisible);
        int restarts = 0;
        const auto restart = [&] {
            if (restarts++ == 0)
                start(isInvisible);
        };
        connect(m_click.get(), &QVClickManager::closed, this, restart);
        connect(m_invisible.get(), &QVInvisibleManager::closed, this, restart);
        start(isInvisible);
        QVERIFY(waitForPicture());
        host().close();
        pass(100ms);
        m_click->reset();
        m_invisible->reset();
        QCOMPARE(m_outcomes->ends().size(), 2);
        QCOMPARE(popupCount(), 0);
        QCOMPARE(m_click->button()->clickStatus(), QVClickStatusNormal);
    }

    void actsWhenThePopupTakesTheFocus_data()
    {
        const auto row = addColumns<QString, bool>({"action", "isInvisible"});
        for (const char *action : {"delete", "reset", "start", "close", "disable"}) {
            row(QByteArray(action) + " button", q(action), false);
            row(QByteArray(action) + " invisible", q(action), true);
        }
    }

    void actsWhenThePopupTakesTheFocus()
    {
        QFETCH(QString, action);
        QFETCH(bool, isInvisible);
        QLineEdit edit(&host());
        edit.show();
        edit.setFocus();
        // Once, since a popup that goes gives the focus back.
        const auto connection =
            connect(qApp, &QApplication::focusChanged, this, [&, hasActed = false](QWidget *old) mutable {
                if (old == &edit && !std::exchange(hasActed, true))
                    act(action, isInvisible);
            });
        start(isInvisible);
        pass(300ms);
        disconnect(connection);
        if (m_click)
            m_click->reset();
        if (m_invisible)
            m_invisible->reset();
        pass(100ms);
        // A manager whose button has gone tells of it; a manager that has gone does not.
        const int ends = action == q("delete") && isInvisible  ? 0
                         : action == q("start") && isInvisible ? 2
                                                               : 1;
        QCOMPARE(m_outcomes->ends().size(), ends);
        QCOMPARE(popupCount(), 0);
        QCOMPARE(time().pendingCount(), 0);
    }

    void hasLittleRoom_data()
    {
        const auto row = addColumns<QSize, bool>({"size", "isOwnWindow"});
        row("two fields and two buttons", QSize(322, 159), true);
        row("300 x 200", QSize(300, 200), true);
        row("400 x 200", QSize(400, 200), true);
        row("480 x 300", QSize(480, 300), true);
        row("phone", QSize(320, 480), false);
        row("just enough", QSize(500, 379), false);
    }

    void hasLittleRoom()
    {
        QFETCH(QSize, size);
        QFETCH(bool, isOwnWindow);
        host().resize(size);
        m_click->button()->click();
        QVERIFY(waitForPicture());
        QCOMPARE(popup()->isWindow(), isOwnWindow);
        QVERIFY(popup()->rect().contains(pictureFrame().adjusted(0, -32, 0, 20)));
        QVERIFY(!closeFrame().intersects(pictureFrame()));
        QVERIFY(popup()->screen()->geometry().contains(popup()->frameGeometry()) || !isOwnWindow);
    }

    void shrinksUnderThePopup()
    {
        m_click->button()->click();
        QVERIFY(waitForPicture());
        QVERIFY(!popup()->isWindow());
        host().resize(300, 100);
        pass(10ms);
        QVERIFY(popup()->isWindow());
        QVERIFY(popup()->isAncestorOf(QApplication::focusWidget()) || popup()->hasFocus());
        strokeAndVerify();
        pass(1600ms);
        QCOMPARE(m_outcomes->ends(), words("passed main-token"));
    }

    void goesOnInAnotherWindow()
    {
        m_invisible->startInsivible();
        QVERIFY(waitForPicture());
        pressClose();
        QWidget other;
        other.resize(700, 600);
        showActive(other);
        forgetAsked();
        m_invisible->startInsivible();
        QCOMPARE(popup()->window(), &other);
        QCOMPARE(asked(), QStringList());
        QCOMPARE(m_outcomes->said(), words("popup, closed User, popup"));
    }

    void startsAgainAndAgain()
    {
        QVSDKManager::setAttemptTimeout(3s);
        delay(outageSwitch, 1h);
        for (int i = 0; i < 3; ++i) {
            m_invisible->startInsivible();
            pass(2500ms);
        }
        // Each attempt has its own three seconds.
        QCOMPARE(m_outcomes->said(), words("failed -1001, failed -1001"));
        QVSDKManager::setAttemptTimeout(0s);
    }

    void closesOneOfTwoWindows()
    {
        delay(outageSwitch, 1h);
        m_invisible->startInsivible();
        QWidget other;
        showActive(other);
        m_invisible->startInsivible();
        host().close();
        pass(10ms);
        QCOMPARE(m_outcomes->said(), words("closed WindowGone"));
        other.close();
        pass(10ms);
        QCOMPARE(m_outcomes->said(), words("closed WindowGone, closed WindowGone"));
    }

    void isTouchedByTwoFingers()
    {
        QVClickButton &button = *m_click->button();
        const QPoint inside(20, 20);
        const QPoint outside(20, 300);
        auto touches = [&] {
            return QTest::touchEvent(host().windowHandle(), QVPointerInput::touchScreen());
        };
        touches().press(0, inside);
        touches().stationary(0).press(1, inside + QPoint(9, 0));
        touches().move(0, outside).stationary(1);
        touches().release(0, outside).stationary(1);
        QCOMPARE(button.clickStatus(), QVClickStatusNormal);
        touches().release(1, inside);
        settle();
        QCOMPARE(button.clickStatus(), QVClickStatusNormal);
        QCOMPARE(asked(), QStringList());
    }

    void resetsAsSoonAsItIsDrawn()
    {
        service().answer(outageSwitch, {{q("active"), true}});
        connect(m_click->button(), &QVClickButton::clickStatusChanged, this, [this](QVClickStatus status) {
            if (status == QVClickStatusDrawing)
                m_click->reset();
        });
        m_click->button()->click();
        pass(100ms);
        QCOMPARE(m_outcomes->said(), words("closed HostReset"));
        QCOMPARE(popupCount(), 0);
    }

    void paintsItsFormInAScene()
    {
        QGraphicsScene scene;
        QGraphicsView view(&scene);
        view.resize(700, 600);
        auto *const form = new QWidget;
        auto *const layout = new QVBoxLayout(form);
        layout->addWidget(m_click->button());
        scene.addWidget(form);
        QVEmbedManager embed;
        QSignalSpy ready(&embed, &QVEmbedManager::ready);
        scene.addWidget(embed.embedView());
        showActive(view);
        m_click->button()->click();
        QVERIFY(waitForPicture());
        QCOMPARE(popup()->window(), &view);
        pass(200ms);
        QVERIFY(waitFor([&] { return ready.count() == 1; }));
        m_click->reset();
        scene.clear();
    }

    void forgetsItsManager()
    {
        auto *const button = m_click->button();
        Outcomes own;
        own.watch(button);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q("QVClickManager was destroyed")));
        m_click.reset();
        pass(10ms);
        button->click();
        QVERIFY(waitForPicture());
        pressClose();
        QCOMPARE(own.said(), words("popup, closed User"));
    }

    void verifiesForTwoScenes()
    {
        QVSDKManager::setQuarvoSDKVid(q("process"), q("everywhere"));
        m_click->setScene(q("login"));
        m_click->button()->click();
        QVERIFY(waitForPicture());
        QCOMPARE(service().query(config).value(q("id")), q("process"));
        QCOMPARE(service().query(config).value(q("scene")), q("login"));
        m_click->reset();
        m_invisible->setVid(q("own"));
        m_invisible->startInsivible();
        QVERIFY(waitForPicture());
        QCOMPARE(service().query(config).value(q("scene")), q("everywhere"));
        strokeAndVerify();
        for (const QString &request : {config, click, verify})
            QCOMPARE(service().query(request).value(q("id")), q("own"));
    }

    void hearsOfFailuresInThePopup()
    {
        service().answer(outageSwitch, {{q("active"), true}});
        service().answerBytes(outageGet, "?");
        m_click->button()->click();
        pass(100ms);
        QCOMPARE(m_outcomes->said(), words("popup, in popup 3840"));
        pressClose();
        QCOMPARE(m_outcomes->ends(), words("closed User"));
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_outcomes = std::make_unique<Outcomes>();
        m_click = std::make_unique<QVClickManager>();
        m_invisible = std::make_unique<QVInvisibleManager>();
        m_invisible->setAnimation(false);
        m_outcomes->watch(m_click.get());
        m_outcomes->watch(m_invisible.get());
        m_click->button()->setParent(&host());
        m_click->button()->setGeometry(0, 0, 200, 44);
        m_click->button()->show();
    }

    void finish() override
    {
        m_click.reset();
        m_invisible.reset();
        m_outcomes.reset();
        QVSDKManager::setQuarvoSDKVid({}, {});
        ModesTestCase::finish();
    }

    void start(bool isInvisible)
    {
        if (isInvisible)
            m_invisible->startInsivible();
        else
            m_click->button()->click();
    }

    void act(const QString &action, bool isInvisible)
    {
        if (action == q("delete") && isInvisible)
            m_invisible.reset();
        else if (action == q("delete"))
            delete m_click->button();
        else if (action == q("reset"))
            isInvisible ? m_invisible->reset() : m_click->reset();
        else if (action == q("start"))
            start(isInvisible);
        else if (action == q("close"))
            host().close();
        else
            host().setEnabled(false);
    }

    /// In the popup.
    [[nodiscard]] static QRect pictureFrame()
    {
        const auto *const picture = popup()->findChild<QWidget *>(q("imageView"));
        return {picture->mapTo(popup(), QPoint()), picture->size()};
    }

    [[nodiscard]] static QRect closeFrame() { return popup()->findChild<QVCloseButton *>()->geometry(); }

    std::unique_ptr<Outcomes> m_outcomes;
    std::unique_ptr<QVClickManager> m_click;
    std::unique_ptr<QVInvisibleManager> m_invisible;
};

QV_TEST(TestClumsyHosts)
#include "TestClumsyHosts.moc"
