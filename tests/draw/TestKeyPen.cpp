#include "draw/DrawTestCase.h"
#include "draw/QVKeyPen.h"

using namespace std::chrono_literals;

/// The pen that is moved by keys. TestDrawFlow tests the effects of its strokes.
class TestKeyPen : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tabLeadsToThePicture()
    {
        show(QVVerifyStyleEmbed);
        QVERIFY(!(picture().focusPolicy() & Qt::TabFocus));
        start();
        QVERIFY(waitForTold("ready"));
        for (int i = 0; i < 5 && !picture().hasFocus(); ++i)
            QTest::keyClick(view()->window(), Qt::Key_Tab);
        QVERIFY(picture().hasFocus());
        QVERIFY(part(q("keyPen"))->isVisible());
        QVERIFY(!picture().accessibleDescription().isEmpty());
        // Without a picture the pen is hidden.
        view()->requestQuarvoConfigAction();
        QVERIFY(picture().hasFocus() && !part(q("keyPen"))->isVisible());
        QVERIFY(waitForTold("ready", 2));
        QVERIFY(part(q("keyPen"))->isVisible());
    }

    void moves_data()
    {
        // Distances are in steps of a fortieth of the picture's width.
        const auto row = addColumns<QList<int>, Qt::KeyboardModifiers, QPointF>({"keys", "modifiers", "way"});
        row("right", QList<int>(15, Qt::Key_Right), Qt::KeyboardModifiers(), QPointF(15, 0));
        row("in small steps", QList<int>(15, Qt::Key_Up), Qt::KeyboardModifiers(Qt::ShiftModifier),
            QPointF(0, -3.75));
        row("two at once go aslant", QList<int>{Qt::Key_Right, Qt::Key_Down, -Qt::Key_Right, Qt::Key_Down},
            Qt::KeyboardModifiers(), QPointF(2, 2));
        row("to the corner", QList<int>(60, Qt::Key_Left) + QList<int>(60, Qt::Key_Up),
            Qt::KeyboardModifiers(), QPointF(-4, -11.5));
    }

    void moves()
    {
        QFETCH(QList<int>, keys);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QPointF, way);
        startWithPicture(QVVerifyStyleEmbed);
        picture().setFocus(Qt::TabFocusReason);
        const QPoint start = part(q("keyPen"))->geometry().center();
        for (const int key : keys) {
            advance(30ms);
            if (key < 0)
                QTest::keyRelease(&picture(), Qt::Key(-key), modifiers);
            else
                QTest::keyPress(&picture(), Qt::Key(key), modifiers);
        }
        const QPointF seen = QPointF(part(q("keyPen"))->geometry().center() - start) * 40 / picture().width();
        QVERIFY2(std::abs(seen.x() - way.x()) < 0.1 && std::abs(seen.y() - way.y()) < 0.1,
                 qPrintable(q("%1 %2").arg(seen.x()).arg(seen.y())));
    }

    void leavesOtherKeysAlone()
    {
        startWithPicture(QVVerifyStyleEmbed);
        picture().setFocus(Qt::TabFocusReason);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&picture(), &escape);
        QVERIFY(!escape.isAccepted());
        QKeyEvent copy(QEvent::ShortcutOverride, Qt::Key_Right, Qt::ControlModifier);
        copy.ignore();
        QCoreApplication::sendEvent(&picture(), &copy);
        QVERIFY(!copy.isAccepted());
    }
};

QV_TEST(TestKeyPen)
#include "TestKeyPen.moc"
