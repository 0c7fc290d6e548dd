#include "draw/QVRenderDrawView.h"
#include "image/QVTestPictures.h"
#include "modes/ModesTestCase.h"
#include "settings/QVSDKManager.h"
#include "support/QVMemory.h"
#include "support/QVStillStyle.h"
#include "support/QVTestTls.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QJsonArray>

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

/// Stands before a service and hands every request on to it by a redirect, save those to one
/// operation, which it answers as badly as it is told.
class FaultService
{
public:
    explicit FaultService(DrawService &service)
        : m_serviceAddress(service.addresses().apiHost())
    {
        const QString front = m_front.address();
        QVServiceAddresses addresses;
        addresses.setApiHost(front);
        addresses.setDownloadHost(front);
        addresses.setImageHost(front + q("/outage-pictures"));
        QVSDKManager::setServiceAddresses(addresses);
        QVSDKManager::setOutageServer(front + q("/outage"));
        service.extend(q("config"), {{q("api_server"), front + q("/api")},
                                     {q("cdn_servers"), QJsonArray{front + q("/pictures")}}});
        m_front.setResponder([this](const QVReceivedRequest &request) { return respond(request); });
        addFaultsOfTheWire();
        addFaultsOfTheBody();
    }
    ~FaultService() { QSslConfiguration::setDefaultConfiguration(m_usualTls); }
    Q_DISABLE_COPY(FaultService)

    /// From now on requests whose target begins with \a target meet \a fault.
    void misbehave(const QByteArray &target, const Fault &fault)
    {
        m_target = target;
        m_fault = fault;
        hits = 0;
    }
    void behave() { m_fault = nullptr; }

    /// All faults by name.
    QList<std::pair<const char *, Fault>> faults;
    /// How many requests have met the fault.
    int hits = 0;
    /// How many requests went over an unprotected line after a protected one.
    int downgrades = 0;

private:
    QVScript respond(const QVReceivedRequest &request)
    {
        downgrades += request.target.startsWith("/plain") ? 1 : 0;
        if (!m_fault || !request.target.startsWith(m_target))
            return redirectTo(m_serviceAddress + QString::fromLatin1(request.target));
        ++hits;
        return m_fault(request);
    }

    void add(const char *name, const QVScript &script)
    {
        faults.append({name, [script](const QVReceivedRequest &) {
                           return script;
                       }});
    }

    void addFaultsOfTheWire()
    {
        // An address where nobody listens.
        QTcpServer deaf;
        deaf.listen(QHostAddress::LocalHost);
        m_resetting.listen(QHostAddress::LocalHost);
        add("refuses", redirectTo(addressOf(deaf)));
        add("resets", redirectTo(addressOf(m_resetting)));
        add("hangs before its head", QVScript());
        add("drips", drip());
        add("truncates", QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 90\r\n\r\n{\"code").close());
        faults.append({"redirects in a circle", [this](const QVReceivedRequest &) {
                           return redirectTo(m_front.address() + QString::fromLatin1(m_target));
                       }});
        const QSslConfiguration trusted = qv_serverTls(q("local"));
        QSslConfiguration trusting = m_usualTls;
        trusting.addCaCertificate(trusted.localCertificate());
        QSslConfiguration::setDefaultConfiguration(trusting);
        m_trusted.useTls(trusted);
        m_stranger.useTls(qv_serverTls(q("stranger")));
        m_trusted.setResponder([plain = m_front.address() + q("/plain")](const QVReceivedRequest &) {
            return redirectTo(plain);
        });
        add("redirects to an open line", redirectTo(m_trusted.address()));
        add("shows a stranger's certificate", redirectTo(m_stranger.address()));
    }

    void addFaultsOfTheBody()
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

    const QString m_serviceAddress;
    QVScriptedServer m_front;
    QVScriptedServer m_trusted;
    QVScriptedServer m_stranger;
    ResettingServer m_resetting;
    QSslConfiguration m_usualTls = QSslConfiguration::defaultConfiguration();
    QByteArray m_target;
    Fault m_fault;
};

} // namespace

