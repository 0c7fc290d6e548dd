#include "net/QVHttpReader.h"
#include "support/QVTestCase.h"

using namespace std::chrono_literals;

namespace {

using State = QVHttpReader::State;

constexpr qint64 limit = 24;

QVHttpReader readerOf(const QByteArray &bytes, qsizetype atOnce)
{
    QVHttpReader reader(limit);
    for (qsizetype at = 0; at < bytes.size(); at += atOnce)
        reader.read(QByteArrayView(bytes).sliced(at, qMin(atOnce, bytes.size() - at)));
    return reader;
}

} // namespace

class TestHttpReader : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data()
    {
        const auto rowOf =
            addColumns<QByteArray, int, QByteArray, int>({"bytes", "status", "body", "keepAlive"});
        const auto row = [&](const char *name, const QByteArray &bytes, int keepAlive = 4) {
            rowOf(name, bytes, 200, QByteArray("ab"), keepAlive);
        };
        const QByteArray ok = "HTTP/1.1 200 OK\r\n";
        const QByteArray sized = ok + "Content-Length: 2\r\n";
        const QByteArray chunked = ok + "Transfer-Encoding: CHUNKED\r\n";
        rowOf("bare line ends", QByteArray("HTTP/1.1 500\nContent-Length:2\n\nab"), 500, QByteArray("ab"), 4);
        rowOf("nothing", ok + "Content-Length: 0\r\n\r\n", 200, QByteArray(), 4);
        rowOf("the limit", ok + "Content-Length: 24\r\n\r\n" + QByteArray(24, 'x'), 200, QByteArray(24, 'x'),
              4);
        rowOf("no content", QByteArray("HTTP/1.1 204 \r\nContent-Length: 9\r\n\r\n"), 204, QByteArray(), 4);
        rowOf("not modified", QByteArray("HTTP/1.1 304 \r\nContent-Length: 9\r\n\r\n"), 304, QByteArray(), 4);
        row("length", sized + "\r\nab");
        row("chunks", chunked + "\r\n1\r\na\r\n1; x=\"y\"\r\nb\r\n00\r\nX: y\r\n\r\n");
        row("interim", "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103\r\nLink: x\r\n\r\n" + sized + "\r\nab");
        row("same length twice", sized + "content-length: 2\r\n\r\nab");
        row("closes", sized + "Connection: x, Close\r\n\r\nab", 0);
        row("says for how long", sized + "Keep-Alive: max=9, timeout=31\r\n\r\nab", 30);
        row("for too long", sized + "Keep-Alive: timeout=99999999\r\n\r\nab", 60);
        row("for no time", sized + "Keep-Alive: timeout=1\r\n\r\nab", 0);
        row("closes whatever is said", sized + "Connection: close\r\nKeep-Alive: timeout=9\r\n\r\nab", 0);
        row("version 1.0", QByteArray("HTTP/1.0 200 OK\r\nContent-Length: 2\r\n\r\nab"), 0);
        row("more than was said", sized + "\r\nabc", 0);
        row("two ways to tell the size", chunked + "Content-Length: 7\r\n\r\n2\r\nab\r\n0\r\n\r\n", 0);
        row("gzip", ok + "Content-Encoding: gzip\r\nContent-Length: 22\r\n\r\n" +
                        QByteArray::fromHex("1f8b08000000000002034b4c02006d48839e02000000"));
    }

    void answers()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const int, keepAlive);
        for (const qsizetype atOnce : {bytes.size(), qsizetype(3), qsizetype(1)}) {
            const QVHttpReader reader = readerOf(bytes, atOnce);
            QCOMPARE(reader.state(), State::Complete);
            QTEST(reader.head().status(), "status");
            QTEST(reader.body(), "body");
            QCOMPARE(reader.keepAlive(), std::chrono::seconds(keepAlive));
        }
    }

    void faults()
    {
        const QByteArray ok = "HTTP/1.1 200 OK\r\n";
        const QByteArray chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
        const QVCases<QByteArray, State> cases{
            {"", State::CutShort},
            {"HTTP/1.1 200 OK\r\n", State::CutShort},
            {ok + "Content-Length: 3\r\n\r\nab", State::CutShort},
            {chunked + "2\r\nab\r\n", State::CutShort},
            {chunked + "2\r\nab\r\n0\r\n", State::CutShort},
            {ok + "\r\nab", State::Complete},
            {ok + "\r\n" + QByteArray(25, 'x'), State::Broken},
            {"HTTP/1.1 100 \r\n\r\n", State::CutShort},
            {"HTTP/1.1 101 Switching Protocols\r\n\r\n", State::Broken},
            {"HTTP/2 200\r\n\r\n", State::Broken},
            {"HTTP/1.1 20 OK\r\n\r\n", State::Broken},
            {"HTTP/1.1 2000 OK\r\n\r\n", State::Broken},
            {"HTTP/1.1 -99 OK\r\n\r\n", State::Broken},
            {"HTTP/1.1 099 OK\r\n\r\n", State::Broken},
            {ok + "no field\r\n\r\n", State::Broken},
            {ok + "A: b\r\n continued: c\r\n\r\n", State::Broken},
            {ok + "Content-Length: -1\r\n\r\n", State::Broken},
            {ok + "Content-Length: 1\r\nContent-Length: 2\r\n\r\n", State::Broken},
            {ok + "Content-Length: 1, 1\r\n\r\n", State::Broken},
            {ok + "Content-Length: 25\r\n\r\n", State::Broken},
            {ok + "Content-Length: 99999999999999999999\r\n\r\n", State::Broken},
            {ok + "Transfer-Encoding: gzip, chunked\r\n\r\n", State::Broken},
            {ok + "Content-Encoding: br\r\n\r\n", State::Broken},
            {ok + "Content-Encoding: gzip\r\nContent-Length: 2\r\n\r\nab", State::Broken},
            {ok + "Content-Encoding: deflate\r\n\r\n" + qCompress("abc").mid(4, 5), State::Broken},
            {ok + "Content-Encoding: deflate\r\n\r\n" + qCompress(QByteArray(25, ' ')).mid(4), State::Broken},
            {ok + "Content-Encoding: deflate\r\n\r\n" + qCompress("").mid(4) + "surplus", State::Broken},
            {chunked + "\r\n", State::Broken},
            {chunked + "x\r\n", State::Broken},
            {chunked + "-1\r\n", State::Broken},
            {chunked + "0x1\r\n", State::Broken},
            {chunked + "19\r\n", State::Broken},
            {chunked + "4\r\nabcd\r\n15\r\n", State::Broken},
            {chunked + "ffffffffffffffffff\r\n", State::Broken},
            {chunked + "1\r\nab\r\n", State::Broken},
        };
        for (const auto &[bytes, state] : cases) {
            for (const qsizetype atOnce : {qsizetype(1000), qsizetype(1)}) {
                QVHttpReader reader = readerOf(bytes, atOnce);
                reader.end();
                QVERIFY2(reader.state() == state, bytes.constData());
                QVERIFY(reader.body().size() <= limit);
            }
        }
    }
};

QV_TEST(TestHttpReader)
#include "TestHttpReader.moc"
