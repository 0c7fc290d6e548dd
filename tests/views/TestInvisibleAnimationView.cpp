#include "support/QVTestCase.h"
#include "views/QVInvisibleAnimationView.h"

using namespace std::chrono_literals;

class TestInvisibleAnimationView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

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
        advance(2s);
        QCOMPARE(count(), 4U);
        QCOMPARE(time().pendingCount(), 0);
    }

    void completionComesAfterASecondWhateverHappens_data()
    {
        const auto row = addColumns<int>({"event"});
        row("cleared", 1);
        row("destroyed", 2);
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
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QVInvisibleAnimationView> m_view;
};

QV_TEST(TestInvisibleAnimationView)
#include "TestInvisibleAnimationView.moc"
