#include "secrets/QVDesktopStore.h"
#include "settings/QVPrivateDesktop.h"
#include "support/QVTestCase.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QLibrary>

using namespace std::chrono_literals;

namespace {

/// Replaces the desktop's password dialog, and never answers.
class Prompter : public QDBusVirtualObject
{
public:
    explicit Prompter(const QString &busAddress)
    {
        auto bus = QDBusConnection::connectToBus(busAddress, q("prompter"));
        isThere = bus.registerVirtualObject(q("/"), this, QDBusConnection::SubPath) &&
                  bus.registerService(q("org.gnome.keyring.SystemPrompter"));
    }
    ~Prompter() override { QDBusConnection::disconnectFromBus(q("prompter")); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &, const QDBusConnection &) override { return true; }

    bool isThere;
};

} // namespace

/// The store over the real desktop services: its contents, and its behaviour without a service.
class TestSecureStore : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_desktop = std::make_unique<QVPrivateDesktop>();
        QVERIFY(m_desktop->startBus());
        m_store = std::make_unique<QVDesktopStore>(QVPrivateDesktop::generousLimit);
    }

    void finish() override
    {
        m_store.reset();
        m_desktop.reset();
    }

private Q_SLOTS:
    void keepsItemsApartByServiceAndAccount()
    {
        QVERIFY2(m_desktop->startKeyring(), "needs gnome-keyring-daemon");
        for (const auto &[service, account] :
             QVCases<const char *, const char *>{{"one", "a"}, {"one", "b"}, {"two", "a"}})
            QCOMPARE(m_store->add(item(service, account)), QVSecureStatus::Success);
        const QByteArray newData("new\0data", 8);
        QCOMPARE(m_store->update(query("one", "b"), newData, q("after unlock")), QVSecureStatus::Success);
        QCOMPARE(read("one", "a"), QByteArray("one/a"));
        QCOMPARE(read("one", "b"), newData);
        QCOMPARE(list(QVSecureQuery{}).size(), 3);
        const auto ofB = list(query("one", "b"));
        QCOMPARE(ofB.size(), 1);
        QCOMPARE(ofB.first().label, q("Label of b"));
        QCOMPARE(ofB.first().accessibility, q("after unlock"));
        QVERIFY(ofB.first().data.isNull());

        QCOMPARE(m_store->deleteMatching(query("one", "a")), QVSecureStatus::Success);
        QCOMPARE(m_store->deleteMatching(query("one", "a")), QVSecureStatus::ItemNotFound);
        // The service may give the path of a deleted item to the next one.
        QVSecureItem large = item("three", "c");
        large.data = QByteArray(64 * 1024 + 1, 'x');
        QCOMPARE(m_store->add(large), QVSecureStatus::Success);
        QCOMPARE(statusOfReading("one", "a"), QVSecureStatus::ItemNotFound);
        QCOMPARE(statusOfReading("three", "c"), QVSecureStatus::Decode);
        // A restarted service does not know the key that was negotiated before.
        m_desktop->stopKeyring();
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(read("two", "a"), QByteArray("two/a"));
        // The store from the module works, too.
        const auto make = reinterpret_cast<QVOpenSecretStore>(
            QLibrary::resolve(q(QUARVO_SECRETS_FILE), "quarvoSecretStore"));
        QVERIFY(make);
        m_store.reset(make(m_desktop->address().toUtf8()));
        QCOMPARE(read("two", "a"), QByteArray("two/a"));
    }

    void aLockedKeyringIsNotUnlocked()
    {
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::Success);
        m_desktop->stopKeyring();
        QVERIFY(m_desktop->startKeyring(false));
        verifyEveryCallGives(QVSecureStatus::InteractionNotAllowed);
        // The keyring would ask the user for the password, without a time limit.
        const Prompter prompter(m_desktop->address());
        QVERIFY(prompter.isThere);
        m_store = std::make_unique<QVDesktopStore>(5s);
        QCOMPARE(m_store->add(item("one", "new")), QVSecureStatus::InteractionNotAllowed);
    }

    void withoutServiceOrBusItAnswersAtOnce()
    {
        verifyEveryCallGives(QVSecureStatus::NotAvailable);
        qputenv("XDG_RUNTIME_DIR", "");
        for (const char *address : {"", "autolaunch:", "unix:path=/nonexistent/bus", ";;=\x01,unix"}) {
            qputenv("DBUS_SESSION_BUS_ADDRESS", address);
            verifyEveryCallGives(QVSecureStatus::NotAvailable);
        }
        // None of the calls above has timed out, or the store would now fail at once. The bus is found at its
        // usual place.
        QVERIFY(m_desktop->startKeyring());
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_desktop->folder()));
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::Success);
        qunsetenv("XDG_RUNTIME_DIR");
    }

    void aSilentServiceHoldsItsHostUpOnceAndBriefly()
    {
        QVERIFY(m_desktop->startKeyring());
        m_desktop->suspendKeyring();
        bool delivered = false;
        m_store = std::make_unique<QVDesktopStore>();
        for (const auto pause : {5min, 10min, 20min}) {
            QMetaObject::invokeMethod(
                this, [&delivered] { delivered = true; }, Qt::QueuedConnection);
            QVERIFY(waitsInVain());
            QVERIFY2(!delivered, "no event of the host may be delivered meanwhile");
            QVERIFY(waitFor([&delivered] { return std::exchange(delivered, false); }));
            QVERIFY(!waitsInVain());
            advance(pause - 1ms);
            QVERIFY(!waitsInVain());
            advance(1ms);
        }
        m_desktop->wakeKeyring();
        // Repeated, since on a very busy machine a keyring may exceed the limit, too.
        QVERIFY(waitFor([this] {
            advance(24h);
            return m_store->add(item("one", "a")) == QVSecureStatus::Success;
        }));
        // After a success the pauses begin with five minutes again.
        m_desktop->suspendKeyring();
        QVERIFY(waitsInVain());
        advance(5min);
        QVERIFY(waitsInVain());
    }

    void aServiceThatIsSilentInPreparation_data()
    {
        const auto row = addColumns<bool>({"isAsked"});
        row("is not asked again", true);
        row("keeps no application from its end", false);
    }

    void aServiceThatIsSilentInPreparation()
    {
        QFETCH(const bool, isAsked);
        QVERIFY(m_desktop->startKeyring());
        m_desktop->suspendKeyring();
        if (isAsked)
            m_store = std::make_unique<QVDesktopStore>();
        m_store->prepare();
        QElapsedTimer timer;
        timer.start();
        if (isAsked)
            verifyEveryCallGives(QVSecureStatus::NotAvailable);
        m_store.reset();
        QVERIFY2(timer.elapsed() < 900, qPrintable(QString::number(timer.elapsed())));
    }

