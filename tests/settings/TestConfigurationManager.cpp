#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLanguage.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QStandardPaths>
#include <QThreadPool>

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
        const QString leftover = QStandardPaths::writableLocation(QStandardPaths::CacheLocation) +
                                 QStringLiteral("/quarvo-pictures/left");
        QVERIFY(QDir().mkpath(leftover));

        constexpr int count = 8;
        std::latch start(count);
        std::vector<std::future<QVConfigurationManager *>> firstCallers;
        for (int i = 0; i < count; ++i)
            firstCallers.push_back(std::async(std::launch::async, [&start] {
                start.arrive_and_wait();
                return &QVConfigurationManager::sharedManager();
            }));
        std::set<QVConfigurationManager *> managers;
        for (auto &caller : firstCallers)
            managers.insert(caller.get());
        QCOMPARE(managers.size(), 1U);

        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
        QVERIFY(!QDir(leftover).exists());
    }

    void startsWithDefaults()
    {
        const auto &settings = QVConfigurationManager::sharedManager();
        QVERIFY(settings.vid().isNull());
        QVERIFY(settings.scene().isNull());
        QVERIFY(settings.outage().isNull());
        QVERIFY(!settings.isOpenOutage());
        QVERIFY(settings.preferredLanguage().isNull());
        QVERIFY(settings.languageBundle());
        QCOMPARE(settings.serviceAddresses(), QVServiceAddresses());
        QCOMPARE(settings.serviceAddresses().apiHost(), QStringLiteral("https://api.quarvo.example"));
    }

    void takesWhatTheHostSets()
    {
        const auto &settings = QVConfigurationManager::sharedManager();
        QVSDKManager::setQuarvoSDKVid(QStringLiteral("id"), QStringLiteral(""));
        QCOMPARE(settings.vid(), QStringLiteral("id"));
        QVERIFY(settings.scene().isEmpty() && !settings.scene().isNull());
        QVSDKManager::setQuarvoSDKVid(QString(), QStringLiteral("login"));
        QVERIFY(settings.vid().isNull());
        QCOMPARE(settings.scene(), QStringLiteral("login"));
        QVSDKManager::setOutageServer(QStringLiteral("https://outage.shop.example"));
        QCOMPARE(settings.outage(), QStringLiteral("https://outage.shop.example"));
        QVSDKManager::setOutageOpen(true);
        QVERIFY(settings.isOpenOutage());
        QVSDKManager::setOutageOpen(false);
        QVERIFY(!settings.isOpenOutage());
    }

    void addressesAreValues()
    {
        QVServiceAddresses own;
        own.setApiHost(QStringLiteral("http://a"));
        own.setDownloadHost(QStringLiteral("http://b"));
        own.setImageHost(QStringLiteral("http://c"));
        own.setCdn(QStringLiteral("http://d"));
        own.setHelpPage(QStringLiteral("http://e"));
        own.setOutageHelpPage(QStringLiteral("http://f"));
        QVSDKManager::setServiceAddresses(own);
        own.setCdn(QString());
        const auto kept = QVConfigurationManager::sharedManager().serviceAddresses();
        QCOMPARE(QStringList({kept.apiHost(), kept.downloadHost(), kept.imageHost(), kept.cdn(),
                              kept.helpPage(), kept.outageHelpPage()})
                     .join(u' '),
                 QStringLiteral("http://a http://b http://c http://d http://e http://f"));
        QVERIFY(!(kept == own));
    }

    void choosesALanguageFolder_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("folder");
        const auto row = [](const char *language, const char *folder) {
            QTest::newRow(language) << QString::fromLatin1(language) << QString::fromLatin1(folder);
        };
        row("zh-Hans", "zh-Hans");
        row("zh-Hans-HK", "zh-Hans");
        row("zh-Hant", "zh-Hant");
        row("zh-Hant-TW", "zh-Hant");
        row("my zh-Hant, or else zh-Hans", "zh-Hans");
        row("zh", "en");
        row("zh-CN", "en");
        row("ZH-HANS", "en");
        row("fr", "en");
        row("ja", "en");
        row("en-GB", "en");
    }
    void choosesALanguageFolder()
    {
        QFETCH(QString, language);
        QFETCH(QString, folder);
        QVSDKManager::setPreferredLanguage(language);
        const auto &settings = QVConfigurationManager::sharedManager();
        QCOMPARE(settings.preferredLanguage(), language);
        QVERIFY(settings.languageBundle());
        QVERIFY2(settings.languageBundle()->path().endsWith(u'/' + folder + QStringLiteral(".lproj")),
                 qPrintable(settings.languageBundle()->path()));
    }

    void withoutALanguageTheDevicesDecides()
    {
        const auto &settings = QVConfigurationManager::sharedManager();
        const QString folder = qv_languageFolderName(qv_deviceLanguage());
        for (const QString &language : {QString(), QStringLiteral("")}) {
            QVSDKManager::setPreferredLanguage(QStringLiteral("zh-Hant"));
            QVSDKManager::setPreferredLanguage(language);
            QCOMPARE(settings.preferredLanguage().isNull(), language.isNull());
            QVERIFY(settings.languageBundle()->path().endsWith(u'/' + folder + QStringLiteral(".lproj")));
        }
    }

    void aDeviceLanguageNamesItsScript_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("folder");
        const auto row = [](const char *languages, const char *folder) {
            QTest::newRow(languages) << QString::fromLatin1(languages).split(u' ', Qt::SkipEmptyParts)
                                     << QString::fromLatin1(folder);
        };
        row("zh-CN zh-Hans-CN zh", "zh-Hans");
        row("zh-SG", "zh-Hans");
        row("zh_TW.UTF-8 en", "zh-Hant");
        row("zh-HK", "zh-Hant");
        row("zh-Hans-HK", "zh-Hans");
        row("en-US zh-CN", "en");
        row("C", "en");
        row("?!", "en");
        row("", "en");
    }
    void aDeviceLanguageNamesItsScript()
    {
        QFETCH(QStringList, languages);
        QTEST(qv_languageFolderName(qv_deviceLanguage(languages)), "folder");
    }
};

QV_TEST(TestConfigurationManager)
#include "TestConfigurationManager.moc"
