#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "popup/QVCloseButton.h"
#include "popup/QVWindow.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"
#include "views/QVInvisibleAnimationView.h"

#include <QContextMenuEvent>
#include <QGraphicsView>
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
    void hasAWindowOfItsOwnForALowHost()
    {
        for (const QSize size : {QSize(322, 159), QSize(480, 300)}) {
            host().resize(size);
            host().move(QGuiApplication::primaryScreen()->geometry().bottomRight());
            open();
            QVERIFY(popup()->isWindow());
            QCOMPARE(drawView()->geometry(), QRect(0, 0, 414, 379));
            QVERIFY(popup()->screen()->geometry().contains(popup()->frameGeometry()));
            host().setGeometry(200, 300, 400, 200);
            QCOMPARE(popup()->geometry().center(), host().geometry().center());
            reset();
        }
    }

    void takesTheRoomThatTheHostChose_data()
    {
        const auto row = addColumns<QVPopupPresentation, bool, bool, QRect>(
            {"presentation", "isForeign", "isWindow", "screen"});
        const QRect card(0, 0, 414, 379);
        row("automatic", QVPopupPresentation::Automatic, false, false, card.translated(143, 110));
        row("window", QVPopupPresentation::WholeWindow, false, false, QRect(0, 0, 700, 600));
        row("screen", QVPopupPresentation::WholeScreen, false, true, card.translated(193, 210));
        row("no widget", QVPopupPresentation::Automatic, true, true, card.translated(113, 110));
        row("no widget, screen", QVPopupPresentation::WholeScreen, true, true, card.translated(193, 210));
    }

    void takesTheRoomThatTheHostChose()
    {
        QFETCH(bool, isForeign);
        QFETCH(QVPopupPresentation, presentation);
        QVSDKManager::setPopupPresentation(presentation);
        if (isForeign)
            go(q("window foreign"));
        go(q("start, picture"));
        QTEST(popup()->isWindow(), "isWindow");
        QTEST(popup()->popupScreen(), "screen");
        QVERIFY2(!drawView()->graphicsEffect(), "it has unfolded");
        QCOMPARE(popup()->isFullScreen(), presentation == QVPopupPresentation::WholeScreen);
        if (presentation == QVPopupPresentation::WholeScreen)
            QCOMPARE(popup()->geometry(), QGuiApplication::primaryScreen()->geometry());
        else if (isForeign)
            QCOMPARE(popup()->geometry(), QRect(40, 30, 640, 600));
        if (isForeign)
            QVERIFY(!popup()->windowHandle()->transientParent()->inherits("QWidgetWindow"));
        // An application that quits asks its windows. This host shows the popup again, once.
        go(q("when closed: start"));
        QVERIFY(!popup()->close() && popup() && popup()->close());
        QCOMPARE(outcomes().ends(), words("closed User, closed User"));
    }

    void followsAWindowThatIsNoWidget()
    {
        go(q("window foreign"));
        open();
        QWindow &window = *popup()->windowHandle()->transientParent();
        window.setGeometry(60, 50, 400, 500);
        QVERIFY(waitFor([&] { return popup()->geometry() == window.geometry(); }));
        QCOMPARE(popup()->popupScreen(), QRect(0, 0, 400, 500));
    }

    void badgeSitsInTheMiddleOfTheActiveWindow()
    {
        delay(outageSwitch, 10s);
        go(q("window other, window other, badge, start, wait 0"));
        const auto *const badge = host().findChild<QVInvisibleAnimationView *>();
        QCOMPARE(badge->frame().center(), QPoint(349, 299));
        host().resize(500, 400);
        QCOMPARE(badge->frame().center(), QPoint(249, 199));
        QVERIFY(host().childAt(250, 200) != badge);
        for (const Qt::WindowType type : {Qt::Sheet, Qt::Tool}) {
            QWidget other(nullptr, type);
            showActive(other);
            go(q("reset, start, wait 0"));
            QCOMPARE(other.findChild<QVInvisibleAnimationView *>() != nullptr, type == Qt::Sheet);
        }
        go(q("destroy, window destroy other, window foreign, badge, start, wait 0"));
        const QWidgetList all = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(all, [](const QWidget *widget) {
            return qobject_cast<const QVInvisibleAnimationView *>(widget);
        });
        QCOMPARE(static_cast<const QVInvisibleAnimationView *>(*found)->frame().center(), QPoint(359, 329));
    }

    void staysAboveTheHostsWidgets()
    {
        open();
        const QWidget *const window = popup();
        QWidget late(&host());
        late.setGeometry(host().rect());
        late.show();
        late.raise();
        QCOMPARE(host().children().constLast(), window);
        // Of two popups the later one stays on top, and neither fights for it.
        start(QVVerifyStylePopup);
        QVERIFY(waitFor([this] { return popupCount() == 2; }));
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
        QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_S), m_edit);
        shortcut.setContext(Qt::ApplicationShortcut);
        const QSignalSpy activated(&shortcut, &QShortcut::activated);
        open();
        QWidget &target = *host().childAt(point);
        const QPoint local = target.mapFrom(&host(), point);
        QVPointerInput::click(host(), point);
        QVPointerInput::click(host(), point);
        QVPointerInput::tap(host(), point);
        QWheelEvent wheel(local, target.mapToGlobal(local), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&target, &wheel);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, local, target.mapToGlobal(local));
        QCoreApplication::sendEvent(&target, &menu);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(m_counting->count + activated.count(), 0);
        QCOMPARE(m_edit->text(), QString());
        reset();
        QVPointerInput::click(host(), QPoint(350, 100));
        QCOMPARE(m_counting->count, 2);
        // A Wayland compositor takes the keyboard away for moments while windows of earlier tests go.
        QVERIFY(waitFor([&] {
            QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
            return activated.count() > 0;
        }));
    }

    void focusStaysInsideAndGoesBack()
    {
        open();
        m_edit->setFocus();
        QCOMPARE(QApplication::focusWidget(), popup());
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
        open();
        QWidget *const window = popup();
        delete m_edit;
        reset();
        QVERIFY(!window->isAncestorOf(QApplication::focusWidget()));
    }

    void theAnswersFieldKeepsTheKeyboardInThePopup()
    {
        service().extend(config, {{q("type"), q("character")}});
        delay(picture, 100ms);
        start();
        QVERIFY(waitFor([this] { return service().count(picture) == 1; }));
        QLineEdit &field = *popup()->findChild<QLineEdit *>();
        // Nothing can be typed yet, so that Tab leads past the field.
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(host().windowHandle(), Qt::Key_Tab);
            QVERIFY(!field.hasFocus() && popup()->isAncestorOf(QApplication::focusWidget()));
        }
        go(q("wait 100, picture"));
        QVPointerInput::click(field, field.rect().center());
        QTest::keyClick(host().windowHandle(), Qt::Key_A);
        QTest::keyClick(host().windowHandle(), Qt::Key_Return);
        QCOMPARE(field.text(), q("a"));
        QTest::keyClick(host().windowHandle(), Qt::Key_Return);
        QCOMPARE(m_counting->count, 0);
        QTest::keyClick(host().windowHandle(), Qt::Key_Escape);
        QCOMPARE(popupCount(), 1);
        QCOMPARE(outcomes().said(), words("popup, closed User"));
    }

    void hostHoldsOnToTheFocus()
    {
        const auto holds =
            connect(qApp, &QApplication::focusChanged, m_edit, [this](QWidget *, const QWidget *now) {
                if (!now || now == m_edit)
                    return;
                m_edit->setFocus();
                start();
            });
        go(q("start, picture, stroke, wait 1600"));
        disconnect(holds);
        QCOMPARE(outcomes().ends(), words("passed main-token"));
    }

    void hostStartsAgainAsThePopupsOwnWindowIsActivated()
    {
        host().resize(300, 200);
        connect(qApp, &QApplication::focusChanged, &host(),
                [this, hasActed = false](QWidget *, const QWidget *now) mutable {
                    if (!now || now->window() != popup() || std::exchange(hasActed, true))
                        return;
                    host().resize(700, 600);
                    popup()->close();
                    start();
                });
        go(q("start, wait 100"));
        QCOMPARE(popup()->window(), &host());
        QCOMPARE(outcomes().said(), words("popup, closed User, popup"));
    }

    void hostStartsWhileItsWindowIsDestroyed()
    {
        auto window = std::make_unique<QGraphicsView>();
        showActive(*window);
        window->setFocus();
        invisibleManager().setAnimation(true);
        const auto starts = connect(qApp, &QApplication::focusChanged, this, [this] { start(); });
        window.reset();
        disconnect(starts);
        pass(100ms);
        QCOMPARE(outcomes().ends().size() + popupCount(), 1);
    }

    void hostStartsWhileItsWidgetsAreDestroyed()
    {
        auto window = std::make_unique<QWidget>();
        new QWidget(window.get());
        const auto *const second = new QWidget(window.get());
        showActive(*window);
        connect(second, &QObject::destroyed, this, [this] { start(); });
        window.reset();
        pass(100ms);
        QCOMPARE(outcomes().ends().size() + popupCount(), 1);
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        setMode(q("invisible"));
        auto counting = std::make_unique<CountingHost>();
        m_counting = counting.get();
        m_counting->resize(700, 600);
        m_edit = new QLineEdit(m_counting);
        m_edit->setGeometry(10, 10, 200, 30);
        replaceHost(std::move(counting));
        m_edit->setFocus();
    }

    /// Without a picture.
    void open()
    {
        go(q("outage, hold outage-get 9000, start"));
        QVERIFY(waitFor([] { return popup() != nullptr; }));
    }

    CountingHost *m_counting = nullptr;
    QPointer<QLineEdit> m_edit;
};

QV_TEST(TestPopup)
#include "TestPopup.moc"
