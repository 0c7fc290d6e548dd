#include "modes/ModesTestCase.h"
#include "modes/Opener.h"
#include "popup/QVCloseButton.h"
#include "popup/QVViewController.h"
#include "popup/QVWindow.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"

#include <QContextMenuEvent>
#include <QLineEdit>
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

class TestPopupInput : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
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
        open();
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
        m_controller.lock()->hiddenWindow();
        QVPointerInput::click(host(), QPoint(350, 100));
        QCOMPARE(m_counting->count, 2);
    }

    void hostsShortcutsRest()
    {
        QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_S), m_edit);
        shortcut.setContext(Qt::ApplicationShortcut);
        const QSignalSpy activated(&shortcut, &QShortcut::activated);
        open();
        QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(activated.count(), 0);
        m_controller.lock()->hiddenWindow();
        // A Wayland compositor takes the keyboard away for moments while windows of earlier tests go.
        QVERIFY(qv_waitFor([&] {
            QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
            return activated.count() > 0;
        }));
        QCOMPARE(activated.count(), 1);
    }

    void tabStaysInside()
    {
        open();
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
        QVERIFY(m_controller.expired());
        QCOMPARE(QApplication::focusWidget(), m_edit.data());
    }

    void focusCannotBeTaken()
    {
        open();
        m_edit->setFocus();
        QCOMPARE(QApplication::focusWidget(), popup());
        // Two popups on one window: only the upper one insists.
        const auto second =
            QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, nullptr, nullptr, m_opener.get());
        m_edit->setFocus();
        const QWidget *const upper = QApplication::focusWidget();
        QCOMPARE(upper, host().children().constLast());
        second->dismissWindow();
        QCOMPARE(QApplication::focusWidget(), popup());
    }

    void theAnswersFieldKeepsTheKeyboardInThePopup()
    {
        delay(outageSwitch, 0ms);
        service().extend(config, {{QStringLiteral("type"), QStringLiteral("character")}});
        delay(picture, 100ms);
        open();
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
        QCOMPARE(field.text(), QStringLiteral("a"));
        QTest::keyClick(host().windowHandle(), Qt::Key_Return);
        QCOMPARE(m_counting->count, 0);
        QTest::keyClick(host().windowHandle(), Qt::Key_Escape);
        QVERIFY(!popup());
    }

    void focusGoesBack()
    {
        open();
        QTest::keyClick(host().windowHandle(), Qt::Key_Tab);
        m_controller.lock()->hiddenWindow();
        QCOMPARE(QApplication::focusWidget(), m_edit.data());
        m_controller.lock()->displayWindow();
        QWidget *const window = popup();
        delete m_edit;
        m_controller.lock()->hiddenWindow();
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
        m_opener = std::make_unique<Opener>(m_counting);
        delay(outageSwitch, 1h);
    }

    void open()
    {
        m_controller =
            QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, nullptr, nullptr, m_opener.get());
    }

    CountingHost *m_counting = nullptr;
    QPointer<QLineEdit> m_edit;
    std::unique_ptr<Opener> m_opener;
    std::weak_ptr<QVViewController> m_controller;
};

QV_TEST(TestPopupInput)
#include "TestPopupInput.moc"
