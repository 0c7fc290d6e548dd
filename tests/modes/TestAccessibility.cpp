#include "modes/ModesTestCase.h"
#include "modes/QVClickButton.h"
#include "modes/QVInvisibleManager.h"
#include "popup/QVWindow.h"

#include <QAccessible>
#include <QApplication>

using namespace std::chrono_literals;

/// What a screen reader finds, through the platform's own interface.
class TestAccessibility : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void thePanel()
    {
        service().extend(config, {{q("guide"), true}});
        (void)embedManager();
        QVERIFY(waitForPicture());
        pass(300ms);
        QCOMPARE(found(*embedManager().embedView()),
                 QStringList({q("graphic: Picture to draw on"), q("text: Draw along the curve"),
                              q("button: Help"), q("button: New picture")}));
        QVERIFY(everyFocusableIsNamed(*embedManager().embedView()));
    }

    void charactersAreAField()
    {
        service().extend(config, {{q("type"), q("character")}});
        (void)embedManager();
        QVERIFY(waitForPicture());
        pass(300ms);
        const QStringList all = found(*embedManager().embedView());
        QVERIFY2(all.contains(q("field: Characters in the picture")), qPrintable(all.join(u'|')));
        QVERIFY(all.contains(q("button: Done")));
    }

    void thePopupIsADialog()
    {
        QVInvisibleManager manager;
        manager.startInsivible();
        QVERIFY(waitForPicture());
        QAccessibleInterface *dialog = QAccessible::queryAccessibleInterface(popup());
        QCOMPARE(dialog->role(), QAccessible::Dialog);
        QVERIFY(dialog->state().modal);
        QCOMPARE(dialog->text(QAccessible::Name), q("Human verification"));
        const QStringList all = found(*popup());
        for (const char *const element :
             {"graphic: Picture to draw on", "button: Close", "button: New picture",
              "text: Draw along the curve", "text: Verification by Quarvo"})
            QVERIFY2(all.contains(QLatin1String(element)), qPrintable(all.join(u'|')));
        QVERIFY(everyFocusableIsNamed(*popup()));
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QVERIFY(popup()->isAncestorOf(QApplication::focusWidget()));
        }
    }

    void theButtonSaysWhatItDoes()
    {
        QVClickButton button(&host());
        button.resize(300, 44);
        button.show();
        QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&button);
        QCOMPARE(seen->role(), QAccessible::Button);
        QCOMPARE(seen->text(QAccessible::Name), q("Click to verify"));
        QVERIFY(!seen->state().busy);
        QCOMPARE(found(button), QStringList());
        passByClick();
        seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(seen->state().busy);
        QCOMPARE(seen->text(QAccessible::Name), q("Verifying…"));
        QCOMPARE(found(button), QStringList(q("text: Verifying…")));
        pass(600ms);
        QVERIFY(!seen->state().busy);
        QCOMPARE(seen->text(QAccessible::Name), q("Verified"));
        QCOMPARE(found(button), QStringList(q("text: Verified")));
        button.reset();
        QCOMPARE(found(button), QStringList());
    }

    void aFailureCanBePressed()
    {
        answerCode(config, q("0101"));
        (void)embedManager();
        QVERIFY(waitFor([this] { return outcomes().said() == words("failed 101"); }));
        const QStringList all = found(*embedManager().embedView());
        QVERIFY2(all.contains(q("button: Access denied. Try again.")), qPrintable(all.join(u'|')));
    }

    void theBadgeIsAMessage()
    {
        passByClick();
        QVInvisibleManager manager;
        manager.startInsivible();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(found(host()), QStringList(q("text: Verifying…")));
        pass(300ms);
        QCOMPARE(found(host()), QStringList(q("text: Verified")));
    }

private:
    /// Everything below \a widget that a screen reader would stop at, by kind and name.
    static QStringList found(const QWidget &widget)
    {
        QStringList all;
        walk(QAccessible::queryAccessibleInterface(const_cast<QWidget *>(&widget)), all);
        return all;
    }

    static void walk(QAccessibleInterface *parent, QStringList &all)
    {
        for (int i = 0; i < parent->childCount(); ++i) {
            QAccessibleInterface *child = parent->child(i);
            if (child->state().invisible)
                continue;
            if (const QString kind = kindOf(child->role()); !kind.isEmpty())
                all.append(kind + q(": ") + child->text(QAccessible::Name));
            walk(child, all);
        }
    }

    static QString kindOf(QAccessible::Role role)
    {
        switch (role) {
        case QAccessible::Button:
            return q("button");
        case QAccessible::Graphic:
            return q("graphic");
        case QAccessible::StaticText:
        case QAccessible::Notification:
            return q("text");
        case QAccessible::EditableText:
            return q("field");
        default:
            return {};
        }
    }

    static bool everyFocusableIsNamed(const QWidget &root)
    {
        for (QWidget *widget : root.findChildren<QWidget *>()) {
            if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus))
                continue;
            QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(widget);
            if (seen->text(QAccessible::Name).isEmpty() || !seen->state().focusable)
                return false;
        }
        return true;
    }
};

QV_TEST(TestAccessibility)
#include "TestAccessibility.moc"
