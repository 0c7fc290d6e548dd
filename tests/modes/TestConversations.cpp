#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"

using namespace std::chrono_literals;

/// A row holds the steps of a conversation and all that the host hears: signals, "[2]" for a status of the
/// click button, "(token)" for a call of the delegate, and "|" where the step of that name was.
class TestConversations : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data()
    {
        addTable();
        row("drawn", "click, invisible", "start, picture, asked, stroke, wait 100000",
            "[2], popup, asked switch config click, [4], (main-token), passed main-token");
        row("drawn", "embed", "start, picture, asked, stroke, wait 100000",
            "ready, asked switch config get, (main-token), passed main-token");
        row("passed", "click", "pass, start, wait 0, |, wait 499, |, wait 1, text",
            "[2], [4], |, |, (click-token), passed click-token, [Verified]");
        row("passed", "invisible", "pass, start, wait 0, badges",
            "(click-token), passed click-token, badges 0");
        row("passed, badge", "invisible",
            "badge, pass, start, wait 0, badges, wait 999, badges, wait 1, badges",
            "badges 1, badges 1, (click-token), passed click-token, badges 0");
        row("refused click", "click, invisible", "answer click 1002, start, wait 100, text, asked",
            "[2], [5], failed 1002, [Expired. Try again.], asked switch config click");
        row("refused configuration", "click, invisible", "answer config 0101, start, wait 100, text, asked",
            "[2], [5], failed 101, [Access denied. Try again.], asked switch config");
        row("no JSON", "click, invisible", "answer switch <html>, start, wait 100, text, asked",
            "[2], [5], failed 3840, [Something went wrong (request failed)], asked switch");
        row("no object", "click, invisible", "answer switch [1], start, picture", "[2], popup");
        // The popup looks at the switch once more by itself.
        row("outage", "click, invisible", "outage, start, picture, text, asked, stroke, wait 2000",
            "[2], [3], popup, outage, [Draw along the curve], asked switch switch outage get, [4], "
            "(outage-token), passed outage-token");
        row("outage without a picture", "click, invisible",
            "outage, answer outage-get ?, start, wait 100, close",
            "[2], [3], popup, outage, in popup 3840, [0], closed User");
        row("outage", "embed", "outage, start, picture, stroke, wait 2000",
            "outage, ready, (outage-token), passed outage-token");
        row("wrong, then failed", "embed",
            "answer verify 0104, start, picture, stroke, wait 2000, answer get 0105, reset, wait 100, "
            "answer get 0103, reset, picture",
            "ready, wrong, failed 105, ready");
        row("outage ended by its signal", "embed", "outage, when outage: reset, start, wait 300",
            "outage, outage, ready");
        row("host destroys it in an outage", "click, invisible",
            "outage, when outage: destroy, start, wait 300", "[2], [3], popup, outage");
        row("host destroys it in an outage", "embed", "outage, when outage: destroy, start, wait 300",
            "outage");
    }
    void answers() { converse(); }

    /// The alternative is offered while the host is connected to its signal. It does not end the attempt.
    void anAlternativeIsOffered_data()
    {
        addTable();
        const char *const steps = "listen, start, picture, leave, space, listen no, wait 100, leave, listen, "
                                  "wait 100, stroke, wait 300, leave, wait 2000";
        row("offered", "click, invisible", steps,
            "[2], popup, I can't do this 300, alternative, alternative, no way out 270, "
            "I can't do this 300, [4], (main-token), passed main-token");
        row("offered", "embed", steps,
            "ready, I can't do this 300, alternative, alternative, no way out 270, "
            "I can't do this 300, (main-token), passed main-token");
    }
    void anAlternativeIsOffered() { converse(); }

    void closes_data()
    {
        addTable();
        row("comes back without a request", "click, invisible",
            "start, picture, close, asked, start, popups, start, reset, asked, popups",
            "[2], popup, [0], closed User, asked switch config click, [3], popup, popups 1, [0], closed "
            "HostReset, asked, popups 0");
        row("pass after the close", "click, invisible",
            "start, picture, hold verify 200, stroke, close, wait 2000, popups, asked, start, wait 100, "
            "asked",
            "[2], popup, [0], closed User, popups 0, asked switch config click verify, [2], popup, asked "
            "switch config click");
        row("second start while asking", "invisible",
            "badge, hold config 10, start, start, wait 0, badges, wait 1100, popups",
            "badges 1, popup, closed Replaced, popup, popups 1");
        row("kept without a timer but the countdown", "invisible",
            "start, picture, close, wait 2000, timers, forget, wait 177000, asked, start, wait 100, asked",
            "popup, closed User, timers 1, asked, popup, asked refresh");
        row("no picture yet", "click, invisible",
            "outage, hold outage-get 9000, start, wait 100, close, popups",
            "[2], [3], popup, outage, [0], closed User, popups 0");
        row("limit while asking", "click, invisible",
            "limit 3000, hold config 4000, start, wait 2900, |, wait 200, |, wait 5000",
            "[2], |, [5], failed -1001, |");
        row("limit while drawing", "click, invisible", "limit 3000, start, wait 2900, |, wait 200, wait 5000",
            "[2], popup, |, [5], failed -1001");
        row("limit", "embed", "limit 3000, start, wait 2900, |, wait 200, reset, wait 500",
            "ready, |, failed -1001, ready");
        row("passed within the limit", "click, invisible",
            "limit 3000, start, picture, wait 2000, stroke, wait 5000",
            "[2], popup, [4], (main-token), passed main-token");
        row("passed within the limit", "embed", "limit 3000, start, picture, wait 2000, stroke, wait 5000",
            "ready, (main-token), passed main-token");
        row("badge after the limit", "invisible",
            "limit 3000, badge, pass, hold click 2400, start, wait 7000",
            "(click-token), passed click-token");
        row("a limit for each start", "invisible",
            "limit 3000, hold switch 9000, start, wait 2500, start, wait 2500, start, wait 2500",
            "failed -1001, failed -1001");
    }
    void closes() { converse(); }

    void endsInEachPhase_data()
    {
        addTable();
        const auto endings = [](const QByteArray &phase, const QByteArray &reach, const QByteArray &before) {
            const auto end = [&](const QByteArray &step, const QByteArray &said) {
                row(phase + ", " + step, "click, invisible",
                    reach + ", forget, " + step + ", |, wait 1200, asked, popups, badges",
                    before + said + ", asked, popups 0, badges 0");
            };
            end("reset", ", [0], closed HostReset, |");
            end("window close", ", |, [0], closed WindowGone");
            // Nothing is told from the destructor of the window, when the host cannot be called any more.
            end("window destroy", ", |, closed WindowGone");
            end("destroy", ", |");
        };
        const auto token = [](const char *modes, const QByteArray &step, const char *said) {
            row("token, " + step, modes,
                "badge, pass, start, wait 100, " + step + ", wait 1200, popups, badges",
                said + QByteArray("popups 0, badges 0"));
        };
        token("click, invisible", "reset", "[2], [4], [0], (click-token), passed click-token, ");
        token("click, invisible", "window destroy", "[2], [4], (click-token), passed click-token, ");
        token("click", "destroy", "[2], [4], ");
        token("invisible", "destroy", "(click-token), ");
        for (const char *held : {"switch", "config", "click"})
            endings(held, QByteArray("badge, hold ") + held + " 100, start, wait 0", "[2]");
        endings("picture", "hold picture 100, start, wait 0", "[2], popup");
        endings("press", "start, picture, press", "[2], popup");
        endings("verify", "hold verify 100, start, picture, stroke", "[2], popup");
    }
    void endsInEachPhase() { converse(); }

    void expires_data()
    {
        addTable();
        const QByteArray passes = "lifetime 60, pass, start, wait 1000, ";
        const QByteArray draws = "lifetime 60, start, picture, stroke, wait 1500, ";
        const auto each = [&](const char *name, const char *steps, const char *button, const char *unseen,
                              const char *panel) {
            row(name, "click", passes + steps,
                QByteArray("[2], [4], (click-token), passed click-token") + button);
            row(name, "invisible", passes + steps, QByteArray("(click-token), passed click-token") + unseen);
            row(name, "embed", draws + steps, QByteArray("ready, (main-token), passed main-token") + panel);
        };
        each("in its time", "wait 57000, |, wait 3000, wait 100000", ", |, [0], expired", ", |, expired",
             ", |, expired");
        each("reset", "wait 50000, reset, wait 100000", ", [0]", "", ", ready");
        each("destroyed", "wait 50000, destroy, wait 100000", "", "", "");
        each("destroyed when told", "when expired: destroy, wait 100000", ", [0], expired", ", expired",
             ", expired");
        row("reset before it is told", "click", "lifetime 60, pass, start, wait 100, reset, wait 100000",
            "[2], [4], [0], (click-token), passed click-token");
        row("reset before it is told", "invisible",
            "badge, lifetime 60, pass, start, wait 100, reset, wait 100000",
            "(click-token), passed click-token, expired");
        row("started again", "invisible", passes + "wait 50000, start, wait 59000, |, wait 2000",
            "(click-token), passed click-token, (click-token), passed click-token, |, expired");
    }
    void expires() { converse(); }

    /// Whatever the host does, each attempt ends once, and a popup that is on screen can be used.
    void clumsyHosts_data()
    {
        addTable();
        row("disables its window while asked", "click", "start, window disable, picture, stroke, wait 1600",
            "[2], popup, [4], (main-token), passed main-token");
        row("disables its window under the popup", "click, invisible",
            "start, picture, window disable, wait 10, stroke, wait 1600",
            "[2], popup, [4], (main-token), passed main-token");
        row("disables its window, user closes", "click, invisible",
            "start, picture, window disable, wait 10, close, wait 100", "[2], popup, [0], closed User");
        row("disables its widgets", "click", "start, picture, children disable, wait 1, stroke, wait 1600",
            "[2], popup, [4], (main-token), passed main-token");
        row("hides its widgets", "click", "start, picture, children hide, wait 1, popups",
            "[2], popup, [0], closed User, popups 1");
        row("hides its window while asked", "click, invisible",
            "hold config 50, start, window hide, wait 100, popups, window show, start, wait 100, picture",
            "[2], [0], closed WindowGone, popups 0, [2], popup");
        row("hides its window under the popup", "click, invisible",
            "start, picture, window hide, wait 100, popups, window show, start, picture",
            "[2], popup, [0], closed WindowGone, popups 0, [2], popup");
        row("hides the window of a hidden popup", "invisible",
            "window other, start, picture, close, window hide, window other, start, place, window destroy "
            "other, wait 100, place",
            "popup, closed User, popup, here, here");
        row("goes on in another window", "invisible",
            "start, picture, close, forget, window other, start, place, asked",
            "popup, closed User, popup, here, asked");
        row("starts elsewhere right after its window", "invisible",
            "start, picture, window hide, window other, start, wait 100, place",
            "popup, popup, closed WindowGone, here");
        row("closes one of two windows", "invisible",
            "hold switch 9000, start, window other, start, window close, wait 10, |, window other, window "
            "close, wait 10",
            "closed WindowGone, |, closed WindowGone");
        row("starts again as its window closes", "click",
            "when closed: start, start, picture, window close, wait 100, reset",
            "[2], popup, [0], closed WindowGone, [2], [0], closed WindowGone");
        row("starts again as its window closes", "invisible",
            "when closed: start, start, picture, window close, wait 100, reset",
            "popup, closed WindowGone, popup, closed HostReset");
        row("resets as soon as it is drawn", "click", "outage, when [3]: reset, start, wait 100",
            "[2], [3], [0], closed HostReset");
        row("has little room", "click, invisible", "window 300x200, start, picture, place",
            "[2], popup, alone");
        row("shrinks under the popup", "click, invisible",
            "start, picture, place, window 300x100, wait 10, place, stroke, wait 1600",
            "[2], popup, here, alone, [4], (main-token), passed main-token");
        row("asks for patience", "invisible",
            "start, dialog 200x100, picture, place, dialog close, wait 1, place, stroke, wait 1600",
            "popup, alone, here, (main-token), passed main-token");
        row("opens a dialog over a popup of its own", "invisible",
            "window 300x200, start, picture, dialog 150x100, wait 10, stroke, wait 1600",
            "popup, (main-token), passed main-token");
        row("opens a large dialog over a popup of its own", "invisible",
            "window 300x200, start, picture, dialog 600x600, wait 10, stroke, wait 1600",
            "popup, (main-token), passed main-token");
        row("no window", "invisible", "window destroy, badge, start, wait 0, badges, picture, place",
            "popup, badges 0, alone");
        row("no window", "embed", "window destroy, start, picture, stroke, wait 1600",
            "ready, (main-token), passed main-token");
        row("no widget", "invisible", "window foreign, start, picture, place", "popup, alone");
        row("no widget, closes while asked", "invisible",
            "window foreign, hold config 50, start, window close, wait 100", "closed WindowGone");
        row("no widget, closes under the popup", "invisible",
            "window foreign, start, picture, window close, wait 1", "popup, closed WindowGone");
        row("no widget, destroyed while asked", "invisible",
            "window foreign, hold config 50, start, window destroy, wait 100", "closed WindowGone");
        row("no widget, destroyed under the popup", "invisible",
            "window foreign, start, picture, window destroy, wait 1", "popup, closed WindowGone");
    }
    void clumsyHosts() { converse(); }

    void actsWhenThePopupTakesTheFocus_data()
    {
        addTable();
        const auto when = [](const char *action, const char *said) {
            row(action, "click, invisible",
                QByteArray("field, when focus: ") + action + ", start, wait 300, reset, wait 100, popups",
                said);
        };
        when("destroy", "[2], popups 0");
        when("reset", "[2], [0], closed HostReset, popups 0");
        when("start", "[2], popup, [0], closed HostReset, popups 0");
        when("window close", "[2], popup, [0], closed WindowGone, popups 0");
        when("window disable", "[2], popup, [0], closed HostReset, popups 0");
        when("reset + badges", "[2], [0], closed HostReset, badges 0, popups 0");
    }
    void actsWhenThePopupTakesTheFocus() { converse(); }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        addStep("listen", [this](const QString &no) {
            m_listener = no.isEmpty() ? std::make_unique<QObject>() : nullptr;
            withManager([this](auto &manager) {
                using Manager = std::remove_reference_t<decltype(manager)>;
                if (m_listener)
                    connect(&manager, &Manager::alternativeRequested, m_listener.get(),
                            [this] { outcomes().add(q("alternative")); });
            });
        });
        addStep("leave", [this](auto) {
            const auto *const button = part("alternativeButton");
            outcomes().add(q("%1 %2")
                               .arg(button->isVisible() ? button->accessibleName() : q("no way out"))
                               .arg(drawView()->heightForWidth(400)));
            if (button->isVisible())
                clickPart("alternativeButton");
        });
        addStep("space", [](auto) { QTest::keyClick(part("alternativeButton"), Qt::Key_Space); });
    }

    void finish() override
    {
        m_listener.reset();
        ModesTestCase::finish();
    }

    static void addTable() { addColumns<QString, QString, QString>({"mode", "steps", "said"}); }

    static void row(const QByteArray &name, const QByteArray &modes, const QByteArray &steps,
                    const QByteArray &said)
    {
        for (const QString &mode : words(q(modes)))
            QTest::addRow("%s, %s", name.constData(), qPrintable(mode)) << mode << q(steps) << q(said);
    }

    /// Compares the record. Then destroys everything: nothing more is heard or asked, and nothing is left.
    void converse()
    {
        QFETCH(QString, mode);
        QFETCH(QString, steps);
        QFETCH(QString, said);
        setMode(mode);
        go(steps);
        QStringList expected = words(said);
        if (mode != click)
            expected.removeIf([](const QString &entry) { return entry.startsWith(u'['); });
        QCOMPARE(outcomes().said().join(q(", ")), expected.join(q(", ")));
        // Only the delegate of invisible mode is called for failures.
        QCOMPARE(outcomes().failuresTold(), mode == q("invisible") ? expected.filter(q("failed")).size() : 0);
        destroyManagers();
        forgetAsked();
        pass(10s);
        QCOMPARE(outcomes().said().size(), expected.size());
        QCOMPARE(asked(), QStringList());
        QCOMPARE(popupCount() + badgeCount() + time().pendingCount(), 0);
    }

    std::unique_ptr<QObject> m_listener;
};

QV_TEST(TestConversations)
#include "TestConversations.moc"
