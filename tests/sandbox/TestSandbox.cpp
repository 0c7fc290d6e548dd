#include "sandbox/QVSandbox.h"
#include "sandbox/SandboxStrokes.h"
#include "support/QVTestCase.h"

#include <QImage>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpSocket>

using std::chrono::milliseconds;

/// The answers of the sandbox to a client that may break rules.
class TestSandbox : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void conversations_data()
    {
        // Each request is followed by the code of its answer.
        const auto row = addColumns<QString>({"steps"});
        row("accepts the curve, once",
            "config test-draw -> 0103, draw -> 0104, get -> 0103, picture -> 800x460, draw -> 0103, "
            "token -> draw, token -> , draw -> 1002");
        row("refuses wrong strokes",
            "config test-draw -> 0103, get -> 0103, straight -> 0104, late -> 0104, verify -> 0104, "
            "draw -> 0103");
        row("stops guessing on one picture",
            "config test-character -> 0103, get -> 0103, verify*5 -> 0104, long -> 414, type -> 0104, "
            "refresh -> 0103, "
            "type -> 0103, token -> character");
        row("knows its own challenges only",
            "config test-draw -> 0103, be somebody, get -> 1002, refresh -> 1002, click -> 1002, "
            "verify -> 1002");
        row("bounds refreshing",
            "config test-draw -> 0103, refresh*10 -> 0103, refresh -> 0105, "
            "wait 60001, refresh*10 -> 0103, wait 2001, refresh*10 -> 0103, wait 2001, refresh*10 -> 0103, "
            "wait 2001, refresh -> 0106");
        row("outage",
            "outage -> 0103, picture -> 800x460, few cells -> 0104, cells -> 0103, token -> outage, "
            "cells -> 1002, sing -> 400");
        row("test-pass", "config test-pass -> 0103, click -> 0103, token -> click");
        row("test-wrong", "config test-wrong -> 0103, get -> 0103, draw -> 0104");
        row("test-badjson", "config test-badjson -> page");
        row("test-broken-picture", "config test-broken-picture -> 0103, get -> 0103, picture -> none");
    }

    void conversations()
    {
        QFETCH(QString, steps);
        QStringList seen;
        for (const QString &line : steps.split(q(", "))) {
            const QString step = line.section(q(" -> "), 0, 0);
            QStringList codes;
            for (int i = 0; i < std::max(1, step.section(u'*', 1).toInt()); ++i)
                codes.append(perform(step.section(u'*', 0, 0).section(u' ', 0, 0), step.section(u' ', 1)));
            codes.removeDuplicates();
            seen.append(codes.first().isNull() ? step : step + q(" -> ") + codes.join(u' '));
        }
        QCOMPARE(seen, steps.split(q(", ")));
    }

    void survivesHostileRequests()
    {
        const QByteArray end = " HTTP/1.1\r\nHost: x\r\n\r\n";
        const QVCases<QByteArray, QByteArray> cases{
            {"GET /app/config/v1?id=" + QByteArray(20000, 'a') + end, "414"},
            {"GET /../../etc/passwd.jpg" + end, "404"},
            // No answer: the connection is closed.
            {"GET /" + QByteArray(200000, 'a'), ""}};
        for (const auto &[request, status] : cases)
            QCOMPARE(raw(request).mid(9, 3), status);
        // One that leaves before it was answered.
        QTcpSocket leaving;
        leaving.connectToHost(QHostAddress::LocalHost, m_sandbox->port());
        leaving.write("GET /app/config/v1?id=test-slow HTTP/1.1\r\nHost: x\r\n\r\n");
        QVERIFY(waitFor([this] { return m_sandbox->log().last().values.value(q("id")) == q("test-slow"); }));
    }

    void listensOnThisMachineOnly()
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress(q("::1")), m_sandbox->port());
        QVERIFY(waitFor([&socket] { return socket.state() == QAbstractSocket::UnconnectedState; }));
    }

