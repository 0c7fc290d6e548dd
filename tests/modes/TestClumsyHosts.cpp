#include "modes/ModesTestCase.h"
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
            clickManager().reset();
            outcomes().clear();
            host().setEnabled(true);
            clickManager().button()->click();
            if (isOpen)
                QVERIFY(waitForPicture());
            host().setEnabled(false);
            QVERIFY(waitForPicture());
            pass(10ms);
            if (closes) {
                pressClose();
                settle();
                QCOMPARE(outcomes().said(), words("popup, closed User"));
            } else {
                strokeAndVerify();
                pass(1600ms);
                QCOMPARE(outcomes().said(), words("popup, passed main-token"));
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
        showWithButton(dialog);
        start(isInvisible);
        if (isOpen)
            QVERIFY(waitForPicture());
        dialog.reject();
        pass(100ms);
        QCOMPARE(outcomes().ends(), words("closed WindowGone"));
        QCOMPARE(popupCount(), 0);
        QCOMPARE(clickManager().button()->clickStatus(), QVClickStatusNormal);
        showActive(dialog);
        outcomes().clear();
        start(isInvisible);
        QVERIFY(waitForPicture());
        QCOMPARE(outcomes().said(), words("popup"));
    }

    void closesThePopupThenRejectsItsDialog()
    {
        auto dialog = std::make_unique<QDialog>(&host());
        dialog->resize(600, 500);
        showActive(*dialog);
        invisibleManager().startInsivible();
        QVERIFY(waitForPicture());
        pressClose();
        dialog->reject();
        settle();
        host().activateWindow();
        invisibleManager().startInsivible();
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
        invisibleManager().startInsivible();
        showActive(wait);
        QVERIFY(waitForPicture());
        QVERIFY(popup()->isWindow());
        QVERIFY(popup()->rect().contains(pictureFrame()));
        // What many do as soon as something else is on screen.
        wait.close();
        pass(1ms);
        QVERIFY(popup());
        strokeAndVerify();
        pass(1600ms);
        QCOMPARE(outcomes().said(), words("popup, passed main-token"));
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
        connect(&clickManager(), &QVClickManager::closed, this, restart);
        connect(&invisibleManager(), &QVInvisibleManager::closed, this, restart);
        start(isInvisible);
        QVERIFY(waitForPicture());
        host().close();
        pass(100ms);
        clickManager().reset();
        invisibleManager().reset();
        QCOMPARE(outcomes().ends().size(), 2);
        QCOMPARE(popupCount(), 0);
        QCOMPARE(clickManager().button()->clickStatus(), QVClickStatusNormal);
    }

    void actsWhenThePopupTakesTheFocus_data()
    {
        const auto row = addColumns<QString, bool>({"action", "isInvisible"});
        for (const char *action : {"delete", "reset", "start", "close", "disable", "wait"}) {
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
        clickManager().reset();
        invisibleManager().reset();
        pass(100ms);
        // A manager whose button has gone tells of it; a manager that has gone does not.
        QCOMPARE(outcomes().ends().size(), action == q("delete") && isInvisible ? 0 : 1);
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
        clickManager().button()->click();
        QVERIFY(waitForPicture());
        QCOMPARE(popup()->isWindow(), isOwnWindow);
        QVERIFY(popup()->rect().contains(pictureFrame().adjusted(0, -32, 0, 20)));
        QVERIFY(!closeFrame().intersects(pictureFrame()));
        QVERIFY(popup()->screen()->geometry().contains(popup()->frameGeometry()) || !isOwnWindow);
    }

    void shrinksUnderThePopup()
    {
        clickManager().button()->click();
        QVERIFY(waitForPicture());
        QVERIFY(!popup()->isWindow());
        host().resize(300, 100);
        pass(10ms);
        QVERIFY(popup()->isWindow());
        QVERIFY(popup()->isAncestorOf(QApplication::focusWidget()) || popup()->hasFocus());
        strokeAndVerify();
        pass(1600ms);
        QCOMPARE(outcomes().ends(), words("passed main-token"));
    }

    void startsAgainAsThePopupsOwnWindowIsActivated()
    {
        host().resize(300, 200);
        connect(qApp, &QApplication::focusChanged, &host(),
                [this, hasActed = false](QWidget *, const QWidget *now) mutable {
                    if (!now || now->window() != popup() || std::exchange(hasActed, true))
                        return;
                    host().resize(700, 600);
                    popup()->close();
                    start(true);
                });
        start(true);
        pass(100ms);
        QCOMPARE(popup()->window(), &host());
        QCOMPARE(outcomes().said(), words("popup, closed User, popup"));
    }

    void startsElsewhereRightAfterItsDialog_data() { startsAgainAsItsWindowCloses_data(); }
    void startsElsewhereRightAfterItsDialog()
    {
        QFETCH(bool, isInvisible);
        QDialog dialog(&host());
        showWithButton(dialog);
        start(isInvisible);
        QVERIFY(waitForPicture());
        dialog.reject();
        host().activateWindow();
        clickManager().button()->setParent(&host());
        start(isInvisible);
        pass(100ms);
        QCOMPARE(outcomes().ends(), words("closed WindowGone"));
        // A button that is still in use waits for its own end; invisible mode goes on in the other window.
        if (isInvisible)
            QCOMPARE(popup()->window(), &host());
    }

    void holdsOnToTheFocus()
    {
        QLineEdit field(&host());
        field.show();
        field.setFocus();
        connect(qApp, &QApplication::focusChanged, &field, [&field](QWidget *, const QWidget *now) {
            if (now && now != &field)
                field.setFocus();
        });
        start(true);
        QVERIFY(waitForPicture());
        strokeAndVerify();
        pass(1600ms);
        QCOMPARE(outcomes().ends(), words("passed main-token"));
    }

    void startsWhileItsWindowIsDestroyed()
    {
        auto window = std::make_unique<QGraphicsView>();
        showActive(*window);
        window->setFocus();
        invisibleManager().setAnimation(true);
        connect(qApp, &QApplication::focusChanged, &host(), [this] { start(true); });
        window.reset();
        disconnect(qApp, nullptr, &host(), nullptr);
        pass(100ms);
        QCOMPARE(outcomes().ends().size() + popupCount(), 1);
    }

    void resetsWhenItIsDestroyed()
    {
        QPointer<QVClickButton> button = clickManager().button();
        connect(button, &QObject::destroyed, &clickManager(), &QVClickManager::reset);
        delete button;
        connect(embedManager().embedView(), &QObject::destroyed, &embedManager(), &QVEmbedManager::reset);
        delete embedManager().embedView();
    }

    void treatsItsWidgetsOneByOne_data()
    {
        const auto row = addColumns<bool>({"hides"});
        row("disables", false);
        row("hides", true);
    }

    void treatsItsWidgetsOneByOne()
    {
        QFETCH(bool, hides);
        clickManager().button()->click();
        QVERIFY(waitForPicture());
        for (QWidget *widget : host().findChildren<QWidget *>())
            hides ? widget->hide() : widget->setEnabled(false);
        settle();
        advance(0ms);
        if (!hides) {
            strokeAndVerify();
            pass(1600ms);
        }
        QCOMPARE(outcomes().ends(), words(hides ? "closed User" : "passed main-token"));
    }

    void opensADialogOverAPopupOfItsOwn_data()
    {
        const auto row = addColumns<QSize, Qt::WindowModality>({"size", "modality"});
        row("small", QSize(150, 100), Qt::ApplicationModal);
        row("large, for its window", QSize(600, 600), Qt::WindowModal);
    }

    void opensADialogOverAPopupOfItsOwn()
    {
        QFETCH(QSize, size);
        QFETCH(Qt::WindowModality, modality);
        host().resize(300, 200);
        start(true);
        QVERIFY(waitForPicture());
        QDialog dialog(&host());
        dialog.setWindowModality(modality);
        dialog.resize(size);
        dialog.show();
        pass(10ms);
        strokeAndVerify();
        pass(1600ms);
        QCOMPARE(outcomes().ends(), words("passed main-token"));
    }

    void goesOnInAnotherWindow()
    {
        invisibleManager().startInsivible();
        QVERIFY(waitForPicture());
        pressClose();
        QWidget other;
        other.resize(700, 600);
        showActive(other);
        forgetAsked();
        invisibleManager().startInsivible();
        QCOMPARE(popup()->window(), &other);
        QCOMPARE(asked(), QStringList());
        QCOMPARE(outcomes().said(), words("popup, closed User, popup"));
    }

    void startsAgainAndAgain()
    {
        QVSDKManager::setAttemptTimeout(3s);
        delay(outageSwitch, 1h);
        for (int i = 0; i < 3; ++i) {
            invisibleManager().startInsivible();
            pass(2500ms);
        }
        // Each attempt has its own three seconds.
        QCOMPARE(outcomes().said(), words("failed -1001, failed -1001"));
        QVSDKManager::setAttemptTimeout(0s);
    }

    void closesOneOfTwoWindows()
    {
        delay(outageSwitch, 1h);
        invisibleManager().startInsivible();
        QWidget other;
        showActive(other);
        invisibleManager().startInsivible();
        host().close();
        pass(10ms);
        QCOMPARE(outcomes().said(), words("closed WindowGone"));
        other.close();
        pass(10ms);
        QCOMPARE(outcomes().said(), words("closed WindowGone, closed WindowGone"));
    }

    void isTouchedByTwoFingers()
    {
        QVClickButton &button = *clickManager().button();
        const QPoint inside(120, 120);
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
        connect(clickManager().button(), &QVClickButton::clickStatusChanged, this,
                [this](QVClickStatus status) {
                    if (status == QVClickStatusDrawing)
                        clickManager().reset();
                });
        clickManager().button()->click();
        pass(100ms);
        QCOMPARE(outcomes().said(), words("closed HostReset"));
        QCOMPARE(popupCount(), 0);
    }

    void paintsItsFormInAScene()
    {
        QGraphicsScene scene;
        QGraphicsView view(&scene);
        view.resize(700, 600);
        auto *const form = new QWidget;
        auto *const layout = new QVBoxLayout(form);
        layout->addWidget(clickManager().button());
        scene.addWidget(form);
        QVEmbedManager embed;
        QSignalSpy ready(&embed, &QVEmbedManager::ready);
        scene.addWidget(embed.embedView());
        showActive(view);
        clickManager().button()->click();
        QVERIFY(waitForPicture());
        QCOMPARE(popup()->window(), &view);
        pass(200ms);
        QVERIFY(waitFor([&] { return ready.count() == 1; }));
        clickManager().reset();
        scene.clear();
    }

    void forgetsItsManager()
    {
        auto manager = std::make_unique<QVClickManager>();
        auto *const button = manager->button();
        button->setParent(&host());
        button->show();
        Outcomes own;
        own.watch(button);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q("QVClickManager was destroyed")));
        manager.reset();
        pass(10ms);
        button->click();
        QVERIFY(waitForPicture());
        pressClose();
        QCOMPARE(own.said(), words("popup, closed User"));
    }

    void verifiesForTwoScenes()
    {
        QVSDKManager::setQuarvoSDKVid(q("process"), q("everywhere"));
        clickManager().setScene(q("login"));
        clickManager().button()->click();
        QVERIFY(waitForPicture());
        QCOMPARE(service().query(config).value(q("id")), q("process"));
        QCOMPARE(service().query(config).value(q("scene")), q("login"));
        clickManager().reset();
        invisibleManager().setVid(q("own"));
        invisibleManager().startInsivible();
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
        clickManager().button()->click();
        pass(100ms);
        QCOMPARE(outcomes().said(), words("popup, in popup 3840"));
        pressClose();
        QCOMPARE(outcomes().ends(), words("closed User"));
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        (void)clickManager();
        (void)invisibleManager();
    }

    void finish() override
    {
        QVSDKManager::setQuarvoSDKVid({}, {});
        ModesTestCase::finish();
    }

    void act(const QString &action, bool isInvisible)
    {
        if (action == q("delete") && isInvisible)
            destroy(true);
        else if (action == q("delete"))
            delete clickManager().button();
        else if (action == q("reset"))
            isInvisible ? invisibleManager().reset() : clickManager().reset();
        else if (action == q("wait"))
            resetAndWait();
        else if (action == q("start"))
            start(isInvisible);
        else if (action == q("close"))
            host().close();
        else
            host().setEnabled(false);
    }

    void showWithButton(QDialog &dialog)
    {
        dialog.resize(600, 500);
        clickManager().button()->setParent(&dialog);
        clickManager().button()->show();
        showActive(dialog);
    }

    /// As a message box does, which runs an event loop.
    void resetAndWait()
    {
        clickManager().reset();
        invisibleManager().reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// In the popup.
    [[nodiscard]] static QRect pictureFrame()
    {
        const auto *const picture = popup()->findChild<QWidget *>(q("imageView"));
        return {picture->mapTo(popup(), QPoint()), picture->size()};
    }

    [[nodiscard]] static QRect closeFrame() { return popup()->findChild<QVCloseButton *>()->geometry(); }
};

QV_TEST(TestClumsyHosts)
#include "TestClumsyHosts.moc"
