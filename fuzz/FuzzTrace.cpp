// Strokes: what is sent about any sequence of positions, against a model that was written apart from
// the code, by the service's rules alone.
#include "flow/QVRenderTrace.h"
#include "fuzz/FuzzInput.h"

#include <QRectF>

#include <cmath>
#include <string>
#include <vector>

namespace {

struct Kept
{
    double x;
    double y;
    double milliseconds;
};

std::string digitsOf(double value)
{
    static const std::string alphabet = "kqrsvj567opcd89ghiyz";
    const double bounded = value > 0 ? std::min(value, 159999.0) : 0.0;
    const auto number = static_cast<std::size_t>(bounded);
    return {alphabet[number / 8000], alphabet[number / 20 % 20], alphabet[number % 20]};
}

class Model
{
public:
    Model(double width, double height)
        : m_width(width)
        , m_height(height)
    {
    }

    void take(double x, double y, double milliseconds)
    {
        const double left = x > 0 ? x : 0;
        const double top = y > 0 ? y : 0;
        if (!m_kept.empty()) {
            const bool isFar = std::abs(m_kept.back().x - left) >= 5 || std::abs(m_kept.back().y - top) >= 5;
            if (!isFar || !(milliseconds < 8000))
                return;
        }
        m_kept.push_back({left, top, milliseconds});
    }

    [[nodiscard]] std::string sent() const
    {
        std::string columns;
        std::string rows;
        std::string times;
        for (const Kept &kept : m_kept) {
            columns += digitsOf(kept.x * (400.0 / m_width));
            rows += digitsOf(kept.y * ((230.0 * m_height / m_width) / m_height));
            times += digitsOf(kept.milliseconds);
        }
        return columns + rows + times;
    }

    [[nodiscard]] const std::vector<Kept> &kept() const { return m_kept; }

private:
    double m_width;
    double m_height;
    std::vector<Kept> m_kept;
};

/// Mostly where a pointer may be, at times anything that a double can be.
double coordinate(FuzzInput &input)
{
    const auto kind = input.take<std::uint8_t>();
    if (kind == 0xff)
        return input.take<double>();
    return kind * 4.0 + input.take<std::uint8_t>() / 64.0 - 100.0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    const double width = input.take<std::uint16_t>() % 2000;
    const double height = input.take<std::uint16_t>() % 2000;
    constexpr double start = 1704067200.0;
    QVRenderTrace trace;
    trace.setFrameSize({width, height});
    trace.setPanGestureStartTime(start);
    Model model(width, height);
    double time = start;
    while (!input.isEmpty()) {
        const double x = coordinate(input);
        const double y = coordinate(input);
        trace.handlePanGesturePoint({x, y}, time);
        model.take(x, y, (time - start) * 1000.0);
        // Clocks are set back, too.
        time += input.take<std::int8_t>() / 256.0;
    }
    fuzzRequire(trace.getRenderSource_v().toStdString() == model.sent());
    fuzzRequire(trace.isAcceptable() == (model.kept().size() >= 10 && model.kept().size() <= 80));
    const QString cells = trace.getRenderOutage_v(QRectF(0, 20, width, height));
    fuzzRequire(cells.size() == (model.kept().empty() ? 0 : 4));
    return 0;
}
