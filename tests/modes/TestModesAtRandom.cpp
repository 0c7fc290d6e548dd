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

/// The managers on one window, driven at random: whatever happens in whatever order, each attempt
/// ends once, and nothing is left over.
class TestModesAtRandom : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void anyOrderOfEvents_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 4; ++seed)
            QTest::addRow("%u", seed) << seed;
    }

    void anyOrderOfEvents()
    {
        QFETCH(quint32, seed);
        m_random.seed(seed);
        // One of each for certain: how soon answers come decides what else is rolled.
        QVPointerInput::click(host(), QPoint(20, 20));
        startInvisible();
        for (int i = 0; i < 25; ++i)
            step();
        m_click->reset();
        m_invisible->reset();
        pass(1100ms);
        QVERIFY(m_clickAttempts > 0 && m_invisibleAttempts > 0);
        QCOMPARE(m_clicked->ends().size(), m_clickAttempts);
        QCOMPARE(m_unseen->ends().size(), m_invisibleAttempts);
        QCOMPARE(popupCount(), 0);

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
