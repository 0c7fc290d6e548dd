#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"

using namespace std::chrono_literals;

class TestClickManager : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void ownsTheButtonUntilItHasAParent_data()
    {
        QTest::addColumn<bool>("placed");
        QTest::newRow("never placed") << false;
        QTest::newRow("placed") << true;
    }

    void ownsTheButtonUntilItHasAParent()
    {
        QFETCH(bool, placed);
        const QPointer<QVClickButton> button = m_manager->button();
        QCOMPARE(m_manager->button(), button.data());
        QCOMPARE(m_manager->clickButton(), button.data());
        if (placed)
            button->setParent(&host());
        m_manager.reset();
        QCOMPARE(!button.isNull(), placed);
    }

    void makesAnotherButtonAfterTheHostsEnd()
    {
        const QPointer<QVClickButton> first = m_manager->button();
        first->setParent(&host());
        destroyHost();
        QVERIFY(!first);
        QVERIFY(m_manager->button());
    }

    void relaysWhatTheButtonSays_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QStringList>("said");
        QTest::newRow("passed") << click << QStringLiteral("0103") << words("passed click-token");
        QTest::newRow("failed") << config << QStringLiteral("0105") << words("failed 105");
        QTest::newRow("closed") << click << QStringLiteral("0104") << words("popup, closed");
    }

    void relaysWhatTheButtonSays()
    {
        QFETCH(QString, what);
        QFETCH(QString, code);
        answerCode(what, code);
        start();
        pass(500ms);
        m_manager->reset();
        QTEST(m_outcomes->said(), "said");
        QCOMPARE(m_outcomes->told().size(), code == QLatin1String("0103") ? 1 : 0);
        QCOMPARE(m_manager->button()->clickStatus(), QVClickStatusNormal);
    }

    void hearsTheButtonsEnd_data()
    {
        QTest::addColumn<QString>("held");
        QTest::addColumn<QString>("said");
        QTest::newRow("asking") << config << QStringLiteral("closed");
        QTest::newRow("drawing") << picture << QStringLiteral("closed");
        QTest::newRow("token on its way") << QString() << QStringLiteral("passed click-token");
    }

    void hearsTheButtonsEnd()
    {
        QFETCH(QString, held);
        QFETCH(QString, said);
        if (held.isEmpty())
            passByClick();
        delay(held, 100ms);
        start();
        settle();
        QCOMPARE(m_manager->button()->clickStatus(),
                 held.isEmpty() ? QVClickStatusPassed : QVClickStatusVerifying);
        m_outcomes->forget();
        destroyHost();
        // The host is in its destructor when the button goes: it must not be called from there.
        QCOMPARE(m_outcomes->said(), QStringList());
        pass(500ms);
        QCOMPARE(m_outcomes->said(), QStringList{said});
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
