#include "draw/QVRenderDrawView.h"
#include "parts/PartTools.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <map>

namespace {

constexpr QSize panelSize(400, 270);
constexpr double penWidth = 5;

void flushPaints(QWidget &window)
{
    QCoreApplication::sendPostedEvents(&window, QEvent::UpdateRequest);
}

/// A line that never ends: to and fro over the picture.
QPointF position(int index)
{
    constexpr int perRow = 50;
    constexpr int rows = 30;
    const int row = index / perRow;
    const int column = row % 2 == 0 ? index % perRow : perRow - 1 - index % perRow;
    return {20.0 + 7 * column, 30.0 + 6 * (row % rows)};
}

/// The limit: a widget that paints one segment of the pen in its box, and nothing below it.
class SegmentWidget : public QWidget
{
public:
    void showSegment(QPointF from, QPointF to)
    {
        constexpr double margin = penWidth / 2 + 1;
        m_from = from;
        m_to = to;
        update(QRectF(from, to).normalized().adjusted(-margin, -margin, margin, margin).toAlignedRect());
    }

    void paintSegment(QPainter &painter) const
    {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(65, 141, 251), penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawLine(m_from, m_to);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        paintSegment(painter);
    }

private:
    QPointF m_from;
    QPointF m_to;
};

class Panel
{
public:
    explicit Panel(const PartOptions &options)
        : m_view(QVVerifyStyleEmbed)
    {
        configureService(options, QStringLiteral("test-draw"));
        QObject::connect(&m_view, &QVRenderDrawView::ready, &m_window, [this] { m_isReady = true; });
        m_window.resize(panelSize);
        m_view.setParent(&m_window);
        m_view.resize(panelSize);
        m_window.show();
        turnUntil([this] { return m_isReady; });
        turnFor(500);
    }
    ~Panel() { m_view.setParent(nullptr); }
    Panel(const Panel &) = delete;
    Panel &operator=(const Panel &) = delete;

    /// Draws as many points, and tells what the moves to each took, from their delivery to the end of
    /// painting.
    void draw(int points, const std::function<void(int index, double cost)> &measured)
    {
        send(QEvent::MouseButtonPress, position(0));
        for (int i = 1; i < points; ++i) {
            const double start = benchNow();
            send(QEvent::MouseMove, position(i));
            flushPaints(m_window);
            measured(i, benchNow() - start);
        }
        send(QEvent::MouseButtonRelease, position(points));
        // The prompt slides back in.
        turnFor(300);
    }

private:
    void send(QEvent::Type type, QPointF point)
    {
        QWindow *window = m_window.windowHandle();
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, point, point + window->position(), isMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    }

    QWidget m_window;
    QVRenderDrawView m_view;
    bool m_isReady = false;
};

double segmentCost(SegmentWidget &widget, int index)
{
    const double start = benchNow();
    widget.showSegment(position(index - 1), position(index));
    flushPaints(widget);
    return benchNow() - start;
}

double offScreenCost(const SegmentWidget &widget, QImage &canvas)
{
    const double start = benchNow();
    QPainter painter(&canvas);
    widget.paintSegment(painter);
    painter.end();
    return benchNow() - start;
}

} // namespace

void runStrokePart(const PartOptions &options)
{
    constexpr int nearby = 5;
    Panel panel(options);
    SegmentWidget bare;
    bare.resize(panelSize);
    bare.show();
    turnFor(100);
    const double ratio = qApp->devicePixelRatio();
    QImage canvas(panelSize * ratio, QImage::Format_RGB32);
    canvas.setDevicePixelRatio(ratio);

    std::map<int, std::vector<double>> ours;
    std::map<int, std::vector<double>> limits;
    std::vector<double> offScreen;
    std::vector<int> places{10, 500};
    if (ratio == 1)
        places.insert(places.end(), {100, 1000, 9990});
    const auto measure = [&](int index, double cost) {
        for (const int place : places) {
            if (std::abs(index - place) > nearby)
                continue;
            ours[place].push_back(cost);
            limits[place].push_back(segmentCost(bare, index));
            offScreen.push_back(offScreenCost(bare, canvas));
        }
    };
    const int longest = *std::ranges::max_element(places) + 2 * nearby;
    panel.draw(longest, [](int, double) {});
    for (int stroke = options.rounds(12, 1); stroke > 0; --stroke)
        panel.draw(options.isShort ? 520 : longest, measure);

    for (const auto &[place, costs] : ours) {
        const bool isAsked = place <= 500 && place != 100 && ratio <= 2;
        tellRow({QStringLiteral("stroke, a move at point %1, %2x").arg(place).arg(ratio),
                 QStringLiteral("us"), benchMedian(costs) / nanosecondsPerMicrosecond,
                 benchMedian(limits[place]) / nanosecondsPerMicrosecond,
                 isAsked ? BenchRow::Target::Times : BenchRow::Target::None, 2});
    }
    tellRow({QStringLiteral("stroke, the segment alone into a picture off screen, %1x").arg(ratio),
             QStringLiteral("us"), benchMedian(offScreen) / nanosecondsPerMicrosecond});
}
