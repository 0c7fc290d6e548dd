#include "draw/QVRenderDrawView.h"
#include "image/QVTestPictures.h"
#include "modes/ModesTestCase.h"
#include "settings/QVSDKManager.h"
#include "support/QVMemory.h"
#include "support/QVTestTls.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

#include <sys/socket.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

using Fault = QVScriptedServer::Responder;

/// How far the process may grow while it is badly served. The server's own 10 MiB are in it thrice,
/// in its script, its socket and the system's; a picture of the giant's size would be 10 GiB.
constexpr qint64 memoryLimit = 96 << 20;

QVScript redirectTo(const QString &address)
{
    return QVScript::answer({}, 307, "Location: " + address.toLatin1() + "\r\n");
}

QString addressOf(const QTcpServer &server)
{
    return q("http://127.0.0.1:%1").arg(server.serverPort());
}

QVScript drip()
{
    QVScript script;
    script.send("HTTP/1.1 200 OK\r\nContent-Length: 4000\r\n\r\n");
    for (int i = 0; i < 200; ++i)
        script.send("{").wait(100ms);
    return script;
}

/// Closes each connection by a reset, as a crashed server or a middlebox does.
class ResettingServer : public QTcpServer
{
protected:
    void incomingConnection(qintptr descriptor) override
    {
        const linger atOnce{1, 0};
        const int handle = static_cast<int>(descriptor);
        ::setsockopt(handle, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        ::close(handle);
    }
};

} // namespace

/// Every fault at every operation, in the modes by turns: the user is told, the host hears of one end,
/// nothing grows, and a further attempt works once the service does.
class TestFaultMatrix : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void endsInAMessageAndCanBeRetried_data()
    {
        // The steps that lead to the operation; which part of the faults the row tries.
        addColumns<QString, QString, QString, int, int>({"mode", "operation", "reach", "turn", "turns"});
        int turn = 0;
        const auto row = [&](const char *operation, const char *modes, const char *reach) {
            const QStringList all = words(modes);
            for (const QString &mode : all)
                QTest::addRow("%s, %s", operation, qPrintable(mode))
                    << mode << q(operation) << q(reach) << turn++ << int(all.size());
        };
        row("switch", "embed, click, invisible", "start");
        row("config", "embed, click, invisible", "start");
        row("get", "embed", "start");
        row("click", "click, invisible", "start");
        row("picture", "embed, click, invisible", "start");
        row("refresh", "embed, click, invisible", "refresh");
        row("verify", "embed, click, invisible", "stroke");
        row("outage get", "embed, click, invisible", "start");
        row("outage picture", "embed, click, invisible", "start");
        row("outage verify", "embed, click, invisible", "stroke");
    }

    void endsInAMessageAndCanBeRetried()
    {
        QFETCH(QString, mode);
        QFETCH(QString, operation);
        QFETCH(int, turn);
        QFETCH(int, turns);
        setMode(mode);
        m_failsBeforeItsPanel = mode != q("embed") && words("switch, config, click").contains(operation);
        service().answer(outageSwitch, {{q("active"), operation.startsWith(q("outage"))}});
        // Nothing moves, so that virtual seconds of waiting cost no painting.
        QVSDKManager::setReducedMotion(true);
        const auto all = faults();
        for (qsizetype index = 0; index < all.size(); ++index) {
            if ((index + turn) % turns != 0)
                continue;
            meet(operation, all[index].second);
            QVERIFY2(!QTest::currentTestFailed(), all[index].first);
        }
        // Nothing went over an unprotected line after a protected one.
        QCOMPARE(service().count(q("plain")), 0);
        QVERIFY(outcomes().said().filter(q("token")).isEmpty());
    }

