#include "secrets/QVDesktopStore.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVDeviceIdentifier.h"
#include "settings/QVKeychain.h"
#include "settings/QVPrivateDesktop.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

/// The identifier in a real keyring. A new store stands for a new process.
class TestDeviceIdentifier : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        QCoreApplication::setOrganizationDomain(q("shop.example"));
        QCoreApplication::setApplicationName(q("till"));
    }

    void finish() override
    {
        QVDesktopStore::setShared(nullptr);
        m_store.reset();
        m_desktop.reset();
    }

private Q_SLOTS:
    void isMadeOnceAndKept()
    {
        QVERIFY2(startDesktop(), "needs dbus-daemon and gnome-keyring-daemon");
        const QString made = QVConfigurationManager::sharedManager().deviceId();
        static const QRegularExpression form(q("^[0-9a-f]{32}$"));
        QVERIFY2(form.match(made).hasMatch(), qPrintable(made));
        QCOMPARE(QVConfigurationManager::sharedManager().deviceId(), made);
        renewStore();
        QCOMPARE(QVKeychain::passwordForService(m_service, m_till), made);
        // Any stored text is used, unless it is empty.
        for (const QString &stored : {q("NOT-in that form"), q("0"), q("")}) {
            QVERIFY(QVKeychain::setPassword(stored, m_service, m_till));
            const QString identifier = QVDeviceIdentifier::getDeviceId();
            QVERIFY(stored.isEmpty() ? identifier.size() == 32 : identifier == stored);
            QCOMPARE(QVKeychain::passwordForService(m_service, m_till), identifier);
        }
        QCOMPARE(QVKeychain::accountsForService(m_service)->size(), 1);
    }

    void withoutAKeyringNothingStandsInForIt()
    {
        const QTemporaryDir home;
        m_desktop = std::make_unique<QVPrivateDesktop>();
        QVERIFY(m_desktop->startBus());
        renewStore();
        const QByteArray usual = qgetenv("HOME");
        qputenv("HOME", QFile::encodeName(home.path()));
        const QString made = QVDeviceIdentifier::getDeviceId();
        QCOMPARE(made.size(), 32);
        QCOMPARE(QVDeviceIdentifier::getDeviceId(), made);
        QVERIFY(QDir(home.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        qputenv("HOME", usual);
    }

    void hostsAreNamedInReverse()
    {
        QCoreApplication::setOrganizationDomain(q(".a..b."));
        QCOMPARE(QVDeviceIdentifier::bundleIdentifier(), q("b.a.till"));
        QCoreApplication::setOrganizationDomain(q(".."));
        QCOMPARE(QVDeviceIdentifier::bundleIdentifier(), q("quarvo_tests_settings"));
    }

private:
    bool startDesktop()
    {
        m_desktop = std::make_unique<QVPrivateDesktop>();
        renewStore();
        return m_desktop->startBus() && m_desktop->startKeyring();
    }

    void renewStore()
    {
        m_store = std::make_unique<QVDesktopStore>(QVPrivateDesktop::generousLimit);
        QVDesktopStore::setShared(m_store.get());
    }

    const QString m_service = q("com.quarvo.qv");
    const QString m_till = q("example.shop.till");
    std::unique_ptr<QVPrivateDesktop> m_desktop;
    std::unique_ptr<QVSecureStore> m_store;
};

QV_TEST(TestDeviceIdentifier)
#include "TestDeviceIdentifier.moc"
