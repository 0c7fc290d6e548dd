#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "support/QVTestCase.h"

class TestLocalization : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyLanguageHasExactlyTheKnownKeys()
    {
        QStringList known;
        for (const QLatin1String key : QVKey::all)
            known.append(key);
        known.sort();
        for (const char *language : {"en", "zh-Hans", "zh-Hant"}) {
            const auto table = QVStringsTable::read(
                q(":/QVResource.bundle/%1.lproj/QVLocalizable.strings").arg(q(language)));
            QStringList found = table.keys();
            found.sort();
            QCOMPARE(found, known);
            for (const QString &key : std::as_const(found))
                QVERIFY2(!table.text(key).trimmed().isEmpty(), qPrintable(key));
            QVERIFY(table.text(QVKey::pass).contains(q("{time}")));
            QVERIFY(table.text(QVKey::pass).contains(q("{score}")));
            QVERIFY(table.text(QVKey::systemError).contains(q("{domain}")));
        }
    }

    void looksUpInTheChosenLanguage()
    {
        QVConfigurationManager::sharedManager().setPreferredLanguage(q("zh-Hans"));
        QCOMPARE(qv_localizedStringForKey(q("drawCaptcha")), q("请沿图中曲线绘制"));
        QVConfigurationManager::sharedManager().setPreferredLanguage(q("en"));
        QCOMPARE(qv_localizedStringForKey(q("done"), q("instead")), q("Done"));
        QCOMPARE(qv_localizedStringForKey(q("no such key"), q("instead")), q("instead"));
        QCOMPARE(qv_localizedStringForKey(q("no such key"), q("")), q("no such key"));
    }
};

QV_TEST(TestLocalization)
#include "TestLocalization.moc"
