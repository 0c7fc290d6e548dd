#include "modes/ModesTestCase.h"
#include "modes/QVClickButton.h"
#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "views/QVLabel.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace std::chrono_literals;

class TestClickButtonLook : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fitsLongTexts()
    {
        auto *const label = m_button->findChild<QVLabel *>();
        const auto showsToolTip = [&](int words) {
            label->setText(q("<b>a</b>long ").repeated(words).trimmed());
            QHelpEvent event(QEvent::ToolTip, QPoint(60, 10), m_button->mapToGlobal(QPoint(60, 10)));
            QCoreApplication::sendEvent(m_button, &event);
            return QToolTip::isVisible();
        };
        QVERIFY(!showsToolTip(4) && !label->isElided());
        QVERIFY(showsToolTip(40) && label->isElided());
        m_button->resize(290, 44);
        QCOMPARE(m_button->accessibleDescription(), label->text());
        m_button->resize(5000, 44);
        QCOMPARE(m_button->accessibleDescription(), QString());
        QVERIFY(QToolTip::text().contains(q("&lt;b&gt;")));
        QToolTip::hideText();
    }

    void theRippleStartsAtTheTouch()
    {
        const auto at = [this](QPoint point) {
            return painted(QWidget::DrawChildren).pixelColor(point);
        };
        QVPointerInput::press(*m_button, QPoint(200, 22));
        const QColor ground = at({290, 40});
        const auto isLighter = [&](QPoint point) {
            return at(point) != ground;
        };
        advance(50ms);
        QVERIFY(isLighter({200, 40}));
        QVERIFY(!isLighter({290, 40}) && !isLighter({110, 40}));
        advance(449ms);
        QVERIFY(isLighter({290, 40}) && isLighter({110, 40}));
        advance(1ms);
        QVERIFY(!isLighter({200, 40}));
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
        const QImage before = painted(QWidget::DrawChildren);
        host().setAttribute(Qt::WA_KeyboardFocusChange, reason == Qt::TabFocusReason);
        m_button->setFocus(reason);
        QCOMPARE(painted(QWidget::DrawChildren) != before, shown);
        // The popup borrows the focus; what the user sees afterwards is what was seen before.
        m_button->clearFocus();
        m_button->setFocus(Qt::PopupFocusReason);
        QCOMPARE(painted(QWidget::DrawChildren) != before, shown);
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
