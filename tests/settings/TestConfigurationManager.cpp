#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVDeviceIdentifier.h"
#include "settings/QVLanguage.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

class TestConfigurationManager : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    // Must be the first function of the process, since the settings are created once.
    void clearsThePicturesOfEarlierProcesses()
    {
        const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
        const QString leftover = cache + q("/quarvo-pictures/0123456789abcdef0123456789abcdef");
        QVERIFY(QDir().mkpath(leftover));
        QFile::setPermissions(cache + q("/quarvo-pictures"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(QFile(leftover + q("/quarvo.lock")).open(QIODevice::WriteOnly));
        (void)QVConfigurationManager::sharedManager();
        QVERIFY(waitFor([&leftover] { return !QDir(leftover).exists(); }));
    }

    void choosesALanguageFolder()
    {
        const QVCases<QString, const char *> cases{{q("zh-Hans-HK"), "zh-Hans"},
                                                   {q("zh-Hant-TW"), "zh-Hant"},
                                                   {q("zh"), "en"},
                                                   {q("ZH-HANS"), "en"},
                                                   // The user's language, which is English here.
                                                   {q(""), "en"},
                                                   {QString(), "en"}};
        const auto &settings = QVConfigurationManager::sharedManager();
        for (const auto &[language, folder] : cases) {
            QVSDKManager::setPreferredLanguage(language);
            QCOMPARE(settings.preferredLanguage(), language);
            QCOMPARE(settings.preferredLanguage().isNull(), language.isNull());
            QCOMPARE(settings.languageBundle()->path().section(u'/', -1), q(folder) + q(".lproj"));
        }
        // The languages that a desktop reports.
        const QVCases<const char *, const char *> deviceCases{{"zh-CN zh-Hans-CN zh", "zh-Hans"},
                                                              {"zh_TW.UTF-8 en", "zh-Hant"},
                                                              {"en-US zh-CN", "en"},
                                                              {"C", "en"},
                                                              {"", "en"}};
        for (const auto &[languages, folder] : deviceCases) {
            const QStringList list = q(languages).split(u' ', Qt::SkipEmptyParts);
            QCOMPARE(qv_languageFolderName(qv_deviceLanguage(list)), q(folder));
        }
    }

    void attemptsTakeADayAtMost()
    {
        for (const auto &[asked, kept] :
             QVCases<qint64, qint64>{{std::numeric_limits<qint64>::max(), 86400000}, {3, 3}, {-1, 0}}) {
            QVSDKManager::setAttemptTimeout(std::chrono::milliseconds(asked));
            QCOMPARE(QVConfigurationManager::sharedManager().attemptTimeout().count(), kept);
        }
    }

    void warnsOfOpenLines()
    {
        const QVCases<const char *, bool> cases{{"http://api.quarvo.example", true},
                                                {"http://10.0.0.1:80", true},
                                                {"https://api.quarvo.example", false},
                                                {"http://localhost:1", false},
                                                {"http://127.0.0.9", false},
                                                {"http://[::1]:1", false},
                                                {"", false}};
        for (const auto &[address, isWarnedOf] : cases) {
            QVServiceAddresses addresses;
            addresses.setCdn(q(address));
            for (int setter = 0; isWarnedOf && setter < 2; ++setter)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q("^A server .* without encryption")));
            QVSDKManager::setServiceAddresses(addresses);
            QVERIFY(addresses != QVServiceAddresses());
            QVSDKManager::setOutageServer(q(address));
        }
        QVSDKManager::setServiceAddresses({});
        QVERIFY(QVServiceAddresses() == QVServiceAddresses());
    }

    void hostsAreNamedInReverse()
    {
        const QString usual = QCoreApplication::organizationDomain();
        const QVCases<const char *, const char *> cases{{".a..b.", "b.a.quarvo-tests"},
                                                        {"..", "quarvo_tests_settings"}};
        for (const auto &[domain, name] : cases) {
            QCoreApplication::setOrganizationDomain(q(domain));
            QCOMPARE(QVDeviceIdentifier::bundleIdentifier(), q(name));
        }
        QCoreApplication::setOrganizationDomain(usual);
    }
};

QV_TEST(TestConfigurationManager)
#include "TestConfigurationManager.moc"
