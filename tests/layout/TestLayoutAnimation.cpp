#include "layout/QVLayout.h"
#include "support/QVTestCase.h"

#include <QWidget>

using namespace std::chrono_literals;

class TestLayoutAnimation : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void movesWithinTheDuration()
    {
        moveTo(100);
        QCOMPARE(m_box->y(), 0);
        advance(50ms);
        const int quarter = m_box->y();
        QVERIFY2(quarter > 0 && quarter < 20, "slow at first");
        advance(50ms);
        QVERIFY(qAbs(m_box->y() - 50) <= 10);
        advance(99ms);
        QCOMPARE(m_ends, 0);
        advance(1ms);
        QCOMPARE(m_box->y(), 100);
        QCOMPARE(m_ends, 1);
        QCOMPARE(time().pendingCount(), 0);
    }

    void resizeUnderWayEndsRight()
    {
        m_layout->update(m_box, [&](QVConstraintMaker &make) {
            make.top().equalTo(m_container.get(), QVLayoutAttribute::Bottom);
        });
        m_layout->animateLayout(0ms);
        advance(0ms);
        QCOMPARE(m_box->y(), 300);
        m_layout->update(m_box, [&](QVConstraintMaker &make) {
            make.top().equalTo(m_container.get(), QVLayoutAttribute::Bottom).offset(-30);
        });
        m_layout->animateLayout(200ms);
        advance(100ms);
        const int left = m_box->y() - 270;
        m_container->resize(250, 500);
        QCOMPARE(m_box->y() - 470, left);
        QCOMPARE(m_box->width(), 250);
        advance(100ms);
        QCOMPARE(m_box->geometry(), QRect(0, 470, 250, 20));
    }

    void noCompletionAfterTheContainersEnd()
    {
        moveTo(100);
        advance(50ms);
        m_container.reset();
        advance(300ms);
        QCOMPARE(m_ends, 0);
        QCOMPARE(time().pendingCount(), 0);
    }

private:
    void prepare() override
    {
        m_ends = 0;
        m_container = std::make_unique<QWidget>();
        m_container->resize(400, 300);
        m_box = new QWidget(m_container.get());
        m_layout = std::make_unique<QVLayout>(m_container.get());
        m_layout->make(m_box, [&](QVConstraintMaker &make) {
            make.left().equalTo(m_container.get());
            make.right().equalTo(m_container.get());
            make.top().equalTo(0);
            make.height().equalTo(20);
        });
        m_container->show();
    }

    void finish() override
    {
        m_layout.reset();
        m_container.reset();
    }

    void moveTo(int y)
    {
        m_layout->update(m_box, [y](QVConstraintMaker &make) { make.top().equalTo(y); });
        m_layout->animateLayout(200ms, [this] { ++m_ends; });
    }

    std::unique_ptr<QWidget> m_container;
    std::unique_ptr<QVLayout> m_layout;
    QWidget *m_box = nullptr;
    int m_ends = 0;
};

QV_TEST(TestLayoutAnimation)
#include "TestLayoutAnimation.moc"
