#include "support/QVTestCase.h"
#include "views/QVInvisibleAnimationView.h"

#include <numbers>

using namespace std::chrono_literals;
using std::numbers::pi;

class TestInvisibleAnimationView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst()
    {
        QCOMPARE(count(), 0U);
        QCOMPARE(m_view->frame(), QRect(100, 100, 80, 80));
    }

    void frameIsKeptApartFromTheRoomForTheStrip()
    {
        m_view->setCenter({300, 200});
        QCOMPARE(m_view->frame(), QRect(260, 160, 80, 80));
        QVERIFY(m_view->geometry().contains(QRect(249, 149, 102, 102)));
        QCOMPARE(QPointF(m_view->frame().topLeft() - m_view->pos()), m_view->layers().frame().topLeft());
        QCOMPARE(m_view->circlePath().boundingRect(), QRectF(0, 0, 80, 80));
    }

    void spinsAQuarterThatStartsAtRandom_data()
    {
        QTest::addColumn<quint32>("random");
        QTest::addColumn<double>("start");
        QTest::newRow("least") << 0U << 0.0;
        QTest::newRow("greatest") << 74U << 0.74;
        QTest::newRow("wraps") << 75U << 0.0;
        QTest::newRow("any") << 4294967295U << 0.45;
    }

    void spinsAQuarterThatStartsAtRandom()
    {
        QFETCH(quint32, random);
        QFETCH(double, start);
        m_view->setRandomSource([random] { return random; });
        m_view->startLoadingAnimation();
        QCOMPARE(count(), 3U);
        QCOMPARE(layer(0).fillColor(), QColor(Qt::white));
        QCOMPARE(layer(1).strokeStart(), start);
        QCOMPARE(layer(1).strokeEnd(), start + 0.25);
        QVERIFY(!layer(2).contents().isNull());
        QCOMPARE(layer(2).frame(), QRectF(20, 20, 40, 40));
        advance(5250ms);
        QVERIFY(std::abs(layer(1).presented().rotation - pi / 2) < 1e-6);
        m_view->clearLayers();
        QCOMPARE(time().pendingCount(), 0);
    }

    void secondStartShowsNothing()
    {
        m_view->startLoadingAnimation();
        m_view->startLoadingAnimation();
        QCOMPARE(count(), 0U);
        QCOMPARE(time().pendingCount(), 0);
    }

    void passAfterTheRingShowsStripLabelAndHaloOnly()
    {
        m_view->startLoadingAnimation();
        m_view->passAnimationComplete();
        QCOMPARE(count(), 4U);
        QVERIFY(!layer(0).mask().isEmpty());
        QCOMPARE(layer(2).fillColor(), QColor(Qt::white));
        QCOMPARE(layer(3).lineWidth(), 2.0);
        advance(2s);
        QCOMPARE(count(), 4U);
        QCOMPARE(time().pendingCount(), 0);
    }

    void passAloneShowsTheRingOverTheStrip()
    {
        m_view->passAnimationComplete();
        QCOMPARE(count(), 7U);
        QCOMPARE(layer(5).presented().strokeEnd, 0.0);
        advance(250ms);
        QCOMPARE(layer(5).presented().strokeEnd, 0.5);
        advance(250ms);
        QCOMPARE(layer(5).presented().strokeEnd, 1.0);
    }

    void stripOpensToTheRight()
    {
        m_view->passAnimationComplete();
        const QVLayer &halfDisc = layer(0);
        const QVLayer &strip = layer(1);
        const QVLayer &label = layer(2);
        QCOMPARE(halfDisc.presented().frame, QRectF(40, 10, 30, 60));
        QCOMPARE(strip.presented().frame, QRectF(40, 10, 0, 60));
        QCOMPARE(label.presented().frame.center(), QPointF(40, 40));
        const double open = 40 + label.frame().width() + 10;
        advance(250ms);
        QVERIFY(strip.presented().frame.width() > open * 0.65);
        QVERIFY(strip.presented().frame.width() < open * 0.72);
        advance(250ms);
        QCOMPARE(strip.presented().frame, QRectF(40, 10, open, 60));
        QCOMPARE(halfDisc.presented().frame, QRectF(40 + open - 1, 10, 30, 60));
        QCOMPARE(label.presented().frame.right(), 40 + open + 5);
        QVERIFY(
            m_view->rect().contains(strip.frame().translated(m_view->layers().frame().topLeft()).toRect()));
    }

    void haloGrowsAndFadesAtTheEnd()
    {
        m_view->passAnimationComplete();
        const QVLayer &halo = layer(3);
        advance(740ms);
        QCOMPARE(halo.presented().opacity, 0.0);
        advance(10ms);
        QCOMPARE(halo.presented().opacity, 0.5);
        advance(125ms);
        QVERIFY(std::abs(halo.presented().opacity - 0.5 * (1 - 0.3154)) < 0.03);
        QVERIFY(std::abs(halo.presented().path.boundingRect().width() - (80 + 20 * 0.6846)) < 1.5);
        advance(150ms);
        QCOMPARE(halo.presented().opacity, 0.0);
        QCOMPARE(halo.presented().path.boundingRect().width(), 80.0);
    }

    void completionComesAfterASecondWhateverHappens_data()
    {
        QTest::addColumn<int>("event");
        QTest::newRow("nothing") << 0;
        QTest::newRow("cleared") << 1;
        QTest::newRow("destroyed") << 2;
    }

    void completionComesAfterASecondWhateverHappens()
    {
        QFETCH(int, event);
        int completions = 0;
        m_view->passAnimationComplete([&] { ++completions; });
        advance(400ms);
        if (event == 1)
            m_view->clearLayers();
        if (event == 2)
            m_view.reset();
        advance(599ms);
        QCOMPARE(completions, 0);
        advance(1ms);
        QCOMPARE(completions, 1);
        advance(1s);
        QCOMPARE(time().pendingCount(), 0);
    }

    void clearingDoesNotCancelTheHalo()
    {
        m_view->passAnimationComplete();
        const QVLayer &halo = layer(3);
        const std::weak_ptr<const QVLayer> kept = m_view->layers().sublayers().at(3);
        m_view->clearLayers();
        advance(760ms);
        QVERIFY(!kept.expired());
        QCOMPARE(halo.animationKeys(), QStringList{QString()});
        QCOMPARE(count(), 0U);
    }

    void paintsARoundBadge()
    {
        m_view->setRandomSource([] { return 0U; });
        m_view->startLoadingAnimation();
        QImage image(m_view->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        m_view->render(&image, {}, {}, QWidget::RenderFlags());
        const QPoint corner = m_view->layers().frame().topLeft().toPoint();
        QCOMPARE(image.pixelColor(corner + QPoint(2, 2)).alpha(), 0);
        QCOMPARE(image.pixelColor(corner + QPoint(15, 40)), QColor(Qt::white));
        QCOMPARE(image.pixelColor(corner + QPoint(40, 0)), QColor(169, 230, 250));
        // From the right, clockwise.
        QCOMPARE(image.pixelColor(corner + QPoint(68, 68)), QColor(40, 193, 247));
    }

private:
    void prepare() override
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(600, 400);
        m_view = std::make_unique<QVInvisibleAnimationView>(m_window.get());
        m_view->setFrame({100, 100, QVInvisibleAnimationView::defaultWidth(), 80});
        m_window->show();
    }

    void finish() override
    {
        m_view.reset();
        m_window.reset();
    }

    [[nodiscard]] std::size_t count() const { return m_view->layers().sublayers().size(); }
    [[nodiscard]] const QVLayer &layer(std::size_t index) const
    {
        return *m_view->layers().sublayers().at(index);
    }

    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QVInvisibleAnimationView> m_view;
};

QV_TEST(TestInvisibleAnimationView)
#include "TestInvisibleAnimationView.moc"
