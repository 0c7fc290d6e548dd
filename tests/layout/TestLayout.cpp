#include "layout/QVLayout.h"
#include "support/QVTestCase.h"

#include <QWidget>

using namespace std::chrono_literals;

class TestLayout : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void roundsOnTheEdges()
    {
        QWidget *box = child(*m_container);
        m_layout->make(box, [&](QVConstraintMaker &make) {
            make.left().equalTo(10.5);
            make.width().equalTo(m_container.get()).multipliedBy(0.0255);
            make.top().equalTo(-0.5);
            make.height().equalTo(10.4);
        });
        m_layout->layoutNow();
        QCOMPARE(box->geometry(), QRect(11, 0, 10, 10));
    }

    void convertsBetweenBranches()
    {
        QWidget *content = child(*m_container);
        QWidget *picture = child(*content);
        QWidget *button = child(*m_container);
        content->setGeometry(50, 40, 200, 100);
        m_layout->make(picture, [&](QVConstraintMaker &make) {
            make.left().equalTo(content).offset(5);
            make.right().equalTo(content).offset(-5);
            make.top().equalTo(content).offset(5);
            make.bottom().equalTo(content).offset(-5);
        });
        m_layout->make(button, [&](QVConstraintMaker &make) {
            make.size().equalTo(30);
            make.top().equalTo(picture);
            make.right().equalTo(picture);
        });
        m_layout->layoutNow();
        QCOMPARE(picture->geometry(), QRect(5, 5, 190, 90));
        QCOMPARE(button->geometry(), QRect(215, 45, 30, 30));
        // Moved by someone else: what hangs on it follows.
        content->move(60, 0);
        QCOMPARE(button->geometry(), QRect(225, 5, 30, 30));
    }

    void updateChangesAConstantAndLetsItWin()
    {
        QWidget *box = child(*m_container);
        const auto top = [&](double offset) {
            return [this, offset](QVConstraintMaker &make) {
                make.top().equalTo(m_container.get(), QVLayoutAttribute::Bottom).offset(offset);
            };
        };
        m_layout->make(box, top(0));
        m_layout->make(box, [](QVConstraintMaker &make) { make.top().equalTo(7); });
        m_layout->update(box, top(-30));
        m_layout->layoutNow();
        QCOMPARE(box->y(), 270);
    }

    void constraintsEndWithTheirWidgets()
    {
        QWidget *box = child(*m_container);
        auto target = std::make_unique<QWidget>(m_container.get());
        target->setGeometry(70, 0, 10, 10);
        m_layout->make(box, [](QVConstraintMaker &make) { make.left().equalTo(3); });
        m_layout->make(box, [&](QVConstraintMaker &make) { make.left().equalTo(target.get()); });
        m_layout->layoutNow();
        QCOMPARE(box->x(), 70);
        target.reset();
        advance(0ms);
        QCOMPARE(box->x(), 3);
        delete box;
        advance(0ms);
    }

    void reportsOnceAndGoesOn()
    {
        QWidget *box = child(*m_container);
        box->setObjectName(q("box"));
        QWidget outside;
        QTest::ignoreMessage(QtWarningMsg,
                             "QWidget(box).left = QWidget.right + 2 names something outside the container");
        QTest::ignoreMessage(QtWarningMsg,
                             "QWidget(box).top = nothing.top names something outside the container");
        m_layout->make(box, [&](QVConstraintMaker &make) {
            make.left().equalTo(&outside, QVLayoutAttribute::Right).offset(2);
            make.top().equalTo(static_cast<QWidget *>(nullptr));
            make.width().equalTo(44);
        });
        m_layout->layoutNow();
        m_container->resize(200, 200);
        QCOMPARE(box->width(), 44);
    }

private:
    void prepare() override
    {
        m_container = std::make_unique<QWidget>();
        m_container->setObjectName(q("container"));
        m_container->resize(400, 300);
        m_container->show();
        m_layout = std::make_unique<QVLayout>(m_container.get());
    }

    void finish() override
    {
        m_layout.reset();
        m_container.reset();
    }

    static QWidget *child(QWidget &parent)
    {
        auto *widget = new QWidget(&parent);
        widget->setGeometry(QRect());
        widget->show();
        return widget;
    }

    std::unique_ptr<QWidget> m_container;
    std::unique_ptr<QVLayout> m_layout;
};

QV_TEST(TestLayout)
#include "TestLayout.moc"
