#pragma once

#include "demo/DemoOptions.h"

#include <QUrl>
#include <QVector>

#include <memory>
#include <optional>

class QVSandbox;

/// The services that the demo uses: those at the given addresses, otherwise a sandbox in this process.
class DemoServices
{
public:
    /// With a \a seed the sandbox draws the same pictures in every run.
    explicit DemoServices(std::optional<quint64> seed = {});
    ~DemoServices();

    /// Starts the sandbox if one is needed, and sets the addresses of the component. Returns false if the
    /// sandbox cannot serve; \a problem is the reason.
    bool start(const DemoOptions &options, QString &problem);
    /// The services that may know the answer to the picture on screen, the most likely one first.
    [[nodiscard]] QVector<QUrl> solutionServices() const { return m_solutionServices; }

private:
    bool startSandbox(QString &problem);

    const std::optional<quint64> m_seed;
    std::unique_ptr<QVSandbox> m_sandbox;
    QVector<QUrl> m_solutionServices;
};