/// Every fault at every operation, in the modes by turns: the user is told, the host hears of one end,
/// nothing grows, and what is tried again works once the service does.
class TestFaultMatrix : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void endsInAMessageAndCanBeRetried_data()
    {
        // The user's steps to the operation after the fault began; how many modes have the operation.
        addColumns<QString, QByteArray, QString, int, int>({"mode", "target", "reach", "turn", "turns"});
        int turn = 0;
        const auto row = [&](const char *name, const char *modes, const char *target, const char *reach) {
            const QStringList all = words(modes);
            for (const QString &mode : all)
                QTest::addRow("%s, %s", name, qPrintable(mode))
                    << mode << QByteArray(target) << q(reach) << turn++ << int(all.size());
        };
        row("switch", "embed, click, invisible", "/config", "start");
        row("config", "embed, click, invisible", "/app/config/v1", "start");
        row("get", "embed", "/api/get/v1", "start");
        row("click", "click, invisible", "/api/click/v1", "start");
        row("picture", "embed, click, invisible", "/pictures/", "start");
        row("refresh", "embed, click, invisible", "/api/refresh/v1", "refresh");
        row("verify", "embed, click, invisible", "/api/verify/v1", "stroke");
        row("outage get", "embed, click, invisible", "/outage?action=get", "start");
        row("outage picture", "embed, click, invisible", "/outage-pictures/", "start");
        row("outage verify", "embed, click, invisible", "/outage?action=verify", "stroke");
    }

    void endsInAMessageAndCanBeRetried()
    {
        QFETCH(QString, mode);
        QFETCH(QByteArray, target);
        QFETCH(int, turn);
        QFETCH(int, turns);
        setMode(mode);
        m_failsBeforeItsPanel = mode != q("embed") && (target == "/config" || target.contains("app/config") ||
                                                       target.contains("click"));
        service().answer(outageSwitch, {{q("active"), target.startsWith("/outage")}});
        // Nothing moves, so that virtual seconds of waiting cost no painting.
        const QVStillStyle still;
        for (qsizetype index = 0; index < m_faults->faults.size(); ++index) {
            if ((index + turn) % turns != 0)
                continue;
            const auto &[name, fault] = m_faults->faults.at(index);
            meet(target, fault);
            QVERIFY2(!QTest::currentTestFailed(), name);
        }
        QCOMPARE(m_faults->downgrades, 0);
        QVERIFY(outcomes().said().filter(q("token")).isEmpty());
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        // Some answers never come to rest.
        addStep("stroke", [this](auto) { stroke(); });
        m_faults = std::make_unique<FaultService>(service());
    }

    void finish() override
    {
        ModesTestCase::finish();
        m_faults.reset();
    }

    [[nodiscard]] qsizetype failures() const
    {
        static const QRegularExpression failure(q("^(failed|in popup)"));
        return outcomes().said().filter(failure).size();
    }

    [[nodiscard]] bool isUserTold()
    {
        if (m_failsBeforeItsPanel)
            // In invisible mode the host tells the user.
            return mode() == QVVerifyStyleInvisible ||
                   clickManager().button()->clickStatus() == QVClickStatusFailed;
        const auto *const bar = static_cast<QVRenderDrawOverlayView *>(part("errorOverlayView"));
        return !bar->overlayLabel()->text().isEmpty();
    }

    void meet(const QByteArray &target, const Fault &fault)
    {
        QFETCH(QString, reach);
        qv_forgetPeakOfMemory();
        const qint64 memory = qv_memory("VmRSS");
        outcomes().clear();
        if (reach != q("start"))
            go(q("start, picture"));
        m_faults->misbehave(target, fault);
        go(reach);
        QVERIFY(waitFor([this] { return m_faults->hits > 0; }));
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
        m_faults->behave();
        if (m_failsBeforeItsPanel)
            start();
        else
            clickPart("errorOverlayView");
        QVERIFY(waitForPicture());
        QCOMPARE(failures(), 1);
        if (mode() == QVVerifyStyleEmbed)
            return;
        reset();
        QCOMPARE(outcomes().ends().size(), m_failsBeforeItsPanel ? 2 : 1);
    }

    std::unique_ptr<FaultService> m_faults;
    bool m_failsBeforeItsPanel = false;
};

QV_TEST(TestFaultMatrix)
#include "TestFaultMatrix.moc"
