#include "service/QVServiceTestCase.h"
#include "support/QVTestCertificate.h"

#include <QNetworkAccessManager>
#include <QRegularExpression>
#include <QSslSocket>

namespace {

using Validity = QVTestCertificate::Validity;

/// Trusts a certificate, as a system's own store would, while it lives.
class TrustedCertificate
{
public:
    explicit TrustedCertificate(const QSslCertificate &certificate)
    {
        QSslConfiguration trusting = m_former;
        if (!certificate.isNull())
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
        const auto row = addColumns<bool, bool, QString, qint64>({"isExpired", "isTrusted", "host", "code"});
        row("trusted", false, true, q("127.0.0.1"), qint64(0));
        row("untrusted", false, false, q("127.0.0.1"), qint64(-1200));
        row("expired", true, true, q("127.0.0.1"), qint64(-1200));
        row("for another host", false, true, q("localhost"), qint64(-1200));
    }

    void judgesTheCertificate()
    {
        QFETCH(const bool, isExpired);
        QFETCH(const bool, isTrusted);
        QFETCH(const QString, host);
        const QVTestCertificate certificate(isExpired ? Validity::Expired : Validity::Current);
        QVERIFY(certificate.isMade());
        const TrustedCertificate trust(isTrusted ? certificate.certificate() : QSslCertificate());
        server().useTls(certificate.serverConfiguration());
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        QNetworkAccessManager hosts;
        for (const bool isVerifiedByDefault : {true, false}) {
            // A host may have switched it off for itself.
            QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
            tls.setPeerVerifyMode(isVerifiedByDefault ? QSslSocket::AutoVerifyPeer : QSslSocket::VerifyNone);
            QSslConfiguration::setDefaultConfiguration(tls);
            for (QNetworkAccessManager *const manager :
                 {static_cast<QNetworkAccessManager *>(nullptr), &hosts}) {
                settings().setNetworkAccessManager(manager);
                Probe<Picture> probe;
                requestFrom(host, probe);
                await(probe);
                QTEST(probe.code(), "code");
            }
        }
        settings().setNetworkAccessManager(nullptr);
        QCOMPARE(server().requests().size(), isTrusted && !isExpired && host != q("localhost") ? 4 : 0);
    }

    void usesAConnectionAgain()
    {
        const QVTestCertificate certificate(Validity::Current);
        server().useTls(certificate.serverConfiguration());
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        for (const bool isTrusted : {true, true, false}) {
            const TrustedCertificate trust(isTrusted ? certificate.certificate() : QSslCertificate());
            Probe<Picture> probe;
            requestFrom(q("127.0.0.1"), probe);
            await(probe);
            // What was trusted before is not trusted for ever.
            QCOMPARE(probe.code(), isTrusted ? 0 : -1200);
        }
        QCOMPARE(server().connectionCount(), 2);
    }

    void plainServer()
    {
        server().enqueue(QVScript());
        Probe<Picture> probe;
        requestFrom(q("127.0.0.1"), probe);
        // It waits for a request that never makes sense to it.
        advance(std::chrono::seconds(8));
        await(probe);
        QCOMPARE(probe.code(), -1001);
    }

    void warnsOfAnAnswerThatNamesAPlainServer()
    {
        const QVTestCertificate certificate(Validity::Current);
        const TrustedCertificate trust(certificate.certificate());
        server().useTls(certificate.serverConfiguration());
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

    void isNotRedirectedToPlain()
    {
        const QVTestCertificate certificate(Validity::Current);
        const TrustedCertificate trust(certificate.certificate());
        server().useTls(certificate.serverConfiguration());
        QVScriptedServer plain;
        server().enqueue(QVScript::answer({}, 302, "Location: " + plain.address().toLatin1() + "/x\r\n"));
        Probe<Picture> probe;
        requestFrom(q("127.0.0.1"), probe);
        await(probe);
        QCOMPARE(probe.code(), -1);
        QCOMPARE(plain.connectionCount(), 0);
    }

private:
    void requestFrom(const QString &host, Probe<Picture> &probe)
    {
        const QString address = q("https://%1:%2").arg(host).arg(server().serverPort());
        probe.run([&](QVCompletion<Picture> completed) {
            return manager().requestGetWithApiServer(address, q("v"), q("c"), std::move(completed));
        });
    }
};

QV_TEST(TestTls)
#include "TestTls.moc"
