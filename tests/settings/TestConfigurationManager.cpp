#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLanguage.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

#include <array>
#include <future>
#include <latch>

class TestConfigurationManager : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    // Must be the first function of the process, since the settings are created once.
    void isMadeOnceAndClearsThePictures()
    {
        const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
        const QString leftover = cache + q("/quarvo-pictures/0123456789abcdef0123456789abcdef");
        QVERIFY(QDir().mkpath(leftover));
        QFile::setPermissions(cache + q("/quarvo-pictures"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(QFile(leftover + q("/quarvo.lock")).open(QIODevice::WriteOnly));

        std::array<std::future<QVConfigurationManager *>, 8> callers;
        std::latch start(std::ssize(callers));
        for (auto &caller : callers)
            caller = std::async(std::launch::async, [&start] {
                start.arrive_and_wait();
                return &QVConfigurationManager::sharedManager();
            });
        for (auto &caller : callers)
            QCOMPARE(caller.get(), &QVConfigurationManager::sharedManager());
        QVERIFY(waitFor([&leftover] { return !QDir(leftover).exists(); }));
    }

    void choosesALanguageFolder()
    {
        const QVCases<QString, QString> cases{{q("zh-Hans-HK"), q("zh-Hans")},
                                              {q("zh-Hant-TW"), q("zh-Hant")},
                                              {q("zh"), q("en")},
                                              {q("ZH-HANS"), q("en")},
                                              // The user's language, which is English here.
                                              {q(""), q("en")},
                                              {QString(), q("en")}};
        const auto &settings = QVConfigurationManager::sharedManager();
        for (const auto &[language, folder] : cases) {
            QVSDKManager::setPreferredLanguage(language);
            QCOMPARE(settings.preferredLanguage(), language);
            QCOMPARE(settings.preferredLanguage().isNull(), language.isNull());
            QVERIFY(settings.languageBundle()->path().endsWith(u'/' + folder + q(".lproj")));
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

    void addressesAreValues()
    {
        QVServiceAddresses all;
        for (const auto set : {&QVServiceAddresses::setApiHost, &QVServiceAddresses::setDownloadHost,
                               &QVServiceAddresses::setImageHost, &QVServiceAddresses::setCdn,
                               &QVServiceAddresses::setHelpPage, &QVServiceAddresses::setOutageHelpPage}) {
            QVServiceAddresses before = all;
            (all.*set)(q("https://other.example"));
            QVERIFY(!(all == before));
            (before.*set)(q("https://other.example"));
            QVERIFY(all == before);
        }
    }

    void warnsOfOpenLines()
    {
        const QVCases<QString, bool> cases{{q("http://api.quarvo.example"), true},
                                           {q("http://10.0.0.1:80"), true},
                                           {q("https://api.quarvo.example"), false},
                                           {q("http://localhost:1"), false},
                                           {q("http://127.0.0.9"), false},
                                           {q("http://[::1]:1"), false},
                                           {q(""), false}};
        for (const auto &[address, isWarnedOf] : cases) {
            QVServiceAddresses addresses;
            addresses.setCdn(address);
            for (int setter = 0; isWarnedOf && setter < 2; ++setter)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q("^A server .* without encryption")));
            QVSDKManager::setServiceAddresses(addresses);
            QVSDKManager::setOutageServer(address);
        }
        QVSDKManager::setServiceAddresses({});
    }

    void aDeviceLanguageNamesItsScript()
    {
        const QVCases<const char *, const char *> cases{{"zh-CN zh-Hans-CN zh", "zh-Hans"},
                                                        {"zh_TW.UTF-8 en", "zh-Hant"},
                                                        {"en-US zh-CN", "en"},
                                                        {"C", "en"},
                                                        {"", "en"}};
        for (const auto &[languages, folder] : cases) {
            const QStringList list = q(languages).split(u' ', Qt::SkipEmptyParts);
            QCOMPARE(qv_languageFolderName(qv_deviceLanguage(list)), q(folder));
        }
    }
};

QV_TEST(TestConfigurationManager)
#include "TestConfigurationManager.moc"
