#pragma once

#include "demo/EventLog.h"
#include "demo/InputPlayer.h"
#include "demo/PanelProbe.h"
#include "demo/SolutionClient.h"
#include "sandbox/QVSandbox.h"

#include <QTimer>

/// Uses an example as a person would, against a service in its own process: presses what there is to
/// press, draws where a picture appears, and ends the program once the service knows the token that
/// the example printed. Exit code 0 then, 1 when that takes too long.
class ExampleDriver : public QObject
{
    Q_OBJECT

public:
    ExampleDriver();
    ~ExampleDriver() override;

    /// What the example prints; called by the message handler.
    void heard(const QString &message);

private:
    void start();
    /// Presses the example's own button, whatever toolkit made it.
    void press();
    void handleEvent(const QString &line);
    void solve(const QVector<QPointF> &curve);
    void checkToken(const QString &token);

    QVSandbox m_sandbox;
    EventLog m_log;
    PanelProbe m_probe;
    InputPlayer m_input;
    std::unique_ptr<SolutionClient> m_solution;
    QNetworkAccessManager m_network;
    bool m_hasPrinted = false;
};
