#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVInvisibleManager.h"
#include "popup/QVWindow.h"
#include "support/QVPointerInput.h"

#include <QApplication>
#include <QRandomGenerator>

using namespace std::chrono_literals;

/// The managers on one window, driven at random by a user and by a host that acts in its signals and
/// focus handlers, too: whatever happens in whatever order, each attempt ends once, nothing is left
/// over, and a fresh attempt works. QUARVO_SEEDS chooses how many orders are tried.
class TestModesAtRandom : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void anyOrderOfEvents_data()
    {
        QTest::addColumn<quint32>("seed");
        const int seeds =
            qEnvironmentVariableIsSet("QUARVO_SEEDS") ? qEnvironmentVariableIntValue("QUARVO_SEEDS") : 6;
        for (int seed = 1; seed <= seeds; ++seed)
            QTest::addRow("%d", seed) << quint32(seed);
    }

    void anyOrderOfEvents()
    {
        QFETCH(quint32, seed);
        m_random.seed(seed);
        // Half of the hosts act in their handlers.
        m_reenters = seed % 2 == 0;
        const auto focus = connect(qApp, &QApplication::focusChanged, this, [this] { reenter(); });
        // One of each for certain: how soon answers come decides what else is rolled.
        QVPointerInput::click(host(), QPoint(20, 20));
        startInvisible();
        for (int i = 0; i < 25; ++i)
            step();
        m_reenters = false;
        disconnect(focus);
        host().setEnabled(true);
        host().show();
        m_click->reset();
        m_invisible->reset();
        pass(1100ms);
        QCOMPARE(m_clicked->ends().size(), m_clickAttempts);
        if (seed % 2 == 0)
            QVERIFY(m_unseen->ends().size() <= m_invisibleAttempts);
        else
            QCOMPARE(m_unseen->ends().size(), m_invisibleAttempts);
        QCOMPARE(popupCount(), 0);
        freshAttemptsWork();

        m_click->button()->click();
        m_invisible->startInsivible();
        m_click.reset();
        m_invisible.reset();
        delete host().findChild<QVClickButton *>();
        delete m_embed->embedView();
        m_embed.reset();
        settle();
        forgetAsked();
        pass(3000ms);
        QCOMPARE(asked(), QStringList());
        QCOMPARE(popupCount(), 0);
        QCOMPARE(time().pendingCount(), 0);
    }

