#pragma once

#include "demo/EventLog.h"
#include "demo/InputPlayer.h"
#include "demo/PanelProbe.h"
#include "demo/SolutionClient.h"
#include "sandbox/QVSandbox.h"

#include <QTimer>

/// Uses an example like a person, with a service in the same process. It presses the example's button and
/// solves the picture. It ends the program with exit code 0 once the service has confirmed the token that the
/// example printed, or with 1 if that takes too long.
class ExampleDriver : public QObject
{
    Q_OBJECT

public:
    ExampleDriver();
    ~ExampleDriver() override;

    /// Receives the messages that the example prints. Called by the message handler.
    void heard(const QString &message);

private:
    void start();
    /// Presses the example's own button, which may be a widget or a Quick item.
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
