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
    void aHostLaysOutAsTheAdvertisementGoes()
    {
        offer(q("get"), QString(900000, u'W'), q("https://ad.example"));
        show(q("embed"));
        QVERIFY(part("adButton")->accessibleName().size() < 500);
        QWidget line(&host());
        QVBoxLayout layout(&host());
        layout.addWidget(embedManager().embedView());
        layout.addWidget(&line);
        part("adButton")->setFocus(Qt::TabFocusReason);
        // The layout is activated while the view is being destroyed.
        connect(qApp, &QApplication::focusChanged, &line, [&line] { line.show(); });
        destroy();
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