private:
    void freshAttemptsWork()
    {
        for (const QString &what : words("switch, config, click, picture, refresh, verify"))
            delay(what, 0ms);
        service().answerBytes(outageSwitch, R"({"active":false})");
        for (const QString &what : {config, verify})
            answerCode(what, q("0103"));
        answerCode(click, q("0104"));
        // Not the host: Qt may take a window that hid itself in a focus handler for inactive ever after.
        QWidget fresh;
        fresh.resize(700, 600);
        showActive(fresh);
        m_unseen->clear();
        m_invisible->startInsivible();
        QVERIFY(waitForPicture());
        strokeAndVerify();
        pass(1600ms);
        QCOMPARE(m_unseen->said(), words("popup, passed main-token"));
    }

    /// What a host does in a handler: nothing most of the time.
    void reenter()
    {
        if (!m_reenters || m_depth > 2 || roll(3) > 0)
            return;
        ++m_depth;
        const std::array<std::function<void()>, 8> acts{[this] { m_click->reset(); },
                                                        [this] { m_invisible->reset(); },
                                                        [this] { m_click->button()->click(); },
                                                        [this] { startInvisible(); },
                                                        [this] { host().close(); },
                                                        [this] { host().setVisible(!host().isVisible()); },
                                                        [this] { host().setEnabled(false); },
                                                        [this] {
                                                            host().setEnabled(true);
                                                        }};
        acts[std::size_t(roll(8))]();
        --m_depth;
    }

    template<class Manager>
    void reenterIn(Manager *manager)
    {
        connect(manager, &Manager::passed, this, [this] { reenter(); });
        connect(manager, &Manager::failed, this, [this] { reenter(); });
        connect(manager, &Manager::closed, this, [this] { reenter(); });
        connect(manager, &Manager::popupOpened, this, [this] { reenter(); });
        connect(manager, &Manager::popupFailed, this, [this] { reenter(); });
        connect(manager, &Manager::outageStarted, this, [this] { reenter(); });
    }

    void prepare() override
    {
        ModesTestCase::prepare();
        m_clicked = std::make_unique<Outcomes>();
        m_unseen = std::make_unique<Outcomes>();
        m_clickAttempts = 0;
        m_invisibleAttempts = 0;
        m_click = std::make_unique<QVClickManager>();
        m_invisible = std::make_unique<QVInvisibleManager>();
        m_embed = std::make_unique<QVEmbedManager>();
        m_embed->embedView()->setParent(&host());
        m_embed->embedView()->setGeometry(0, 50, 300, 202);
        m_embed->embedView()->show();
        m_clicked->watch(m_click.get());
        m_unseen->watch(m_invisible.get());
        reenterIn(m_click.get());
        reenterIn(m_invisible.get());
        QVClickButton *const button = m_click->button();
        button->setParent(&host());
        button->setGeometry(0, 0, 200, 44);
        button->show();
        const auto isUnderWay = [](QVClickStatus status) {
            return status == QVClickStatusVerifying || status == QVClickStatusDrawing;
        };
        connect(button, &QVClickButton::clickStatusChanged, button,
                [this, isUnderWay, was = false](QVClickStatus status) mutable {
                    m_clickAttempts += isUnderWay(status) && !was ? 1 : 0;
                    was = isUnderWay(status);
                    reenter();
                });
    }

    void finish() override
    {
        m_click.reset();
        m_invisible.reset();
        m_embed.reset();
        m_clicked.reset();
        m_unseen.reset();
        ModesTestCase::finish();
    }

    [[nodiscard]] int roll(int sides) { return m_random.bounded(sides); }
    void step()
    {
        const std::array<std::function<void()>, 12> steps{
            [this] { tapButton(); },
            [this] { tapButton(); },
            [this] { startInvisible(); },
            [this] { changeAnswers(); },
            [this] { changeAnswers(); },
            [this] { actInPopup(); },
            [this] { actInPopup(); },
            [this] { actInPopup(); },
            [this] { pass(1ms * roll(600)); },
            [this] { roll(3) ? pass(1ms * roll(1500)) : m_click->reset(); },
            [this] { roll(3) ? pass(1ms * roll(1500)) : m_invisible->reset(); },
            [this] {
                // What a handler closed or disabled comes back for the user to go on with.
                host().show();
                host().setEnabled(true);
                roll(2) ? m_embed->reset() : host().resize(300 + roll(700), 300 + roll(400));
            }};
        steps[std::size_t(roll(12))]();
    }

    void tapButton()
    {
        if (roll(4) == 0)
            QTest::keyClick(host().windowHandle(), roll(2) ? Qt::Key_Space : Qt::Key_Return);
        else
            QVPointerInput::click(host(), QPoint(20, 20));
    }

    void startInvisible()
    {
        m_invisible->setAnimation(roll(3) > 0);
        m_invisibleAttempts += invisiblePopupIsShown() ? 0 : 1;
        m_invisible->startInsivible();
    }

    void changeAnswers()
    {
        const auto oneOf = [this](const char *choices) {
            const QStringList all = words(choices);
            return all[roll(int(all.size()))];
        };
        delay(oneOf("switch, config, click, picture, refresh, verify, outage get, outage verify"),
              1ms * roll(400));
        service().answerBytes(
            outageSwitch,
            oneOf(R"({"active":true}, {"active":false}, {"active":false}, <html>, [])").toLatin1());
        answerCode(config, oneOf("0103, 0103, 0103, 0101"));
        answerCode(click, oneOf("0103, 0104, 0104, 1002"));
        answerCode(verify, oneOf("0103, 0104, 0105"));
    }

    void actInPopup()
    {
        if (popup() && roll(3) == 0)
            pressClose();
        else if (popup())
            stroke();
        else
            QVPointerInput::strokeWithMouse(*m_embed->embedView(), QVPointerInput::wave(QPoint(30, 90), 35),
                                            [this] { advance(16ms); });
    }

    [[nodiscard]] bool invisiblePopupIsShown() const
    {
        // Also in a window of its own, where the host's is small.
        return std::ranges::any_of(QApplication::allWidgets(), [](const QWidget *widget) {
            const auto *const view = qobject_cast<const QVRenderDrawView *>(widget);
            return view && view->isVisible() && view->verifyStyle() == QVVerifyStyleInvisible &&
                   view->canDirectlyShow();
        });
    }

    QRandomGenerator m_random;
    bool m_reenters = false;
    int m_depth = 0;
    std::unique_ptr<Outcomes> m_clicked;
    std::unique_ptr<Outcomes> m_unseen;
    qsizetype m_clickAttempts = 0;
    qsizetype m_invisibleAttempts = 0;
    std::unique_ptr<QVClickManager> m_click;
    std::unique_ptr<QVInvisibleManager> m_invisible;
    std::unique_ptr<QVEmbedManager> m_embed;
};

QV_TEST(TestModesAtRandom)
#include "TestModesAtRandom.moc"
