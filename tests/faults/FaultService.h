#pragma once

#include "draw/DrawService.h"

#include <optional>

/// Closes each connection by a reset, as a crashed server or a middlebox does.
class ResettingServer : public QTcpServer
{
    Q_OBJECT

protected:
    void incomingConnection(qintptr descriptor) override;
};

/// Stands before a service and hands every request on to it by a redirect, save those to one
/// operation, which it answers as badly as it is told.
class FaultService
{
public:
    using Fault = QVScriptedServer::Responder;

    explicit FaultService(DrawService &service);
    ~FaultService();
    Q_DISABLE_COPY(FaultService)

    /// All faults by name.
    [[nodiscard]] const QList<std::pair<QString, Fault>> &faults() const { return m_faults; }
    /// From now on requests whose target begins with \a target meet \a fault.
    void misbehave(const QString &target, Fault fault);
    void behave() { m_fault = nullptr; }
    /// How many requests have met the fault.
    [[nodiscard]] int hits() const { return m_hits; }
    /// How many requests went over an unprotected line after a protected one.
    [[nodiscard]] int downgrades() const { return m_downgrades; }

private:
    [[nodiscard]] QVScript respond(const QVReceivedRequest &request);
    void addFault(const char *name, const QVScript &script);
    void addRedirect(const char *name, const QString &address);
    void addWireFaults();
    void addBodyFaults();
    void addRedirects();

    const QString m_serviceAddress;
    QVScriptedServer m_front;
    QVScriptedServer m_trusted;
    QVScriptedServer m_untrusted;
    ResettingServer m_resetting;
    QSslConfiguration m_usualTls = QSslConfiguration::defaultConfiguration();
    QList<std::pair<QString, Fault>> m_faults;
    QByteArray m_target;
    Fault m_fault;
    int m_hits = 0;
    int m_downgrades = 0;
};
