#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLanguage.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

#include <future>
#include <latch>
#include <set>

class TestConfigurationManager : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    // The first function of the process: the others find the settings made.
    void isMadeOnceAndClearsThePictures()
    {
        const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
        const QString leftover = cache + q("/quarvo-pictures/0123456789abcdef0123456789abcdef");
        QVERIFY(QDir().mkpath(leftover));
        QFile::setPermissions(cache + q("/quarvo-pictures"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(QFile(leftover + q("/quarvo.lock")).open(QIODevice::WriteOnly));

        constexpr int count = 8;
        std::latch start(count);
        std::vector<std::future<QVConfigurationManager *>> firstCallers;
        firstCallers.reserve(count);
        for (int i = 0; i < count; ++i)
            firstCallers.push_back(std::async(std::launch::async, [&start] {
                start.arrive_and_wait();
                return &QVConfigurationManager::sharedManager();
            }));
        std::set<QVConfigurationManager *> managers;
        for (auto &caller : firstCallers)
            managers.insert(caller.get());
        QCOMPARE(managers.size(), 1U);

        QVERIFY(waitFor([&leftover] { return !QDir(leftover).exists(); }));
    }

    void choosesALanguageFolder()
    {
        const QVCases<QString, QString> cases{{q("zh-Hans-HK"), q("zh-Hans")},
                                              {q("zh-Hant-TW"), q("zh-Hant")},
                                              {q("zh"), q("en")},
                                              {q("ZH-HANS"), q("en")},
                                              // The device's own, which is English here.
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
        using std::chrono::milliseconds;
        const QVCases<milliseconds, milliseconds> cases{{milliseconds::max(), std::chrono::days(1)},
                                                        {milliseconds(3), milliseconds(3)},
                                                        {milliseconds::min(), milliseconds(0)}};
        for (const auto &[asked, kept] : cases) {
            QVSDKManager::setAttemptTimeout(asked);
            QCOMPARE(QVConfigurationManager::sharedManager().attemptTimeout().count(), kept.count());
        }
    }

    void addressesAreValues()
    {
        using Addresses = QVServiceAddresses;
        const QVCases<void (Addresses::*)(const QString &), QString (Addresses::*)() const> cases{
            {&Addresses::setApiHost, &Addresses::apiHost},
            {&Addresses::setDownloadHost, &Addresses::downloadHost},
            {&Addresses::setImageHost, &Addresses::imageHost},
            {&Addresses::setCdn, &Addresses::cdn},
            {&Addresses::setHelpPage, &Addresses::helpPage},
            {&Addresses::setOutageHelpPage, &Addresses::outageHelpPage}};
        Addresses all;
        for (const auto &[set, get] : cases) {
            const Addresses before = all;
            (all.*set)(q("https://other.example"));
            QVERIFY(!(all == before));
            QCOMPARE((all.*get)(), q("https://other.example"));
            Addresses same = before;
            (same.*set)(q("https://other.example"));
            QVERIFY(all == same);
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