private:
    struct Reply
    {
        int status = 0;
        QByteArray contentType;
        QByteArray body;

        [[nodiscard]] QJsonObject json() const { return QJsonDocument::fromJson(body).object(); }
    };

    void prepare() override
    {
        QVSandboxOptions options;
        options.seed = 20240101;
        options.slowDelay = milliseconds(120);
        options.clock = [this] {
            return m_now;
        };
        m_sandbox = std::make_unique<QVSandbox>(options);
        QVERIFY2(m_sandbox->listen(), qUtf8Printable(m_sandbox->errorString()));
    }
    void finish() override { m_sandbox.reset(); }

    /// Sends a GET request to an address, or to a path below the sandbox's base address.
    Reply get(const QString &address)
    {
        const QString whole = address.startsWith(u'/') ? m_sandbox->baseAddress() + address : address;
        const std::unique_ptr<QNetworkReply> reply(m_network.get(QNetworkRequest(QUrl(whole))));
        if (!waitFor([&reply] { return reply->isFinished(); }))
            return {};
        return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                reply->header(QNetworkRequest::ContentTypeHeader).toByteArray(), reply->readAll()};
    }

    /// Performs a step of a conversation. Returns the code of the answer; null if there was no request.
    QString perform(const QString &verb, const QString &more)
    {
        if (verb == q("wait"))
            m_now += milliseconds(more.toInt());
        else if (verb == q("be"))
            m_id = more;
        else
            return answerTo(verb, more);
        return {};
    }

    QString answerTo(const QString &verb, const QString &more)
    {
        const auto solution = m_sandbox->solution(m_challenge);
        SandboxPath curve = SandboxGeometry::resampled({{20, 20}, {380, 180}}, 30);
        if (solution && verb != q("straight"))
            curve = solution->points;
        const QVRenderTrace trace = SandboxStrokes::recorded(curve);
        const QString cells = SandboxStrokes::cells(curve);
        const auto main = [this](const QString &operation) {
            return q("/app/%1/v1?challenge=%2&deviceid=d&id=%3").arg(operation, m_challenge, m_id);
        };
        const QString stroke = main(q("verify")) + q("&v=") + trace.getRenderSource_v() + q("&drawtime=");
        const QString outage = q("/outage?action=verify&challenge=%1&v=").arg(m_challenge);
        const QMap<QString, QString> paths{
            {q("config"), q("/app/config/v1?type=popup&scene=1&deviceid=d&id=") + more},
            {q("draw"), stroke + trace.getRender_drawtime()},
            {q("straight"), stroke + trace.getRender_drawtime()},
            {q("late"), stroke + q("21")},
            {q("verify"), main(verb) + q("&v=&drawtime=0")},
            {q("long"), main(q("verify")) + q("&v=") + QString(9000, u'a')},
            {q("type"), main(q("verify")) + q("&drawtime=0&v=") + (solution ? solution->characters : more)},
            {q("outage"), q("/outage?action=get&deviceid=d")},
            {q("cells"), outage + cells},
            {q("few"), outage + cells.left(3)},
            {q("sing"), q("/outage?action=sing")}};
        if (verb == q("token"))
            return get(q("/sandbox/token?token=") + m_token).json()[q("earned")].toString(q(""));
        if (verb == q("picture"))
            return sizeOfPicture();
        if (verb == q("config"))
            m_id = more;
        return ask(paths.value(verb, main(verb)));
    }

    QString ask(const QString &path)
    {
        const Reply reply = get(path);
        if (reply.contentType.startsWith("text/html"))
            return q("page");
        const QJsonObject answer = reply.json();
        m_challenge = answer[q("challenge")].toString(m_challenge);
        m_token = answer[q("token")].toString(m_token);
        if (answer.contains(q("img")))
            m_picture = m_sandbox->addresses().cdn + u'/' + answer[q("img")].toString();
        if (answer.contains(q("imgid")))
            m_picture = m_sandbox->addresses().imageHost + u'/' + answer[q("imgid")].toString() + q(".jpg");
        return answer[q("code")].toString(QString::number(reply.status));
    }

    /// The size of the latest picture, which is requested twice while it is drawn.
    QString sizeOfPicture()
    {
        const QNetworkRequest request{QUrl(m_picture)};
        const std::unique_ptr<QNetworkReply> first(m_network.get(request));
        const std::unique_ptr<QNetworkReply> second(m_network.get(request));
        const bool areThere = waitFor([&] { return first->isFinished() && second->isFinished(); });
        const QByteArray picture = first->readAll();
        if (!areThere || picture != second->readAll())
            return q("two pictures");
        const QImage image = QImage::fromData(picture);
        return image.isNull() ? q("none") : q("%1x%2").arg(image.width()).arg(image.height());
    }

    // Sends bytes unchanged. Returns the answer, up to its end or the end of the connection.
    [[nodiscard]] QByteArray raw(const QByteArray &request) const
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_sandbox->port());
        socket.write(request);
        QByteArray answer;
        const bool came = waitFor([&] {
            answer += socket.readAll();
            return answer.contains("}") || socket.state() == QAbstractSocket::UnconnectedState;
        });
        return came ? answer : QByteArray("nothing came");
    }

    milliseconds m_now{1000000};
    std::unique_ptr<QVSandbox> m_sandbox;
    QNetworkAccessManager m_network;
    QString m_id;
    QString m_challenge;
    QString m_token;
    QString m_picture;
};

QV_TEST(TestSandbox)
#include "TestSandbox.moc"