private:
    using Faults = QList<std::pair<const char *, Fault>>;

    [[nodiscard]] Faults faults()
    {
        Faults all;
        const auto add = [&all](const char *name, const QVScript &script) {
            all.append({name, [script](const QVReceivedRequest &) {
                            return script;
                        }});
        };
        addFaultsOfTheWire(add);
        addFaultsOfTheBody(add);
        const QString address = service().addresses().apiHost();
        all.append({"redirects in a circle", [address](const QVReceivedRequest &request) {
                        return redirectTo(address + QString::fromLatin1(request.target));
                    }});
        return all;
    }

    void addFaultsOfTheWire(const auto &add)
    {
        // An address where nobody listens.
        QTcpServer deaf;
        deaf.listen(QHostAddress::LocalHost);
        add("refuses", redirectTo(addressOf(deaf)));
        add("resets", redirectTo(addressOf(m_servers->resetting)));
        add("hangs before its head", QVScript());
        add("drips", drip());
        add("truncates", QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 90\r\n\r\n{\"code").close());
        add("redirects to an open line", redirectTo(m_servers->trusted.address()));
        add("shows a stranger's certificate", redirectTo(m_servers->stranger.address()));
    }

    static void addFaultsOfTheBody(const auto &add)
    {
        // Made once, since they take long.
        static const QVScript bomb = QVScript::answer(qCompress(QByteArray(9 << 20, ' ')).mid(4), 200,
                                                      "Content-Encoding: deflate\r\n");
        static const QVScript giant = QVScript::answer(qv_giantClaim(), 200, "Content-Type: image/jpeg\r\n");
        const QByteArray ok = "HTTP/1.1 200 OK\r\n";
        constexpr int beyondAnyHead = 4000;
        add("chunk beyond any",
            QVScript().send(ok + "Transfer-Encoding: chunked\r\n\r\n7fffffffffffffff\r\n{"));
        add("bomb", bomb);
        add("interim answers for ever",
            QVScript().send(QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(beyondAnyHead)));
        add("head for ever",
            QVScript().send(ok + QByteArray("X-Filler: aaaaaaaa\r\n").repeated(beyondAnyHead)));
        add("giant picture", giant);
        add("web page", QVScript::answer("<html><body>Log in to use this network</body></html>", 200,
                                         "Content-Type: text/html\r\n"));
    }

    void prepare() override
    {
        ModesTestCase::prepare();
        // Some answers never come to rest.
        addStep("stroke", [this](auto) { stroke(); });
        const QSslConfiguration trusted = qv_serverTls(q("local"));
        QSslConfiguration trusting = m_usualTls;
        trusting.addCaCertificate(trusted.localCertificate());
        QSslConfiguration::setDefaultConfiguration(trusting);
        m_servers = std::make_unique<Servers>();
        m_servers->resetting.listen(QHostAddress::LocalHost);
        m_servers->trusted.useTls(trusted);
        m_servers->stranger.useTls(qv_serverTls(q("stranger")));
        const QString plain = service().addresses().apiHost() + q("/api/plain");
        m_servers->trusted.setResponder([plain](const QVReceivedRequest &) { return redirectTo(plain); });
    }

    void finish() override
    {
        ModesTestCase::finish();
        m_servers.reset();
        QSslConfiguration::setDefaultConfiguration(m_usualTls);
        QVSDKManager::setReducedMotion(false);
    }

    [[nodiscard]] qsizetype failures()
    {
        static const QRegularExpression failure(q("^(failed|in popup)"));
        return outcomes().said().filter(failure).size();
    }

    [[nodiscard]] bool isUserTold()
    {
        if (m_failsBeforeItsPanel)
            // In invisible mode the host tells the user.
            return modeName() == q("invisible") ||
                   clickManager().button()->clickStatus() == QVClickStatusFailed;
        const auto *const bar = static_cast<QVRenderDrawOverlayView *>(part("errorOverlayView"));
        return !bar->overlayLabel()->text().isEmpty();
    }

    void meet(const QString &operation, const Fault &fault)
    {
        QFETCH(QString, reach);
        qv_forgetPeakOfMemory();
        const qint64 memory = qv_memory("VmRSS");
        outcomes().clear();
        if (reach != q("start"))
            go(q("start, picture"));
        service().misbehave(operation, fault);
        const qsizetype before = service().count(operation);
        go(reach);
        QVERIFY(waitFor([&] { return service().count(operation) > before; }));
        QVERIFY(waitFor([this] {
            if (failures() == 0)
                advance(250ms);
            return failures() > 0;
        }));
        settle();
        QVERIFY2(qv_memory("VmHWM") - memory < memoryLimit, "memory has grown");
        QCOMPARE(failures(), 1);
        QVERIFY(isUserTold());
        retry();
    }

    void retry()
    {
        service().misbehave({}, {});
        if (m_failsBeforeItsPanel)
            start();
        else
            clickPart("errorOverlayView");
        QVERIFY(waitForPicture());
        QCOMPARE(failures(), 1);
        if (modeName() == q("embed"))
            return;
        reset();
        QCOMPARE(outcomes().ends().size(), m_failsBeforeItsPanel ? 2 : 1);
    }

    struct Servers
    {
        ResettingServer resetting;
        QVScriptedServer trusted;
        QVScriptedServer stranger;
    };

    const QSslConfiguration m_usualTls = QSslConfiguration::defaultConfiguration();
    std::unique_ptr<Servers> m_servers;
    bool m_failsBeforeItsPanel = false;
};

QV_TEST(TestFaultMatrix)
#include "TestFaultMatrix.moc"
