#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVInvisibleManager.h"
#include "support/QVPointerInput.h"

#include <QApplication>
#include <QDialog>
#include <QRandomGenerator>
#include <QScopedValueRollback>

using namespace std::chrono_literals;

namespace {

/// What one manager said, over all of its kind that there were, and how many attempts it should tell of.
struct Tally
{
    Outcomes outcomes;
    qsizetype attempts = 0;
    /// Attempts whose manager was destroyed.
    qsizetype lost = 0;

    [[nodiscard]] qsizetype open() const { return attempts - lost - outcomes.ends().size(); }
    void lose() { lost += open(); }
};

} // namespace

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
        for (int seed = 1; seed <= std::max(qEnvironmentVariableIntValue("QUARVO_SEEDS"), 40); ++seed)
            QTest::addRow("%d", seed) << quint32(seed);
    }

    void anyOrderOfEvents()
    {
        QFETCH(quint32, seed);
        m_random.seed(seed);
        m_reenters = true;
        m_kind = int(seed % 5);
        const auto focus = connect(qApp, &QApplication::focusChanged, this, [this] {
            const QScopedValueRollback inEvent(m_isInEvent, true);
            const QScopedValueRollback inFocus(m_isInFocusChange, true);
            reenter();
        });
        revive();
        tapButton();
        revive();
        startInvisible();
        for (int i = 0; i < 12; ++i) {
            revive();
            step();
            QVERIFY(m_clicked->open() >= 0 && m_unseen->open() >= 0);
        }
        m_reenters = false;
        disconnect(focus);
        revive();
        m_click->reset();
        m_invisible->reset();
        pass(1100ms);
        QCOMPARE(m_clicked->open(), 0);
        QCOMPARE(popupCount(), 0);
        freshAttemptWorks(seed % 4 == 0);
        endEverything();
        pass(3000ms);
        QCOMPARE(popupCount() + time().pendingCount(), 0);
    }

