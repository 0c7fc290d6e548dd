#pragma once

#include "demo/DemoOptions.h"

#include <QUrl>
#include <QVector>

#include <memory>

class QVSandbox;

/// Where the demo's requests go: to the addresses it was given, else to a sandbox in this process.
class DemoServices
{
public:
    DemoServices();
    ~DemoServices();

    /// Starts the sandbox where one is needed and tells the component all addresses. False, with
    /// the reason, when the sandbox cannot serve.
    bool start(const DemoOptions &options, QString &problem);
    /// The services that may know the answer to the picture on screen, the likeliest first.
    [[nodiscard]] QVector<QUrl> solutionServices() const { return m_solutionServices; }

private:
    bool startSandbox(QString &problem);

    std::unique_ptr<QVSandbox> m_sandbox;
    QVector<QUrl> m_solutionServices;
};
