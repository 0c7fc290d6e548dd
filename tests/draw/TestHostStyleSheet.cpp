#include "draw/DrawTestCase.h"
#include "settings/QVSDKManager.h"

#include <QApplication>

using namespace std::chrono_literals;

/// A host styles its own widgets by class or all at once; the component's look is its own.
class TestHostStyleSheet : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void changesNothing_data()
    {
        const auto row = addColumns<int, bool, bool, bool>({"style", "isOutage", "isCharacters", "fails"});
        row("embedded", 0, false, false, false);
        row("popup", 1, false, false, false);
        row("characters", 0, false, true, false);
        row("outage", 1, true, false, false);
        row("failure", 0, false, false, true);
    }

    void changesNothing()
    {
        QFETCH(int, style);
        QFETCH(bool, isOutage);
        QFETCH(bool, isCharacters);
        QFETCH(bool, fails);
        QVSDKManager::setOutageOpen(isOutage);
        service().extend(q("config"),
                         {{q("guide"), true}, {q("type"), isCharacters ? q("character") : QString()}});
        service().extend(q("get"), {{q("adlinkword"), q("Ad")}, {q("adlink"), q("https://ad.example/x")}});
        start(QVVerifyStyle(style));
        if (fails)
            failRefresh();
        else if (isCharacters)
            part("inputTF")->setFocus();
        else
            drawWithKeys();

        const QImage plain = look();
        qApp->setStyleSheet(
            q("* { background: red; color: green; border: 3px solid blue; font: italic 30px; }"
              "QLineEdit { padding: 8px; }"));
        QVERIFY(look() == plain);
        qApp->setStyleSheet(QString());
        const QPalette former = QApplication::palette();
        QApplication::setPalette(QPalette(Qt::darkGreen, Qt::black));
        const QImage dark = look();
        QApplication::setPalette(former);
        QVERIFY(dark == plain);
    }

private:
    /// Without what shows through from the host.
    [[nodiscard]] QImage look() const
    {
        QImage image(view().size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        view().render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

    void finish() override
    {
        qApp->setStyleSheet(QString());
        QVSDKManager::setOutageOpen(false);
        DrawTestCase::finish();
    }

    void failRefresh()
    {
        service().answer(q("refresh"), {{q("code"), q("0101")}});
        click("refreshButton");
        QVERIFY(waitForFailure());
        pass(300ms);
    }

    void drawWithKeys()
    {
        picture().setFocus(Qt::TabFocusReason);
        QTest::keyClick(&picture(), Qt::Key_Space);
        for (int i = 0; i < 8; ++i)
            QTest::keyClick(&picture(), Qt::Key_Right);
    }
};

QV_TEST(TestHostStyleSheet)
#include "TestHostStyleSheet.moc"
