#include "modes/ModesTestCase.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickStatusLabel.h"
#include "settings/QVLocalization.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

using namespace std::chrono_literals;

class TestClickButtonLook : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void colourOfStatus_data()
    {
        const auto row = addColumns<int, QColor>({"status", "colour"});
        const QColor blue(65, 141, 251);
        for (int status = 0; status <= 3; ++status)
            QTest::addRow("%d", status) << status << blue;
        row("4", 4, QColor(0, 213, 159, 204));
        row("5", 5, QColor(238, 60, 64, 204));
    }

    void colourOfStatus()
    {
        QFETCH(int, status);
        QFETCH(QColor, colour);
        answerForStatus(status);
        if (status == 1)
            QTest::mousePress(m_button, Qt::LeftButton);
        if (status > 1)
            m_button->click();
        QVERIFY(waitFor([&] { return int(m_button->clickStatus()) == status; }));
        for (const QPoint &corner : {QPoint(299, 0), QPoint(60, 43)}) {
            const QColor seen = painted().pixelColor(corner);
            QCOMPARE(seen.alpha(), colour.alpha());
            // Painting multiplies by alpha and back, which may lose one.
            QVERIFY2(std::abs(seen.red() - colour.red()) <= 1 &&
                         std::abs(seen.green() - colour.green()) <= 1 &&
                         std::abs(seen.blue() - colour.blue()) <= 1,
                     qPrintable(seen.name()));
        }
    }

    void fitsLongTexts_data()
    {
        const auto row = addColumns<int, int, bool>({"height", "words", "elided"});
        row("short", 44, 2, false);
        row("no room for two lines", 24, 4, true);
        row("more than two lines", 44, 40, true);
    }

    void fitsLongTexts()
    {
        QFETCH(int, height);
        QFETCH(int, words);
        QFETCH(bool, elided);
        if (elided)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q(".*raise.*")));
        auto *const label = m_button->findChild<QVClickStatusLabel *>();
        m_button->resize(300, height);
        const QString text = q("<b>a</b>long ").repeated(words);
        label->setText(text.trimmed());
        QCOMPARE(label->isElided(), elided);
        QHelpEvent event(QEvent::ToolTip, QPoint(60, 10), m_button->mapToGlobal(QPoint(60, 10)));
        QCoreApplication::sendEvent(m_button, &event);
        QCOMPARE(QToolTip::isVisible(), elided);
        QVERIFY(!elided || QToolTip::text().contains(QLatin1String("&lt;b&gt;")));
        QToolTip::hideText();
    }

    void hostsStyleSheetDoesNotReachIt()
    {
        const QImage before = painted(QWidget::DrawChildren);
        host().setStyleSheet(q(
            "* { background: yellow; color: red; font: bold 30px; border: 4px solid green; padding: 9px }"));
        QCOMPARE(m_button->geometry(), QRect(100, 100, 300, 44));
        QCOMPARE(painted(QWidget::DrawChildren), before);
    }

    void showsFocusThatCameByKeyboard_data()
    {
        const auto row = addColumns<Qt::FocusReason, bool>({"reason", "shown"});
        row("tab", Qt::TabFocusReason, true);
        row("mouse", Qt::MouseFocusReason, false);
    }

    void showsFocusThatCameByKeyboard()
    {
        QFETCH(Qt::FocusReason, reason);
        QFETCH(bool, shown);
        const QImage before = painted();
        m_button->setFocus(reason);
        QCOMPARE(painted() != before, shown);
        // The popup borrows the focus; what the user sees afterwards is what was seen before.
        m_button->clearFocus();
        m_button->setFocus(Qt::PopupFocusReason);
        QCOMPARE(painted() != before, shown);
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_button = new QVClickButton(&host());
        m_button->setGeometry(100, 100, 300, 44);
        m_button->show();
    }

    [[nodiscard]] QImage painted(QWidget::RenderFlags flags = QWidget::RenderFlags()) const
    {
        QImage image(m_button->size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        m_button->render(&image, {}, {}, flags);
        return image;
    }

    QPointer<QVClickButton> m_button;
};

QV_TEST(TestClickButtonLook)
#include "TestClickButtonLook.moc"
