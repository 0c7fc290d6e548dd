#pragma once

#include "platform/QuarvoCoreExport.h"
#include "settings/QVPopupPresentation.h"

#include <QRect>

/// Where the popup's screen lies on the surface that the popup covers.
///
/// A trace is scaled by the width of the draw view, and the service expects traces drawn on
/// something as wide as a phone. So a wide surface gets a card, the rest is dimmed.
class QUARVO_CORE_EXPORT QVPopupGeometry
{
public:
    QVPopupGeometry(QSize surface, QVPopupPresentation presentation);

    /// Whether the screen is a card with dimmed surroundings.
    [[nodiscard]] bool isCard() const { return m_card; }
    [[nodiscard]] QRect screen() const { return m_screen; }

private:
    bool m_card;
    QRect m_screen;
};
