#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "support/QVTestCase.h"

#include <set>

class TestLocalization : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyLanguageHasExactlyTheKnownKeys_data()
    {
        QTest::addColumn<QString>("language");
        for (const char *language : {"en", "zh-Hans", "zh-Hant"})
            QTest::newRow(language) << QString::fromLatin1(language);
    }
    void everyLanguageHasExactlyTheKnownKeys()
    {
        QFETCH(QString, language);
        const auto table = QVStringsTable::read(
            QStringLiteral(":/QVResource.bundle/%1.lproj/QVLocalizable.strings").arg(language));
        QStringList known;
        for (const QLatin1String key : QVKey::all)
            known.append(key);
        QStringList found = table.keys();
        known.sort();
        found.sort();
        QCOMPARE(found, known);
        for (const QString &key : std::as_const(found))
            QVERIFY2(!table.text(key).trimmed().isEmpty(), qPrintable(key));
        QVERIFY(table.text(QVKey::pass).contains(QStringLiteral("{time}")));
        QVERIFY(table.text(QVKey::pass).contains(QStringLiteral("{score}")));
        QVERIFY(table.text(QVKey::systemError).contains(QStringLiteral("{domain}")));
    }

    void looksUpInTheChosenLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("fallback");
        QTest::addColumn<QString>("text");
        QTest::newRow("English") << "en"
                                 << "done" << QString() << "Done";
        QTest::newRow("simplified") << "zh-Hans"
                                    << "drawCaptcha" << QString() << QStringLiteral("请沿图中曲线绘制");
        QTest::newRow("traditional") << "zh-Hant"
                                     << "drawCaptcha" << QString() << QStringLiteral("請沿圖中曲線繪製");
        QTest::newRow("missing key") << "en"
                                     << "no such key" << QString() << "no such key";
        QTest::newRow("missing key, empty fallback") << "en"
                                                     << "no such key"
                                                     << ""
                                                     << "no such key";
        QTest::newRow("missing key, fallback") << "en"
                                               << "no such key"
                                               << "instead"
                                               << "instead";
        QTest::newRow("present key, fallback") << "en"
                                               << "done"
                                               << "instead"
                                               << "Done";
    }
    void looksUpInTheChosenLanguage()
    {
        QFETCH(QString, language);
        QFETCH(QString, key);
        QFETCH(QString, fallback);
        QVConfigurationManager::sharedManager().setPreferredLanguage(language);
        QTEST(qv_localizedStringForKey(key, fallback), "text");
    }
};

QV_TEST(TestLocalization)
#include "TestLocalization.moc"
