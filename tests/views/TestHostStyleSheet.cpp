#include "platform/QVError.h"
#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyTextField.h"
#include "views/QVRenderDrawImageView.h"

#include <QApplication>

using namespace std::chrono_literals;

class TestHostStyleSheet : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void changesNothing()
    {
        const QImage plain = look();
        QVERIFY(!plain.isNull());
        qApp->setStyleSheet(
            q("* { background: red; color: green; border: 3px solid blue; font: italic 30px; }"
              "QLineEdit { padding: 8px; }"));
        QVERIFY(plain == look());
        qApp->setStyleSheet(QString());
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
        QVSDKManager::setPreferredLanguage(q("en"));
        QWidget window;
        window.resize(400, 310);
        QVRenderDrawImageView picture(&window);
        picture.setGeometry(0, 0, 400, 230);
        QVCharVerifyInputView empty(&window);
        empty.setGeometry(0, 230, 400, 40);
        QVCharVerifyInputView filled(&window);
        filled.setGeometry(0, 270, 400, 40);
        filled.inputTF()->setText(q("text"));
        window.show();
        if (!qv_becomesActive(window))
            return {};
        picture.showError(QVError(q("Something failed")), true);
        filled.inputTF()->setFocus();
        advance(200ms);
        return pixelsOf(window);
    }
};

QV_TEST(TestHostStyleSheet)
#include "TestHostStyleSheet.moc"