private:
    // Signals of whatever is destroyed go nowhere, and what is not there is made anew before each step.

    void revive()
    {
        if (!m_top)
            createHost();
        if (!m_click) {
            m_click = std::make_unique<QVClickManager>();
            hear(m_click.get(), *m_clicked);
        }
        if (!m_invisible) {
            m_invisible = std::make_unique<QVInvisibleManager>();
            hear(m_invisible.get(), *m_unseen);
        }
        if (!m_click->button()->parentWidget())
            place(*m_click->button());
    }

    void createHost()
    {
        QWidget *const main = &host();
        if (m_kind == 0) {
            m_top = new QWidget;
        } else if (m_kind == 1) {
            m_top = new QWidget(main, Qt::Tool);
        } else {
            auto *const dialog = new QDialog(m_kind == 4 ? createDialog(main) : main);
            dialog->setModal(m_kind != 2);
            m_top = dialog;
        }
        m_top->resize(500, 420);
        m_top->show();
    }

    static QDialog *createDialog(QWidget *parent)
    {
        auto *const dialog = new QDialog(parent);
        dialog->setModal(true);
        dialog->show();
        return dialog;
    }

    void place(QVClickButton &button)
    {
        button.setParent(m_top);
        button.setGeometry(0, 0, 200, 44);
        button.show();
        connect(&button, &QVClickButton::pressed, this, [this] { reenter(); });
        connect(&button, &QVClickButton::clickStatusChanged, &button,
                [this, was = false](QVClickStatus status) mutable {
                    const bool is = status == QVClickStatusVerifying || status == QVClickStatusDrawing;
                    m_clicked->attempts += is && !was ? 1 : 0;
                    was = is;
                    // Qt may be about to hide or deactivate a window in which the button was pressed.
                    const bool isInEvent = m_isInEvent || status < QVClickStatusVerifying;
                    const QScopedValueRollback<bool> inEvent(m_isInEvent, isInEvent);
                    reenter();
                });
        if (m_kind == 0 && !m_embed) {
            m_embed = std::make_unique<QVEmbedManager>();
            m_embed->embedView()->setParent(m_top);
            m_embed->embedView()->setGeometry(0, 50, 300, 202);
            m_embed->embedView()->show();
        }
    }

    void hear(auto *manager, Tally &tally)
    {
        tally.outcomes.watch(manager);
        tally.outcomes.heard = [this](const QString &) {
            reenter();
        };
    }

    /// What a host does in a handler: nothing most of the time.
    void reenter()
    {
        if (!m_reenters || m_depth > 2 || roll(3) > 0)
            return;
        const QScopedValueRollback deeper(m_depth, m_depth + 1);
        act(roll(13));
    }

    void act(int action)
    {
        const QScopedValueRollback inEvent(m_isInEvent, m_isInEvent || action > 6);
        if (action == 0 && m_click)
            m_click->reset();
        else if (action == 1 && m_invisible)
            m_invisible->reset();
        else if (action == 2 && m_click && m_click->button()->parentWidget())
            m_click->button()->click();
        else if (action == 3 && m_invisible)
            startInvisible();
        else if (action == 4)
            destroyClick(roll(2));
        else if (action == 5 && m_invisible)
            destroyInvisible();
        else if (action == 6)
            destroyHost();
        else if (action > 6 && m_top)
            actOnHost(action);
    }

    void actOnHost(int action)
    {
        auto *const dialog = qobject_cast<QDialog *>(m_top);
        if (action == 7)
            m_top->close();
        else if (action == 8)
            m_top->setVisible(!m_top->isVisible());
        else if (action == 9)
            m_top->setEnabled(!m_top->isEnabled());
        else if (action == 10)
            m_top->resize(200 + roll(500), 150 + roll(400));
        else if (action == 11 && dialog)
            roll(2) ? dialog->accept() : dialog->reject();
        else if (action == 12 && !m_wait)
            m_wait = createDialog(m_top);
        else if (action == 12)
            m_wait->close();
    }

    void destroyClick(bool withManager)
    {
        QPointer<QVClickButton> button = m_click ? m_click->button() : nullptr;
        if (withManager && m_click && !m_isInFocusChange) {
            m_clicked->lose();
            if (button)
                disconnect(button, &QVClickButton::clickStatusChanged, button, nullptr);
            const auto manager = std::move(m_click);
        }
        // Qt still works on a widget that it is giving the focus to.
        if (button && m_isInFocusChange)
            button->deleteLater();
        else
            delete button;
    }

    void destroyInvisible()
    {
        m_unseen->lose();
        const auto manager = std::move(m_invisible);
    }

    void destroyHost()
    {
        // Nothing is done any more to a window that is about to go.
        QWidget *const top = std::exchange(m_top, nullptr);
        // Nor does Qt survive the end of a window that it delivers an event to.
        if (m_isInEvent && top)
            top->deleteLater();
        else
            delete top;
    }

    void endEverything()
    {
        if (m_invisible)
            destroyInvisible();
        destroyClick(true);
        m_embed ? delete m_embed->embedView() : void();
        m_embed.reset();
        delete m_top;
    }

    void step()
    {
        const int action = roll(14);
        if (action < 2)
            tapButton();
        else if (action < 4)
            startInvisible();
        else if (action < 6)
            changeAnswers();
        else if (action < 9)
            actInPopup();
        else if (action < 11)
            pass(1ms * roll(1500));
        else if (action == 11)
            bringBack();
        else
            act(roll(13));
        settle();
        advance(0ms);
    }

    /// What a handler closed or disabled comes back for the user to go on with.
    void bringBack()
    {
        m_top->setEnabled(true);
        m_top->show();
        m_top->activateWindow();
        if (m_embed && m_embed->embedView())
            m_embed->reset();
    }

    void tapButton()
    {
        const QPointer<QVClickButton> button = m_click->button();
        const QScopedValueRollback inEvent(m_isInEvent, true);
        if (!button->isVisible())
            button->click();
        else if (roll(4) == 0)
            QTest::keyClick(button->window()->windowHandle(), roll(2) ? Qt::Key_Space : Qt::Key_Return);
        else
            QVPointerInput::click(*button->window(), QPoint(20, 20));
    }

    void startInvisible()
    {
        m_invisible->setAnimation(roll(3) > 0);
        ++m_unseen->attempts;
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
        const QScopedValueRollback inEvent(m_isInEvent, true);
        if (popup() && roll(3) == 0)
            pressClose();
        else if (drawView())
            stroke();
    }

    /// By a pass of the click alone, or of a stroke.
    void freshAttemptWorks(bool draws)
    {
        for (const QString &what : words("switch, config, click, picture, refresh, verify"))
            delay(what, 0ms);
        service().answerBytes(outageSwitch, R"({"active":false})");
        for (const QString &what : {config, verify})
            answerCode(what, q("0103"));
        answerCode(click, draws ? q("0104") : q("0103"));
        // Not the host: Qt may take a window that hid itself in a focus handler for inactive ever after.
        delete m_top;
        qDeleteAll(host().findChildren<QDialog *>(Qt::FindDirectChildrenOnly));
        QWidget fresh;
        fresh.resize(500, 420);
        showActive(fresh);
        m_unseen->outcomes.clear();
        m_invisible->setAnimation(false);
        m_invisible->startInsivible();
        if (draws) {
            QVERIFY(waitForPicture());
            strokeAndVerify();
        }
        pass(1100ms);
        QCOMPARE(m_unseen->outcomes.ends(), words(draws ? "passed main-token" : "passed click-token"));
    }

    [[nodiscard]] int roll(int sides) { return m_random.bounded(sides); }

    void prepare() override
    {
        ModesTestCase::prepare();
        m_clicked = std::make_unique<Tally>();
        m_unseen = std::make_unique<Tally>();
    }

    void finish() override
    {
        m_reenters = false;
        endEverything();
        m_clicked.reset();
        m_unseen.reset();
        ModesTestCase::finish();
    }

    QRandomGenerator m_random;
    /// Window, tool window, dialog, modal dialog, modal dialog over another one.
    int m_kind = 0;
    bool m_reenters = false;
    int m_depth = 0;
    /// Whether Qt is delivering an event, so that what receives it may only be deleted later.
    bool m_isInEvent = false;
    bool m_isInFocusChange = false;
    QPointer<QWidget> m_top;
    QPointer<QDialog> m_wait;
    std::unique_ptr<Tally> m_clicked;
    std::unique_ptr<Tally> m_unseen;
    std::unique_ptr<QVClickManager> m_click;
    std::unique_ptr<QVInvisibleManager> m_invisible;
    std::unique_ptr<QVEmbedManager> m_embed;
};

QV_TEST(TestModesAtRandom)
#include "TestModesAtRandom.moc"
