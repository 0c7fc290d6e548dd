#pragma once

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointF>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class QHttpServerRequest;
class SandboxQuery;
struct SandboxAnswer;
struct SandboxBehaviour;

template<class Result>
class QFuture;

/// The settings of a sandbox.
struct QVSandboxOptions
{
    using Clock = std::function<std::chrono::milliseconds()>;

    /// Makes pictures, challenges and tokens reproducible. Without a seed they differ in every run.
    std::optional<quint64> seed;
    /// The port to listen on; 0 for any free port.
    quint16 port = 0;
    /// PEM files; set both or none. With them every address is https.
    QString certificateFile;
    QString keyFile;
    /// Whether the outage switch is active at first.
    bool outageActive = false;
    /// The delay of answers for the id "test-slow".
    std::chrono::milliseconds slowDelay{3000};
    /// The number of requests that log() keeps.
    qsizetype logLimit = 1000;
    /// Measures the age of challenges and the rate of refreshes. If it is not set, the real clock does.
    Clock clock;
};

/// The addresses of a listening sandbox, named like the client's settings.
struct QVSandboxAddresses
{
    QString base;
    QString apiHost;
    QString downloadHost;
    /// A download host whose outage switch is always active. For the id "test-outage", since the request for
    /// the switch contains no id.
    QString outageDownloadHost;
    QString imageHost;
    QString cdn;
    QString outageServer;

    [[nodiscard]] QJsonObject toJson() const;
};

/// A request that the sandbox has received, and its answer.
struct QVSandboxLogEntry
{
    QString path;
    /// The query string, not decoded.
    QString query;
    QMap<QString, QString> values;
    QString contentType;
    int status = 0;
    /// The service code of the answer; empty if it has none.
    QString code;

    [[nodiscard]] QJsonObject toJson() const;
};

/// The right answer to a challenge.
struct QVSandboxSolution
{
    /// The curve from its start, in picture units (400 x 230, y downwards). Empty for characters.
    QList<QPointF> points;
    QString characters;

    [[nodiscard]] QJsonObject toJson() const;
};

/// A complete captcha service on 127.0.0.1. It draws its own pictures and really judges the answers. It needs
/// an event loop on the thread that created it.
class QVSandbox : public QObject
{
    Q_OBJECT

public:
    explicit QVSandbox(QVSandboxOptions options = {}, QObject *parent = nullptr);
    ~QVSandbox() override;

    /// Starts serving. If it returns false, errorString() is the reason.
    [[nodiscard]] bool listen();
    [[nodiscard]] QString errorString() const;

    [[nodiscard]] quint16 port() const;
    [[nodiscard]] QString baseAddress() const;
    /// Valid once listen() has succeeded.
    [[nodiscard]] QVSandboxAddresses addresses() const;

    [[nodiscard]] bool outageActive() const;
    void setOutageActive(bool active);

    /// The latest requests to the service, oldest first. Requests to /sandbox/ are not included.
    [[nodiscard]] QList<QVSandboxLogEntry> log() const;
    void clearLog();
    /// The answer to the current picture of \a challenge. If that is empty, the answer to the latest of all
    /// pictures.
    [[nodiscard]] std::optional<QVSandboxSolution> solution(const QString &challenge) const;

private:
    struct Parts;
    using Reply = std::function<void(const SandboxAnswer &)>;

    void addRoutes();
    void handle(const QHttpServerRequest &request, const Reply &reply);
    void sendPicture(const QFuture<QByteArray> &picture, const Reply &reply, QVSandboxLogEntry entry);
    void send(const SandboxAnswer &answer, const Reply &reply, QVSandboxLogEntry entry,
              std::chrono::milliseconds delay = {});
    [[nodiscard]] SandboxAnswer answer(const QString &path, const SandboxQuery &query,
                                       const SandboxBehaviour &behaviour) const;
    [[nodiscard]] SandboxAnswer solutionAnswer(const SandboxQuery &query) const;
    [[nodiscard]] SandboxAnswer logAnswer() const;
    [[nodiscard]] SandboxAnswer tokenAnswer(const SandboxQuery &query);

    std::unique_ptr<Parts> m_parts;
};
