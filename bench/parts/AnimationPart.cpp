#include "layers/QVTicker.h"
#include "modes/QVClickStatusView.h"
#include "parts/PartTools.h"
#include "views/QVActivitySpinner.h"
#include "views/QVRenderDrawImageView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QVariantAnimation>
#include <QWidget>

#include <numbers>

namespace {

constexpr double framesPerSecond = 60;
constexpr QColor blue(65, 141, 251);

/// Counts what a widget paints, and remembers where.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            region = static_cast<QPaintEvent *>(event)->region();
        }
        return false;
    }

    int count = 0;
    QRegion region;
};

/// The limit: one animation of the toolkit that repaints a region with a shape.
class BareShape : public QWidget
{
public:
    using Shape = std::function<void(QPainter &, double)>;

    BareShape(QWidget *parent, Shape shape, QRegion region)
        : QWidget(parent)
        , m_shape(std::move(shape))
        , m_region(std::move(region))
    {
        m_animation.setStartValue(0.0);
        m_animation.setEndValue(1.0);
        m_animation.setDuration(1000);
        m_animation.setLoopCount(-1);
        connect(&m_animation, &QVariantAnimation::valueChanged, this, [this] { update(m_region); });
    }

    void run(bool running)
    {
        if (running)
            m_animation.start();
        else
            m_animation.stop();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        m_shape(painter, m_animation.currentValue().toDouble());
    }

private:
    Shape m_shape;
    QRegion m_region;
    QVariantAnimation m_animation;
};

/// Percent of one core that \a widget takes at 60 frames a second while it moves.
double load(QWidget &widget, int milliseconds)
{
    constexpr double percent = 100;
    PaintWatch watch(widget);
    turnFor(50);
    watch.count = 0;
    const double start = benchCpuNow();
    turnFor(milliseconds);
    const double used = benchCpuNow() - start;
    return watch.count == 0 ? 0 : used / watch.count * framesPerSecond / 1e9 * percent;
}

void compare(const PartOptions &options, const QString &name, QWidget &ours,
             const std::function<void(bool)> &run, const BareShape::Shape &shape)
{
    QWidget &window = *ours.window();
    const int slice = options.rounds(1000, 200);
    run(true);
    turnFor(100);
    PaintWatch watch(ours);
    turnFor(100);
    BareShape bare(&window, shape, watch.region);
    bare.setGeometry(QRect(QPoint(0, 300), ours.size()));
    bare.show();
    run(false);
    const BenchPair cost = benchInTurn(
        options.rounds(7, 1),
        [&] {
            run(true);
            const double used = load(ours, slice);
            run(false);
            return used;
        },
        [&] {
            bare.run(true);
            const double used = load(bare, slice);
            bare.run(false);
            return used;
        });
    tellRow({QStringLiteral("animation: %1, at 60 frames a second").arg(name), QStringLiteral("% of a core"),
             cost.ours, cost.limit, BenchRow::Target::Times, 1.2});
}

void paintDots(QPainter &painter, double value)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(blue);
    for (int i = 0; i < 3; ++i)
        painter.drawEllipse(QPointF(185 + 15 * i, 115), 1.5 + 3.5 * value, 1.5 + 3.5 * value);
}

void paintRing(QPainter &painter, const QPen &pen, const QRectF &box, double start, double span)
{
    constexpr double sixteenths = 16 * 180 / std::numbers::pi;
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(box, int(start * sixteenths), int(span * sixteenths));
}

} // namespace

void runAnimationPart(const PartOptions &options)
{
    constexpr double turn = 2 * std::numbers::pi;
    configureService(options, QStringLiteral("test-draw"));
    QVTicker::shared().setRefreshRate(framesPerSecond);
    QWidget window;
    window.resize(400, 600);
    QVRenderDrawImageView picture(&window);
    picture.resize(400, 230);
    QVActivitySpinner spinner(&window);
    spinner.setGeometry(0, 240, QVActivitySpinner::defaultSide, QVActivitySpinner::defaultSide);
    QVClickStatusView status(&window);
    status.setGeometry(100, 240, 44, 44);
    window.show();
    turnFor(100);

    compare(
        options, QStringLiteral("three dots while loading"), picture,
        [&](bool on) { on ? picture.showLoadingAnimation() : picture.hiddenLoadingAnimation(); }, paintDots);
    compare(
        options, QStringLiteral("spinner of the input"), spinner,
        [&](bool on) { on ? spinner.startAnimating() : spinner.stopAnimating(); },
        [](QPainter &painter, double value) {
            const QPen pen(QColor(150, 150, 150), 2, Qt::SolidLine, Qt::RoundCap);
            paintRing(painter, pen, QRectF(2, 2, 16, 16), value * turn, 0.75 * turn);
        });
    compare(
        options, QStringLiteral("button while verifying"), status,
        [&](bool on) { status.setClickStatus(on ? QVClickStatusVerifying : QVClickStatusNormal); },
        [](QPainter &painter, double value) {
            const QRectF box(9, 9, 26, 26);
            painter.fillRect(QRect(0, 0, 44, 44), QColor(0, 0, 0, 77));
            paintRing(painter, QPen(QColor(255, 255, 255, 128), 2), box, 0, turn);
            paintRing(painter, QPen(Qt::white, 2), box, value * turn, 0.15 * turn);
        });
}
