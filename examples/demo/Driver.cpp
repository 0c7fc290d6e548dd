#include "demo/Driver.h"

#include "demo/DemoWindow.h"
#include "demo/EventLog.h"
#include "demo/PanelProbe.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>

#include <cstdio>
#include <utility>

namespace {

using namespace std::chrono_literals;

// The pause between two actions, in which the event loop handles the effects of the first.
constexpr auto betweenActions = 30ms;

constexpr int solutionMilliseconds = 1400;

} // namespace

Driver::Driver(const Stage &stage, DriveScript script, const QVector<QUrl> &solutionServices,
               const QString &screenshots)
    : m_stage(stage)
    , m_script(std::move(script))
    , m_solution(solutionServices)
    , m_screenshots(screenshots)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &Driver::next);
    connect(&m_input, &InputPlayer::finished, this, &Driver::continueSoon);
    connect(&m_solution, &SolutionClient::curve, this, &Driver::solveCurve);
    connect(&m_solution, &SolutionClient::characters, this, &Driver::solveCharacters);
    connect(&m_solution, &SolutionClient::failed, this, &Driver::fail);
    // Queued: the window must have handled the event completely before the next action.
    connect(&m_stage.log, &EventLog::added, this, &Driver::checkEvents, Qt::QueuedConnection);
}

void Driver::start()
{
    continueSoon();
}

void Driver::next()
{
    if (m_next < m_script.actions().size()) {
        perform(m_script.actions()[m_next++]);
        return;
    }
    m_awaited = QStringLiteral("token");
    m_seen = m_stage.log.hasToken() ? 0 : m_seen;
    checkEvents();
}

void Driver::perform(const DriveAction &action)
{
    switch (action.kind) {
    case Kind::WaitEvent:
        m_awaited = action.text;
        checkEvents();
        break;
    case Kind::WaitTime:
        m_pause.start(action.milliseconds);
        break;
    case Kind::Stroke:
    case Kind::Hold:
        stroke(action.points, action.milliseconds, action.kind == Kind::Hold);
        break;
    case Kind::Keys:
        m_input.press(&m_stage.window, action.keys);
        break;
    case Kind::Lift:
        m_input.lift();
        continueSoon();
        break;
    case Kind::Solve:
        m_solution.ask();
        break;
    case Kind::Shot:
        shoot(action.text);
        break;
    case Kind::Resize:
        m_stage.window.resize(action.size);
        continueSoon();
        break;
    case Kind::Disable:
        m_stage.window.setEnabled(false);
        continueSoon();
        break;
    case Kind::End:
        m_isEnded = true;
        Q_EMIT finished(true);
        break;
    case Kind::Start:
        m_stage.window.startInvisible();
        continueSoon();
        break;
    case Kind::Reset:
        m_stage.window.resetVerification();
        continueSoon();
        break;
    default:
        performPointing(action);
        break;
    }
}

void Driver::performPointing(const DriveAction &action)
{
    switch (action.kind) {
    case Kind::Tap:
        press(m_stage.window.clickButton(), "click button");
        break;
    case Kind::Press:
        m_input.hold(m_stage.window.clickButton());
        continueSoon();
        break;
    case Kind::Refresh:
        press(m_stage.probe.part(QStringLiteral("refreshButton")), "refresh button");
        break;
    case Kind::Retry:
        pressErrorBar();
        break;
    case Kind::Close:
        press(PanelProbe::closeButton(), "close button");
        break;
    case Kind::Done:
        press(m_stage.probe.part(QStringLiteral("doneButton")), "done button");
        break;
    case Kind::Type:
        if (QWidget *const field = m_stage.probe.part(QStringLiteral("inputTF"))) {
            m_input.type(field, action.text);
            continueSoon();
        } else {
            fail(QStringLiteral("there is no answer field on screen"));
        }
        break;
    default:
        break;
    }
}

void Driver::press(QWidget *target, const char *what)
{
    if (!target || !target->isVisible()) {
        fail(QStringLiteral("there is no %1 on screen").arg(QLatin1String(what)));
        return;
    }
    m_input.click(target);
    continueSoon();
}

void Driver::pressErrorBar()
{
    QWidget *const bar = m_stage.probe.part(QStringLiteral("errorOverlayView"));
    const QRect place = bar ? bar->geometry() : QRect();
    const bool hasMoved = std::exchange(m_errorBarPlace, place) != place;
    if (bar && (hasMoved || !bar->parentWidget()->rect().contains(place))) {
        // The bar is still sliding in, so that a tap would miss it: repeat the action.
        --m_next;
        continueSoon();
        return;
    }
    press(bar, "error bar");
}

void Driver::stroke(const QVector<QPointF> &points, int milliseconds, bool isHeld)
{
    if (QWidget *const panel = m_stage.probe.panel())
        m_input.draw(panel, points, milliseconds, isHeld);
    else
        fail(QStringLiteral("there is no drawing panel on screen"));
}

void Driver::solveCurve(const QVector<QPointF> &curve)
{
    const QVector<QPointF> points = m_stage.probe.onPanel(curve);
    if (points.isEmpty())
        fail(QStringLiteral("there is no picture on screen"));
    else
        stroke(points, solutionMilliseconds);
}

void Driver::solveCharacters(const QString &text)
{
    QWidget *const field = m_stage.probe.part(QStringLiteral("inputTF"));
    QWidget *const done = m_stage.probe.part(QStringLiteral("doneButton"));
    if (!field || !done) {
        fail(QStringLiteral("there is no answer field on screen"));
        return;
    }
    m_input.type(field, text);
    press(done, "done button");
}

QPixmap Driver::picture() const
{
    // A popup may be a window of its own, above this one.
    QList<QWidget *> shown{&m_stage.window};
    QRect whole = m_stage.window.geometry();
    for (QWidget *const widget : QApplication::topLevelWidgets()) {
        if (widget == shown.first() || !widget->isVisible())
            continue;
        shown.append(widget);
        whole |= widget->geometry();
    }
    if (shown.size() == 1)
        return m_stage.window.grab();
    const qreal ratio = m_stage.window.devicePixelRatioF();
    QPixmap all(whole.size() * ratio);
    all.setDevicePixelRatio(ratio);
    all.fill(Qt::gray);
    QPainter painter(&all);
    for (QWidget *const widget : std::as_const(shown))
        painter.drawPixmap(widget->geometry().topLeft() - whole.topLeft(), widget->grab());
    return all;
}

void Driver::shoot(const QString &name)
{
    const QString path = m_screenshots.filePath(name + QStringLiteral(".png"));
    if (picture().save(path))
        continueSoon();
    else
        fail(QStringLiteral("cannot write %1").arg(path));
}

void Driver::checkEvents()
{
    if (m_awaited.isEmpty())
        return;
    const qsizetype found = m_stage.log.kinds().indexOf(m_awaited, m_seen);
    if (found < 0)
        return;
    m_seen = found + 1;
    m_awaited.clear();
    if (m_next < m_script.actions().size()) {
        continueSoon();
    } else if (!m_isEnded) {
        m_isEnded = m_stage.log.hasToken();
        m_isEnded ? Q_EMIT finished(true) : continueSoon();
    }
}

void Driver::continueSoon()
{
    m_pause.start(betweenActions);
}

void Driver::fail(const QString &reason)
{
    if (m_isEnded)
        return;
    m_isEnded = true;
    const int line = m_script.actions()[m_next - 1].line;
    std::fprintf(stderr, "quarvo-demo: line %d of the drive file: %s\n", line, qUtf8Printable(reason));
    Q_EMIT finished(false);
}
