#include "modes/ModesTestCase.h"

#include <QAccessible>

using namespace std::chrono_literals;

/// What a screen reader finds, through the platform's own interface.
class TestAccessibility : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isRead_data()
    {
        addColumns<QString, QString, QString>({"mode", "steps", "found"});
        const auto row = [](const char *name, const char *mode, const char *steps, const char *found) {
            QTest::newRow(name) << q(mode) << q(steps) << q(found);
        };
        row("panel", "embed", "guide, advertise, start, picture",
            "graphic 'Picture to draw on', button 'Advertisement Buy', text 'Draw along the curve', button "
            "'Help', button 'New picture'");
        row("characters", "embed", "characters, start, picture",
            "graphic 'Characters in the picture', text 'Type the characters you see', field 'Characters in "
            "the picture', button 'Done', button 'New picture'");
        row("characters checked", "embed",
            "characters, hold verify 9000, start, picture, type ab, tap doneButton",
            "graphic 'Characters in the picture', text 'Type the characters you see', field 'Characters in "
            "the picture', busy button 'Done', button 'New picture'");
        row("failure", "embed", "answer config 0101, start, wait 300",
            "graphic 'Picture to draw on', button 'Access denied. Try again.', text 'Access denied. Try "
            "again.'");
        row("popup", "invisible", "start, picture",
            "modal dialog 'Human verification', graphic 'Picture to draw on', text 'Draw along the curve', "
            "button 'New picture', button 'Close', text 'Verification by Quarvo'");
        row("button", "click", "", "button 'Click to verify'");
        row("button verifying", "click", "hold click 100, start, wait 0",
            "busy button 'Verifying…', text 'Verifying…'");
        row("button passed", "click", "pass, start, wait 600", "button 'Verified', text 'Verified'");
        row("button reset", "click", "pass, start, wait 600, reset", "button 'Click to verify'");
    }

    void isRead()
    {
        QFETCH(QString, mode);
        QFETCH(QString, steps);
        setMode(mode);
        if (mode == click)
            (void)clickManager();
        go(steps);
        QStringList all;
        walk(QAccessible::queryAccessibleInterface(&host()), all);
        QTEST(all.join(q(", ")), "found");
        if (const auto *imageView = host().findChild<QWidget *>(q("imageView")))
            QCOMPARE(imageView->cursor().shape() == Qt::BitmapCursor,
                     steps.contains(q("picture")) && !steps.contains(q("characters")));
        for (QWidget *widget : host().findChildren<QWidget *>()) {
            if (!widget->isVisible() || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus))
                continue;
            QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(widget);
            QVERIFY(!seen->text(QAccessible::Name).isEmpty() && seen->state().focusable);
            if (qobject_cast<QAbstractButton *>(widget))
                QVERIFY(seen->actionInterface()->actionNames().contains(pressed));
            if (mode != click && !seen->state().busy && qobject_cast<QAbstractButton *>(widget))
                QCOMPARE(widget->cursor().shape(), Qt::PointingHandCursor);
        }
    }

    void isPressed()
    {
        QAccessible::queryAccessibleInterface(clickManager().button())->actionInterface()->doAction(pressed);
        QVERIFY(waitForPicture());
    }

private:
    static inline const QString pressed = QAccessibleActionInterface::pressAction();

    /// Everything below \a parent that a screen reader would stop at, by kind and name.
    static void walk(QAccessibleInterface *parent, QStringList &all)
    {
        for (int i = 0; i < parent->childCount(); ++i) {
            QAccessibleInterface *child = parent->child(i);
            if (child->state().invisible)
                continue;
            if (const QString kind = kindOf(child->role()); !kind.isEmpty()) {
                const QString busy = child->state().busy ? q("busy ") : QString();
                const QString modal = child->state().modal ? q("modal ") : QString();
                all.append(busy + modal + kind + q(" '%1'").arg(child->text(QAccessible::Name)));
            }
            walk(child, all);
        }
    }

    static QString kindOf(QAccessible::Role role)
    {
        static const QMap<QAccessible::Role, QString> kinds{
            {QAccessible::Button, q("button")},      {QAccessible::Graphic, q("graphic")},
            {QAccessible::StaticText, q("text")},    {QAccessible::Notification, q("text")},
            {QAccessible::EditableText, q("field")}, {QAccessible::Dialog, q("dialog")}};
        return kinds.value(role);
    }
};

QV_TEST(TestAccessibility)
#include "TestAccessibility.moc"
