#include "net/QVBoundedDownload.h"
#include "net/QVNetworkSession.h"
#include "support/QVMemory.h"
#include "support/QVScriptedServer.h"
#include "support/QVTestCase.h"

#include <QElapsedTimer>
#include <QLibraryInfo>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>

#include <arpa/inet.h>
#include <atomic>
#include <dlfcn.h>
#include <netdb.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

const char *const twoAddresses = "two.quarvo.example";
const char *const deafAddress = "127.0.0.2";
const char *const goodAddress = "127.0.0.1";

/// A server that sends an endless body as fast as it can, from another thread.
class FloodServer
{
public:
    FloodServer() { m_isReady.acquire(); }

    std::atomic<quint16> port = 0;
    std::atomic<int> requestCount = 0;
    std::atomic<int> closedCount = 0;

private:
    void serve(const std::stop_token &stop)
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        port = server.serverPort();
        m_isReady.release();
        const QByteArray flood(65536, 'a');
        while (!stop.stop_requested()) {
            if (!server.waitForNewConnection(10))
                continue;
            const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
            socket->waitForReadyRead();
            ++requestCount;
            socket->write("HTTP/1.1 200 OK\r\n\r\n");
            while (socket->write(flood) > 0 && socket->waitForBytesWritten() && !stop.stop_requested()) {
            }
            ++closedCount;
        }
    }

    QSemaphore m_isReady;
    std::jthread m_thread{[this](const std::stop_token &stop) {
        serve(stop);
    }};
};

} // namespace

