#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"

using namespace std::chrono_literals;

class TestClickManager : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void ownsTheButtonUntilItHasAParent()
    {
        QPointer<QVClickButton> button = m_manager->button();
        QCOMPARE(m_manager->clickButton(), button.data());
        button->setParent(&host());
        destroyHost();
        QVERIFY(!button);
        button = m_manager->button();
        QVERIFY(button);
        m_manager.reset();
        QVERIFY(!button);
    }

    void hearsTheButtonsEnd_data()
    {
        const auto row = addColumns<QString, QStringList>({"held", "said"});
        row("asking", config, words("closed WindowGone"));
        row("token on its way", QString(), words("passed click-token"));
    }

    void hearsTheButtonsEnd()
    {
        QFETCH(QString, held);
        if (held.isEmpty())
            passByClick();
        delay(held, 100ms);
        start();
        settle();
        destroyHost();
        // The host is in its destructor when the button goes: it must not be called from there.
        QCOMPARE(m_outcomes->said(), QStringList());
        pass(500ms);
        QTEST(m_outcomes->said(), "said");
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_outcomes = std::make_unique<Outcomes>();
        m_manager = std::make_unique<QVClickManager>();
        m_outcomes->watch(m_manager.get());
    }

    void finish() override
    {
        m_manager.reset();
        m_outcomes.reset();
        ModesTestCase::finish();
    }

    void start()
    {
        m_manager->button()->setParent(&host());
        m_manager->button()->show();
        m_manager->button()->click();
    }

    std::unique_ptr<Outcomes> m_outcomes;
    std::unique_ptr<QVClickManager> m_manager;
};

QV_TEST(TestClickManager)
#include "TestClickManager.moc"
