#pragma once

#include "platform/QuarvoCoreExport.h"
#include "settings/QVPopupPresentation.h"

#include <QRect>

#include <chrono>
#include <optional>

/// The place of a popup, and the area for its elements (the screen) on the surface that it covers.
///
/// A trace is scaled by the width of the draw view, and the service expects traces that were drawn on a
/// surface as wide as a phone. So on a wide surface the popup is a card, and the rest is dimmed.
class QUARVO_CORE_EXPORT QVPopupGeometry
{
public:
    enum class Place {
        /// A layer in the host's window.
        Layer,
        /// A card in a separate window over the host's.
        OwnWindow,
        /// A separate window over the whole screen.
        Screen,
    };
    /// The window that a popup belongs to.
    struct Host
    {
        QSize size;
        /// Whether a layer in the window is visible and takes input.
        bool isUsable = true;
        /// The size that is available on its screen.
        QSize screen;
    };

    /// The radius of the close button, which lies in a corner of the card.
    static constexpr int cardRadius = 16;
    /// Between the support label and the corner that it lies in.
    static constexpr QPoint supportOffset{10, 5};
    static constexpr std::chrono::milliseconds dimDuration{150};
    static constexpr std::chrono::milliseconds unfoldDuration{250};

    [[nodiscard]] static Place place(const std::optional<Host> &host, QVPopupPresentation presentation);
    /// The largest size of a card.
    [[nodiscard]] static QSize cardSize();

    /// If \a mayBeCard is false, the whole surface is covered, whatever its width.
    QVPopupGeometry(QSize surface, bool mayBeCard);

    /// Whether the screen is a card, with the rest of the surface dimmed.
    [[nodiscard]] bool isCard() const { return m_card; }
    [[nodiscard]] QRect screen() const { return m_screen; }

private:
    bool m_card;
    QRect m_screen;
};
