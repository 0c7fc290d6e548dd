#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/QVClickButton.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVInvisibleManager.h"
#include "popup/QVWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>

using namespace std::chrono_literals;

/// What a screen reader finds, through the platform's own interface.
class TestAccessibility : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void thePanel()
    {
        service().extend(config, {{QStringLiteral("guide"), true}});
        QVEmbedManager manager;
        QVERIFY(showUntil(manager, &QVEmbedManager::ready));
        pass(300ms);
        QCOMPARE(found(*manager.embedView()),
                 QStringList({QStringLiteral("graphic: Picture to draw on"),
                              QStringLiteral("text: Draw along the curve"), QStringLiteral("button: Help"),
                              QStringLiteral("button: New picture")}));
        QVERIFY(everyFocusableIsNamed(*manager.embedView()));
    }

    void charactersAreAField()
    {
        service().extend(config, {{QStringLiteral("type"), QStringLiteral("character")}});
        QVEmbedManager manager;
        QVERIFY(showUntil(manager, &QVEmbedManager::ready));
        pass(300ms);
        const QStringList all = found(*manager.embedView());
        QVERIFY2(all.contains(QStringLiteral("field: Characters in the picture")),
                 qPrintable(all.join(u'|')));
        QVERIFY(all.contains(QStringLiteral("button: Done")));
    }

    void thePopupIsADialog()
    {
        QVInvisibleManager manager;
        manager.startInsivible();
        QVERIFY(waitForPicture());
        QAccessibleInterface *dialog = QAccessible::queryAccessibleInterface(popup());
        QCOMPARE(dialog->role(), QAccessible::Dialog);
        QCOMPARE(dialog->text(QAccessible::Name), QStringLiteral("Human verification"));
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
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Click to verify"));
        QVERIFY(!seen->state().busy);
        QCOMPARE(found(button), QStringList());
        passByClick();
        seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(seen->state().busy);
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Verifying…"));
        QCOMPARE(found(button), QStringList(QStringLiteral("text: Verifying…")));
        pass(600ms);
        QVERIFY(!seen->state().busy);
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Verified"));
        QCOMPARE(found(button), QStringList(QStringLiteral("text: Verified")));
        button.reset();
        QCOMPARE(found(button), QStringList());
    }

    void aFailureCanBePressed()
    {
        answerCode(config, QStringLiteral("0101"));
        QVEmbedManager manager;
        QVERIFY(showUntil(manager, &QVEmbedManager::failed));
        const QStringList all = found(*manager.embedView());
        QVERIFY2(all.contains(QStringLiteral("button: Access denied. Try again.")),
                 qPrintable(all.join(u'|')));
    }

    void theBadgeIsAMessage()
    {
        passByClick();
        QVInvisibleManager manager;
        manager.startInsivible();
        QCOMPARE(found(host()), QStringList(QStringLiteral("text: Verifying…")));
        pass(300ms);
        QCOMPARE(found(host()), QStringList(QStringLiteral("text: Verified")));
    }

private:
    template<class Signal>
    [[nodiscard]] bool showUntil(QVEmbedManager &manager, Signal signal)
    {
        QSignalSpy told(&manager, signal);
        manager.embedView()->setParent(&host());
        manager.embedView()->show();
        pass(150ms);
        return waitFor([&told] { return told.size() == 1; });
    }

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
                all.append(kind + QStringLiteral(": ") + child->text(QAccessible::Name));
            walk(child, all);
        }
    }

    static QString kindOf(QAccessible::Role role)
    {
        switch (role) {
        case QAccessible::Button:
            return QStringLiteral("button");
        case QAccessible::Graphic:
            return QStringLiteral("graphic");
        case QAccessible::StaticText:
        case QAccessible::Notification:
            return QStringLiteral("text");
        case QAccessible::EditableText:
            return QStringLiteral("field");
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
