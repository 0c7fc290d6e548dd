#include "platform/QVError.h"
#include "secrets/QVDesktopStore.h"
#include "settings/PrivateDesktop.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVDeviceIdentifier.h"
#include "settings/QVKeychain.h"
#include "settings/QVKeychainError.h"
#include "settings/QVKeychainQuery.h"
#include "settings/QVMainBundle.h"
#include "support/QVTestCase.h"

#include <QElapsedTimer>
#include <QLibrary>
#include <QRegularExpression>

using namespace std::chrono_literals;

/// The key chain with a real keyring and without one, and the identifier that is kept in it.
class TestKeychain : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_desktop = std::make_unique<PrivateDesktop>();
        QVERIFY(m_desktop->startBus());
        // A limit that only a hanging service exceeds, even on a busy machine.
        use(std::make_unique<QVDesktopStore>(30s));
    }

    void finish() override
    {
        QVKeychain::setAccessibilityType({});
        QVDesktopStore::setShared(nullptr);
        m_store.reset();
        m_desktop.reset();
    }

private Q_SLOTS:
    void statusesBecomeErrors()
    {
        // A bundle without texts shows the keys.
        QVERIFY(QDir(m_desktop->folder.path()).mkpath(q("QVKeychain.bundle/en.lproj")));
        QVMainBundle::shared().setPlaces({m_desktop->folder.path()});
        const QVCases<int, const char *> cases{{-26275, "errSecDecode"},
                                               {-25308, "errSecInteractionNotAllowed"},
                                               {-25300, "errSecItemNotFound"},
                                               {-25299, "errSecDuplicateItem"},
                                               {-25293, "errSecAuthFailed"},
                                               {-25291, "errSecNotAvailable"},
                                               {-1001, "QVKeychainErrorBadArguments"},
                                               {-108, "errSecAllocate"},
                                               {-50, "errSecParam"},
                                               {-4, "errSecUnimplemented"},
                                               {-34018, "errSecDefault"}};
        for (const auto &[status, key] : cases) {
            QCOMPARE(qv_keychainError(QVSecureStatus(status)),
                     QVError(q("com.quarvo.qvkeychain"), status, {{q("localizedDescription"), q(key)}}));
            // The texts are read only once.
            QVMainBundle::shared().setPlaces({q("nowhere")});
        }
        QVMainBundle::shared().setPlaces(QVMainBundle::defaultPlaces());
    }

    void itemsNeedAServiceAnAccountAndData()
    {
        const QVCases<QString, QString, QString> cases{
            {{}, q("a"), q("p")}, {q("s"), {}, q("p")}, {q("s"), q("a"), {}}};
        for (const auto &[service, account, password] : cases) {
            QVError error;
            QVERIFY(!QVKeychain::setPassword(password, service, account, &error));
            QCOMPARE(error.code(), -1001);
            error = QVError();
            QVERIFY(QVKeychain::passwordForService(service, account, &error).isNull());
            QCOMPARE(error.code(), password.isNull() ? -25291 : -1001);
            QVERIFY(!QVKeychain::deletePasswordForService(service, account, &error));
            QCOMPARE(error.code(), password.isNull() ? -25291 : -1001);
        }
    }

    void viewsOfTheData()
    {
        QVKeychainQuery query;
        QVERIFY(query.password().isNull() && !query.passwordObject().isValid());
        query.setPasswordObject(QVariantList{1, q("a")});
        QCOMPARE(query.passwordObject(), QVariant(QVariantList{1, q("a")}));
        query.setPasswordData("\xff");
        QVERIFY(query.password().isNull() && !query.passwordObject().isValid());
        query.setPassword(q(""));
        QVERIFY(query.password().isEmpty() && !query.password().isNull());
    }

    void keepsItemsApart()
    {
        QVERIFY2(m_desktop->startKeyring(), "needs gnome-keyring-daemon");
        QVKeychain::setAccessibilityType(q("first"));
        for (const auto &[service, account] :
             QVCases<const char *, const char *>{{"one", "a"}, {"one", "b"}, {"two", "a"}}) {
            QVKeychainQuery query;
            query.setService(q(service));
            query.setAccount(q(account));
            query.setLabel(q("Label of ") + q(account));
            query.setPassword(q(service) + q(account));
            QVError error(q("x"), 1);
            QVERIFY(query.save(&error));
            QCOMPARE(error, QVError());
            query.setAccessGroup(q("group"));
            QVERIFY(!query.fetch());
        }
        const QByteArray newData("new\0data", 8);
        QVKeychain::setAccessibilityType(q("later"));
        QVERIFY(QVKeychain::setPasswordData(newData, q("one"), q("b")));
        QCOMPARE(QVKeychain::passwordForService(q("one"), q("a")), q("onea"));
        QCOMPARE(QVKeychain::passwordDataForService(q("one"), q("b")), newData);
        QCOMPARE(QVKeychain::accountsForService(q("one"))->size(), 2);
        const QList<QVSecureItem> all = *QVKeychain::allAccounts();
        QCOMPARE(all.size(), 3);
        for (const QVSecureItem &item : all) {
            QCOMPARE(item.label, q("Label of ") + item.account);
            QCOMPARE(item.accessibility, item.account == q("b") ? q("later") : q("first"));
            QVERIFY(item.data.isNull());
        }

        QVERIFY(QVKeychain::deletePasswordForService(q("one"), q("a")));
        QCOMPARE(m_store->deleteMatching({q("one"), q("a"), {}}), QVSecureStatus::ItemNotFound);
        // The service may give the path of a deleted item to the next one.
        QVERIFY(QVKeychain::setPasswordData(QByteArray(64 * 1024 + 1, 'x'), q("three"), q("c")));
        QVERIFY(QVKeychain::passwordForService(q("one"), q("a")).isNull());
        QVError error;
        QVERIFY(QVKeychain::passwordForService(q("three"), q("c"), &error).isNull());
        QCOMPARE(error.code(), -26275);
        // A restarted service does not know the key that was negotiated before.
        m_desktop->stopKeyring();
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(QVKeychain::passwordForService(q("two"), q("a")), q("twoa"));
        // The store from the module works, too.
        const auto make = reinterpret_cast<QVOpenSecretStore>(
            QLibrary::resolve(q(QUARVO_SECRETS_FILE), "quarvoSecretStore"));
        QVERIFY(make);
        use(std::unique_ptr<QVSecureStore>(make(m_desktop->address.toUtf8())));
        QCOMPARE(QVKeychain::passwordForService(q("two"), q("a")), q("twoa"));
    }

    void aLockedKeyringIsNotUnlocked()
    {
        QVERIFY(m_desktop->startKeyring());
        QVERIFY(QVKeychain::setPassword(q("p"), q("one"), q("a")));
        m_desktop->stopKeyring();
        QVERIFY(m_desktop->startKeyring(false));
        // The keyring would ask the user for the password, without a time limit.
        const PrivatePrompter prompter(*m_desktop);
        QVERIFY(prompter.isThere);
        use(std::make_unique<QVDesktopStore>(5s));
        verifyEveryCallGives(QVSecureStatus::InteractionNotAllowed);
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
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_desktop->folder.path()));
        QVERIFY(QVKeychain::setPassword(q("p"), q("one"), q("a")));
        qunsetenv("XDG_RUNTIME_DIR");
    }

    void aSilentServiceHoldsItsHostUpOnceAndBriefly()
    {
        QVERIFY(m_desktop->startKeyring());
        m_desktop->suspendKeyring();
        bool delivered = false;
        use(std::make_unique<QVDesktopStore>());
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
            return QVKeychain::setPassword(q("p"), q("one"), q("a"));
        }));
        // After a success the pauses begin with five minutes again.
        m_desktop->suspendKeyring();
        QVERIFY(waitsInVain());
        advance(5min);
        // A request does not hold its host up at all.
        requestIdentifier();
        advance(249ms);
        QVERIFY(m_requested.isEmpty());
        advance(1ms);
        QCOMPARE(m_requested, QVDeviceIdentifier::vendorIdentifier());
        QVERIFY(!waitsInVain());
    }

    void aServiceThatIsSilentInPreparationKeepsNobodyWaiting()
    {
        QVERIFY(m_desktop->startKeyring());
        m_desktop->suspendKeyring();
        // The application calls the store again, or ends.
        for (const bool isAsked : {true, false}) {
            use(std::make_unique<QVDesktopStore>(isAsked ? 250ms : 30s));
            m_store->prepare();
            QElapsedTimer timer;
            timer.start();
            if (isAsked)
                verifyEveryCallGives(QVSecureStatus::NotAvailable);
            QVDesktopStore::setShared(nullptr);
            m_store.reset();
            QVERIFY2(timer.elapsed() < 900, qPrintable(QString::number(timer.elapsed())));
        }
    }

    void theIdentifierIsMadeOnceAndKept()
    {
        const QString service = q("com.quarvo.qv");
        const QString account = q("example.quarvo.tests.quarvo-tests");
        // Without a keyring it is not stored anywhere else.
        const QByteArray usual = qgetenv("HOME");
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        const QString made = QVDeviceIdentifier::getDeviceId();
        QCOMPARE(QVDeviceIdentifier::getDeviceId(), made);
        QVERIFY(QDir(home.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        qputenv("HOME", usual);

        QVERIFY(m_desktop->startKeyring());
        static const QRegularExpression form(q("^[0-9a-f]{32}$"));
        QVERIFY2(form.match(made).hasMatch(), qPrintable(made));
        QCOMPARE(QVConfigurationManager::sharedManager().deviceId(), made);
        QCOMPARE(QVKeychain::passwordForService(service, account), made);
        // Any stored text is used, unless it is empty.
        for (const QString &stored : {q("NOT-in that form"), q("0"), q("")}) {
            QVERIFY(QVKeychain::setPassword(stored, service, account));
            requestIdentifier();
            QVERIFY(waitFor([this] { return !m_requested.isEmpty(); }));
            QCOMPARE(m_requested, stored.isEmpty() ? made : stored);
            QCOMPARE(QVKeychain::passwordForService(service, account), stored.isEmpty() ? made : stored);
        }
        QCOMPARE(QVKeychain::accountsForService(service)->size(), 1);
    }

private:
    void requestIdentifier()
    {
        m_requested.clear();
        // A completion may ask again.
        QVDeviceIdentifier::requestDeviceId([this](const QString &) {
            QVDeviceIdentifier::requestDeviceId([this](const QString &text) { m_requested = text; });
        });
    }

    void use(std::unique_ptr<QVSecureStore> store)
    {
        QVDesktopStore::setShared(store.get());
        m_store = std::move(store);
    }

    void verifyEveryCallGives(QVSecureStatus status)
    {
        const QVSecureQuery query{q("one"), q("a"), {}};
        QCOMPARE(m_store->copyMatching(query, QVSecureStore::Return::Data).status, status);
        QCOMPARE(m_store->add({q("one"), q("new"), {}, {}, {}, "data"}), status);
        QCOMPARE(m_store->update(query, "new", {}), status);
        QCOMPARE(m_store->deleteMatching(query), status);
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

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<QVSecureStore> m_store;
    QString m_requested;
};

QV_TEST(TestKeychain)
#include "TestKeychain.moc"
