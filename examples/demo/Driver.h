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

/// Performs the actions of a drive file, one after another, on the window.
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
    /// The file is done and, with \a success, a token has come or is not wanted.
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
    /// Where the error bar was a moment ago.
    QRect m_errorBarPlace;
    qsizetype m_next = 0;
    /// Events up to here have been waited for.
    qsizetype m_seen = 0;
    /// What the driver waits for at present; empty while it waits for none.
    QString m_awaited;
    bool m_isEnded = false;
};
