#include "sandbox/QVSandbox.h"

#include "sandbox/SandboxAnswer.h"
#include "sandbox/SandboxBehaviour.h"
#include "sandbox/SandboxConnectionGuard.h"
#include "sandbox/SandboxHttpServer.h"
#include "sandbox/SandboxMainService.h"
#include "sandbox/SandboxOutageService.h"
#include "sandbox/SandboxShared.h"

#include <QFile>
#include <QFutureWatcher>
#include <QHash>
#include <QHttpServerRequest>
#include <QJsonArray>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTimer>

namespace {

constexpr qsizetype maximumQuery = 8192;
constexpr qsizetype solutionPoints = 40;

const QString servicePath = QStringLiteral("/app/");
const QString toolPath = QStringLiteral("/sandbox/");
const QString switchPath = QStringLiteral("/config");
const QString outagePath = QStringLiteral("/outage");
const QString outageHostPath = QStringLiteral("/test-outage");

std::chrono::milliseconds steadyTime()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Empty if the files are not a certificate and its key.
std::optional<QSslConfiguration> tlsConfiguration(const QVSandboxOptions &options)
{
    const auto certificates = QSslCertificate::fromData(contentOf(options.certificateFile), QSsl::Pem);
    const QByteArray keyText = contentOf(options.keyFile);
    QSslKey key(keyText, QSsl::Rsa);
    if (key.isNull())
        key = QSslKey(keyText, QSsl::Ec);
    if (certificates.isEmpty() || key.isNull())
        return std::nullopt;
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(certificates);
    configuration.setPrivateKey(key);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}

SandboxAnswer switchAnswer(bool active)
{
    return SandboxAnswer::json(
        {{QStringLiteral("active"), active}, {QStringLiteral("key"), QStringLiteral("sandbox")}});
}

SandboxAnswer advertisement()
{
    return {
        200,
        QByteArrayLiteral("text/html;charset=UTF-8"),
        QByteArrayLiteral("<!DOCTYPE html><title>Sandbox news</title><p>Where an advertisement leads.</p>"),
        {}};
}

using Handler = std::function<SandboxAnswer(const SandboxQuery &)>;

} // namespace

struct QVSandbox::Parts
{
    Parts(QVSandboxOptions &&given, SandboxHttpServer::Handler handler)
        : options(std::move(given))
        , shared{SandboxSecret(options.seed), options.clock ? options.clock : steadyTime, {}, {}, {}, {}}
        , outageActive(options.outageActive)
        , server(std::move(handler))
    {
    }

    [[nodiscard]] std::optional<SandboxPuzzle> puzzleOf(const QString &challenge) const
    {
        if (challenge.isEmpty())
            return shared.latestPuzzle;
        const SandboxChallenge *found = mainService.challenges().peek(challenge);
        if (!found)
            found = outageService.challenges().peek(challenge);
        return found ? found->puzzle : std::nullopt;
    }

    QVSandboxOptions options;
    SandboxShared shared;
    SandboxMainService mainService{shared};
    SandboxOutageService outageService{shared};
    QHash<QString, Handler> routes;
    QList<QVSandboxLogEntry> log;
    bool outageActive = false;
    QString errorString;
    quint16 port = 0;
    // Last, so that it is destroyed first: its handler uses the members above.
    SandboxHttpServer server;
};

QVSandbox::QVSandbox(QVSandboxOptions options, QObject *parent)
    : QObject(parent)
    , m_parts(std::make_unique<Parts>(std::move(options), std::bind_front(&QVSandbox::handle, this)))
{
    addRoutes();
}

QVSandbox::~QVSandbox() = default;

