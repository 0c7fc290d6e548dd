#pragma once

#include "platform/QuarvoCoreExport.h"
#include "settings/QVPopupPresentation.h"

#include <QRect>

#include <optional>

/// Where a popup lies, and where its screen lies on the surface that it covers.
///
/// A trace is scaled by the width of the draw view, and the service expects traces drawn on something
/// as wide as a phone. So a wide surface gets a card, and the rest of it is dimmed.
class QUARVO_CORE_EXPORT QVPopupGeometry
{
public:
    enum class Place {
        /// A layer in the host's window.
        Layer,
        /// A card in a window of its own, over the host's.
        OwnWindow,
        /// A window of its own over the whole screen.
        Screen,
    };
    /// The window that a popup belongs to.
    struct Host
    {
        QSize size;
        /// Whether a layer in it would be seen and take input.
        bool isUsable = true;
        /// How much room its screen offers.
        QSize screen;
    };

    [[nodiscard]] static Place place(const std::optional<Host> &host, QVPopupPresentation presentation);
    /// The largest that a card becomes.
    [[nodiscard]] static QSize cardSize();

    /// \a mayBeCard is false where the surface is to be covered whole, however wide it is.
    QVPopupGeometry(QSize surface, bool mayBeCard);

    /// Whether the screen is a card with dimmed surroundings.
    [[nodiscard]] bool isCard() const { return m_card; }
    [[nodiscard]] QRect screen() const { return m_screen; }

private:
    bool m_card;
    QRect m_screen;
};
