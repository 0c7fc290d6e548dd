#include "secrets/QVDesktopStore.h"
#include "settings/QVKeychain.h"
#include "settings/QVKeychainError.h"
#include "settings/QVKeychainQuery.h"
#include "settings/QVLanguage.h"
#include "settings/QVMainBundle.h"
#include "settings/QVStringsTable.h"
#include "support/QVTestCase.h"

/// Answers as a test wants.
class QVScriptedStore final : public QVSecureStore
{
public:
    Answer copyMatching(const QVSecureQuery &, Return) override { return {reached(), {}}; }
    QVSecureStatus add(const QVSecureItem &) override { return reached(); }
    QVSecureStatus update(const QVSecureQuery &, const QByteArray &, const QString &) override
    {
        return reached();
    }
    QVSecureStatus deleteMatching(const QVSecureQuery &) override { return reached(); }

    QVSecureStatus status = QVSecureStatus::Success;
    int calls = 0;

private:
    QVSecureStatus reached()
    {
        ++calls;
        return status;
    }
};

class TestKeychain : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_store = std::make_unique<QVScriptedStore>();
        QVDesktopStore::setShared(m_store.get());
    }
    void finish() override
    {
        QVDesktopStore::setShared(nullptr);
        QVMainBundle::shared().setPlaces(QVMainBundle::defaultPlaces());
    }

private Q_SLOTS:
    void statusesBecomeErrors()
    {
        const QVCases<int, const char *> cases{{-25308, "errSecInteractionNotAllowed"},
                                               {-25300, "errSecItemNotFound"},
                                               {-1001, "QVKeychainErrorBadArguments"},
                                               {-34018, "errSecDefault"}};
        const auto table = QVStringsTable::read(q(":/QVKeychain.bundle/%1.lproj/QVKeychain.strings")
                                                    .arg(qv_languageFolderName(qv_deviceLanguage())));
        for (const auto &[status, key] : cases) {
            m_store->status = static_cast<QVSecureStatus>(status);
            QVError error;
            QVERIFY(QVKeychain::passwordForService(m_service, m_account, &error).isNull());
            QCOMPARE(error.domain(), q("com.quarvo.qvkeychain"));
            QCOMPARE(error.code(), status);
            QVERIFY(table.contains(q(key)));
            QCOMPARE(error.userInfo().value(q("localizedDescription")).toString(), table.text(q(key)));
            // The texts are looked for once a process.
            QVMainBundle::shared().setPlaces({q("nowhere")});
        }
    }

    void incompleteQueriesNeverReachTheStore()
    {
        QVERIFY(!QVKeychain::setPasswordData(QByteArray(), m_service, m_account));
        QVERIFY(!QVKeychain::setPasswordData("data", QString(), m_account));
        QVERIFY(QVKeychain::passwordDataForService(m_service, QString()).isNull());
        QVError error;
        QVERIFY(!QVKeychain::deletePasswordForService(QString(), m_account, &error));
        QCOMPARE(error.code(), -1001);
        QCOMPARE(m_store->calls, 0);
    }

private:
    const QString m_service = q("service");
    const QString m_account = q("account");
    std::unique_ptr<QVScriptedStore> m_store;
};

QV_TEST(TestKeychain)
#include "TestKeychain.moc"
