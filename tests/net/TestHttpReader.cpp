#include "net/QVHttpReader.h"
#include "support/QVTestCase.h"

namespace {

constexpr qint64 limit = 24;

/// The status, the body and the seconds for which the connection may be reused, or the kind of failure.
QString outcomeOf(const QByteArray &bytes, qsizetype atOnce)
{
    QVHttpReader reader(limit);
    for (qsizetype at = 0; at < bytes.size(); at += atOnce)
        reader.read(QByteArrayView(bytes).sliced(at, qMin(atOnce, bytes.size() - at)));
    const bool isOpen = reader.state() == QVHttpReader::State::Complete;
    reader.end();
    if (reader.state() != QVHttpReader::State::Complete)
        return reader.state() == QVHttpReader::State::Broken ? q("broken") : q("cut short");
    return q("%1 %2 %3")
        .arg(reader.head().status())
        .arg(QString::fromLatin1(reader.body()),
             isOpen ? QString::number(reader.keepAlive().count()) : q("end"));
}

} // namespace

class TestHttpReader : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void reads_data()
    {
        const QByteArray ok = "HTTP/1.1 200 OK\r\n";
        const QByteArray sized = ok + "Content-Length: 2\r\n";
        const QByteArray deflated = ok + "Content-Encoding: deflate\r\n\r\n";
        const QByteArray chunked = ok + "Transfer-Encoding: CHUNKED\r\n\r\n";
        const auto rowOf = addColumns<QByteArray, QString>({"bytes", "outcome"});
        const auto row = [&rowOf](const char *name, const QByteArray &bytes, const char *outcome = "broken") {
            rowOf(name, bytes, q(outcome));
        };
        row("bare line ends", "HTTP/1.1 500\nContent-Length:2\n\nab", "500 ab 4");
        row("no content", "HTTP/1.1 204 \r\nContent-Length: 9\r\n\r\n", "204  4");
        row("not modified", "HTTP/1.1 304 \r\nContent-Length: 9\r\n\r\n", "304  4");
        row("length", sized + "\r\nab", "200 ab 4");
        row("no length", ok + "\r\nab", "200 ab end");
        row("length 0", ok + "Content-Length: 0\r\n\r\n", "200  4");
        row("the limit", ok + "Content-Length: 24\r\n\r\n" + QByteArray(24, 'x'),
            "200 xxxxxxxxxxxxxxxxxxxxxxxx 4");
        row("chunks", chunked + "a\r\n0123456789\r\nB; x=\"y\"\r\n0123456789a\r\n00\r\nX: y\r\n\r\n",
            "200 01234567890123456789a 4");
        row("interim", "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103\r\nLink: x\r\n\r\n" + sized + "\r\nab",
            "200 ab 4");
        row("same length twice", sized + "content-length: 2\r\n\r\nab", "200 ab 4");
        row("closes", sized + "Connection: x, Close\r\nKeep-Alive: timeout=9\r\n\r\nab", "200 ab 0");
        row("says for how long", sized + "Keep-Alive: max=9, timeout=30\r\n\r\nab", "200 ab 29");
        row("for too long", sized + "Keep-Alive: timeout=99999999\r\n\r\nab", "200 ab 60");
        row("for no time", sized + "Keep-Alive: timeout=1\r\n\r\nab", "200 ab 0");
        row("version 1.0", "HTTP/1.0 200 OK\r\nContent-Length: 2\r\n\r\nab", "200 ab 0");
        row("more than was said", sized + "\r\nabc", "200 ab 0");
        row("two ways to tell the size",
            ok + "Content-Length: 7\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n0\r\n\r\n", "200 ab 0");
        row("gzip",
            ok + "Content-Encoding: gzip\r\nContent-Length: 22\r\n\r\n" +
                QByteArray::fromHex("1f8b08000000000002034b4c02006d48839e02000000"),
            "200 ab 4");
        row("nothing", "", "cut short");
        row("cut in the head", ok, "cut short");
        row("cut in the body", ok + "Content-Length: 3\r\n\r\nab", "cut short");
        row("cut behind a chunk", chunked + "2\r\nab\r\n", "cut short");
        row("cut behind the last chunk", chunked + "2\r\nab\r\n0\r\n", "cut short");
        row("interim alone", "HTTP/1.1 100 \r\n\r\n", "cut short");
        row("other protocol", "HTTP/1.1 101 Switching Protocols\r\n\r\n");
        row("other version", "HTTP/2 200\r\n\r\n");
        for (const char *status : {"20", "2000", "-99", "099"})
            row(qPrintable(q("status ") + q(status)), QByteArray("HTTP/1.1 ") + status + " OK\r\n\r\n");
        row("no field", ok + "no field\r\n\r\n");
        row("continued field", ok + "A: b\r\n continued: c\r\n\r\n");
        for (const char *length : {"-1", "1\r\nContent-Length: 2", "1, 1", "25", "99999999999999999999"})
            row(qPrintable(q("length ") + q(length).simplified()),
                ok + "Content-Length: " + length + "\r\n\r\n");
        row("above the limit", ok + "\r\n" + QByteArray(25, 'x'));
        row("other transfer encoding", ok + "Transfer-Encoding: gzip, chunked\r\n\r\n");
        row("other content encoding", ok + "Content-Encoding: br\r\n\r\n");
        row("no gzip", ok + "Content-Encoding: gzip\r\nContent-Length: 2\r\n\r\nab");
        row("deflated and cut", deflated + qCompress("abc").mid(4, 5));
        row("deflated bomb", deflated + qCompress(QByteArray(25, ' ')).mid(4));
        row("deflated with surplus", deflated + qCompress("").mid(4) + "surplus");
        for (const char *size :
             {"", "x", "-1", "0x1", "19", "4\r\nabcd\r\n15", "ffffffffffffffffff", "1\r\nab"})
            row(qPrintable(q("chunk ") + q(size).simplified()), chunked + size + "\r\n");
        const auto flood = [](const QByteArray &each) {
            return each.repeated(100000 / each.size());
        };
        row("no line at all", flood("a"));
        row("interim answers without end", flood("HTTP/1.1 100 Continue\r\n\r\n"));
        row("lines of a head without end", ok + flood("X-Filler: aaaaaaaa\r\n"));
        row("line of a head without end", ok + "X-Filler: " + flood("a"));
        row("size of a chunk without end", chunked + flood("0"));
        row("extension of a chunk without end", chunked + "5;" + flood("a"));
        row("trailers without end", chunked + "0\r\n" + flood("X-Filler: aaaaaaaa\r\n"));
    }

    void reads()
    {
        QFETCH(const QByteArray, bytes);
        for (const qsizetype atOnce : {bytes.size() + 1, qsizetype(3), qsizetype(1)})
            QTEST(outcomeOf(bytes, atOnce), "outcome");
    }
};

QV_TEST(TestHttpReader)
#include "TestHttpReader.moc"
