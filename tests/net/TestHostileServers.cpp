#include "net/QVBoundedDownload.h"
#include "net/QVNetworkSession.h"
#include "support/QVMemory.h"
#include "support/QVTestCase.h"

#include <QElapsedTimer>

#include <arpa/inet.h>
#include <atomic>
#include <mutex>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr qint64 answerLimit = 1 << 20;
constexpr qint64 pictureLimit = 8 << 20;
constexpr qint64 memoryLimit = 32 << 20;

// 16 MiB of blanks, packed to a few kilobytes.
QByteArray bomb()
{
    constexpr qsizetype lengthBeforeData = 4;
    static const QByteArray packed = qCompress(QByteArray(16 << 20, ' ')).mid(lengthBeforeData);
    return packed;
}

/// A server that answers with a head and then sends a flood, without end and as fast as it can, from another
/// thread. With an empty flood it closes the connection after the head. It serves one connection at a time.
class FloodServer
{
public:
    FloodServer()
    {
        sockaddr_in any{};
        any.sin_family = AF_INET;
        any.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof any;
        auto *const bare = reinterpret_cast<sockaddr *>(&any);
        if (::bind(m_listener, bare, size) != 0 || ::listen(m_listener, 5) != 0 ||
            ::getsockname(m_listener, bare, &size) != 0)
            qFatal("cannot listen on this machine");
        address = q("http://127.0.0.1:%1").arg(ntohs(any.sin_port));
        m_thread = std::thread([this] { serve(); });
    }
    ~FloodServer()
    {
        ::shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        ::close(m_listener);
    }
    Q_DISABLE_COPY(FloodServer)

    void answer(const QByteArray &newHead, const QByteArray &newFlood)
    {
        const std::lock_guard lock(m_answerLock);
        m_head = newHead;
        m_flood = newFlood.repeated(newFlood.isEmpty() ? 0 : 65536 / newFlood.size());
    }

    QString address;
    std::atomic<int> requestCount = 0;
    std::atomic<int> openCount = 0;

private:
    static bool sendAll(int connection, QByteArrayView bytes)
    {
        ssize_t sent = 1;
        while (!bytes.isEmpty() && sent > 0) {
            sent = ::send(connection, bytes.data(), size_t(bytes.size()), MSG_NOSIGNAL);
            bytes = bytes.sliced(std::max<ssize_t>(sent, 0));
        }
        return sent > 0;
    }

    void serve()
    {
        for (int connection = 0; (connection = ::accept(m_listener, nullptr, nullptr)) >= 0;) {
            ++openCount;
            QByteArray request;
            char byte = 0;
            while (!request.endsWith("\r\n\r\n") && ::recv(connection, &byte, 1, 0) == 1)
                request += byte;
            if (request.endsWith("\r\n\r\n")) {
                ++requestCount;
                flood(connection);
            }
            ::close(connection);
            --openCount;
        }
    }

    void flood(int connection)
    {
        std::unique_lock lock(m_answerLock);
        const QByteArray head = m_head;
        const QByteArray flood = m_flood;
        lock.unlock();
        bool isOpen = sendAll(connection, head);
        while (isOpen && !flood.isEmpty())
            isOpen = sendAll(connection, flood);
    }

    const int m_listener = ::socket(AF_INET, SOCK_STREAM, 0);
    std::mutex m_answerLock;
    QByteArray m_head;
    QByteArray m_flood;
    std::thread m_thread;
};

} // namespace

/// An endless answer ends the request at once with an error. It takes little memory, and none of it is kept.
class TestHostileServers : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void floods_data()
    {
        const auto rowOf = addColumns<QByteArray, QByteArray, qint64>({"head", "flood", "limit"});
        const auto row = [&](const char *name, const QByteArray &head, const QByteArray &flood) {
            rowOf(name, head, flood, answerLimit);
        };
        const QByteArray ok = "HTTP/1.1 200 OK\r\n";
        const QByteArray chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
        const QByteArray packed = ok + "Content-Encoding: deflate\r\n\r\n" + bomb();
        row("status line", QByteArray("HTTP/1.1 200 "), QByteArray("a"));
        row("no line at all", QByteArray(), QByteArray("a"));
        row("lines of the head", ok, "X-Filler: aaaaaaaaaaaaaaaaaaaaa\r\n");
        row("one line of the head", ok + "X-Filler: ", "a");
        row("interim answers", QByteArray(), QByteArray("HTTP/1.1 100 Continue\r\n\r\n"));
        row("body without a length", ok + "\r\n", "a");
        rowOf("picture without a length", ok + "\r\n", QByteArray("a"), pictureLimit);
        row("length beyond any", ok + "Content-Length: 9223372036854775807\r\n\r\n", "a");
        row("chunk beyond any", chunked + "7fffffffffffffff\r\n", "a");
        row("size of a chunk", chunked, "0");
        row("extension of a chunk", chunked + "5;", "a");
        row("chunks of one byte", chunked, "1;an=extension\r\na\r\n");
        row("trailers", chunked + "0\r\n", "X-Filler: aaaaaaaaaaaaaaaaaaaaa\r\n");
        row("compressed", packed, "a");
    }

    void floods()
    {
        QFETCH(const QByteArray, head);
        QFETCH(const QByteArray, flood);
        QFETCH(const qint64, limit);
        FloodServer server;
        QVNetworkSession session;
        server.answer(head, flood);
        qv_forgetPeakOfMemory();
        const qint64 before = qv_memory("VmRSS");
        QCOMPARE(codeOf(session, server, limit), -1);
        QVERIFY2(qv_memory("VmHWM") - before < memoryLimit, "memory has grown");
        QVERIFY(waitFor([&server] { return server.openCount == 0; }));
        server.answer("HTTP/1.1 200 OK\r\nContent-Length: 2\r\nConnection: close\r\n\r\n{}", {});
        QCOMPARE(codeOf(session, server, limit), 0);
        QCOMPARE(int(server.requestCount), 2);
    }

    void endsDuringAFlood()
    {
        FloodServer server;
        server.answer("HTTP/1.1 200 OK\r\n\r\n", "a");
        auto session = std::make_unique<QVNetworkSession>();
        const qint64 endless = std::numeric_limits<qint64>::max() / 2;
        QVBoundedDownload::start(*session, nullptr, QNetworkRequest(QUrl(server.address)), {5s, endless},
                                 [](const auto &) { QFAIL("completed without its session"); });
        QVERIFY(waitFor([&server] { return server.requestCount == 1; }));
        QTest::qSleep(20);
        QElapsedTimer time;
        time.start();
        session.reset();
        QVERIFY(time.elapsed() < 500);
        QVERIFY(waitFor([&server] { return server.openCount == 0; }));
    }

private:
    /// The code that a download ends with; -2 if it does not end.
    static qint64 codeOf(QVNetworkSession &session, const FloodServer &server, qint64 limit)
    {
        std::optional<qint64> code;
        QVBoundedDownload::start(session, nullptr, QNetworkRequest(QUrl(server.address)), {5s, limit},
                                 [&code](const QVBoundedDownload::Result &result) {
                                     code = result.error ? result.error->code() : 0;
                                 });
        (void)waitFor([&code] { return code.has_value(); });
        return code.value_or(-2);
    }
};

QV_TEST(TestHostileServers)
#include "TestHostileServers.moc"
