#pragma once

#include <QString>

#include <functional>

/// What of a rectangle a constraint sets or reads.
enum class QVLayoutAttribute { Left, Right, CenterX, Width, Top, Bottom, CenterY, Height };

[[nodiscard]] bool qv_isHorizontal(QVLayoutAttribute attribute);
/// A width or a height, as opposed to a place.
[[nodiscard]] bool qv_isLength(QVLayoutAttribute attribute);
[[nodiscard]] QString qv_attributeName(QVLayoutAttribute attribute);

/// One equation: attribute of an item = attribute of a target * multiplier + offset, or a number.
///
/// Places are measured in the coordinates of the item's parent, also where the target lies in
/// another branch of the tree.
struct QVLayoutConstraint
{
    /// Names an item; 0 names none.
    using ItemId = quint64;

    ItemId item = 0;
    QVLayoutAttribute attribute = QVLayoutAttribute::Left;
    /// 0: the offset alone is the value.
    ItemId target = 0;
    QVLayoutAttribute targetAttribute = QVLayoutAttribute::Left;
    double multiplier = 1;
    double offset = 0;

    [[nodiscard]] bool isFinite() const;
    /// Whether the two differ in nothing but their constants.
    [[nodiscard]] bool hasFormOf(const QVLayoutConstraint &other) const;
    [[nodiscard]] QString description(const std::function<QString(ItemId)> &nameOf) const;

    friend bool operator==(const QVLayoutConstraint &, const QVLayoutConstraint &) = default;
};
