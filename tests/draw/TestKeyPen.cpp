#include "draw/DrawTestCase.h"
#include "draw/QVKeyPen.h"

using namespace std::chrono_literals;

/// Drawing with the keyboard alone.
class TestKeyPen : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tabLeadsToThePicture()
    {
        show(QVVerifyStyleEmbed);
        QVERIFY(!(picture().focusPolicy() & Qt::TabFocus));
        advance(100ms);
        QVERIFY(waitForReady());
        for (int i = 0; i < 5 && !picture().hasFocus(); ++i)
            QTest::keyClick(view().window(), Qt::Key_Tab);
        QVERIFY(picture().hasFocus());
        QVERIFY(pen().isVisible());
        QVERIFY(!picture().accessibleDescription().isEmpty());
    }

    void aStrokeIsSentLikeAnyOther()
    {
        begin();
        const QPoint start = pen().geometry().center();
        press(Qt::Key_Space);
        press(Qt::Key_Right, 15);
        QCOMPARE(pen().geometry().center().x() - start.x(), qRound(15 * picture().width() / 40.0));
        press(Qt::Key_Space);
        QVERIFY(waitForWrongAnswer());
        // The press and the moves, in three parts of equal length.
        QCOMPARE(service().query(QStringLiteral("verify")).value(QStringLiteral("v")).size() % 3, 0);
        QCOMPARE(service().count(QStringLiteral("verify")), 1);
    }

    void twoArrowsGoAslant()
    {
        begin();
        const QPoint start = pen().geometry().center();
        QTest::keyPress(&picture(), Qt::Key_Right);
        QTest::keyPress(&picture(), Qt::Key_Down);
        QTest::keyRelease(&picture(), Qt::Key_Right);
        QTest::keyPress(&picture(), Qt::Key_Down);
        const QPointF way = pen().geometry().center() - start;
        const double step = picture().width() / 40.0;
        QVERIFY(std::abs(way.x() - 2 * step) <= 1 && std::abs(way.y() - 2 * step) <= 1);
    }

    void staysInThePicture()
    {
        begin();
        press(Qt::Key_Left, 60);
        press(Qt::Key_Up, 60);
        QVERIFY(frame("imageView").contains(pen().geometry().center()));
        press(Qt::Key_Right, 100, Qt::ShiftModifier);
        press(Qt::Key_Down, 500);
        QVERIFY(frame("imageView").contains(pen().geometry().center()));
    }

    void comesToNothing_data()
    {
        QTest::addColumn<int>("by");
        QTest::newRow("escape") << 0;
        QTest::newRow("the focus goes") << 1;
        QTest::newRow("disabled") << 2;
        QTest::newRow("too short") << 3;
    }

    void comesToNothing()
    {
        QFETCH(int, by);
        begin();
        press(Qt::Key_Space);
        press(Qt::Key_Right, by == 3 ? 4 : 15);
        if (by == 0)
            press(Qt::Key_Escape);
        else if (by == 1)
            picture().clearFocus();
        else if (by == 2)
            view().setEnabled(false);
        else
            press(Qt::Key_Space);
        pass(500ms);
        QCOMPARE(service().count(QStringLiteral("verify")), 0);
        view().setEnabled(true);
        picture().setFocus(Qt::TabFocusReason);
        press(Qt::Key_Space);
        press(Qt::Key_Right, 15);
        press(Qt::Key_Space);
        QVERIFY(waitForWrongAnswer());
    }

    void leavesOtherKeysAlone()
    {
        begin();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&picture(), &escape);
        QVERIFY(!escape.isAccepted());
        QKeyEvent copy(QEvent::ShortcutOverride, Qt::Key_Right, Qt::ControlModifier);
        copy.ignore();
        QCoreApplication::sendEvent(&picture(), &copy);
        QVERIFY(!copy.isAccepted());
    }

private:
    void begin()
    {
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        start(QVVerifyStyleEmbed);
        picture().setFocus(Qt::TabFocusReason);
        QVERIFY(picture().hasFocus());
    }

    [[nodiscard]] QVKeyPen &pen() const
    {
        return *dynamic_cast<QVKeyPen *>(view().findChild<QWidget *>(QStringLiteral("keyPen")));
    }

    void press(Qt::Key key, int times = 1, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        for (int i = 0; i < times; ++i) {
            advance(30ms);
            QTest::keyClick(&picture(), key, modifiers);
        }
    }
};

QV_TEST(TestKeyPen)
#include "TestKeyPen.moc"
