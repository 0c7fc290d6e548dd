#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <memory>

/// Emits a Qt signal when a system signal asks the program to stop.
class SandboxSignals : public QObject
{
    Q_OBJECT

public:
    SandboxSignals();
    ~SandboxSignals() override;

Q_SIGNALS:
    void stopRequested();

private:
    std::array<int, 2> m_pipe{-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};
