#include "quick/QuickTestCase.h"

#include <QQmlComponent>
#include <QQuickRenderControl>

using namespace std::chrono_literals;

/// The popup: where it lies, who has the keyboard, and how it goes and comes back.
class TestQuickPopup : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsInputFromTheHost()
    {
        open(q("invisible"));
        part(q("button"));
        outcomes().clear();
        clickOn(q("button"));
        QCOMPARE(said(), QStringList());
        QVERIFY(isOpen());
        // The keyboard stays within.
        QSet<const QQuickItem *> visited;
        for (int i = 0; i < 8; ++i) {
            QTest::keyClick(&window(), Qt::Key_Tab);
            visited.insert(window().activeFocusItem());
        }
        QVERIFY(!visited.contains(item(q("before"))) && !visited.contains(item(q("button"))));
        QVERIFY(visited.contains(item(q("picture"))) && visited.contains(item(q("closeButton"))));
    }

    /// A scene in a widget has a window that is never on screen; another one shows it.
    void opensInAWidgetsScene()
    {
        struct Control : QQuickRenderControl
        {
            QWindow around;
            QWindow *renderWindow(QPoint * /*offset*/) override { return &around; }
        } control;
        control.around.show();
        QQuickWindow scene(&control);
        QQmlComponent component(qmlEngine(&window()));
        component.setData("import Quarvo; VerifyButton {}", {});
        const std::unique_ptr<QObject> button(
            component.createWithInitialProperties({{q("parent"), QVariant::fromValue(scene.contentItem())}}));
        QMetaObject::invokeMethod(button.get(), "clicked");
        pass(500ms);
        QCOMPARE(button->property("status").toInt(), 2);
        control.around.hide();
        pass(100ms);
        QCOMPARE(button->property("status").toInt(), 0);
    }

    void aHostChangesTheLookOfTheButton()
    {
        QQmlComponent component(qmlEngine(&window()));
        component.setData("import QtQuick; import Quarvo; VerifyButton { id: own; font.bold: true;"
                          "background: Item { objectName: 'ground' }"
                          "contentItem: Text { objectName: 'words'; font: own.font; text: own.text } }",
                          {});
        const std::unique_ptr<QObject> button(component.createWithInitialProperties(
            {{q("parent"), QVariant::fromValue(window().contentItem())}}));
        QVERIFY(item(q("ground")) && item(q("words")) && !item(q("statusRing")));
        QCOMPARE(item(q("words"))->property("text").toString(), q("Click to verify"));
        const auto font = item(q("words"))->property("font").value<QFont>();
        QVERIFY(font.bold() && font.pixelSize() == 15);
    }

private:
    void open(const QString &mode)
    {
        start(mode);
        QVERIFY(waitForPicture());
        QVERIFY(isOpen());
    }
};

QV_TEST(TestQuickPopup)
#include "TestQuickPopup.moc"
