#include "support/QVPixels.h"
#include "support/QVTestCase.h"
#include "views/QVCustomActionButton.h"

#include <QSignalSpy>

class TestCustomActionButton : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void worksByTouch()
    {
        QSignalSpy taps(m_button, &QAbstractButton::clicked);
        const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
        QTest::touchEvent(m_button, screen.get()).press(1, QPoint(15, 15));
        QCOMPARE(m_button->alpha(), 0.8);
        QTest::touchEvent(m_button, screen.get()).move(1, QPoint(15, 60));
        QCOMPARE(m_button->alpha(), 1.0);
        QTest::touchEvent(m_button, screen.get()).release(1, QPoint(15, 60));
        QCOMPARE(taps.size(), 0);
        QTest::touchEvent(m_button, screen.get()).press(1, QPoint(15, 15));
        QTest::touchEvent(m_button, screen.get()).release(1, QPoint(15, 15));
        QCOMPARE(taps.size(), 1);
    }

    void atAlphaZeroItIsNotThere()
    {
        QSignalSpy taps(m_button, &QAbstractButton::clicked);
        m_button->setAlpha(0);
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, QPoint(15, 15));
        QCOMPARE(taps.size(), 0);
        QCOMPARE(pixelsOf(*m_window).pixelColor(15, 15), pixelsOf(*m_window).pixelColor(90, 90));
        m_button->setAlpha(1);
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, QPoint(15, 15));
        QCOMPARE(taps.size(), 1);
    }

private:
    void prepare() override
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(100, 100);
        m_button = new QVCustomActionButton(m_window.get());
        m_button->setGeometry(0, 0, 30, 30);
        m_button->setImageEdgeInsets({5, 5, 5, 5});
        QPixmap picture(20, 20);
        picture.fill(Qt::red);
        m_button->setImage(picture);
        m_window->show();
    }

    void finish() override { m_window.reset(); }

    std::unique_ptr<QWidget> m_window;
    QVCustomActionButton *m_button = nullptr;
};

QV_TEST(TestCustomActionButton)
#include "TestCustomActionButton.moc"
