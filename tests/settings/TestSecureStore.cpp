#include "secrets/QVDesktopStore.h"
#include "settings/QVFakeSecretService.h"
#include "settings/QVPrivateDesktop.h"
#include "support/QVTestCase.h"

#include <QElapsedTimer>
#include <QLibrary>

using namespace std::chrono_literals;

/// The desktop's store, asked directly: what it holds, and how it behaves where there is none.
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
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::Success);
        QCOMPARE(m_store->add(item("one", "b")), QVSecureStatus::Success);
        QCOMPARE(m_store->add(item("two", "a")), QVSecureStatus::Success);
        QCOMPARE(m_store->update(query("one", "b"), QByteArray("new\0data", 8), q("after unlock")),
                 QVSecureStatus::Success);

        QCOMPARE(read("one", "a"), QByteArray("one/a"));
        QCOMPARE(read("one", "b"), QByteArray("new\0data", 8));
        QCOMPARE(list(QVSecureQuery{}).size(), 3);
        const auto ofB = list(query("one", "b"));
        QCOMPARE(ofB.size(), 1);
        QCOMPARE(ofB.first().label, q("Label of b"));
        QCOMPARE(ofB.first().accessibility, q("after unlock"));
        QVERIFY(ofB.first().data.isNull());

        QCOMPARE(read("one", "a"), QByteArray("one/a"));
        QCOMPARE(m_store->deleteMatching(query("one", "a")), QVSecureStatus::Success);
        QCOMPARE(m_store->deleteMatching(query("one", "a")), QVSecureStatus::ItemNotFound);
        // The service may give the place of an item that is gone to the next one.
        QCOMPARE(m_store->add(item("three", "c")), QVSecureStatus::Success);
        QCOMPARE(m_store->copyMatching(query("one", "a"), QVSecureStore::Return::Data).status,
                 QVSecureStatus::ItemNotFound);
        QCOMPARE(m_store->deleteMatching(query("three", "c")), QVSecureStatus::Success);
        QCOMPARE(list(QVSecureQuery{}).size(), 2);
        QCOMPARE(read("two", "a"), QByteArray("two/a"));
        // A service that was started anew knows nothing of what was agreed on before.
        m_desktop->stopKeyring();
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(read("two", "a"), QByteArray("two/a"));
    }

    void theModuleHoldsTheSameStore()
    {
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::Success);
        const auto make = reinterpret_cast<QVOpenSecretStore>(
            QLibrary::resolve(q(QUARVO_SECRETS_FILE), "quarvoSecretStore"));
        QVERIFY(make);
        m_store.reset(make(m_desktop->address().toUtf8()));
        QCOMPARE(read("one", "a"), QByteArray("one/a"));
    }

    void anOversizedSecretIsNotTakenIn()
    {
        QVERIFY(m_desktop->startKeyring());
        m_store->prepare();
        QVSecureItem large = item("one", "a");
        large.data = QByteArray(64 * 1024 + 1, 'x');
        QCOMPARE(m_store->add(large), QVSecureStatus::Success);
        const auto answer = m_store->copyMatching(query("one", "a"), QVSecureStore::Return::Data);
        QCOMPARE(answer.status, QVSecureStatus::Decode);
    }

    void aLockedKeyringIsNotUnlocked()
    {
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::Success);
        m_desktop->stopKeyring();
        QVERIFY(m_desktop->startKeyring(false));
        m_store = std::make_unique<QVDesktopStore>(QVPrivateDesktop::generousLimit);
        verifyEveryCallGives(QVSecureStatus::InteractionNotAllowed);
        QCOMPARE(m_store->add(item("one", "new")), QVSecureStatus::InteractionNotAllowed);
    }

    void aServiceThatWantsToAskTheUserMayNot()
    {
        QVFakeSecretService service(m_desktop->address(), QVFakeSecretService::Manner::Prompting);
        QVERIFY(service.isRegistered());
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::InteractionNotAllowed);
        QCOMPARE(service.promptCount(), 0);
    }

    void withoutServiceOrBusItAnswersAtOnce()
    {
        verifyEveryCallGives(QVSecureStatus::NotAvailable);
        qputenv("XDG_RUNTIME_DIR", "");
        for (const char *address : {"", "autolaunch:", "unix:path=/nonexistent/bus", ";;=\x01,unix"}) {
            qputenv("DBUS_SESSION_BUS_ADDRESS", address);
            verifyEveryCallGives(QVSecureStatus::NotAvailable);
        }
        // None of that was a wait in vain, after which the store would pause.
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_desktop->address().toUtf8());
        QVERIFY(m_desktop->startKeyring());
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::Success);
    }

    void aSilentServiceHoldsItsHostUpOnceAndBriefly()
    {
        bool delivered = false;
        std::optional<QVFakeSecretService> service(std::in_place, m_desktop->address(),
                                                   QVFakeSecretService::Manner::Silent);
        QVERIFY(service->isRegistered());
        m_store = std::make_unique<QVDesktopStore>();
        for (const auto pause : {5min, 10min, 20min}) {
            QMetaObject::invokeMethod(
                this, [&delivered] { delivered = true; }, Qt::QueuedConnection);
            QElapsedTimer timer;
            timer.start();
            const auto answer = m_store->copyMatching(query("one", "a"), QVSecureStore::Return::Data);
            QCOMPARE(answer.status, QVSecureStatus::NotAvailable);
            QVERIFY2(timer.elapsed() >= 250 && timer.elapsed() < 2000,
                     qPrintable(QString::number(timer.elapsed())));
            QVERIFY2(!delivered, "no event of the host may be delivered meanwhile");
            QVERIFY(waitFor([&delivered] { return std::exchange(delivered, false); }));
            const int asked = service->messageCount();
            verifyEveryCallGives(QVSecureStatus::NotAvailable);
            advance(pause - 1ms);
            verifyEveryCallGives(QVSecureStatus::NotAvailable);
            QCOMPARE(service->messageCount(), asked);
            advance(1ms);
        }
        service->answerLate();
        service.reset();
        QVERIFY(m_desktop->startKeyring());
        // More than once only where the machine is so busy that a keyring is slow, too.
        QVERIFY(waitFor([this] {
            advance(24h);
            return m_store->add(item("one", "a")) == QVSecureStatus::Success;
        }));
        // From then on it starts over.
        m_desktop->stopKeyring();
        service.emplace(m_desktop->address(), QVFakeSecretService::Manner::Silent);
        QCOMPARE(m_store->add(item("one", "a")), QVSecureStatus::NotAvailable);
        const int asked = service->messageCount();
        advance(5min);
        verifyEveryCallGives(QVSecureStatus::NotAvailable);
        QVERIFY(service->messageCount() > asked);
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
        QVFakeSecretService service(m_desktop->address(), QVFakeSecretService::Manner::Silent);
        QVERIFY(service.isRegistered());
        m_store = std::make_unique<QVDesktopStore>(isAsked ? QVDesktopStore::usualLimit
                                                           : QVPrivateDesktop::generousLimit);
        m_store->prepare();
        QVERIFY(waitFor([&service] { return service.messageCount() > 0; }));
        const int asked = service.messageCount();
        QElapsedTimer timer;
        timer.start();
        if (isAsked)
            verifyEveryCallGives(QVSecureStatus::NotAvailable);
        m_store.reset();
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(service.messageCount(), asked);
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

    QList<QVSecureItem> list(const QVSecureQuery &query)
    {
        return m_store->copyMatching(query, QVSecureStore::Return::Attributes).items;
    }

    void verifyEveryCallGives(QVSecureStatus status)
    {
        QCOMPARE(m_store->copyMatching(query("one", "a"), QVSecureStore::Return::Data).status, status);
        QCOMPARE(m_store->add(item("one", "a")), status);
        QCOMPARE(m_store->update(query("one", "a"), QByteArray("new"), QString()), status);
        QCOMPARE(m_store->deleteMatching(query("one", "a")), status);
    }

    std::unique_ptr<QVPrivateDesktop> m_desktop;
    std::unique_ptr<QVSecureStore> m_store;
};

QV_TEST(TestSecureStore)
#include "TestSecureStore.moc"
