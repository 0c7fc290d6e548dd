#include "layers/QVTimingCurve.h"

#include <algorithm>

namespace {

// Halvings of the parameter's interval: 2^-24 is far below what a pixel shows.
constexpr int halvings = 24;

double bezier(double first, double second, double t)
{
    const double rest = 1 - t;
    return 3 * rest * rest * t * first + 3 * rest * t * t * second + t * t * t;
}

} // namespace

double QVTimingCurve::valueAt(double progress) const
{
    const double x = std::clamp(progress, 0.0, 1.0);
    if (m_linear || x == 0.0 || x == 1.0)
        return x;
    double low = 0;
    double high = 1;
    for (int i = 0; i < halvings; ++i) {
        const double middle = (low + high) / 2;
        (bezier(m_first.x(), m_second.x(), middle) < x ? low : high) = middle;
    }
    return bezier(m_first.y(), m_second.y(), (low + high) / 2);
}
