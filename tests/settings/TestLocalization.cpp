#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "settings/QVStringsTable.h"
#include "support/QVTestCase.h"

#include <QTemporaryFile>

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
            const auto keychain =
                QVStringsTable::read(q(":/QVKeychain.bundle/%1.lproj/QVKeychain.strings").arg(q(language)));
            QCOMPARE(keychain.keys().size(), 11);
            QVERIFY(keychain.contains(q("errSecDefault")));
            QVERIFY(table.text(QVKey::pass).contains(q("{time}")));
            QVERIFY(table.text(QVKey::pass).contains(q("{score}")));
            QVERIFY(table.text(QVKey::systemError).contains(q("{domain}")));
        }
    }

    void looksUpInTheChosenLanguage()
    {
        QVConfigurationManager::sharedManager().setPreferredLanguage(q("zh-Hans"));
        QCOMPARE(qv_localizedStringForKey(q("drawCaptcha")), q("请沿图中曲线画线"));
        QVConfigurationManager::sharedManager().setPreferredLanguage(q("en"));
        QCOMPARE(qv_localizedStringForKey(q("done"), q("instead")), q("Done"));
        QCOMPARE(qv_localizedStringForKey(q("no such key"), q("instead")), q("instead"));
        QCOMPARE(qv_localizedStringForKey(q("no such key"), q("")), q("no such key"));
    }

    void reads()
    {
        // A file, and its texts for "a" and "b".
        const QVCases<const char *, QString, QString> cases{
            {"", {}, {}},
            {"\"a\"=\"1\";\"b\"=\"2\";", q("1"), q("2")},
            {"\xef\xbb\xbf\"a\" = \"1\";\r\n\"b\" = \"2\";\r\n", q("1"), q("2")},
            {"/* \"b\" = \"y\"; */ \"a\" /* is */ = // one\n \"1\"; // \"b\" = \"3\";\n", q("1"), {}},
            {"\"a\" = \"//1/*\";", q("//1/*"), {}},
            {"\"a\" = \"0\"; \"a\" = \"1\";", q("1"), {}},
            {"\"\\u0061\" = \"\\t\\n\\r\\\"\\\\ \\u4e2d\\U6587 \\q\";", q("\t\n\r\"\\ 中文 q"), {}},
            {"\"a\" = \"\\ud83d\\ude00\";", q("😀"), {}},
            {"\"a\" = \"\\u12g4\";", q("u12g4"), {}},
            {"\"a\" = \"1\"\n\"b\" = \"2\";", q("1"), q("2")},
            {"\"x\" =\n\"a\" = \"1\";\n\"x\"\n\"b\" = \"2\";\n\"x\" = ", q("1"), q("2")},
            {"\"x\" = \"lost;\n\"a\" = \"1\";\n\"b\" = \"2\";", q("1"), q("2")},
            {"<html>\n<body \"a\" = \"y\";>", {}, {}}};
        for (const auto &[file, a, b] : cases) {
            const auto table = QVStringsTable::parse(file);
            QCOMPARE(table.text(q("a")), a);
            QCOMPARE(table.text(q("b")), b);
            QCOMPARE(table.keys().size(), (a.isNull() ? 0 : 1) + (b.isNull() ? 0 : 1));
        }
    }

    void aFileIsReadAsFarAsItMayGo()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("\"a\" = \"1\";\n");
        file.write(QByteArray(1 << 20, ' '));
        file.write("\"b\" = \"2\";\n");
        file.close();
        QCOMPARE(QVStringsTable::read(file.fileName()).keys(), QStringList{q("a")});
        QVERIFY(QVStringsTable::read(file.fileName() + q(".missing")).keys().isEmpty());
    }
};

QV_TEST(TestLocalization)
#include "TestLocalization.moc"
