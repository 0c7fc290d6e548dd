#include "draw/QVRenderStrokeView.h"
#include "support/QVTestCase.h"

#include <QPaintEvent>

#include <cmath>
#include <limits>

namespace {

/// Keeps what of it had to be renewed.
class Paper : public QWidget
{
public:
    QRegion takeRenewed() { return std::exchange(m_renewed, QRegion()); }

protected:
    void paintEvent(QPaintEvent *event) override { m_renewed += event->region(); }

private:
    QRegion m_renewed;
};

QPointF spiral(int i)
{
    const double angle = i * 0.1;
    return {150 + (20 + i * 0.1) * std::cos(angle), 100 + (20 + i * 0.1) * std::sin(angle)};
}

} // namespace

class TestRenderStrokeView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void renewsTheNewestLineOnly()
    {
        m_stroke->moveTo(spiral(0));
        for (int i = 1; i < 500; ++i) {
            m_stroke->addLineTo(spiral(i));
            QCoreApplication::processEvents();
            const QRect renewed = m_paper.takeRenewed().boundingRect();
            QVERIFY(renewed.contains(spiral(i).toPoint()));
            QVERIFY(renewed.width() <= 18 && renewed.height() <= 18);
        }
    }

    void showsTheWholeStrokeAndClearsIt()
    {
        const QImage before = m_paper.grab().toImage();
        m_stroke->moveTo({20, 20});
        m_stroke->addLineTo({120, 20});
        m_stroke->addLineTo({120, 80});
        QImage drawn = m_paper.grab().toImage();
        const QColor accent(65, 141, 251);
        for (const QPoint inked : {QPoint(20, 20), QPoint(70, 18), QPoint(120, 20), QPoint(121, 60)})
            QCOMPARE(drawn.pixelColor(inked), accent);
        QVERIFY(drawn.pixelColor(70, 25) != accent);

        m_paper.resize(400, 300);
        m_stroke->resize(m_paper.size());
        QCOMPARE(m_paper.grab().toImage().pixelColor(70, 20), accent);
        m_paper.resize(300, 200);

        m_stroke->removeAllPoints();
        QCOMPARE(m_paper.grab().toImage(), before);
        QVERIFY(m_stroke->renderBezierPath().isEmpty());
    }

    void survivesImpossiblePoints()
    {
        constexpr double endless = std::numeric_limits<double>::infinity();
        m_stroke->moveTo({std::numeric_limits<double>::quiet_NaN(), 10});
        for (const QPointF point : {QPointF(1e300, 10), QPointF(-endless, endless), QPointF(50, 10)})
            m_stroke->addLineTo(point);
        QCOMPARE(m_paper.grab().toImage().pixelColor(20, 10), QColor(65, 141, 251));
        m_stroke->resize(0, 0);
        m_stroke->addLineTo({60, 60});
        m_stroke->removeAllPoints();
    }

    void takesNoInput() { QCOMPARE(m_paper.childAt(10, 10), nullptr); }

private:
    void prepare() override
    {
        m_paper.resize(300, 200);
        m_stroke = new QVRenderStrokeView(&m_paper);
        m_stroke->show();
        m_stroke->resize(m_paper.size());
        m_paper.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_paper));
        QCoreApplication::processEvents();
        m_paper.takeRenewed();
    }
    void finish() override { delete m_stroke; }

    Paper m_paper;
    QVRenderStrokeView *m_stroke = nullptr;
};

QV_TEST(TestRenderStrokeView)
#include "TestRenderStrokeView.moc"
