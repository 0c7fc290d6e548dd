#include "draw/QVRenderDrawView.h"
#include "flow/QVRenderDrawViewDelegate.h"
#include "sandbox/QVSandbox.h"
#include "settings/QVSDKManager.h"
#include "settings/QVSystemFont.h"
#include "support/DrawServiceTestCase.h"
#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QPaintEvent>

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
class TestDrawView : public DrawServiceTestCase, public QVRenderDrawViewDelegate
{
    Q_OBJECT

public:
    void renderDrawViewHasPassed() override { told.append(q("passed")); }
    void renderDrawViewVerifySuccess(const QString &token) override { told.append(token); }

private Q_SLOTS:
    void placesItsParts_data()
    {
        const auto row =
            addColumns<int, QSize, bool, QRect, QRect>({"style", "size", "isCharacters", "content", "image"});
        row("popup 320, drawing", 1, QSize(320, 480), false, QRect(0, 148, 320, 184),
            QRect(0, 148, 320, 184));
        row("popup 320, characters", 1, QSize(320, 480), true, QRect(0, 132, 320, 216),
            QRect(0, 132, 320, 184));
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
        // Started at another size, then resized.
        startWithPicture(QVVerifyStyle(style), QSize(60, 90));
        view->window()->resize(size);
        view->resize(size);
        advance(0ms);
        QTEST(frame(q("contentView")), "content");
        QCOMPARE(frame(q("imageView")), image);
        QCOMPARE(frame(q("helpButton")), QRect(image.right() - 29, image.top(), 30, 30));
        QCOMPARE(frame(q("refreshButton")), QRect(image.right() - 59, image.top(), 30, 30));
        if (isCharacters) {
            QFETCH(QRect, content);
            QCOMPARE(frame(q("charInputView")),
                     QRect(content.left(), content.bottom() - 39, content.width(), 40));
        }
        const QRect caption = frame(q("captchaLabel"));
        QCOMPARE(caption.bottom() + 1, image.top() - 10);
        QVERIFY(std::abs(caption.center().x() - size.width() / 2) <= 1);
        if (const QVLabel *const label = barLabel())
            QVERIFY(label->mapTo(view, QPoint(0, label->height())).y() <= image.bottom() + 1);
    }

    void hasRoomForALongAdvertisement()
    {
        offer(q("get"), QString(900000, u'W'), q("https://ad.example/x"));
        startWithPicture(QVVerifyStyleEmbed);
        QCOMPARE(part(q("adButton"))->width(), 125);
        QVERIFY(part(q("adButton"))->height() > QFontMetrics(qv_systemFont(12)).height());
        QVERIFY(part(q("adButton"))->accessibleName().size() < 500);
    }

    void looksTheSameFromRightToLeft()
    {
        offer(q("get"), q("Word (of Ad)!"), q("https://ad.example"));
        startWithPicture(QVVerifyStyleEmbed);
        const QImage before = pixelsOf(*part(q("contentView")));
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        const QImage after = pixelsOf(*part(q("contentView")));
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        // Antialiasing may differ slightly.
        QVERIFY(farthest(after, before) <= 2);
    }

    void clearsThePictureWhenTheNextOneIsSlow()
    {
        startWithPicture(QVVerifyStyleEmbed);
        service().delay(q("refresh"), 1s);
        const auto corner = [this] {
            return pixelsOf(image()).pixelColor(2, 2);
        };
        const QColor before = corner();
        QVPointerInput::click(*part(q("refreshButton")), QPoint(15, 15));
        advance(99ms);
        QCOMPARE(corner(), before);
        advance(1ms);
        QVERIFY(corner() != before);
    }

    void showsTheStrokeAtLittleCost()
    {
        startWithPicture(QVVerifyStylePopup);
        const QVPointerInput::Points points = stroke();
        QVPointerInput::press(*view, points[0]);
        QVPointerInput::move(*view, points[1]);
        QCoreApplication::processEvents();
        PaintWatch viewWatch(*view);
        PaintWatch pictureWatch(image());
        for (std::size_t i = 2; i < points.size(); ++i) {
            viewWatch.painted = pictureWatch.painted = QRegion();
            QVPointerInput::move(*view, points[i]);
            QCoreApplication::processEvents();
            for (const QRegion &painted : {viewWatch.painted, pictureWatch.painted})
                QVERIFY(painted.boundingRect().width() <= 18 && painted.boundingRect().height() <= 24);
        }
        const auto seen = [&] {
            return view->grab().toImage().pixelColor(points[10]);
        };
        QCOMPARE(seen(), QColor(65, 141, 251));
        QVPointerInput::release(*view, points.back());
        QVERIFY(seen() != QColor(65, 141, 251));
    }

