#include "modes/ModesTestCase.h"
#include "modes/QVCloseButton.h"
#include "modes/QVViewController.h"
#include "modes/QVWindow.h"
#include "support/QVPointerInput.h"

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
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            ++count;
            event->accept();
            return true;
        default:
            return QWidget::event(event);
        }
    }
};

} // namespace

class TestPopupInput : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothingReachesTheHost_data();
    void nothingReachesTheHost();
    void hostsShortcutsRest();
    void tabStaysInside();
    void focusCannotBeTaken();
    void focusGoesBack_data();
    void focusGoesBack();
    void closeButtonByKey_data();
    void closeButtonByKey();

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
        delay(outageSwitch, 1h);
    }

    void open()
    {
        m_controller =
            QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, nullptr, nullptr, nullptr, m_edit);
    }

    CountingHost *m_counting = nullptr;
    QPointer<QLineEdit> m_edit;
    std::weak_ptr<QVViewController> m_controller;
};

void TestPopupInput::nothingReachesTheHost_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::newRow("dimmed part") << QPoint(20, 300);
    QTest::newRow("over the host's own control") << QPoint(20, 20);
    QTest::newRow("card") << QPoint(350, 100);
    QTest::newRow("picture") << QPoint(350, 300);
}

void TestPopupInput::nothingReachesTheHost()
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

void TestPopupInput::hostsShortcutsRest()
{
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_S), m_edit);
    shortcut.setContext(Qt::ApplicationShortcut);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    open();
    QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(activated.count(), 0);
    m_controller.lock()->hiddenWindow();
    QTest::keyClick(host().windowHandle(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(activated.count(), 1);
}

void TestPopupInput::tabStaysInside()
{
    open();
    QSet<QWidget *> visited;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab}) {
        QTest::keyClick(host().windowHandle(), key);
        visited.insert(QApplication::focusWidget());
        QVERIFY(popup()->isAncestorOf(QApplication::focusWidget()));
    }
    QVERIFY(visited.contains(popup()->findChild<QVCloseButton *>()));
}

void TestPopupInput::focusCannotBeTaken()
{
    open();
    m_edit->setFocus();
    QCOMPARE(QApplication::focusWidget(), popup());
    // Two popups on one window: only the upper one insists.
    const auto second =
        QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, nullptr, nullptr, nullptr, m_edit);
    m_edit->setFocus();
    const QWidget *const upper = QApplication::focusWidget();
    QCOMPARE(upper, host().children().constLast());
    second->dismissWindow();
    QCOMPARE(QApplication::focusWidget(), popup());
    QWidget dialog;
    QLineEdit line(&dialog);
    showActive(dialog);
    line.setFocus();
    QCOMPARE(QApplication::focusWidget(), &line);
}

void TestPopupInput::focusGoesBack_data()
{
    QTest::addColumn<bool>("dismissed");
    QTest::addColumn<bool>("gone");
    QTest::newRow("hidden") << false << false;
    QTest::newRow("dismissed") << true << false;
    QTest::newRow("hidden, nobody there") << false << true;
    QTest::newRow("dismissed, nobody there") << true << true;
}

void TestPopupInput::focusGoesBack()
{
    QFETCH(bool, dismissed);
    QFETCH(bool, gone);
    open();
    QTest::keyClick(host().windowHandle(), Qt::Key_Tab);
    QWidget *const window = popup();
    if (gone)
        delete m_edit;
    if (dismissed)
        m_controller.lock()->dismissWindow();
    else
        m_controller.lock()->hiddenWindow();
    if (!gone)
        QCOMPARE(QApplication::focusWidget(), m_edit.data());
    QVERIFY(!QApplication::focusWidget() || !window->isAncestorOf(QApplication::focusWidget()));
}

void TestPopupInput::closeButtonByKey_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("space") << Qt::Key_Space;
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("enter") << Qt::Key_Enter;
}

void TestPopupInput::closeButtonByKey()
{
    QFETCH(Qt::Key, key);
    open();
    popup()->findChild<QVCloseButton *>()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(host().windowHandle(), key);
    QVERIFY(m_controller.expired());
    QCOMPARE(QApplication::focusWidget(), m_edit.data());
}

QV_TEST(TestPopupInput)
#include "TestPopupInput.moc"
