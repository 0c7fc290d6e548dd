#pragma once

#include "layout/QVLayoutConstraint.h"

#include <QRectF>

#include <map>
#include <vector>

/// A constraint that could not be used, and the reason. The others are solved without it.
struct QVLayoutProblem
{
    enum class Kind {
        /// The constraint closes a cycle of constraints.
        Cycle,
        /// Its item or target is not known to the solver, or its item is the container.
        UnknownItem,
        /// It contains, or leads to, a number that is not finite.
        NotFinite,
    };

    Kind kind = Kind::Cycle;
    QVLayoutConstraint constraint;
};

/// The resulting frames, in the container's coordinates and not rounded.
struct QVLayoutSolution
{
    std::map<QVLayoutConstraint::ItemId, QRectF> frames;
    std::vector<QVLayoutProblem> problems;
};

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
    /// coordinates. If a side of \a intrinsicSize is negative, that of \a frame is used.
    void addItem(ItemId item, ItemId parent, const QRectF &frame, QSizeF intrinsicSize = QSizeF(-1, -1));
    [[nodiscard]] bool contains(ItemId item) const { return m_items.contains(item); }

    /// Solves \a constraints, given in the order in which they were added.
    [[nodiscard]] QVLayoutSolution solve(std::vector<QVLayoutConstraint> constraints) const;

private:
    friend class QVLayoutPass;

    struct Item
    {
        ItemId parent = 0;
        QRectF frame;
        QSizeF intrinsicSize;
    };

    void removeUnusable(std::vector<QVLayoutConstraint> &constraints, QVLayoutSolution &solution) const;

    std::map<ItemId, Item> m_items;
    ItemId m_container;
};
