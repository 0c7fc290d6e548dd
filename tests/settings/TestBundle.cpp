#include "settings/QVBundle.h"
#include "settings/QVBundleImage.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVInternalConsistencyError.h"
#include "settings/QVLocalization.h"
#include "settings/QVMainBundle.h"
#include "support/QVTestCase.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>

/// The bundle that ships, and the ones that a host may ship instead.
class TestBundle : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override
    {
        QVMainBundle::shared().setPlaces({QStringLiteral(":")});
        m_folder = std::make_unique<QTemporaryDir>();
    }
    void finish() override { QVMainBundle::shared().setPlaces({QStringLiteral(":")}); }

private Q_SLOTS:
    void holdsThePictures_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        const auto row = [](const char *name, int width, int height) {
            QTest::newRow(name) << QString::fromLatin1(name) << QSize(width, height);
        };
        for (const char *icon :
             {"qv_draw_edit", "qv_draw_error", "qv_draw_success", "qv_draw_help", "qv_draw_refresh"})
            row(icon, 20, 20);
        row("qv_draw_close", 14, 14);
        row("qv_click_btn_logo", 16, 16);
        row("qv_invisible_logo", 40, 40);
        row("qv_request_faild.jpg", 400, 230);
    }
    void holdsThePictures()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);
        for (const qreal ratio : {0.5, 1.0, 1.25, 2.0, 3.0, 4.0}) {
            const QPixmap picture = qv_imageFromBundleWithName(name, ratio);
            QCOMPARE(picture.deviceIndependentSize(), QSizeF(size));
            QCOMPARE(picture.devicePixelRatio(), qBound(1.0, std::ceil(ratio), 3.0));
        }
        QCOMPARE(qv_imageFromBundleWithName(name).devicePixelRatio(), qApp->devicePixelRatio());
    }

    void takesWhatPictureThereIs_data()
    {
        QTest::addColumn<QString>("shipped");
        QTest::addColumn<qreal>("wanted");
        QTest::addColumn<qreal>("taken");
        QTest::newRow("larger rather than smaller") << "p.png p@3x.png" << 2.0 << 3.0;
        QTest::newRow("largest of the smaller") << "p.png p@2x.png" << 3.0 << 2.0;
        QTest::newRow("the one for the screen") << "p.png p@2x.png p@3x.png" << 1.0 << 1.0;
    }
    void takesWhatPictureThereIs()
    {
        QFETCH(QString, shipped);
        QFETCH(qreal, wanted);
        QImage image(12, 12, QImage::Format_ARGB32);
        image.fill(Qt::red);
        for (const QString &name : shipped.split(u' '))
            QVERIFY(image.save(shippedPath(name)));
        shipFolder();
        QTEST(qv_imageFromBundleWithName(QStringLiteral("p"), wanted).devicePixelRatio(), "taken");
    }

    void aPictureThatIsNoneIsAbsent_data()
    {
        QTest::addColumn<QByteArray>("content");
        QByteArray vast;
        QBuffer buffer(&vast);
        QVERIFY(QImage(2049, 1, QImage::Format_Mono).save(&buffer, "PNG"));
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("not a picture") << QByteArray("<svg/>");
        QTest::newRow("vast") << vast;
        QTest::newRow("larger than any of ours") << QByteArray((1 << 20) + 1, 'P');
    }
    void aPictureThatIsNoneIsAbsent()
    {
        QFETCH(QByteArray, content);
        ship(QStringLiteral("p.png"), content);
        shipFolder();
        QVERIFY(qv_imageFromBundleWithName(QStringLiteral("p"), 1.0).isNull());
        QVERIFY(qv_imageFromBundleWithName(QStringLiteral("missing"), 1.0).isNull());
    }

    void aHostsOwnBundleGoesFirst()
    {
        QVERIFY(QVMainBundle::defaultPlaces().first() == QCoreApplication::applicationDirPath());
        QCOMPARE(QVMainBundle::defaultPlaces().last(), QStringLiteral(":"));
        QVERIFY(QDir(bundlePath()).mkpath(QStringLiteral("en.lproj")));
        ship(QStringLiteral("en.lproj/QVLocalizable.strings"), "\"done\" = \"Submit\";\nnonsense\n");
        shipFolder();
        auto &settings = QVConfigurationManager::sharedManager();
        settings.setPreferredLanguage(QStringLiteral("en"));
        QCOMPARE(qv_localizedStringForKey(QStringLiteral("done")), QStringLiteral("Submit"));
        QCOMPARE(qv_localizedStringForKey(QStringLiteral("fail")), QStringLiteral("fail"));

        settings.setPreferredLanguage(QStringLiteral("zh-Hans"));
        QCOMPARE(settings.languageBundle(), nullptr);
        QVERIFY(qv_localizedStringForKey(QStringLiteral("done")).isNull());
        QVERIFY(qv_localizedStringForKey(QStringLiteral("done"), QStringLiteral("instead")).isNull());
    }

    void aMissingBundleIsToldLoudly()
    {
        QVMainBundle::shared().setPlaces({m_folder->path()});
        QVERIFY_THROWS_EXCEPTION(QVInternalConsistencyError,
                                 (void)qv_imageFromBundleWithName(QStringLiteral("p")));
        try {
            (void)qv_bundle();
            QFAIL("there is no bundle");
        } catch (const std::logic_error &error) {
            QCOMPARE(QString::fromUtf8(error.what()),
                     QStringLiteral("QVResource.bundle 在项目中不存在！！！！"));
        }
    }

private:
    QString bundlePath() const { return m_folder->filePath(QStringLiteral("QVResource.bundle")); }
    QString shippedPath(const QString &name) const
    {
        QDir().mkpath(bundlePath());
        return bundlePath() + u'/' + name;
    }
    void ship(const QString &name, const QByteArray &content) const
    {
        QFile file(shippedPath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    void shipFolder() const { QVMainBundle::shared().setPlaces({m_folder->path(), QStringLiteral(":")}); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QV_TEST(TestBundle)
#include "TestBundle.moc"
