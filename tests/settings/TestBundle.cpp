#include "settings/QVBundle.h"
#include "settings/QVBundleImage.h"
#include "settings/QVInternalConsistencyError.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "settings/QVMainBundle.h"
#include "settings/QVSDKManager.h"
#include "settings/QVStringsTable.h"
#include "support/QVTestCase.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>

/// The pictures and texts of the component's bundle, and of bundles that a host may ship instead.
class TestBundle : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        QVMainBundle::shared().setPlaces({q(":")});
        m_folder = std::make_unique<QTemporaryDir>();
    }
    void finish() override { QVMainBundle::shared().setPlaces({q(":")}); }

private Q_SLOTS:
    void pictures()
    {
        const QVCases<const char *, QSize> cases{
            {"qv_draw_edit", {20, 20}},          {"qv_draw_error", {20, 20}},
            {"qv_draw_success", {20, 20}},       {"qv_draw_help", {20, 20}},
            {"qv_draw_refresh", {20, 20}},       {"qv_draw_close", {14, 14}},
            {"qv_click_btn_logo", {16, 16}},     {"qv_invisible_logo", {40, 40}},
            {"qv_request_faild.jpg", {400, 230}}};
        for (const auto &[name, size] : cases) {
            for (const qreal ratio : {0.5, 1.0, 1.25, 3.0, 4.0}) {
                const QPixmap picture = qv_imageFromBundleWithName(q(name), ratio);
                QCOMPARE(picture.deviceIndependentSize(), QSizeF(size));
                QCOMPARE(picture.devicePixelRatio(), qBound(1.0, std::ceil(ratio), 3.0));
            }
        }
        QVERIFY(qv_imageFromBundleWithName(q("missing"), 1.0).isNull());
        for (const QByteArray &content :
             {QByteArray("<svg/>"), pngOf({2049, 1}), pngOf({7, 7}) + QByteArray(1 << 20, ' ')}) {
            ship(q("p.png"), content);
            shipFolder();
            QVERIFY(qv_imageFromBundleWithName(q("p"), 1.0).isNull());
        }
        QVMainBundle::shared().setPlaces({m_folder->filePath(q("nowhere"))});
        QVERIFY_THROWS_EXCEPTION(QVInternalConsistencyError, (void)qv_bundle());
        QVERIFY(qv_imageFromBundleWithName(q("qv_draw_edit")).isNull());
    }

    void aHostsOwnBundleGoesFirst()
    {
        QVERIFY(QVMainBundle::defaultPlaces().first() == QCoreApplication::applicationDirPath());
        QCOMPARE(QVMainBundle::defaultPlaces().last(), q(":"));
        ship(q("en.lproj/QVLocalizable.strings"), "\"done\" = \"Submit\";\nnonsense\n");
        ship(q("qv_draw_edit.png"), pngOf({7, 7}));
        // First in place of the component's bundle, then as a bundle with differences.
        shipFolder();
        QVSDKManager::setPreferredLanguage(q("en"));
        QCOMPARE(qv_localizedStringForKey(q("done")), q("Submit"));
        QCOMPARE(qv_localizedStringForKey(q("fail")), q("fail"));
        QVSDKManager::setPreferredLanguage(q("zh-Hans"));
        QVERIFY(qv_localizedStringForKey(q("done"), q("instead")).isNull());
        QVMainBundle::shared().setPlaces({q(":")});
        QVSDKManager::setPreferredLanguage(q("en"));
        QVSDKManager::setResourceBundle(m_folder->filePath(q("QVResource.bundle")));
        QCOMPARE(qv_localizedStringForKey(q("done")), q("Submit"));
        QCOMPARE(qv_localizedStringForKey(q("fail")), q("Not quite right. Try again."));
        QCOMPARE(qv_imageFromBundleWithName(q("qv_draw_edit"), 1.0).size(), QSize(7, 7));
        QCOMPARE(qv_imageFromBundleWithName(q("qv_draw_help"), 1.0).size(), QSize(20, 20));
        QTest::ignoreMessage(QtWarningMsg, "No resource bundle: /nowhere is no folder");
        QVSDKManager::setResourceBundle(q("/nowhere"));
        QCOMPARE(qv_localizedStringForKey(q("done"), q("instead")), q("Done"));
        QCOMPARE(qv_localizedStringForKey(q("no such key"), q("instead")), q("instead"));
        QCOMPARE(qv_localizedStringForKey(q("no such key"), q("")), q("no such key"));
        QVSDKManager::setPreferredLanguage(q("zh-Hans"));
        QCOMPARE(qv_localizedStringForKey(q("drawCaptcha")), q("请沿图中曲线画线"));
    }

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
            const auto keychain =
                QVStringsTable::read(q(":/QVKeychain.bundle/%1.lproj/QVKeychain.strings").arg(q(language)));
            QCOMPARE(keychain.keys().size(), 11);
            QVERIFY(keychain.contains(q("errSecDefault")));
        }
    }

    void readsTables()
    {
        // A file, and its texts for "a" and "b".
        const QVCases<QByteArray, QString, QString> cases{
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
            {"<html>\n<body \"a\" = \"y\";>", {}, {}},
            // Only the first mebibyte of a file is read.
            {"\"a\" = \"1\";\n" + QByteArray(1 << 20, ' ') + "\"b\" = \"2\";\n", q("1"), {}}};
        for (const auto &[file, a, b] : cases) {
            ship(q("any.strings"), file);
            const auto table = QVStringsTable::read(m_folder->filePath(q("QVResource.bundle/any.strings")));
            QCOMPARE(table.text(q("a")), a);
            QCOMPARE(table.text(q("b")), b);
            QCOMPARE(table.keys().size(), (a.isNull() ? 0 : 1) + (b.isNull() ? 0 : 1));
        }
    }

private:
    static QByteArray pngOf(QSize size)
    {
        QBuffer buffer;
        QImage(size, QImage::Format_Mono).save(&buffer, "PNG");
        return buffer.data();
    }
    void ship(const QString &name, const QByteArray &content) const
    {
        QFile file(m_folder->filePath(q("QVResource.bundle/") + name));
        QVERIFY(QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    void shipFolder() const { QVMainBundle::shared().setPlaces({m_folder->path(), q(":")}); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QV_TEST(TestBundle)
#include "TestBundle.moc"
