#pragma once

#include <QtGlobal>

/// The attribute of a rectangle that a constraint sets or reads.
enum class QVLayoutAttribute { Left, Right, CenterX, Width, Top, Bottom, CenterY, Height };

[[nodiscard]] bool qv_isHorizontal(QVLayoutAttribute attribute);
/// Whether it is a width or a height, not a position.
[[nodiscard]] bool qv_isLength(QVLayoutAttribute attribute);

/// One equation: attribute of an item = attribute of a target * multiplier + offset, or a number.
///
/// Positions are in the coordinates of the item's parent, even if the target has another parent.
struct QVLayoutConstraint
{
    /// Identifies an item; 0 is none.
    using ItemId = quint64;

    ItemId item = 0;
    QVLayoutAttribute attribute = QVLayoutAttribute::Left;
    /// With 0 the value is the offset.
    ItemId target = 0;
    QVLayoutAttribute targetAttribute = QVLayoutAttribute::Left;
    double multiplier = 1;
    double offset = 0;

    /// Whether the two differ at most in their constants.
    [[nodiscard]] bool hasFormOf(const QVLayoutConstraint &other) const;

    friend bool operator==(const QVLayoutConstraint &, const QVLayoutConstraint &) = default;
};