    void passesWhoDrawsTheCurve_data()
    {
        const auto row = addColumns<int, QSize, bool>({"style", "size", "isOutage"});
        row("embedded, small", 0, QSize(320, 186), false);
        row("embedded, flat and wide", 0, QSize(1378, 287), false);
        row("embedded, tall", 0, QSize(300, 600), false);
        row("outage, flat", 0, QSize(878, 287), true);
        row("popup, small", 1, QSize(320, 480), false);
    }

    /// Against a service that decodes and judges with code of its own.
    void passesWhoDrawsTheCurve()
    {
        QFETCH(int, style);
        QFETCH(QSize, size);
        QFETCH(bool, isOutage);
        QVSandboxOptions options;
        options.seed = 7;
        QVSandbox sandbox(options);
        QVERIFY2(sandbox.listen(), qPrintable(sandbox.errorString()));
        sandbox.setOutageActive(isOutage);
        const QVSandboxAddresses where = sandbox.addresses();
        QVServiceAddresses addresses;
        addresses.setApiHost(where.apiHost);
        addresses.setDownloadHost(where.downloadHost);
        addresses.setImageHost(where.imageHost);
        QVSDKManager::setServiceAddresses(addresses);
        QVSDKManager::setOutageServer(where.outageServer);
        startWithPicture(QVVerifyStyle(style), size);
        if (isOutage) {
            // The log of the sandbox has the name of an outage picture only after a first attempt on it.
            QVPointerInput::strokeWithMouse(*view, stroke(), [this] { advance(20ms); });
            QVERIFY(waitForTold("wrong"));
        }
        QString challenge;
        for (const QVSandboxLogEntry &entry : sandbox.log())
            challenge = entry.values.value(q("challenge"), challenge);
        const QRect area = frame(q("imageView"));
        QVPointerInput::Points points;
        const auto solution = sandbox.solution(challenge);
        for (const QPointF point : solution->points)
            points.push_back(area.topLeft() + (point * area.width() / 400).toPoint());
        QVPointerInput::strokeWithMouse(*view, points, [this] { advance(25ms); });
        QVERIFY(waitForTold("passed"));
        advance(1s);
        QVERIFY(told.last().size() > 10);
        delete view;
    }

private:
    void finish() override
    {
        m_host.reset();
        DrawServiceTestCase::finish();
    }

    /// Shows a view of \a size in a window, starts it as its hosts do, and waits for its picture, and for the
    /// bars and the shape to come to rest.
    void startWithPicture(QVVerifyStyle style, QSize size = QSize(414, 400))
    {
        told.clear();
        m_host = std::make_unique<QWidget>();
        m_host->resize(size);
        view = new QVRenderDrawView(style, m_host.get());
        view->setGeometry(m_host->rect());
        view->setDelegate(this);
        connect(view, &QVRenderDrawView::ready, this, [this] { told.append(q("ready")); });
        connect(view, &QVRenderDrawView::wrongAnswer, this, [this] { told.append(q("wrong")); });
        m_host->show();
        QVERIFY(qv_becomesActive(*m_host));
        if (style == QVVerifyStyleEmbed)
            advance(100ms);
        else
            view->requestQuarvoConfigAction();
        QVERIFY(waitForTold("ready"));
        advance(300ms);
    }

    [[nodiscard]] QWidget *part(const QString &name) const { return m_host->findChild<QWidget *>(name); }
    [[nodiscard]] QVRenderDrawImageView &image() const
    {
        return *m_host->findChild<QVRenderDrawImageView *>(q("imageView"));
    }
    /// The frame of a part in the view's coordinates.
    [[nodiscard]] QRect frame(const QString &name) const
    {
        return {part(name)->mapTo(view, QPoint(0, 0)), part(name)->size()};
    }
    /// The text of the bar on screen. Null if there is none.
    [[nodiscard]] QVLabel *barLabel() const
    {
        for (auto *const bar : image().findChildren<QVRenderDrawOverlayView *>()) {
            if (bar->isOnScreen())
                return bar->overlayLabel();
        }
        return nullptr;
    }
    /// Points of a stroke over the middle of the picture.
    [[nodiscard]] QVPointerInput::Points stroke() const
    {
        const QRect area = frame(q("imageView"));
        return QVPointerInput::wave(area.topLeft() + QPoint(30, area.height() / 2), 20, 8);
    }
    [[nodiscard]] bool waitForTold(const char *what) const
    {
        return waitFor([&] { return told.contains(q(what)); });
    }

    void offer(const QString &request, const QString &word, const QString &link)
    {
        service().extend(request, {{q("adlinkword"), word}, {q("adlink"), link}});
    }

    QVRenderDrawView *view = nullptr;
    /// What the view has reported by signals and to its delegate.
    QStringList told;
    std::unique_ptr<QWidget> m_host;
};

QV_TEST(TestDrawView)
#include "TestDrawView.moc"
