#pragma once

#include "layout/QVLayoutConstraint.h"

#include <QRectF>

#include <functional>
#include <map>
#include <vector>

/// Computes rectangles from constraints. It knows no widgets: items are numbers in a tree below a container.
///
/// On each axis two constraints define an item: the two that were added last. Of several for the same
/// attribute only the last one counts. If there are fewer than two, a missing length is the item's intrinsic
/// one, and a missing position stays unchanged in the item's parent. An item without any constraint keeps its
/// frame and moves with its parent. A length is never negative.
class QVLayoutSolver
{
public:
    using ItemId = QVLayoutConstraint::ItemId;

    QVLayoutSolver(ItemId container, QSizeF size);

    /// Adds an item below \a parent, which must have been added before. \a frame is in the parent's
    /// coordinates. \a intrinsicSize is called only if constraints leave a length open, since measuring a
    /// text takes long. If a side of it is negative, that of \a frame is used.
    void addItem(ItemId item, ItemId parent, const QRectF &frame, std::function<QSizeF()> intrinsicSize);
    [[nodiscard]] bool contains(ItemId item) const { return m_items.contains(item); }

    /// The frames that \a constraints give, in the container's coordinates and not rounded. The constraints
    /// are in the order in which they were added. Ignored are those of unknown items, and one of each cycle.
    [[nodiscard]] std::map<ItemId, QRectF> solve(std::vector<QVLayoutConstraint> constraints) const;

private:
    friend class QVLayoutPass;

    struct Item
    {
        ItemId parent = 0;
        QRectF frame;
        std::function<QSizeF()> intrinsicSize;
    };

    std::map<ItemId, Item> m_items;
    ItemId m_container;
};
