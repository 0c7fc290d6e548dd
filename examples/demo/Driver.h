#pragma once

#include "demo/DriveScript.h"
#include "demo/InputPlayer.h"
#include "demo/SolutionClient.h"

#include <QDir>
#include <QObject>
#include <QRect>
#include <QTimer>

class DemoWindow;
class EventLog;
class PanelProbe;

/// Performs the actions of a drive file in the window, one after another.
class Driver : public QObject
{
    Q_OBJECT

public:
    struct Stage
    {
        DemoWindow &window;
        EventLog &log;
        PanelProbe &probe;
    };

    Driver(const Stage &stage, DriveScript script, const QVector<QUrl> &solutionServices,
           const QString &screenshots);

    void start();

Q_SIGNALS:
    /// All actions are done, or one has failed. \a success is true if a token has come, or if none is needed.
    void finished(bool success);

private:
    using Kind = DriveAction::Kind;

    void next();
    void perform(const DriveAction &action);
    void performPointing(const DriveAction &action);
    void press(QWidget *target, const char *what);
    void pressErrorBar();
    void stroke(const QVector<QPointF> &points, int milliseconds, bool isHeld = false);
    void solveCurve(const QVector<QPointF> &curve);
    void solveCharacters(const QString &text);
    [[nodiscard]] QPixmap picture() const;
    void shoot(const QString &name);
    void checkEvents();
    void continueSoon();
    void fail(const QString &reason);

    Stage m_stage;
    DriveScript m_script;
    SolutionClient m_solution;
    InputPlayer m_input;
    QDir m_screenshots;
    QTimer m_pause;
    /// The place of the error bar at the last look.
    QRect m_errorBarPlace;
    qsizetype m_next = 0;
    /// The number of events that have been waited for.
    qsizetype m_seen = 0;
    /// The event that the driver waits for; empty if it does not wait.
    QString m_awaited;
    bool m_isEnded = false;
};
