#include "draw/DrawTestCase.h"
#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"
#include "views/QVSpokenMessage.h"
#include "views/QVSystemFont.h"

#include <QDesktopServices>
#include <QPaintEvent>
#include <QUrl>
#include <QtMath>

using namespace std::chrono_literals;

namespace {

/// Keeps what of a widget had to be painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

    QRegion painted;
};

} // namespace

/// What the view is made of, where its parts are, and how they take input.
class TestDrawView : public DrawTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void take(const QUrl &url) { m_opened.append(url.toString()); }

private Q_SLOTS:
    void placesItsParts_data()
    {
        const auto row =
            addColumns<int, QSize, bool, QRect, QRect>({"style", "size", "isCharacters", "content", "image"});
        row("popup 320, drawing", 1, QSize(320, 480), false, QRect(0, 148, 320, 184),
            QRect(0, 148, 320, 184));
        row("popup 320, characters", 1, QSize(320, 480), true, QRect(0, 132, 320, 216),
            QRect(0, 132, 320, 184));
        row("popup 240", 1, QSize(240, 480), false, QRect(0, 171, 240, 138), QRect(0, 171, 240, 138));
        row("popup 414", 1, QSize(414, 520), false, QRect(0, 141, 414, 238), QRect(0, 141, 414, 238));
        row("popup 1280, drawing", 2, QSize(1280, 800), false, QRect(433, 281, 414, 238),
            QRect(433, 281, 414, 238));
        row("embedded 400, characters", 0, QSize(400, 270), true, QRect(0, 0, 400, 270),
            QRect(0, 0, 400, 230));
        row("embedded, flat", 0, QSize(878, 287), false, QRect(189, 0, 500, 287), QRect(189, 0, 500, 287));
        row("embedded, flat, characters", 0, QSize(878, 135), true, QRect(339, 0, 200, 135),
            QRect(339, 0, 200, 115));
        row("embedded 1280", 0, QSize(1280, 800), false, QRect(0, 32, 1280, 736), QRect(0, 32, 1280, 736));
    }

    void placesItsParts()
    {
        QFETCH(int, style);
        QFETCH(QSize, size);
        QFETCH(bool, isCharacters);
        QFETCH(QRect, image);
        service().extend(q("config"),
                         {{q("guide"), true}, {q("type"), isCharacters ? q("character") : QString()}});
        start(QVVerifyStyle(style), size);
        QTEST(frame("contentView"), "content");
        QCOMPARE(frame("imageView"), image);
        QCOMPARE(frame("helpButton"), QRect(image.right() - 29, image.top(), 30, 30));
        QCOMPARE(frame("refreshButton"), QRect(image.right() - 59, image.top(), 30, 30));
        QCOMPARE(isShown("charInputView"), isCharacters);
        if (isCharacters) {
            QFETCH(QRect, content);
            QCOMPARE(frame("charInputView"),
                     QRect(content.left(), content.bottom() - 39, content.width(), 40));
        }
        const QRect caption = frame("captchaLabel");
        QCOMPARE(caption.bottom() + 1, image.top() - 10);
        QVERIFY(std::abs(caption.center().x() - size.width() / 2) <= 1);
        QVERIFY(style == QVVerifyStyleEmbed || view().rect().contains(caption));
    }

    void keepsMessagesClearOfTheCharacters()
    {
        service().extend(q("config"), {{q("type"), q("character")}});
        start(QVVerifyStyleEmbed, QSize(284, 192));
        QCOMPARE(bar(), q("promptOverlayView"));
        const QVLabel *label = shownBar()->overlayLabel();
        QCOMPARE(label->mapTo(&view(), QPoint(0, label->height())).y(), frame("charInputView").top());
    }

    void theBadgeIsAsLargeAsItsText()
    {
        start(QVVerifyStyleEmbed, QSize(414, 400));
        QVERIFY(part("outageLabel") && part("outageLabel")->isHidden());
        service().answer(q("switch"), {{q("active"), true}});
        QFont font = qv_systemFont(12);
        font.setItalic(true);
        // Made in a narrow panel as well, which becomes wide.
        for (const int width : {414, 60}) {
            start(QVVerifyStyleEmbed, QSize(width, 400));
            view().resize(414, 400);
            const QRect badge = part("outageLabel")->geometry();
            const QSize text = QFontMetrics(font).size(Qt::TextSingleLine, q("Backup service"));
            QCOMPARE(badge.topLeft(), QPoint());
            QCOMPARE(badge.height(), text.height() + 5);
            // Qt 6.8 counts what leans out of a slanted text, too.
            QVERIFY(std::abs(badge.width() - text.width() - 10) <= 3);
        }
    }

    void showsAnAdvertisement()
    {
        const QFontMetricsF metrics(qv_systemFont(12));
        for (const QString &word : {q("Ad"), QString(40, u'W'), QString(900000, u'W')}) {
            offer(q("get"), word, q("https://ad.example/x"));
            start(QVVerifyStyleEmbed);
            const int width = std::min(qCeil(metrics.horizontalAdvance(word)) + 10, 125);
            QCOMPARE(part("adButton")->geometry(), QRect(0, 0, width, qCeil(metrics.height()) + 5));
            QVERIFY(part("adButton")->accessibleName().size() < 500);
        }
    }

    void opensPages()
    {
        QDesktopServices::setUrlHandler(q("https"), this, "take");
        QVServiceAddresses addresses = service().addresses();
        addresses.setHelpPage(q("https://help.example/draw"));
        addresses.setOutageHelpPage(q("https://help.example/outage"));
        QVSDKManager::setServiceAddresses(addresses);
        service().extend(q("config"), {{q("guide"), true}});
        offer(q("get"), q("word"), q("https://ad.example/x?y=z"));
        start(QVVerifyStyleEmbed);
        click("adButton");
        click("helpButton");
        service().answer(q("switch"), {{q("active"), true}});
        view().reset();
        QVERIFY(waitForReady(2));
        click("helpButton");
        QCOMPARE(m_opened, QStringList({q("https://ad.example/x?y=z"), q("https://help.example/draw"),
                                        q("https://help.example/outage")}));
        QDesktopServices::unsetUrlHandler(q("https"));
    }

    void aRemovedAdvertisementStaysAway()
    {
        offer(q("get"), q("word"), q("https://ad.example"));
        start(QVVerifyStyleEmbed);
        QVERIFY(isShown("adButton"));
        offer(q("refresh"), q("another word"), q("https://ad.example"));
        click("refreshButton");
        QVERIFY(!part("adButton"));
        QVERIFY(waitForReady(2));
        QVERIFY(!part("adButton"));
    }

    void drawsFromAnywhereInTheView_data()
    {
        QTest::addColumn<QString>("where");
        for (const char *name : {"captchaLabel", "refreshButton", "helpButton", "adButton", "imageView"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void drawsFromAnywhereInTheView()
    {
        QFETCH(QString, where);
        service().extend(q("config"), {{q("guide"), true}});
        offer(q("click"), q("word"), q("https://ad.example"));
        start(QVVerifyStylePopup);
        const QPoint from = frame(qPrintable(where)).center();
        const int step = from.x() > 200 ? -8 : 8;
        QVPointerInput::strokeWithMouse(view(), QVPointerInput::wave(from, 20, step));
        QVERIFY(waitFor([this] { return service().count(q("verify")) == 1; }));
        QCOMPARE(service().count(q("refresh")), 0);
    }

    void aClickPicksThePenUpAndAnotherEndsTheLine()
    {
        start(QVVerifyStyleEmbed);
        const auto points = QVPointerInput::wave(frame("imageView").center() - QPoint(80, 0), 20, 8);
        const auto drawByClicks = [&] {
            QVPointerInput::click(view(), points.front());
            for (const QPoint point : points)
                QVPointerInput::move(view(), point);
        };
        // A click on a control is the control's, and the line is gone.
        drawByClicks();
        click("refreshButton");
        QVERIFY(waitForReady(2));
        QCOMPARE(service().count(q("verify")), 0);
        drawByClicks();
        QVPointerInput::click(view(), points.back());
        QVERIFY(waitFor([this] { return service().count(q("verify")) == 1; }));
    }

    void saysThatThePictureIsReplaced()
    {
        start(QVVerifyStyleEmbed);
        QVERIFY(!view().findChild<QVSpokenMessage *>());
        advance(179s);
        const auto *message = view().findChild<QVSpokenMessage *>();
        QVERIFY(message && message->isVisible());
        QCOMPARE(message->accessibleName(), q("Time for this picture is up. A new one is on its way."));
    }

    void looksTheSameFromRightToLeft()
    {
        offer(q("click"), q("Word (of Ad)!"), q("https://ad.example"));
        start(QVVerifyStylePopup);
        const auto look = [this] {
            // Both kinds of halo.
            for (const char *name : {"promptOverlayView", "errorOverlayView"})
                part<QVRenderDrawOverlayView>(name)->setOverlayImage({}, q("(One) two!"));
            return QList<QImage>{pixelsOf(view()), pixelsOf(*part("promptOverlayView")),
                                 pixelsOf(*part("errorOverlayView"))};
        };
        const QList<QImage> before = look();
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        const QList<QImage> after = look();
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        // Outlines come out a step lighter or darker.
        for (qsizetype i = 0; i < before.size(); ++i)
            QVERIFY(farthest(after.at(i), before.at(i)) <= 2);
    }

    void aStrokeAcrossTwoSizesComesToNothing()
    {
        start(QVVerifyStyleEmbed);
        const auto points = QVPointerInput::wave(frame("imageView").center() - QPoint(80, 0), 20, 8);
        QVPointerInput::strokeWithMouse(view(), points, [this] {
            advance(20ms);
            view().resize(view().width() - 1, 300);
        });
        pass(300ms);
        QCOMPARE(service().count(q("verify")), 0);
        draw();
        QVERIFY(waitFor([this] { return service().count(q("verify")) == 1; }));
    }

    void showsTheStrokeAboveThePictureAtLittleCost()
    {
        start(QVVerifyStylePopup);
        const QPoint from = frame("imageView").topLeft() + QPoint(20, 80);
        const auto points = QVPointerInput::wave(from, 40, 6);
        QVPointerInput::press(view(), points[0]);
        QVPointerInput::move(view(), points[1]);
        QCoreApplication::processEvents();
        PaintWatch viewWatch(view());
        PaintWatch pictureWatch(picture());
        for (std::size_t i = 2; i < points.size(); ++i) {
            viewWatch.painted = pictureWatch.painted = QRegion();
            QVPointerInput::move(view(), points[i]);
            QCoreApplication::processEvents();
            for (const QRegion &painted : {viewWatch.painted, pictureWatch.painted})
                QVERIFY(painted.boundingRect().width() <= 16 && painted.boundingRect().height() <= 24);
        }
        QCOMPARE(view().grab().toImage().pixelColor(points[20]), QColor(65, 141, 251));
        QVPointerInput::release(view(), points.back());
        QVERIFY(view().grab().toImage().pixelColor(points[20]) != QColor(65, 141, 251));
    }

private:
    void prepare() override
    {
        DrawTestCase::prepare();
        m_opened.clear();
    }

    void offer(const QString &request, const QString &word, const QString &link)
    {
        service().extend(request, {{q("adlinkword"), word}, {q("adlink"), link}});
    }

    QStringList m_opened;
};

QV_TEST(TestDrawView)
#include "TestDrawView.moc"