bool QVSandbox::listen()
{
    const QVSandboxOptions &options = m_parts->options;
    std::unique_ptr<QTcpServer> tcpServer;
    if (options.certificateFile.isEmpty() && options.keyFile.isEmpty()) {
        tcpServer = std::make_unique<SandboxGuardedServer<QTcpServer>>();
    } else {
        const auto configuration = tlsConfiguration(options);
        if (!configuration) {
            m_parts->errorString = QStringLiteral("no certificate and key in %1 and %2")
                                       .arg(options.certificateFile, options.keyFile);
            return false;
        }
        auto sslServer = std::make_unique<SandboxGuardedServer<QSslServer>>();
        sslServer->setSslConfiguration(*configuration);
        tcpServer = std::move(sslServer);
    }
    // Never on another interface: the tokens of the sandbox prove nothing.
    if (!tcpServer->listen(QHostAddress::LocalHost, options.port)) {
        m_parts->errorString =
            QStringLiteral("cannot listen on port %1: %2").arg(options.port).arg(tcpServer->errorString());
        return false;
    }
    m_parts->port = tcpServer->serverPort();
    m_parts->shared.base =
        QStringLiteral("%1://127.0.0.1:%2")
            .arg(options.certificateFile.isEmpty() ? QStringLiteral("http") : QStringLiteral("https"))
            .arg(m_parts->port);
    return m_parts->server.serve(std::move(tcpServer));
}

QString QVSandbox::errorString() const
{
    return m_parts->errorString;
}

quint16 QVSandbox::port() const
{
    return m_parts->port;
}

QString QVSandbox::baseAddress() const
{
    return m_parts->shared.base;
}

QVSandboxAddresses QVSandbox::addresses() const
{
    const QString base = baseAddress();
    return {base,
            base,
            base,
            base + outageHostPath,
            base,
            base + SandboxMainService::picturePath(),
            base + outagePath};
}

bool QVSandbox::outageActive() const
{
    return m_parts->outageActive;
}

void QVSandbox::setOutageActive(bool active)
{
    m_parts->outageActive = active;
}

QList<QVSandboxLogEntry> QVSandbox::log() const
{
    return m_parts->log;
}

void QVSandbox::clearLog()
{
    m_parts->log.clear();
}

std::optional<QVSandboxSolution> QVSandbox::solution(const QString &challenge) const
{
    const std::optional<SandboxPuzzle> puzzle = m_parts->puzzleOf(challenge);
    if (!puzzle)
        return std::nullopt;
    if (puzzle->curve.isEmpty())
        return QVSandboxSolution{{}, puzzle->characters};
    return QVSandboxSolution{SandboxGeometry::resampled(puzzle->curve, solutionPoints), {}};
}

void QVSandbox::addRoutes()
{
    auto &parts = *m_parts;
    parts.routes = {
        {servicePath + QStringLiteral("config/v1"),
         [&parts](const auto &query) {
             return parts.mainService.config(query);
         }},
        {servicePath + QStringLiteral("click/v1"),
         [&parts](const auto &query) {
             return parts.mainService.click(query);
         }},
        {servicePath + QStringLiteral("get/v1"),
         [&parts](const auto &query) {
             return parts.mainService.picture(query);
         }},
        {servicePath + QStringLiteral("refresh/v1"),
         [&parts](const auto &query) {
             return parts.mainService.picture(query);
         }},
        {servicePath + QStringLiteral("verify/v1"),
         [&parts](const auto &query) {
             return parts.mainService.verify(query);
         }},
        {outagePath,
         [&parts](const auto &query) {
             return parts.outageService.answer(query);
         }},
        {switchPath,
         [&parts](const auto &) {
             return switchAnswer(parts.outageActive);
         }},
        {outageHostPath + switchPath,
         [](const auto &) {
             return switchAnswer(true);
         }},
        {toolPath + QStringLiteral("solution"),
         [this](const auto &query) {
             return solutionAnswer(query);
         }},
        {toolPath + QStringLiteral("log"),
         [this](const auto &) {
             return logAnswer();
         }},
        {toolPath + QStringLiteral("token"),
         [this](const auto &query) {
             return tokenAnswer(query);
         }},
        {toolPath + QStringLiteral("advertisement"),
         [](const auto &) {
             return advertisement();
         }},
    };
}