// Replaces getaddrinfo() of the system: the name above has two addresses, of which the first does not answer.
extern "C" Q_DECL_EXPORT int getaddrinfo(const char *node, const char *service, const addrinfo *hints,
                                         addrinfo **result)
{
    static const auto usual = reinterpret_cast<decltype(&getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    if (qstrcmp(node, twoAddresses) != 0)
        return usual(node, service, hints, result);
    const int failure = usual(deafAddress, service, hints, result);
    addrinfo *last = *result;
    while (last->ai_next)
        last = last->ai_next;
    return failure ? failure : usual(goodAddress, service, hints, &last->ai_next);
}

class TestConnections : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDeafAddressCostsAMoment()
    {
        // The queue of the listener is full, so that the system ignores further connections.
        const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
        const int guest = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(m_server->serverPort());
        address.sin_addr.s_addr = inet_addr(deafAddress);
        auto *const bare = reinterpret_cast<sockaddr *>(&address);
        QVERIFY(::bind(listener, bare, sizeof address) == 0 && ::listen(listener, 0) == 0 &&
                ::connect(guest, bare, sizeof address) == 0);
        QElapsedTimer time;
        time.start();
        QCOMPARE(codeOf(q("http://%1:%2/").arg(q(twoAddresses)).arg(m_server->serverPort())), 0);
        QVERIFY(time.elapsed() < 900);
        ::close(guest);
        ::close(listener);
    }

    void aHostsManagerThatIsGoneIsNotBypassed()
    {
        QCOMPARE(codeOf(m_server->address(), 100, std::make_unique<QNetworkAccessManager>()), -1);
    }

    void anIdleConnectionIsClosedBeforeItsServerDoesThat()
    {
        m_server->enqueue(QVScript::answer({}, 200, "Keep-Alive: timeout=2\r\n"));
        QElapsedTimer time;
        time.start();
        QCOMPARE(codeOf(m_server->address()), 0);
        QVERIFY(waitFor([this] { return m_server->closedCount() == 1; }));
        QVERIFY(time.elapsed() < 2000);
    }

    void proxies_data()
    {
        const auto row = addColumns<QString, QByteArray>({"address", "line"});
        row("whole address", q("http://u:p@nobody.invalid:81/a?b=c#d"),
            QByteArray("GET http://nobody.invalid:81/a?b=c"));
        row("no path", q("http://nobody.invalid"), QByteArray("GET http://nobody.invalid/"));
        row("tunnel", q("https://nobody.invalid/a"), QByteArray("CONNECT nobody.invalid:443"));
    }

    void proxies()
    {
        QFETCH(const QString, address);
        QFETCH(const QByteArray, line);
        m_server->setResponder([](const QVReceivedRequest &request) {
            return QVScript::answer({}, request.method == "GET" ? 200 : 403);
        });
        QNetworkProxy::setApplicationProxy({QNetworkProxy::HttpProxy, QString::fromLatin1(goodAddress),
                                            m_server->serverPort(), q("us"), q("er")});
        QCOMPARE(codeOf(address), line.startsWith("GET") ? 0 : -1);
        const QVReceivedRequest request = m_server->requests().constFirst();
        QCOMPARE(request.head.left(request.head.indexOf(" HTTP/1.1\r\n")), line);
        if (line.startsWith("GET"))
            QCOMPARE(request.header("Proxy-Authorization"), "Basic " + QByteArray("us:er").toBase64());
        QCOMPARE(request.header("Authorization").isEmpty(), !address.contains(u'@'));
        // What TLS needs is loaded for https only. That row is the last one.
        const QString plugin =
            QLibraryInfo::path(QLibraryInfo::PluginsPath) + q("/tls/libqopensslbackend.so");
        QCOMPARE(::dlopen(qPrintable(plugin), RTLD_LAZY | RTLD_NOLOAD) != nullptr,
                 address.startsWith(q("https")));
    }

    void floods()
    {
        FloodServer server;
        const QString address = q("http://127.0.0.1:%1").arg(server.port);
        qv_forgetPeakOfMemory();
        const qint64 before = qv_memory("VmRSS");
        QCOMPARE(codeOf(address, 8 << 20), -1);
        QVERIFY2(qv_memory("VmHWM") - before < 32 << 20, "memory has grown");
        QVERIFY(waitFor([&server] { return server.closedCount == 1; }));
        QCOMPARE(codeOf(m_server->address()), 0);
        // The end of the process must not wait for the network.
        download(address, 1LL << 60, [](const auto &) { QFAIL("completed without its session"); });
        QVERIFY(waitFor([&server] { return server.requestCount == 2; }));
        QElapsedTimer time;
        time.start();
        m_session.reset();
        QVERIFY(time.elapsed() < 500);
        QVERIFY(waitFor([&server] { return server.closedCount == 2; }));
    }

protected:
    void prepare() override
    {
        m_server = std::make_unique<QVScriptedServer>();
        m_server->setResponder([](const QVReceivedRequest &) { return QVScript::answer({}); });
        m_session = std::make_unique<QVNetworkSession>();
    }
    void finish() override
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        m_session.reset();
        m_server.reset();
    }

private:
    /// \a hosts, if it is given, is destroyed before the request is sent.
    void download(const QString &address, qint64 limit, QVBoundedDownload::Completion completion,
                  std::unique_ptr<QNetworkAccessManager> hosts = {}) const
    {
        auto *const one = new QVBoundedDownload(*m_session, hosts.get(), {5s, limit}, std::move(completion));
        hosts.reset();
        one->send(QNetworkRequest(QUrl(address)));
    }

    /// The code that a download ends with; -2 if it does not end.
    [[nodiscard]] qint64 codeOf(const QString &address, qint64 limit = 100,
                                std::unique_ptr<QNetworkAccessManager> hosts = {}) const
    {
        std::optional<qint64> code;
        download(
            address, limit, [&code](const auto &result) { code = result.error ? result.error->code() : 0; },
            std::move(hosts));
        (void)waitFor([&code] { return code.has_value(); });
        return code.value_or(-2);
    }

    std::unique_ptr<QVScriptedServer> m_server;
    std::unique_ptr<QVNetworkSession> m_session;
};

QV_TEST(TestConnections)
#include "TestConnections.moc"
