#pragma once

#include "demo/DemoOptions.h"

#include <QUrl>
#include <QVector>

#include <memory>
#include <optional>

class QVSandbox;

/// Where the demo's requests go: to the addresses it was given, else to a sandbox in this process.
class DemoServices
{
public:
    /// With a seed, the sandbox draws the same pictures in every run.
    explicit DemoServices(std::optional<quint64> seed = {});
    ~DemoServices();

    /// Starts the sandbox where one is needed and tells the component all addresses. False, with
    /// the reason, when the sandbox cannot serve.
    bool start(const DemoOptions &options, QString &problem);
    /// The services that may know the answer to the picture on screen, the likeliest first.
    [[nodiscard]] QVector<QUrl> solutionServices() const { return m_solutionServices; }

private:
    bool startSandbox(QString &problem);

    const std::optional<quint64> m_seed;
    std::unique_ptr<QVSandbox> m_sandbox;
    QVector<QUrl> m_solutionServices;
};
