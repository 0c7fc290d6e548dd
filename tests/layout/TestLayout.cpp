#include "layout/QVLayout.h"
#include "support/QVTestCase.h"

#include <QWidget>

using namespace std::chrono_literals;

class TestLayout : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void followsWidgetsOfOtherParents()
    {
        auto *content = new QWidget(m_container.get());
        auto *picture = new QWidget(content);
        content->setGeometry(50, 40, 200, 100);
        content->show();
        m_layout->make(picture, [&](QVConstraintMaker &make) {
            make.left().equalTo(content).offset(5);
            make.right().equalTo(content).offset(-5);
            make.top().equalTo(content).offset(-0.5);
            make.height().equalTo(10.4);
        });
        m_layout->make(m_box, [&](QVConstraintMaker &make) {
            make.width().equalTo(m_container.get()).multipliedBy(0.0255);
            make.left().equalTo(picture).offset(0.5);
        });
        m_layout->layoutNow();
        // Edges are rounded, not sizes.
        QCOMPARE(picture->geometry(), QRect(5, 0, 190, 10));
        QCOMPARE(m_box->geometry(), QRect(56, 0, 10, 20));
        // A target that is moved by other code is followed.
        content->move(60, 0);
        QCOMPARE(m_box->x(), 66);
        delete content;
        advance(0ms);
        m_layout->layoutNow();
        QCOMPARE(m_box->width(), 10);
        delete m_box;
        advance(0ms);
    }

    void moves()
    {
        const auto hangAt = [&](double offset) {
            m_layout->make(m_box, [&](QVConstraintMaker &make) {
                make.top().equalTo(m_container.get(), QVLayoutAttribute::Bottom).offset(offset);
            });
        };
        // The constraint that was changed last overrides the others.
        hangAt(0);
        m_layout->make(m_box, [](QVConstraintMaker &make) { make.top().equalTo(7); });
        hangAt(0);
        m_layout->animateLayout(0ms);
        advance(0ms);
        QCOMPARE(m_box->y(), 300);
        int ends = 0;
        hangAt(-200);
        m_layout->animateLayout(200ms, [&ends] { ++ends; });
        QCOMPARE(m_box->y(), 300);
        advance(50ms);
        QVERIFY2(m_box->y() < 300 && m_box->y() > 260, "slow at first");
        advance(50ms);
        const int left = m_box->y() - 100;
        QVERIFY(qAbs(left - 100) <= 20);
        m_container->resize(250, 500);
        QCOMPARE(m_box->y() - 300, left);
        QCOMPARE(m_box->width(), 250);
        advance(99ms);
        QCOMPARE(ends, 0);
        advance(1ms);
        QCOMPARE(m_box->geometry(), QRect(0, 300, 250, 20));
        QCOMPARE(ends, 1);
        QCOMPARE(time().pendingCount(), 0);
        hangAt(-50);
        m_layout->animateLayout(200ms, [&ends] { ++ends; });
        advance(50ms);
        m_container.reset();
        advance(300ms);
        QCOMPARE(ends, 1);
        QCOMPARE(time().pendingCount(), 0);
    }

private:
    void prepare() override
    {
        m_container = std::make_unique<QWidget>();
        m_container->resize(400, 300);
        m_box = new QWidget(m_container.get());
        m_layout = std::make_unique<QVLayout>(m_container.get());
        m_layout->make(m_box, [&](QVConstraintMaker &make) {
            make.left().equalTo(m_container.get());
            make.width().equalTo(m_container.get());
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

    std::unique_ptr<QWidget> m_container;
    std::unique_ptr<QVLayout> m_layout;
    QWidget *m_box = nullptr;
};

QV_TEST(TestLayout)
#include "TestLayout.moc"
