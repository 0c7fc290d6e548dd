#include "faults/FaultService.h"

#include "image/QVTestPictures.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestTls.h"

#include <QJsonArray>

#include <sys/socket.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

QVScript redirectTo(const QString &address)
{
    return QVScript::answer({}, 307, "Location: " + address.toLatin1() + "\r\n");
}

/// An address of this machine where nobody listens.
QString deafAddress()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return QStringLiteral("http://127.0.0.1:%1").arg(server.serverPort());
}

QVScript drip()
{
    QVScript script;
    script.send("HTTP/1.1 200 OK\r\nContent-Length: 4000\r\n\r\n");
    for (int i = 0; i < 200; ++i)
        script.send("{").wait(100ms);
    return script;
}

} // namespace

void ResettingServer::incomingConnection(qintptr descriptor)
{
    const linger atOnce{1, 0};
    const int handle = static_cast<int>(descriptor);
    ::setsockopt(handle, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    ::close(handle);
}

FaultService::FaultService(DrawService &service)
    : m_serviceAddress(service.addresses().apiHost())
{
    const QString front = m_front.address();
    QVServiceAddresses addresses;
    addresses.setApiHost(front);
    addresses.setDownloadHost(front);
    addresses.setImageHost(front + QStringLiteral("/outage-pictures"));
    QVSDKManager::setServiceAddresses(addresses);
    QVSDKManager::setOutageServer(front + QStringLiteral("/outage"));
    service.extend(QStringLiteral("config"),
                   {{QStringLiteral("api_server"), front + QStringLiteral("/api")},
                    {QStringLiteral("cdn_servers"), QJsonArray{front + QStringLiteral("/pictures")}}});
    m_front.setResponder([this](const QVReceivedRequest &request) { return respond(request); });
    addWireFaults();
    addBodyFaults();
    addRedirects();
}

FaultService::~FaultService()
{
    QSslConfiguration::setDefaultConfiguration(m_usualTls);
}

void FaultService::misbehave(const QString &target, Fault fault)
{
    m_target = target.toLatin1();
    m_fault = std::move(fault);
    m_hits = 0;
}

QVScript FaultService::respond(const QVReceivedRequest &request)
{
    m_downgrades += request.target.startsWith("/plain") ? 1 : 0;
    if (!m_fault || !request.target.startsWith(m_target))
        return redirectTo(m_serviceAddress + QString::fromLatin1(request.target));
    ++m_hits;
    return m_fault(request);
}

void FaultService::addFault(const char *name, const QVScript &script)
{
    m_faults.append({QString::fromLatin1(name), [script](const QVReceivedRequest &) {
                         return script;
                     }});
}

void FaultService::addRedirect(const char *name, const QString &address)
{
    addFault(name, redirectTo(address));
}

void FaultService::addWireFaults()
{
    m_resetting.listen(QHostAddress::LocalHost);
    addRedirect("refuses", deafAddress());
    addRedirect("resets", QStringLiteral("http://127.0.0.1:%1").arg(m_resetting.serverPort()));
    addFault("hangs before its head", QVScript());
    addFault("drips", drip());
    addFault("truncates", QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 90\r\n\r\n{\"code").close());
}

void FaultService::addBodyFaults()
{
    // Made once, since they take long.
    static const QVScript bomb =
        QVScript::answer(qCompress(QByteArray(9 << 20, ' ')).mid(4), 200, "Content-Encoding: deflate\r\n");
    static const QVScript giant = QVScript::answer(qv_giantClaim(), 200, "Content-Type: image/jpeg\r\n");
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
    constexpr int beyondAnyHead = 4000;
    addFault("chunk beyond any", QVScript().send(chunked + "7fffffffffffffff\r\n{"));
    addFault("bomb", bomb);
    addFault("interim answers for ever",
             QVScript().send(QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(beyondAnyHead)));
    addFault("head for ever",
             QVScript().send(ok + QByteArray("X-Filler: aaaaaaaa\r\n").repeated(beyondAnyHead)));
    addFault("giant picture", giant);
    addFault("web page", QVScript::answer("<html><body>Log in to use this network</body></html>", 200,
                                          "Content-Type: text/html\r\n"));
}

void FaultService::addRedirects()
{
    m_faults.append({QStringLiteral("redirects in a circle"), [this](const QVReceivedRequest &) {
                         return redirectTo(m_front.address() + QString::fromLatin1(m_target));
                     }});
    const QSslConfiguration trusted = qv_serverTls(q("local"));
    QSslConfiguration trusting = m_usualTls;
    trusting.addCaCertificate(trusted.localCertificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    m_trusted.useTls(trusted);
    m_untrusted.useTls(qv_serverTls(q("stranger")));
    m_trusted.setResponder([plain = m_front.address() + QStringLiteral("/plain")](const QVReceivedRequest &) {
        return redirectTo(plain);
    });
    addRedirect("redirects to an open line", m_trusted.address());
    addRedirect("shows a stranger's certificate", m_untrusted.address());
}
