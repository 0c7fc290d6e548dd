#include "service/QVServiceTestCase.h"
#include "support/QVTestCertificate.h"

namespace {

using Validity = QVTestCertificate::Validity;

/// Trusts a certificate, as a system's own store would, while it lives.
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
    void trusted()
    {
        const QVTestCertificate certificate(Validity::Current);
        QVERIFY(certificate.isMade());
        const TrustedCertificate trust(certificate.certificate());
        const Probe<Picture> probe = answeredBy(certificate);
        QCOMPARE(probe.code(), 0);
        QVERIFY(probe.result());
    }

    void untrusted()
    {
        const QVTestCertificate certificate(Validity::Current);
        QVERIFY(certificate.isMade());
        expectRefusal(answeredBy(certificate));
    }

    void expired()
    {
        const QVTestCertificate certificate(Validity::Expired);
        QVERIFY(certificate.isMade());
        const TrustedCertificate trust(certificate.certificate());
        expectRefusal(answeredBy(certificate));
    }

    void forAnotherHost()
    {
        const QVTestCertificate certificate(Validity::Current);
        QVERIFY(certificate.isMade());
        const TrustedCertificate trust(certificate.certificate());
        server().useTls(certificate.serverConfiguration());
        Probe<Picture> probe;
        requestFrom(QStringLiteral("https://localhost:%1").arg(server().serverPort()), probe);
        expectRefusal(probe);
    }

    void plainServer()
    {
        server().setResponder([](const QVReceivedRequest &) { return QVScript(); });
        Probe<Picture> probe;
        requestFrom(QStringLiteral("https://127.0.0.1:%1").arg(server().serverPort()), probe);
        // It waits for a request that never makes sense to it.
        advance(std::chrono::seconds(8));
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QCOMPARE(probe.code(), -1001);
    }

    void isNotRedirectedToPlain()
    {
        const QVTestCertificate certificate(Validity::Current);
        QVERIFY(certificate.isMade());
        const TrustedCertificate trust(certificate.certificate());
        QVScriptedServer plain;
        server().enqueue(QVScript::answer({}, 302, "Location: " + plain.address().toLatin1() + "/x\r\n"));
        const Probe<Picture> probe = answeredBy(certificate);
        QCOMPARE(probe.code(), -1);
        QCOMPARE(plain.connectionCount(), 0);
    }

private:
    void requestFrom(const QString &address, Probe<Picture> &probe)
    {
        probe.run([&](QVCompletion<Picture> completed) {
            return manager().requestGetWithApiServer(address, QStringLiteral("v"), QStringLiteral("c"),
                                                     completed);
        });
    }

    Probe<Picture> answeredBy(const QVTestCertificate &certificate)
    {
        server().useTls(certificate.serverConfiguration());
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        Probe<Picture> probe;
        requestPicture(probe);
        [&] {
            QVERIFY(waitFor([&] { return probe.isDone(); }));
        }();
        return probe;
    }

    void expectRefusal(const Probe<Picture> &probe)
    {
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QCOMPARE(probe.code(), -1200);
        QVERIFY(server().requests().isEmpty());
    }
};

QV_TEST(TestTls)
#include "TestTls.moc"
