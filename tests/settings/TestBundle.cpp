#include "settings/QVBundle.h"
#include "settings/QVBundleImage.h"
#include "settings/QVInternalConsistencyError.h"
#include "settings/QVLocalization.h"
#include "settings/QVMainBundle.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>

/// The component's bundle, and bundles that a host may ship instead.
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
    void holdsThePictures()
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
    }

    void aPictureThatIsNoneIsAbsent()
    {
        const QByteArray vast = pngOf({2049, 1});
        for (const QByteArray &content : {QByteArray("<svg/>"), vast, QByteArray((1 << 20) + 1, 'P')}) {
            ship(q("p.png"), content);
            shipFolder();
            QVERIFY(qv_imageFromBundleWithName(q("p"), 1.0).isNull());
        }
        QVERIFY(qv_imageFromBundleWithName(q("missing"), 1.0).isNull());
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
        QVSDKManager::setResourceBundle(bundlePath());
        QCOMPARE(qv_localizedStringForKey(q("done")), q("Submit"));
        QCOMPARE(qv_localizedStringForKey(q("fail")), q("Not quite right. Try again."));
        QCOMPARE(qv_imageFromBundleWithName(q("qv_draw_edit"), 1.0).size(), QSize(7, 7));
        QCOMPARE(qv_imageFromBundleWithName(q("qv_draw_help"), 1.0).size(), QSize(20, 20));
        QTest::ignoreMessage(QtWarningMsg, "No resource bundle: /nowhere is no folder");
        QVSDKManager::setResourceBundle(q("/nowhere"));
        QCOMPARE(qv_localizedStringForKey(q("done")), q("Done"));
    }

    void aMissingBundleIsToldLoudly()
    {
        QVMainBundle::shared().setPlaces({m_folder->path()});
        QVERIFY_THROWS_EXCEPTION(QVInternalConsistencyError, (void)qv_bundle());
        QVERIFY(qv_imageFromBundleWithName(q("qv_draw_edit")).isNull());
    }

private:
    static QByteArray pngOf(QSize size)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage(size, QImage::Format_Mono).save(&buffer, "PNG");
        return bytes;
    }
    QString bundlePath() const { return m_folder->filePath(q("QVResource.bundle")); }
    void ship(const QString &name, const QByteArray &content) const
    {
        const QString path = bundlePath() + u'/' + name;
        QFile file(path);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    void shipFolder() const { QVMainBundle::shared().setPlaces({m_folder->path(), q(":")}); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QV_TEST(TestBundle)
#include "TestBundle.moc"