void QVSandbox::handle(const QHttpServerRequest &request, const Reply &reply)
{
    const QString path = request.url().path();
    const QString encoded = request.url().query(QUrl::FullyEncoded);
    const SandboxQuery query(encoded.left(maximumQuery));
    QVSandboxLogEntry entry{path.left(maximumQuery),
                            encoded.left(maximumQuery),
                            query.values(),
                            QString::fromLatin1(request.value(QByteArrayLiteral("Content-Type"))),
                            0,
                            {}};
    if (request.method() != QHttpServerRequest::Method::Get)
        return send(SandboxAnswer::failure(405, QStringLiteral("only GET is served")), reply,
                    std::move(entry));
    if (encoded.size() > maximumQuery)
        return send(SandboxAnswer::failure(414, QStringLiteral("query too long")), reply, std::move(entry));
    if (const auto picture = m_parts->shared.pictures.file(path))
        return sendPicture(*picture, reply, std::move(entry));
    const auto behaviour = path.startsWith(servicePath)
                               ? SandboxBehaviour::of(query.value(QStringLiteral("id")))
                               : SandboxBehaviour();
    send(answer(path, query, behaviour), reply, std::move(entry),
         behaviour.isSlow ? m_parts->options.slowDelay : std::chrono::milliseconds::zero());
}

void QVSandbox::sendPicture(const QFuture<QByteArray> &picture, const Reply &reply, QVSandboxLogEntry entry)
{
    // A watcher, since a future has only one continuation, and several requests may ask for one picture.
    auto *const drawing = new QFutureWatcher<QByteArray>(this);
    connect(drawing, &QFutureWatcherBase::finished, this, [this, drawing, reply, entry = std::move(entry)] {
        send({200, QByteArrayLiteral("image/jpeg"), drawing->result(), {}}, reply, entry);
        drawing->deleteLater();
    });
    drawing->setFuture(picture);
}

void QVSandbox::send(const SandboxAnswer &answer, const Reply &reply, QVSandboxLogEntry entry,
                     std::chrono::milliseconds delay)
{
    if (!entry.path.startsWith(toolPath)) {
        entry.status = answer.status;
        entry.code = answer.code;
        m_parts->log.append(std::move(entry));
        if (m_parts->log.size() > m_parts->options.logLimit)
            m_parts->log.removeFirst();
    }
    if (delay == std::chrono::milliseconds::zero())
        return reply(answer);
    QTimer::singleShot(delay, this, [reply, answer] { reply(answer); });
}

SandboxAnswer QVSandbox::answer(const QString &path, const SandboxQuery &query,
                                const SandboxBehaviour &behaviour) const
{
    const auto route = m_parts->routes.constFind(path);
    if (route == m_parts->routes.constEnd())
        return SandboxAnswer::failure(404, QStringLiteral("no such address"));
    if (behaviour.isNotJson)
        return SandboxAnswer::notJson();
    if (!behaviour.code.isEmpty())
        return SandboxAnswer::onlyCode(behaviour.code);
    return (*route)(query);
}

SandboxAnswer QVSandbox::solutionAnswer(const SandboxQuery &query) const
{
    const auto found = solution(query.value(QStringLiteral("challenge")));
    return found ? SandboxAnswer::json(found->toJson())
                 : SandboxAnswer::failure(404, QStringLiteral("no picture for this challenge"));
}

SandboxAnswer QVSandbox::logAnswer() const
{
    QJsonArray requests;
    for (const QVSandboxLogEntry &entry : m_parts->log)
        requests.append(entry.toJson());
    return SandboxAnswer::json({{QStringLiteral("requests"), requests}});
}

SandboxAnswer QVSandbox::tokenAnswer(const SandboxQuery &query)
{
    const auto grant = m_parts->shared.tokens.take(query.value(QStringLiteral("token")));
    if (!grant)
        return SandboxAnswer::json({{QStringLiteral("valid"), false}});
    return SandboxAnswer::json({{QStringLiteral("valid"), true},
                                {QStringLiteral("id"), grant->id},
                                {QStringLiteral("earned"), grant->earnedBy}});
}
