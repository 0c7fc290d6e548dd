#include "settings/QVKeychain.h"
#include "settings/QVKeychainError.h"
#include "settings/QVKeychainQuery.h"
#include "settings/QVLanguage.h"
#include "settings/QVMainBundle.h"
#include "settings/QVSecureStore.h"
#include "settings/QVStringsTable.h"
#include "support/QVTestCase.h"

/// Remembers what it is asked, and answers as a test wants.
class QVScriptedStore final : public QVSecureStore
{
public:
    Answer copyMatching(const QVSecureQuery &query, Return) override
    {
        lastQuery = query;
        calls.append(QStringLiteral("copy"));
        return found;
    }
    QVSecureStatus add(const QVSecureItem &item) override
    {
        added = item;
        calls.append(QStringLiteral("add"));
        return stored;
    }
    QVSecureStatus update(const QVSecureQuery &, const QByteArray &data,
                          const QString &accessibility) override
    {
        added = {{}, {}, {}, {}, accessibility, data};
        calls.append(QStringLiteral("update"));
        return stored;
    }
    QVSecureStatus deleteMatching(const QVSecureQuery &) override
    {
        calls.append(QStringLiteral("delete"));
        return stored;
    }

    Answer found;
    QVSecureStatus stored = QVSecureStatus::Success;
    QVSecureQuery lastQuery;
    QVSecureItem added;
    QStringList calls;
};

class TestKeychain : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_store = std::make_unique<QVScriptedStore>();
        QVSecureStore::setShared(m_store.get());
    }
    void finish() override
    {
        QVSecureStore::setShared(nullptr);
        QVKeychain::setAccessibilityType(QString());
        QVMainBundle::shared().setPlaces(QVMainBundle::defaultPlaces());
    }

