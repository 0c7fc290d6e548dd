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
    Answer copyMatching(const QVSecureQuery &, Return) override
    {
        calls.append(q("copy"));
        return found;
    }
    QVSecureStatus add(const QVSecureItem &item) override
    {
        added = item;
        calls.append(q("add"));
        return stored;
    }
    QVSecureStatus update(const QVSecureQuery &, const QByteArray &data,
                          const QString &accessibility) override
    {
        added = {{}, {}, {}, {}, accessibility, data};
        calls.append(q("update"));
        return stored;
    }
    QVSecureStatus deleteMatching(const QVSecureQuery &) override { return stored; }

    Answer found;
    QVSecureStatus stored = QVSecureStatus::Success;
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
        addColumns<int, QString>({"status", "key"});
        const auto row = [](int status, const char *key) {
            QTest::newRow(key) << status << QString::fromLatin1(key);
        };
        row(-25308, "errSecInteractionNotAllowed");
        row(-25300, "errSecItemNotFound");
        row(-1001, "QVKeychainErrorBadArguments");
        row(-34018, "errSecDefault");
    }
    void statusesBecomeErrors()
    {
        QFETCH(int, status);
        QFETCH(QString, key);
        m_store->found.status = static_cast<QVSecureStatus>(status);
        QVError error;
        QVERIFY(QVKeychain::passwordForService(m_service, m_account, &error).isNull());
        QCOMPARE(error.domain(), q("com.quarvo.qvkeychain"));
        QCOMPARE(error.code(), status);
        const QString language = qv_languageFolderName(qv_deviceLanguage());
        const auto table =
            QVStringsTable::read(q(":/QVKeychain.bundle/%1.lproj/QVKeychain.strings").arg(language));
        QVERIFY(table.contains(key));
        QCOMPARE(error.userInfo().value(q("localizedDescription")).toString(), table.text(key));

        QVMainBundle::shared().setPlaces({});
        QVERIFY(QVKeychain::passwordForService(m_service, m_account, &error).isNull());
        QCOMPARE(error.code(), status);
        QVERIFY(error.userInfo().isEmpty());
    }

    void incompleteQueriesNeverReachTheStore()
    {
        QVERIFY(!QVKeychain::setPasswordData(QByteArray(), m_service, m_account));
        QVERIFY(!QVKeychain::setPasswordData("data", QString(), m_account));
        QVERIFY(QVKeychain::passwordDataForService(m_service, QString()).isNull());
        QVError error;
        QVERIFY(!QVKeychain::deletePasswordForService(QString(), m_account, &error));
        QCOMPARE(error.code(), -1001);
        QVERIFY(m_store->calls.isEmpty());
    }

    void savingUpdatesOrAdds_data()
    {
        const auto row =
            addColumns<QVSecureStatus, QVSecureStatus, QString, int>({"found", "stored", "calls", "code"});
        row("there", QVSecureStatus::Success, QVSecureStatus::Success, "copy update", 0);
        row("not there", QVSecureStatus::ItemNotFound, QVSecureStatus::Success, "copy add", 0);
        row("locked", QVSecureStatus::InteractionNotAllowed, QVSecureStatus::Success, "copy", -25308);
        row("update fails", QVSecureStatus::Success, QVSecureStatus::AuthFailed, "copy update", -25293);
    }
    void savingUpdatesOrAdds()
    {
        QFETCH(QVSecureStatus, found);
        QFETCH(QVSecureStatus, stored);
        m_store->found.status = found;
        m_store->stored = stored;
        QVKeychain::setAccessibilityType(q("after unlock"));
        QVError error(q("of an earlier call"));
        const bool saved = QVKeychain::setPassword(q("密"), m_service, m_account, &error);
        QTEST(m_store->calls.join(u' '), "calls");
        QTEST(static_cast<int>(error.code()), "code");
        QCOMPARE(saved, error == QVError());
        if (m_store->calls.size() > 1) {
            QCOMPARE(m_store->added.data, QByteArray("密"));
            QCOMPARE(m_store->added.accessibility, q("after unlock"));
        }
    }

private:
    const QString m_service = q("service");
    const QString m_account = q("account");
    std::unique_ptr<QVScriptedStore> m_store;
};

QV_TEST(TestKeychain)
#include "TestKeychain.moc"
