#include "flow/QVPopupGeometry.h"

#include "flow/QVDrawGeometry.h"

#include <algorithm>

namespace {

constexpr int widestWhole = 480;
constexpr int narrowestWhole = 240;
/// The height above and below the content, for the caption, the close button and the support label.
constexpr int margin = 50;

/// The height that a surface of this width needs to show everything.
int neededHeight(int width)
{
    // With characters the content is higher.
    return int(QVDrawGeometry::contentAspect(true) * std::min(width, QVDrawGeometry::widestContent)) +
           2 * margin;
}

bool hasRoom(QSize surface)
{
    return surface.width() >= narrowestWhole && surface.height() >= neededHeight(surface.width());
}

} // namespace

QSize QVPopupGeometry::cardSize()
{
    return {QVDrawGeometry::widestContent, neededHeight(QVDrawGeometry::widestContent)};
}

QVPopupGeometry::Place QVPopupGeometry::place(const std::optional<Host> &host,
                                              QVPopupPresentation presentation)
{
    if (!host || presentation == QVPopupPresentation::WholeScreen)
        return Place::Screen;
    if (host->isUsable && hasRoom(host->size))
        return Place::Layer;
    // A screen that the host fills has no more room.
    const bool offersMore =
        host->screen.width() > host->size.width() || host->screen.height() > host->size.height();
    return host->isUsable && !offersMore ? Place::Layer : Place::OwnWindow;
}

QVPopupGeometry::QVPopupGeometry(QSize surface, bool mayBeCard)
    : m_card(mayBeCard && surface.width() > widestWhole)
    , m_screen(QPoint(), surface)
{
    if (!m_card)
        return;
    const QSize size = cardSize().boundedTo(surface);
    m_screen =
        QRect(QPoint((surface.width() - size.width()) / 2, (surface.height() - size.height()) / 2), size);
}