private Q_SLOTS:
    void statusesBecomeErrors_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("key");
        const auto row = [](int status, const char *key) {
            QTest::newRow(key) << status << QString::fromLatin1(key);
        };
        row(-26275, "errSecDecode");
        row(-25308, "errSecInteractionNotAllowed");
        row(-25300, "errSecItemNotFound");
        row(-25299, "errSecDuplicateItem");
        row(-25293, "errSecAuthFailed");
        row(-25291, "errSecNotAvailable");
        row(-1001, "QVKeychainErrorBadArguments");
        row(-108, "errSecAllocate");
        row(-50, "errSecParam");
        row(-4, "errSecUnimplemented");
        row(-34018, "errSecDefault");
    }
    void statusesBecomeErrors()
    {
        QFETCH(int, status);
        QFETCH(QString, key);
        m_store->found.status = static_cast<QVSecureStatus>(status);
        QVError error;
        QVERIFY(QVKeychain::passwordForService(m_service, m_account, &error).isNull());
        QCOMPARE(error.domain(), QStringLiteral("com.quarvo.qvkeychain"));
        QCOMPARE(error.code(), status);
        const QString language = qv_languageFolderName(qv_deviceLanguage());
        const auto table = QVStringsTable::read(
            QStringLiteral(":/QVKeychain.bundle/%1.lproj/QVKeychain.strings").arg(language));
        QVERIFY(table.contains(key));
        QCOMPARE(error.userInfo().value(QStringLiteral("localizedDescription")).toString(), table.text(key));

        QVMainBundle::shared().setPlaces({});
        QVERIFY(QVKeychain::passwordForService(m_service, m_account, &error).isNull());
        QCOMPARE(error.code(), status);
        QVERIFY(error.userInfo().isEmpty());
    }

    void languagesDescribeTheSameErrors()
    {
        const auto keys = [](const char *language) {
            auto list = QVStringsTable::read(QStringLiteral(":/QVKeychain.bundle/%1.lproj/QVKeychain.strings")
                                                 .arg(QString::fromLatin1(language)))
                            .keys();
            list.sort();
            return list;
        };
        QCOMPARE(keys("en").size(), 11);
        QCOMPARE(keys("zh-Hans"), keys("en"));
        QCOMPARE(keys("zh-Hant"), keys("en"));
    }

    void incompleteQueriesNeverReachTheStore_data()
    {
        QTest::addColumn<QString>("service");
        QTest::addColumn<QString>("account");
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("no service") << QString() << m_account << QByteArray("data");
        QTest::newRow("no account") << m_service << QString() << QByteArray("data");
        QTest::newRow("no data") << m_service << m_account << QByteArray();
    }
    void incompleteQueriesNeverReachTheStore()
    {
        QFETCH(QString, service);
        QFETCH(QString, account);
        QFETCH(QByteArray, data);
        QVError error;
        QVERIFY(!QVKeychain::setPasswordData(data, service, account, &error));
        QCOMPARE(error.code(), -1001);
        if (!data.isNull()) {
            QVERIFY(QVKeychain::passwordDataForService(service, account, &error).isNull());
            QCOMPARE(error.code(), -1001);
            QVERIFY(!QVKeychain::deletePasswordForService(service, account, &error));
            QCOMPARE(error.code(), -1001);
        }
        QVERIFY(m_store->calls.isEmpty());
    }

    void savingUpdatesOrAdds_data()
    {
        QTest::addColumn<QVSecureStatus>("found");
        QTest::addColumn<QVSecureStatus>("stored");
        QTest::addColumn<QString>("calls");
        QTest::addColumn<int>("code");
        QTest::newRow("there") << QVSecureStatus::Success << QVSecureStatus::Success << "copy update" << 0;
        QTest::newRow("not there") << QVSecureStatus::ItemNotFound << QVSecureStatus::Success << "copy add"
                                   << 0;
        QTest::newRow("locked") << QVSecureStatus::InteractionNotAllowed << QVSecureStatus::Success << "copy"
                                << -25308;
        QTest::newRow("update fails")
            << QVSecureStatus::Success << QVSecureStatus::AuthFailed << "copy update" << -25293;
        QTest::newRow("add fails") << QVSecureStatus::ItemNotFound << QVSecureStatus::Allocate << "copy add"
                                   << -108;
    }
    void savingUpdatesOrAdds()
    {
        QFETCH(QVSecureStatus, found);
        QFETCH(QVSecureStatus, stored);
        m_store->found.status = found;
        m_store->stored = stored;
        QVKeychain::setAccessibilityType(QStringLiteral("after unlock"));
        QVError error(QStringLiteral("of an earlier call"));
        const bool saved = QVKeychain::setPassword(QStringLiteral("密"), m_service, m_account, &error);
        QTEST(m_store->calls.join(u' '), "calls");
        QTEST(static_cast<int>(error.code()), "code");
        QCOMPARE(saved, error == QVError());
        if (m_store->calls.size() > 1) {
            QCOMPARE(m_store->added.data, QByteArray("密"));
            QCOMPARE(m_store->added.accessibility, QStringLiteral("after unlock"));
        }
    }

    void allFieldsReachTheStore()
    {
        QVKeychainQuery query;
        QCOMPARE(query.synchronizationMode(), QVSynchronizationMode::Any);
        query.setService(m_service);
        query.setAccount(m_account);
        query.setLabel(QStringLiteral("label"));
        query.setAccessGroup(QStringLiteral("group"));
        query.setSynchronizationMode(QVSynchronizationMode::Yes);
        query.setPassword(QStringLiteral("word"));
        m_store->found.status = QVSecureStatus::ItemNotFound;
        QVERIFY(query.save());
        QCOMPARE(m_store->lastQuery.accessGroup, QStringLiteral("group"));
        QCOMPARE(m_store->lastQuery.synchronizationMode, QVSynchronizationMode::Yes);
        QCOMPARE(m_store->added.service, m_service);
        QCOMPARE(m_store->added.account, m_account);
        QCOMPARE(m_store->added.accessGroup, QStringLiteral("group"));
        QCOMPARE(m_store->added.label, QStringLiteral("label"));
    }

    void listsWithOrWithoutAService()
    {
        m_store->found.items = {QVSecureItem{}, QVSecureItem{}};
        QCOMPARE(QVKeychain::accountsForService(m_service)->size(), 2);
        QCOMPARE(m_store->lastQuery.service, m_service);
        QVERIFY(QVKeychain::allAccounts());
        QVERIFY(m_store->lastQuery.service.isNull());
        m_store->found = {QVSecureStatus::ItemNotFound, {}};
        QVError error;
        QVERIFY(!QVKeychain::allAccounts(&error));
        QCOMPARE(error.code(), -25300);
    }

    void dataIsSeenAsTextAndObject()
    {
        QVKeychainQuery query;
        QVERIFY(query.password().isNull());
        QVERIFY(!query.passwordObject().isValid());
        query.setPassword(QStringLiteral(""));
        QVERIFY(!query.passwordData().isNull());
        QVERIFY(!query.password().isNull() && query.password().isEmpty());
        query.setPasswordData(QByteArray("\xff\xfe"));
        QVERIFY(query.password().isNull());
        query.setPassword(QString());
        QVERIFY(query.passwordData().isNull());

        const QVariantMap object{{QStringLiteral("name"), QStringLiteral("名")},
                                 {QStringLiteral("count"), 7}};
        query.setPasswordObject(object);
        QCOMPARE(query.passwordObject().toMap(), object);
        query.setPasswordData(query.passwordData().chopped(1));
        QVERIFY(!query.passwordObject().isValid());
        query.setPasswordObject(QVariant());
        QVERIFY(query.passwordData().isNull());
    }

private:
    const QString m_service = QStringLiteral("service");
    const QString m_account = QStringLiteral("account");
    std::unique_ptr<QVScriptedStore> m_store;
};

QV_TEST(TestKeychain)
#include "TestKeychain.moc"
