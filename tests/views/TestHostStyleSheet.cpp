#include "platform/QVError.h"
#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "support/QVTestCase.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyTextField.h"
#include "views/QVRenderDrawImageView.h"

#include <QApplication>

using namespace std::chrono_literals;

class TestHostStyleSheet : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void changesNothing_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::newRow("fields")
            << "QLineEdit { background: red; color: green; border: 5px solid blue; padding: 8px;"
               " font: bold 22px; }";
        QTest::newRow("focused fields")
            << "QLineEdit:focus, QLineEdit:hover { border: 5px solid blue; color: red; }";
        QTest::newRow("buttons")
            << "QPushButton, QAbstractButton, QToolButton { background: red; color: green;"
               " border: 5px solid blue; font-size: 30px; }";
        QTest::newRow("everything") << "* { background: red; color: green; border: 3px solid blue;"
                                       " font: italic 30px; }";
        QTest::newRow("widgets") << "QWidget { background-color: black; color: white; font-size: 24px; }";
    }

    void changesNothing()
    {
        QFETCH(QString, sheet);
        const QImage plain = look();
        qApp->setStyleSheet(sheet);
        const QImage styled = look();
        qApp->setStyleSheet(QString());
        QVERIFY(plain == styled);
    }

    void hostPaletteChangesNothing()
    {
        const QImage plain = look();
        const QPalette former = QApplication::palette();
        QApplication::setPalette(QPalette(Qt::darkGreen, Qt::black));
        const QImage dark = look();
        QApplication::setPalette(former);
        QVERIFY(plain == dark);
    }

private:
    void finish() override { qApp->setStyleSheet(QString()); }

    // The picture with its error bar above, the strip with and without text below.
    QImage look()
    {
        QVSDKManager::setPreferredLanguage(QStringLiteral("en"));
        QWidget window;
        window.resize(400, 310);
        QVRenderDrawImageView picture(&window);
        picture.setGeometry(0, 0, 400, 230);
        QVCharVerifyInputView empty(&window);
        empty.setGeometry(0, 230, 400, 40);
        QVCharVerifyInputView filled(&window);
        filled.setGeometry(0, 270, 400, 40);
        filled.inputTF()->setText(QStringLiteral("text"));
        window.show();
        picture.showError(QVError(QStringLiteral("Something failed")), true);
        advance(200ms);
        return pixelsOf(window);
    }
};

QV_TEST(TestHostStyleSheet)
#include "TestHostStyleSheet.moc"
