#include "conversations/Conversations.h"
#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "support/QVPointerInput.h"
#include "views/QVSpokenMessage.h"

#include <QShortcut>

using namespace std::chrono_literals;
using Conversations::addTable;
using Conversations::row;

/// Conversations of the widgets' modes, and what only hosts with widgets do.
class TestConversations : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data() { Conversations::addAnswers(); }
    void answers() { converse(); }

    void closes_data() { Conversations::addCloses(); }
    void closes() { converse(); }

    void endsInEachPhase_data()
    {
        Conversations::addEnds({
            {"reset", ", [0], closed HostReset, |"},
            {"window close", ", |, [0], closed WindowGone"},
            // Nothing is told from the destructor of the window, when the host cannot be called any more.
            {"window destroy", ", |, closed WindowGone"},
            {"destroy", ", |"},
        });
        const auto token = [](const char *modes, const QByteArray &step, const char *said) {
            row("token, " + step, modes,
                "badge, pass, start, wait 100, " + step + ", wait 1200, popups, badges",
                said + QByteArray("popups 0, badges"));
        };
        token("click, invisible", "reset", "[2], [4], [0], (click-token), passed click-token, ");
        token("click, invisible", "window destroy", "[2], [4], (click-token), passed click-token, ");
        token("click", "destroy", "[2], [4], ");
        token("invisible", "destroy", "(click-token), ");
    }
    void endsInEachPhase() { converse(); }

    void expires_data() { Conversations::addLives(); }
    void expires() { converse(); }

    void drawings_data() { Conversations::addDrawings(); }
    void drawings() { follow(); }

    void drawingsOnWidgets_data()
    {
        Conversations::addDrawingColumns();
        const auto row = [](const char *name, const char *steps) {
            QTest::newRow(name) << q("embed") << q(steps);
        };
        row("pen", "embedded, pen -> verify, look -> 'Verified' picture 1");
        for (const char *by : {"release", "dialog"})
            row(by, qPrintable(q("embedded, press, jump, look -> picture 1 stroke refreshButton, lose %1, "
                                 "look -> 'Draw along the curve' picture 1 refreshButton, lift")
                                   .arg(q(by))));
        row("replaced in time", "embedded, wait 179000 -> refresh ready, "
                                "spoken -> Time for this picture is up. A new one is on its way.");
        row("by keys, disabled", "embedded, shortcut, keys Space Right*15, enabled no, enabled, keys Right, "
                                 "mark -> 20 11.5 Pen up");
    }
    void drawingsOnWidgets() { follow(); }

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
        row("hides a window that is no widget", "invisible",
            "window foreign, start, picture, window hide, wait 100, popups",
            "popup, closed WindowGone, popups 0");
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
        row("gives the focus back in the second window", "invisible",
            "start, picture, window hide, window other, field, start, close, focused",
            "popup, popup, closed User, QLineEdit");
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
        row("starts in a dialog, which closes", "invisible",
            "dialog 600x600, start, picture, place, dialog close, place, stroke, wait 1600",
            "popup, elsewhere, here, (main-token), passed main-token");
        for (const char *size : {"150x100", "600x600"})
            row(qPrintable(q("opens a dialog over a popup of its own, ") + q(size)), "invisible",
                qPrintable(
                    q("window 300x200, start, picture, dialog %1, wait 10, stroke, wait 1600").arg(q(size))),
                "popup, (main-token), passed main-token");
        row("no window", "invisible", "window destroy, badge, start, wait 0, badges, picture, place",
            "popup, badges, alone");
        row("no window, destroys the popup", "invisible", "window destroy, start, picture, delete, wait 1",
            "popup, closed WindowGone");
        row("no window", "embed", "window destroy, start, picture, stroke, wait 1600",
            "ready, (main-token), passed main-token");
        row("no widget", "invisible", "window foreign, start, picture, place", "popup, alone");
        for (const QByteArray end : {"window close, wait ", "window destroy, wait "}) {
            row("no widget, while asked, " + end, "invisible",
                "window foreign, hold config 50, start, " + end + "100", "closed WindowGone");
            row("no widget, under the popup, " + end, "invisible",
                "window foreign, start, picture, " + end + '1', "popup, closed WindowGone");
        }
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
        when("reset + badges", "[2], [0], closed HostReset, badges, popups 0");
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
        defineDrawing();
        defineKeys();
        addStep("delete", [](auto) { delete popup(); });
        addStep("space", [](auto) { QTest::keyClick(part("alternativeButton"), Qt::Key_Space); });
    }

    void defineDrawing()
    {
        addStep("pen", [this](auto) { QVPointerInput::strokeWithPen(host(), waveFrom({})); });
        // Takes the drag under way from the view: the release does not reach it.
        addStep("lose", [this](const QString &way) { loseDrag(way); });
        addStep("spoken",
                [this](auto) { addReport(drawView()->findChild<QVSpokenMessage *>()->accessibleName()); });
    }

    void defineKeys()
    {
        addStep("shortcut", [this](auto) { new QShortcut(Qt::Key_Space, &host(), [] { QFAIL("taken"); }); });
    }

    void loseDrag(const QString &way)
    {
        if (way == q("release")) {
            QMouseEvent move(QEvent::MouseMove, QPointF(80, 80), QPointF(80, 80), Qt::NoButton, Qt::NoButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(drawView(), &move);
        } else {
            QWidget dialog;
            dialog.setWindowModality(Qt::ApplicationModal);
            dialog.show();
        }
    }

    [[nodiscard]] QWidget &image() const { return *part("imageView"); }

    void finish() override
    {
        m_listener.reset();
        ModesTestCase::finish();
    }

    std::unique_ptr<QObject> m_listener;
};

QV_TEST(TestConversations)
#include "TestConversations.moc"
