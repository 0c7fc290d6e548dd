#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "sandbox/QVSandbox.h"
#include "settings/QVSDKManager.h"
#include "settings/QVSystemFont.h"
#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QPaintEvent>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace {

/// Records the painted regions of a widget.
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

/// The places of the view's parts, and how they take input.
class TestDrawView : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void placesItsParts_data()
    {
        const auto row =
            addColumns<QString, QSize, QString, QRect, QRect>({"mode", "size", "kind", "content", "image"});
        const QString draw = q("draw");
        const QString characters = q("character");
        row("phone", click, QSize(320, 480), draw, QRect(0, 148, 320, 184), QRect(0, 148, 320, 184));
        row("phone, characters", click, QSize(320, 480), characters, QRect(0, 132, 320, 216),
            QRect(0, 132, 320, 184));
        const QString embed = q("embed");
        row("characters", embed, QSize(400, 270), characters, QRect(0, 0, 400, 270), QRect(0, 0, 400, 230));
        row("flat", embed, QSize(878, 287), draw, QRect(189, 0, 500, 287), QRect(189, 0, 500, 287));
        row("flat, characters", embed, QSize(878, 135), characters, QRect(339, 0, 200, 135),
            QRect(339, 0, 200, 115));
        row("large", embed, QSize(1280, 800), draw, QRect(0, 32, 1280, 736), QRect(0, 32, 1280, 736));
    }

    void placesItsParts()
    {
        QFETCH(QString, mode);
        QFETCH(QSize, size);
        QFETCH(QString, kind);
        QFETCH(QRect, image);
        service().extend(config, {{q("guide"), true}, {q("type"), kind}});
        // Started at another size, then resized.
        show(mode, QSize(450, 450));
        resize(size);
        advance(0ms);
        QTEST(frameOf(q("contentView")), "content");
        QCOMPARE(frameOf(picture), image);
        QCOMPARE(frameOf(q("helpButton")), QRect(image.right() - 29, image.top(), 30, 30));
        QCOMPARE(frameOf(q("refreshButton")), QRect(image.right() - 59, image.top(), 30, 30));
        if (kind == q("character")) {
            QFETCH(QRect, content);
            QCOMPARE(frameOf(q("charInputView")),
                     QRect(content.left(), content.bottom() - 39, content.width(), 40));
        }
        if (const QRect caption = frameOf(q("caption")); !caption.isEmpty()) {
            QCOMPARE(caption.bottom() + 1, image.top() - 10);
            QVERIFY(std::abs(caption.center().x() - size.width() / 2) <= 1);
        }
    }

    void hasRoomForALongAdvertisement()
    {
        offer(q("get"), QString(900000, u'W'), q("https://ad.example/x"));
        show(q("embed"));
        QCOMPARE(part("adButton")->width(), 125);
        QVERIFY(part("adButton")->height() > QFontMetrics(qv_systemFont(12)).height());
        QVERIFY(part("adButton")->accessibleName().size() < 500);
    }

    void theHintForKeysFollowsThePictureAndTheFont()
    {
        show(q("embed"));
        host().setAttribute(Qt::WA_KeyboardFocusChange);
        part("imageView")->setFocus(Qt::TabFocusReason);
        const QFont usual = QApplication::font();
        const auto restore = qScopeGuard([usual] { QApplication::setFont(usual); });
        for (const int times : {1, 2}) {
            QFont font = usual;
            font.setPointSizeF(usual.pointSizeF() * times);
            QApplication::setFont(font);
            resize(QSize(240, 200) * times);
            const int bar = part("promptOverlayView")->height();
            QVERIFY(frameOf(picture).adjusted(0, 0, 0, -bar).contains(frameOf(q("penHint"))));
        }
    }

    void aHostLaysOutAsTheAdvertisementGoes()
    {
        offer(q("get"), q("Word"), q("https://ad.example"));
        show(q("embed"));
        QWidget line(&host());
        QVBoxLayout layout(&host());
        layout.addWidget(embedManager().embedView());
        layout.addWidget(&line);
        part("adButton")->setFocus(Qt::TabFocusReason);
        // The layout is activated while the view is being destroyed.
        connect(qApp, &QApplication::focusChanged, &line, [&line] { line.show(); });
        destroy();
    }

    void looksTheSameFromRightToLeft()
    {
        offer(q("get"), q("Word (of Ad)!"), q("https://ad.example"));
        show(q("embed"));
        const QImage before = pixelsOf(*part("contentView"));
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        const QImage after = pixelsOf(*part("contentView"));
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        // Antialiasing may differ slightly.
        QVERIFY(farthest(after, before) <= 2);
    }

    void clearsThePictureWhenTheNextOneIsSlow()
    {
        show(q("embed"));
        service().delay(q("refresh"), 1s);
        const auto corner = [this] {
            return screenshot().pixelColor(frameOf(picture).topLeft() + QPoint(2, 2));
        };
        const QColor before = corner();
        QVPointerInput::click(*part("refreshButton"), QPoint(15, 15));
        advance(99ms);
        QCOMPARE(corner(), before);
        advance(1ms);
        QVERIFY(corner() != before);
    }

    void aControlIsNotHeldDownByADrawingFinger()
    {
        go(q("guide"));
        show(q("embed"));
        drawWithFinger(waveFrom(q("helpButton")));
        QVERIFY(!qobject_cast<QAbstractButton *>(part("helpButton"))->isDown());
    }

    void showsTheStrokeAtLittleCost()
    {
        show(click);
        QVRenderDrawView *const view = drawView();
        const Points points = waveFrom({});
        QVPointerInput::press(*view, points[0]);
        QVPointerInput::move(*view, points[1]);
        QCoreApplication::processEvents();
        PaintWatch viewWatch(*view);
        PaintWatch pictureWatch(*part("imageView"));
        for (std::size_t i = 2; i < points.size(); ++i) {
            viewWatch.painted = pictureWatch.painted = QRegion();
            QVPointerInput::move(*view, points[i]);
            QCoreApplication::processEvents();
            for (const QRegion &painted : {viewWatch.painted, pictureWatch.painted})
                QVERIFY(painted.boundingRect().width() <= 18 && painted.boundingRect().height() <= 24);
        }
        const auto seen = [&] {
            return onScreen(*view->window()).pixelColor(points[10]);
        };
        QCOMPARE(seen(), QColor(65, 141, 251));
        QVPointerInput::release(*view, points.back());
        QVERIFY(seen() != QColor(65, 141, 251));
    }

    void passesWhoDrawsTheCurve_data()
    {
        const auto row = addColumns<QString, QSize, bool>({"mode", "size", "isOutage"});
        row("small", q("embed"), QSize(320, 186), false);
        row("flat and wide", q("embed"), QSize(1378, 287), false);
        row("tall", q("embed"), QSize(300, 600), false);
        row("outage, flat", q("embed"), QSize(878, 287), true);
        row("phone", click, QSize(320, 480), false);
    }

    /// Against a service that decodes and judges with code of its own.
    void passesWhoDrawsTheCurve()
    {
        QFETCH(QString, mode);
        QFETCH(QSize, size);
        QFETCH(bool, isOutage);
        QVSandboxOptions options;
        options.seed = 7;
        QVSandbox sandbox(options);
        QVERIFY2(sandbox.listen(), qPrintable(sandbox.errorString()));
        sandbox.setOutageActive(isOutage);
        const QVSandboxAddresses where = sandbox.addresses();
        QVSDKManager::setServiceAddresses(QVServiceAddresses::at(where.apiHost));
        QVSDKManager::setOutageServer(where.outageServer);
        show(mode, size);
        if (isOutage) {
            // The log of the sandbox has the name of an outage picture only after a first attempt on it.
            drawWithMouse(waveFrom({}));
            QVERIFY(waitFor([this] { return outcomes().said().contains(q("wrong")); }));
        }
        QString challenge;
        for (const QVSandboxLogEntry &entry : sandbox.log())
            challenge = entry.values.value(q("challenge"), challenge);
        const QRect area = frameOf(picture);
        Points points;
        const auto solution = sandbox.solution(challenge);
        for (const QPointF point : solution->points)
            points.push_back(area.topLeft() + (point * area.width() / 400).toPoint());
        drawWithMouse(points);
        const auto isPassed = [this] {
            advance(100ms);
            return outcomes().said().last().startsWith(q("passed "));
        };
        QVERIFY(waitFor(isPassed));
    }

private:
    void show(const QString &mode, QSize size = QSize(414, 300))
    {
        setMode(mode);
        host().resize(size);
        start();
        resize(size);
        go(q("picture"));
    }

    /// The panel fills the window.
    void resize(QSize size)
    {
        host().resize(size);
        if (modeName() == q("embed"))
            embedManager().embedView()->setGeometry(host().rect());
    }

    void offer(const QString &request, const QString &word, const QString &link)
    {
        service().extend(request, {{q("adlinkword"), word}, {q("adlink"), link}});
    }
};

QV_TEST(TestDrawView)
#include "TestDrawView.moc"
