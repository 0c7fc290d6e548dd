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

/// How a sandbox is set up.
struct QVSandboxOptions
{
    using Clock = std::function<std::chrono::milliseconds()>;

    /// Makes pictures, challenges and tokens reproducible; without one they differ in every run.
    std::optional<quint64> seed;
    /// 0 takes any free port.
    quint16 port = 0;
    /// PEM files; both or none. With them every address is https.
    QString certificateFile;
    QString keyFile;
    /// What the outage switch says at first.
    bool outageActive = false;
    /// How late the id "test-slow" is answered.
    std::chrono::milliseconds slowDelay{3000};
    /// How many requests are remembered.
    qsizetype logLimit = 1000;
    /// Age of challenges and refresh bounds are measured on it; the real clock when not set.
    Clock clock;
};

/// Where the parts of a listening sandbox are, in the words of the client's settings.
struct QVSandboxAddresses
{
    QString base;
    QString apiHost;
    QString downloadHost;
    /// A download host whose switch is always active. The switch request carries no id, so this is
    /// how the id "test-outage" gets its outage.
    QString outageDownloadHost;
    QString imageHost;
    QString cdn;
    QString outageServer;

    [[nodiscard]] QJsonObject toJson() const;
};

/// A request that the sandbox received, with what it answered.
struct QVSandboxLogEntry
{
    QString path;
    /// As it came, undecoded.
    QString query;
    QMap<QString, QString> values;
    QString contentType;
    int status = 0;
    /// The service code answered, empty where the answer has none.
    QString code;

    [[nodiscard]] QJsonObject toJson() const;
};

/// What a challenge wants to be answered.
struct QVSandboxSolution
{
    /// The curve from its start, in picture units (400 x 230, y down); empty for characters.
    QList<QPointF> points;
    QString characters;

    [[nodiscard]] QJsonObject toJson() const;
};

/// A complete captcha service on 127.0.0.1 that draws its own pictures and really judges the
/// answers. Lives on the thread that made it and needs an event loop there.
class QVSandbox : public QObject
{
    Q_OBJECT

public:
    explicit QVSandbox(QVSandboxOptions options = {}, QObject *parent = nullptr);
    ~QVSandbox() override;

    /// Starts serving; false leaves the reason in errorString().
    [[nodiscard]] bool listen();
    [[nodiscard]] QString errorString() const;

    [[nodiscard]] quint16 port() const;
    [[nodiscard]] QString baseAddress() const;
    /// Valid once listen() has succeeded.
    [[nodiscard]] QVSandboxAddresses addresses() const;

    [[nodiscard]] bool outageActive() const;
    void setOutageActive(bool active);

    /// The latest requests to the service, oldest first; those to /sandbox/ are not among them.
    [[nodiscard]] QList<QVSandboxLogEntry> log() const;
    void clearLog();
    /// The answer to the current picture of a challenge, or to the latest of all where none is named.
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
