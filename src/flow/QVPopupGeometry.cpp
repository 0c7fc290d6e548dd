#include "flow/QVPopupGeometry.h"

#include <algorithm>

namespace {

constexpr int widestWhole = 480;
constexpr QSize largestCard(414, 520);

} // namespace

QVPopupGeometry::QVPopupGeometry(QSize surface, QVPopupPresentation presentation)
    : m_card(presentation == QVPopupPresentation::Automatic && surface.width() > widestWhole)
    , m_screen(QPoint(), surface)
{
    if (!m_card)
        return;
    const QSize size(largestCard.width(), std::min(largestCard.height(), surface.height()));
    m_screen =
        QRect(QPoint((surface.width() - size.width()) / 2, (surface.height() - size.height()) / 2), size);
}
