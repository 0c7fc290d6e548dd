#include "settings/QVConfigurationManager.h"
#include "settings/QVDeviceIdentifier.h"
#include "settings/QVKeychain.h"
#include "settings/QVPrivateDesktop.h"
#include "settings/QVSecureStore.h"
#include "support/QVTestCase.h"

#include <QRegularExpression>

/// The identifier in a real keyring. A new store is what a new process would have.
class TestDeviceIdentifier : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        QCoreApplication::setOrganizationDomain(QStringLiteral("shop.example"));
        QCoreApplication::setApplicationName(QStringLiteral("till"));
    }

    void finish() override
    {
        QVSecureStore::setShared(nullptr);
        m_store.reset();
        m_desktop.reset();
    }

private Q_SLOTS:
    void isMadeOnceAndKept()
    {
        QVERIFY2(startDesktop(), "needs dbus-daemon and gnome-keyring-daemon");
        const QString made = QVConfigurationManager::sharedManager().deviceId();
        static const QRegularExpression form(QStringLiteral("^[0-9a-f]{32}$"));
        QVERIFY2(form.match(made).hasMatch(), qPrintable(made));
        QCOMPARE(m_desktop->countItems(m_service, m_till), 1);
        QCOMPARE(QVConfigurationManager::sharedManager().deviceId(), made);
        renewStore();
        QCOMPARE(QVKeychain::passwordForService(m_service, m_till), made);
        QCOMPARE(m_desktop->countItems(m_service, m_till), 1);
    }

    void aStoredValueIsReturnedAsItIs()
    {
        QVERIFY2(startDesktop(), "needs dbus-daemon and gnome-keyring-daemon");
        const QString foreign = QStringLiteral("Not hex, but ours — 标识");
        QVERIFY(QVKeychain::setPassword(foreign, m_service, m_till));
        QCOMPARE(QVDeviceIdentifier::getDeviceId(), foreign);
        renewStore();
        QCOMPARE(QVDeviceIdentifier::getDeviceId(), foreign);
    }

    void anEmptyStoredValueIsReplaced()
    {
        QVERIFY2(startDesktop(), "needs dbus-daemon and gnome-keyring-daemon");
        QVERIFY(QVKeychain::setPassword(QStringLiteral(""), m_service, m_till));
        const QString empty = QVKeychain::passwordForService(m_service, m_till);
        QVERIFY(empty.isEmpty() && !empty.isNull());
        const QString made = QVDeviceIdentifier::getDeviceId();
        QCOMPARE(made.size(), 32);
        QCOMPARE(QVKeychain::passwordForService(m_service, m_till), made);
        QCOMPARE(m_desktop->countItems(m_service, m_till), 1);
    }

    void everyHostHasItsOwnItem()
    {
        QVERIFY2(startDesktop(), "needs dbus-daemon and gnome-keyring-daemon");
        QVERIFY(QVKeychain::setPassword(QStringLiteral("of the till"), m_service, m_till));
        QCoreApplication::setApplicationName(QStringLiteral("stock"));
        QCOMPARE(QVDeviceIdentifier::getDeviceId(), QVDeviceIdentifier::vendorIdentifier());
        QCOMPARE(m_desktop->countItems(m_service, QStringLiteral("example.shop.stock")), 1);
        QCOMPARE(QVKeychain::passwordForService(m_service, m_till), QStringLiteral("of the till"));
    }

    void aKeyringStartedAnewIsFoundAgain()
    {
        QVERIFY2(startDesktop(), "needs dbus-daemon and gnome-keyring-daemon");
        QVERIFY(QVKeychain::setPassword(QStringLiteral("kept"), m_service, m_till));
        m_desktop->stopKeyring();
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(QVDeviceIdentifier::getDeviceId(), QStringLiteral("kept"));
    }

    void withoutAKeyringItIsStillTheSame()
    {
        QVERIFY2(startDesktop(), "needs dbus-daemon and gnome-keyring-daemon");
        const QString made = QVDeviceIdentifier::getDeviceId();
        m_desktop->stopKeyring();
        QCOMPARE(QVDeviceIdentifier::getDeviceId(), made);
    }

    void hostsAreNamedInReverse_data()
    {
        QTest::addColumn<QString>("domain");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("identifier");
        QTest::newRow("usual") << "shop.example"
                               << "till"
                               << "example.shop.till";
        QTest::newRow("stray dots") << ".a..b."
                                    << "till"
                                    << "b.a.till";
        QTest::newRow("no domain") << ""
                                   << "till"
                                   << "quarvo_tests_settings";
        QTest::newRow("dots alone") << ".."
                                    << "till"
                                    << "quarvo_tests_settings";
    }
    void hostsAreNamedInReverse()
    {
        QFETCH(QString, domain);
        QFETCH(QString, name);
        QCoreApplication::setOrganizationDomain(domain);
        QCoreApplication::setApplicationName(name);
        QTEST(QVDeviceIdentifier::bundleIdentifier(), "identifier");
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
        m_store = QVSecureStore::create(QVPrivateDesktop::generousLimit);
        QVSecureStore::setShared(m_store.get());
    }

    const QString m_service = QStringLiteral("com.quarvo.qv");
    const QString m_till = QStringLiteral("example.shop.till");
    std::unique_ptr<QVPrivateDesktop> m_desktop;
    std::unique_ptr<QVSecureStore> m_store;
};

QV_TEST(TestDeviceIdentifier)
#include "TestDeviceIdentifier.moc"
