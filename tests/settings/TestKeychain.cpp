#include "platform/QVError.h"
#include "secrets/QVDesktopStore.h"
#include "settings/QVKeychain.h"
#include "settings/QVKeychainQuery.h"
#include "settings/QVMainBundle.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QTemporaryDir>

/// Records its calls and gives scripted answers.
class QVScriptedStore final : public QVSecureStore
{
public:
    Answer copyMatching(const QVSecureQuery &query, Return what) override
    {
        return {reached(q("find %1 ").arg(int(what)) + text(query)), {{}}};
    }
    QVSecureStatus add(const QVSecureItem &item) override
    {
        return reached(q("add %1 %2 %3 %4")
                           .arg(text(item), item.label, item.accessibility, QString::fromUtf8(item.data)));
    }
    QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                          const QString &accessibility) override
    {
        return reached(q("update %1 %2 %3").arg(text(query), QString::fromUtf8(data), accessibility));
    }
    QVSecureStatus deleteMatching(const QVSecureQuery &query) override
    {
        return reached(q("delete ") + text(query));
    }

    QList<int> statuses;
    QStringList calls;

private:
    static QString text(const auto &of)
    {
        return q("%1/%2/%3").arg(of.service, of.account.isNull() ? q("*") : of.account, of.accessGroup);
    }
    QVSecureStatus reached(const QString &call)
    {
        calls.append(call);
        return QVSecureStatus(statuses.isEmpty() ? 0 : statuses.takeFirst());
    }
};

/// The calls of the facade to a store, and its results.
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
        QVKeychain::setAccessibilityType({});
        QVDesktopStore::setShared(nullptr);
        QVMainBundle::shared().setPlaces(QVMainBundle::defaultPlaces());
    }

private Q_SLOTS:
    void statusesBecomeErrors()
    {
        // A bundle without texts shows the keys.
        const QTemporaryDir empty;
        QVERIFY(QDir(empty.path()).mkpath(q("QVKeychain.bundle/en.lproj")));
        QVMainBundle::shared().setPlaces({empty.path()});
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
            m_store->statuses = {status};
            QVError error;
            QVERIFY(QVKeychain::passwordForService(q("s"), q("a"), &error).isNull());
            QCOMPARE(error,
                     QVError(q("com.quarvo.qvkeychain"), status, {{q("localizedDescription"), q(key)}}));
            // The texts are looked for once per process.
            QVMainBundle::shared().setPlaces({q("nowhere")});
        }
        QVError none(q("x"), 1);
        QVERIFY(QVKeychain::setPassword(q("p"), q("s"), q("a"), &none));
        QCOMPARE(none, QVError());
        QCOMPARE(none.code(), 0);
    }

    void asksTheStore_data()
    {
        using Operation = std::function<bool()>;
        const auto row = addColumns<Operation, QList<int>, QStringList, bool>(
            {"operation", "statuses", "calls", "isDone"});
        const Operation set = [] {
            return QVKeychain::setPassword(q("p"), q("s"), q("a"));
        };
        const Operation setLabelled = [] {
            QVKeychain::setAccessibilityType(q("later"));
            QVKeychainQuery query;
            query.setService(q("s"));
            query.setAccount(q("a"));
            query.setAccessGroup(q("g"));
            query.setLabel(q("l"));
            query.setPassword(q("p"));
            return query.save();
        };
        using Calls = QStringList;
        row("new", set, QList<int>{-25300}, Calls{q("find 0 s/a/"), q("add s/a/   p")}, true);
        row("known", set, QList<int>{0}, Calls{q("find 0 s/a/"), q("update s/a/ p ")}, true);
        row("locked", set, QList<int>{-25308}, Calls{q("find 0 s/a/")}, false);
        row("taken meanwhile", set, QList<int>{-25300, -25299}, Calls{q("find 0 s/a/"), q("add s/a/   p")},
            false);
        row("labelled", setLabelled, QList<int>{-25300}, Calls{q("find 0 s/a/g"), q("add s/a/g l later p")},
            true);
        row("accessible", setLabelled, QList<int>{0}, Calls{q("find 0 s/a/g"), q("update s/a/g p later")},
            true);
        row("delete", Operation([] { return QVKeychain::deletePasswordForService(q("s"), q("a")); }),
            QList<int>{}, Calls{q("delete s/a/")}, true);
        row("read", Operation([] { return !QVKeychain::passwordDataForService(q("s"), q("a")).isNull(); }),
            QList<int>{-25300}, Calls{q("find 1 s/a/")}, false);
        row("list", Operation([] { return QVKeychain::accountsForService(q("s"))->size() == 1; }),
            QList<int>{}, Calls{q("find 2 s/*/")}, true);
        row("list all", Operation([] { return QVKeychain::allAccounts().has_value(); }), QList<int>{-25300},
            Calls{q("find 2 /*/")}, false);
        row("no data", Operation([] { return QVKeychain::setPasswordData({}, q("s"), q("a")); }),
            QList<int>{}, Calls{}, false);
        row("no service", Operation([] { return QVKeychain::setPasswordData("d", {}, q("a")); }),
            QList<int>{}, Calls{}, false);
        row("no account", Operation([] { return !QVKeychain::passwordForService(q("s"), {}).isNull(); }),
            QList<int>{}, Calls{}, false);
        row("nothing to delete", Operation([] { return QVKeychain::deletePasswordForService({}, q("a")); }),
            QList<int>{}, Calls{}, false);
    }

    void asksTheStore()
    {
        QFETCH(const std::function<bool()>, operation);
        QFETCH(const QList<int>, statuses);
        m_store->statuses = statuses;
        QTEST(operation(), "isDone");
        QTEST(m_store->calls, "calls");
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

private:
    std::unique_ptr<QVScriptedStore> m_store;
};

QV_TEST(TestKeychain)
#include "TestKeychain.moc"
