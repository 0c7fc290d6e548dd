#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "popup/QVCloseButton.h"
#include "popup/QVWindow.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSignalSpy>
#include <QWheelEvent>

using namespace std::chrono_literals;

namespace {

/// A host that counts the input that reaches it.
class CountingHost : public QWidget
{
public:
    CountingHost() { setAttribute(Qt::WA_AcceptTouchEvents); }

    int count = 0;

protected:
    bool event(QEvent *event) override
    {
        const QSet<QEvent::Type> input{
            QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::Wheel,
            QEvent::ContextMenu,      QEvent::TouchBegin,         QEvent::KeyPress};
        if (!input.contains(event->type()))
            return QWidget::event(event);
        ++count;
        event->accept();
        return true;
    }
};

} // namespace

/// The popup on a host's window: its place, what it keeps from the host, and the focus.
class TestPopup : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void closeDismissesAPopupWithoutAPicture()
    {
        openWithoutPicture();
        pressClose();
        QCOMPARE(outcomes().said(), words("popup, closed User"));
        QCOMPARE(popupCount(), 0);
    }

    void aHiddenPopupKeepsNoTimerButTheCountdown()
    {
        start(true);
        QVERIFY(waitForPicture());
        pressClose();
        pass(2000ms);
        QCOMPARE(time().pendingCount(), 1);
        forgetAsked();
        pass(177s);
        QCOMPARE(asked(), QStringList());
        start(true);
        settle();
        QCOMPARE(asked(), QStringList{refresh});
        invisibleManager().reset();
        QCOMPARE(popupCount(), 0);
        settle();
        QCOMPARE(time().pendingCount(), 0);
    }

    void placesItsParts_data()
    {
        const auto row = addColumns<QSize, QRect>({"host", "screen"});
        row("phone", QSize(320, 480), QRect(0, 0, 320, 480));
        row("narrowest card", QSize(481, 600), QRect(33, 110, 414, 379));
        row("desktop", QSize(1280, 720), QRect(433, 170, 414, 379));
    }

    void placesItsParts()
    {
        QFETCH(QSize, host);
        QFETCH(QRect, screen);
        openWithoutPicture();
        ModesTestCase::host().resize(host);
        QCOMPARE(popup()->geometry(), QRect(QPoint(), host));
        QCOMPARE(drawView()->geometry(), screen);
        QCOMPARE(drawView()->contentViewWidth(), std::min(414, screen.width()));
        const QRect close = popup()->findChild<QVCloseButton *>()->geometry();
        QCOMPARE(close.size(), QSize(32, 32));
        QCOMPARE(close.topRight(), screen.topRight());
        const QRect support = popup()->findChild<QWidget *>(q("supportLabel"))->geometry();
        QCOMPARE(screen.bottomRight() - support.bottomRight(), QPoint(10, 5));

        advance(300ms);
        const QImage seen = popup()->grab().toImage();
        QCOMPARE(seen.pixelColor(screen.center().x(), screen.top() + 2).value() > 240, true);
        QCOMPARE(seen.pixelColor(0, 40).value() > 200, screen.left() == 0);
    }

    void takesTheRoomThatTheHostChose_data()
    {
        const auto row = addColumns<QVPopupPresentation, bool, bool>({"presentation", "isWindow", "isCard"});
        row("automatic", QVPopupPresentation::Automatic, false, true);
        row("window", QVPopupPresentation::WholeWindow, false, false);
        row("screen", QVPopupPresentation::WholeScreen, true, true);
    }

    void takesTheRoomThatTheHostChose()
    {
        QFETCH(QVPopupPresentation, presentation);
        QFETCH(bool, isWindow);
        QFETCH(bool, isCard);
        QVSDKManager::setPopupPresentation(presentation);
        openWithoutPicture();
        QCOMPARE(popup()->isWindow(), isWindow);
        QCOMPARE(popup()->size(), isWindow ? QGuiApplication::primaryScreen()->size() : host().size());
        QCOMPARE(drawView()->width(), isCard ? 414 : popup()->width());
        // An application that quits asks its windows.
        QVERIFY(popup()->close());
        QCOMPARE(outcomes().said(), words("popup, closed User"));
    }

    void unfoldsAtEachDisplay()
    {
        start(true);
        QVERIFY(waitForPicture());
        for (int i = 0; i < 2; ++i) {
            advance(1s);
            pressClose();
            start(true);
            advance(249ms);
            QVERIFY(drawView()->graphicsEffect());
            advance(1ms);
            QVERIFY(!drawView()->graphicsEffect());
        }
    }

    void staysAboveTheHostsWidgets()
    {
        openWithoutPicture();
        const QWidget *const window = popup();
        QWidget late(&host());
        late.setGeometry(host().rect());
        late.show();
        late.raise();
        QCOMPARE(host().children().constLast(), window);
        // Of two popups the later one stays on top, and neither fights for it.
        start(false);
        QVERIFY(waitFor([] { return popupCount() == 2; }));
        late.raise();
        QVERIFY(host().children().constLast() != window);
        QVERIFY(host().children().constLast() != &late);
        m_edit->setFocus();
        QCOMPARE(QApplication::focusWidget(), host().children().constLast());
        clickManager().reset();
        QCOMPARE(QApplication::focusWidget(), window);
    }

    void nothingReachesTheHost_data()
    {
        const auto row = addColumns<QPoint>({"point"});
        row("dimmed part", QPoint(20, 300));
        row("over the host's own control", QPoint(20, 20));
        row("picture", QPoint(350, 300));
    }

    void nothingReachesTheHost()
    {
        QFETCH(QPoint, point);
        openWithoutPicture();
        QWidget &target = *host().childAt(point);
        const QPoint local = target.mapFrom(&host(), point);
        QVPointerInput::click(host(), point);
        QVPointerInput::click(host(), point);
        QVPointerInput::strokeWithFinger(host(), {point, point + QPoint(5, 5)});
        QWheelEvent wheel(local, target.mapToGlobal(local), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&target, &wheel);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, local, target.mapToGlobal(local));
        QCoreApplication::sendEvent(&target, &menu);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(m_counting->count, 0);
        QCOMPARE(m_edit->text(), QString());
        invisibleManager().reset();
        QVPointerInput::click(host(), QPoint(350, 100));
        QCOMPARE(m_counting->count, 2);
    }

    void hostsShortcutsRest()
    {
        QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_S), m_edit);
        shortcut.setContext(Qt::ApplicationShortcut);
        const QSignalSpy activated(&shortcut, &QShortcut::activated);
        openWithoutPicture();
        QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(activated.count(), 0);
        invisibleManager().reset();
        // A Wayland compositor takes the keyboard away for moments while windows of earlier tests go.
        QVERIFY(qv_waitFor([&] {
            QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
            return activated.count() > 0;
        }));
        QCOMPARE(activated.count(), 1);
    }

    void tabStaysInside()
    {
        openWithoutPicture();
        QSet<QWidget *> visited;
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab}) {
            QTest::keyClick(host().windowHandle(), key);
            visited.insert(QApplication::focusWidget());
            QVERIFY(popup()->isAncestorOf(QApplication::focusWidget()));
        }
        auto *const close = popup()->findChild<QVCloseButton *>();
        QVERIFY(visited.contains(close));
        close->setFocus(Qt::TabFocusReason);
        QTest::keyClick(host().windowHandle(), Qt::Key_Space);
        QCOMPARE(popupCount(), 0);
        QCOMPARE(QApplication::focusWidget(), m_edit.data());
    }

    void focusCannotBeTaken()
    {
        openWithoutPicture();
        m_edit->setFocus();
        QCOMPARE(QApplication::focusWidget(), popup());
    }

    void theAnswersFieldKeepsTheKeyboardInThePopup()
    {
        service().extend(config, {{q("type"), q("character")}});
        delay(picture, 100ms);
        start(true);
        QVERIFY(waitFor([this] { return service().count(picture) == 1; }));
        QLineEdit &field = *popup()->findChild<QLineEdit *>();
        // Nothing can be typed yet, so that Tab leads past the field.
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(host().windowHandle(), Qt::Key_Tab);
            QVERIFY(!field.hasFocus() && popup()->isAncestorOf(QApplication::focusWidget()));
        }
        pass(100ms);
        QVERIFY(waitForPicture());
        QVPointerInput::click(field, field.rect().center());
        QTest::keyClick(host().windowHandle(), Qt::Key_A);
        QTest::keyClick(host().windowHandle(), Qt::Key_Return);
        QCOMPARE(field.text(), q("a"));
        QTest::keyClick(host().windowHandle(), Qt::Key_Return);
        QCOMPARE(m_counting->count, 0);
        QTest::keyClick(host().windowHandle(), Qt::Key_Escape);
        QVERIFY(!popup());
        QCOMPARE(popupCount(), 1);
        QCOMPARE(outcomes().said(), words("popup, closed User"));
    }

    void focusGoesBack()
    {
        openWithoutPicture();
        QTest::keyClick(host().windowHandle(), Qt::Key_Tab);
        invisibleManager().reset();
        QCOMPARE(QApplication::focusWidget(), m_edit.data());
        openWithoutPicture();
        QWidget *const window = popup();
        delete m_edit;
        invisibleManager().reset();
        QVERIFY(!window->isAncestorOf(QApplication::focusWidget()));
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        auto counting = std::make_unique<CountingHost>();
        m_counting = counting.get();
        m_counting->resize(700, 600);
        m_edit = new QLineEdit(m_counting);
        m_edit->setGeometry(10, 10, 200, 30);
        replaceHost(std::move(counting));
        m_edit->setFocus();
    }

    void finish() override
    {
        QVSDKManager::setPopupPresentation(QVPopupPresentation::Automatic);
        ModesTestCase::finish();
    }

    void openWithoutPicture()
    {
        service().answer(outageSwitch, {{q("active"), true}});
        delay(outageGet, 1h);
        start(true);
        QVERIFY(waitFor([] { return popup() != nullptr; }));
    }

    CountingHost *m_counting = nullptr;
    QPointer<QLineEdit> m_edit;
};

QV_TEST(TestPopup)
#include "TestPopup.moc"