private:
    static QVSecureQuery query(const char *service, const char *account)
    {
        return {QString::fromLatin1(service), QString::fromLatin1(account), QString()};
    }

    static QVSecureItem item(const char *service, const char *account)
    {
        const auto of = query(service, account);
        return {of.service, of.account,
                QString(),  q("Label of ") + of.account,
                QString(),  (of.service + u'/' + of.account).toUtf8()};
    }

    QByteArray read(const char *service, const char *account)
    {
        const auto answer = m_store->copyMatching(query(service, account), QVSecureStore::Return::Data);
        return answer.items.value(0).data;
    }

    QVSecureStatus statusOfReading(const char *service, const char *account)
    {
        return m_store->copyMatching(query(service, account), QVSecureStore::Return::Data).status;
    }

    QList<QVSecureItem> list(const QVSecureQuery &query)
    {
        return m_store->copyMatching(query, QVSecureStore::Return::Attributes).items;
    }

    void verifyEveryCallGives(QVSecureStatus status)
    {
        QCOMPARE(statusOfReading("one", "a"), status);
        QCOMPARE(m_store->add(item("one", "a")), status);
        QCOMPARE(m_store->update(query("one", "a"), QByteArray("new"), QString()), status);
        QCOMPARE(m_store->deleteMatching(query("one", "a")), status);
    }

    /// Makes several calls that are not answered. Returns whether the first one has waited and the others
    /// have not.
    bool waitsInVain()
    {
        QElapsedTimer timer;
        timer.start();
        verifyEveryCallGives(QVSecureStatus::NotAvailable);
        // Each of them would wait a quarter of a second.
        return timer.elapsed() >= 250 && timer.elapsed() < 900;
    }

    std::unique_ptr<QVPrivateDesktop> m_desktop;
    std::unique_ptr<QVSecureStore> m_store;
};

QV_TEST(TestSecureStore)
#include "TestSecureStore.moc"
