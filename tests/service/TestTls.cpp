#include "service/QVServiceTestCase.h"
#include "support/QVTestTls.h"

#include <QNetworkAccessManager>
#include <QRegularExpression>
#include <QSslSocket>

namespace {

/// Trusts a certificate until it is destroyed, as the system's certificate store does.
class TrustedCertificate
{
public:
    explicit TrustedCertificate(const QSslCertificate &certificate)
    {
        QSslConfiguration trusting = m_former;
        trusting.addCaCertificate(certificate);
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    TrustedCertificate(const TrustedCertificate &) = delete;
    TrustedCertificate &operator=(const TrustedCertificate &) = delete;
    ~TrustedCertificate() { QSslConfiguration::setDefaultConfiguration(m_former); }

private:
    QSslConfiguration m_former = QSslConfiguration::defaultConfiguration();
};

} // namespace

class TestTls : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void judgesTheCertificate_data()
    {
        const auto row = addColumns<QString, QString, QString, qint64>({"shown", "trusted", "host", "code"});
        row("trusted", q("local"), q("local"), q("127.0.0.1"), qint64(0));
        row("untrusted", q("local"), q("stranger"), q("127.0.0.1"), qint64(-1200));
        row("expired", q("expired"), q("expired"), q("127.0.0.1"), qint64(-1200));
        row("for another host", q("local"), q("local"), q("localhost"), qint64(-1200));
    }

    void judgesTheCertificate()
    {
        QFETCH(const QString, shown);
        QFETCH(const QString, trusted);
        QFETCH(const QString, host);
        QFETCH(const qint64, code);
        const TrustedCertificate trust(qv_serverTls(trusted).localCertificate());
        server().useTls(qv_serverTls(shown));
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        QNetworkAccessManager hosts;
        for (const bool isVerifiedByDefault : {true, false}) {
            // A host may have switched verification off for the process.
            QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
            tls.setPeerVerifyMode(isVerifiedByDefault ? QSslSocket::AutoVerifyPeer : QSslSocket::VerifyNone);
            QSslConfiguration::setDefaultConfiguration(tls);
            for (QNetworkAccessManager *const manager :
                 {static_cast<QNetworkAccessManager *>(nullptr), &hosts}) {
                settings().setNetworkAccessManager(manager);
                QCOMPARE(codeFrom(host), code);
            }
        }
        settings().setNetworkAccessManager(nullptr);
        QCOMPARE(server().requests().size(), code == 0 ? 4 : 0);
    }

    void usesAConnectionAgain()
    {
        server().useTls(qv_serverTls(q("local")));
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        for (const bool isTrusted : {true, true, false}) {
            const TrustedCertificate trust(
                qv_serverTls(isTrusted ? q("local") : q("stranger")).localCertificate());
            // Trust in an earlier certificate must not last.
            QCOMPARE(codeFrom(q("127.0.0.1")), isTrusted ? 0 : -1200);
        }
        QCOMPARE(server().connectionCount(), 2);
    }

    void plainServer()
    {
        // The server waits for a plain request, which never comes.
        server().enqueue(QVScript());
        QCOMPARE(codeFrom(q("127.0.0.1"), std::chrono::seconds(8)), -1001);
    }

    void warnsOfAnAnswerThatNamesAPlainServer()
    {
        const QSslConfiguration tls = qv_serverTls(q("local"));
        const TrustedCertificate trust(tls.localCertificate());
        server().useTls(tls);
        QVServiceAddresses addresses;
        addresses.setApiHost(server().address());
        settings().setServiceAddresses(addresses);
        const QVCases<QString, bool> cases{
            {q("'api_server': 'http://a.example'"), true},
            {q("'cdn_servers': ['http://a.example']"), true},
            {q("'api_server': 'a.example', 'cdn_servers': ['http://127.0.0.1']"), false}};
        for (const auto &[named, isWarnedOf] : cases) {
            const QString body = q("{'code': '0103', %1}").arg(named).replace(u'\'', u'"');
            server().enqueue(QVScript::answer(body.toUtf8()));
            if (isWarnedOf)
                QTest::ignoreMessage(QtWarningMsg,
                                     QRegularExpression(q("names a server without encryption")));
            Probe<QVConfigResponseModel> probe;
            probe.run([](QVCompletion<QVConfigResponseModel> completed) {
                return manager().requestConfigWithVid({}, {}, {}, std::move(completed));
            });
            await(probe);
            QVERIFY(probe.result());
        }
    }

private:
    /// The code that a request ends with after \a duration.
    qint64 codeFrom(const QString &host, std::chrono::milliseconds duration = {})
    {
        Probe<Picture> probe;
        probe.run([&](auto completed) {
            const QString address = q("https://%1:%2").arg(host).arg(server().serverPort());
            return manager().requestGetWithApiServer(address, q("v"), q("c"), completed);
        });
        advance(duration);
        await(probe);
        return probe.code();
    }
};

QV_TEST(TestTls)
#include "TestTls.moc"
