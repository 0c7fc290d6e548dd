#pragma once

#include "layout/QVLayoutConstraint.h"

#include <QRectF>

#include <map>
#include <vector>

/// A constraint that could not be used, and why. Solving goes on without it.
struct QVLayoutProblem
{
    enum class Kind {
        /// The constraint closes a circle of constraints.
        Cycle,
        /// Its item or target is not known to the solver, or its item is the container.
        UnknownItem,
        /// It holds, or leads to, something that is no finite number.
        NotFinite,
    };

    Kind kind = Kind::Cycle;
    QVLayoutConstraint constraint;
};

/// Where everything ends up, in the container's coordinates and not rounded.
struct QVLayoutSolution
{
    std::map<QVLayoutConstraint::ItemId, QRectF> frames;
    std::vector<QVLayoutProblem> problems;
};

/// Turns constraints into rectangles. Pure geometry: items are numbers in a tree below a container.
///
/// On each axis an item is fixed by two of its constraints: the two that were added last, and only
/// the last one of those that set the same attribute. Where there are fewer, a missing length is
/// the item's intrinsic one and a missing place stays what it is in the item's parent. An item
/// without any constraint keeps its frame and moves with its parent. A length is never negative.
class QVLayoutSolver
{
public:
    using ItemId = QVLayoutConstraint::ItemId;

    QVLayoutSolver(ItemId container, QSizeF size);

    /// Adds an item below \a parent, which must have been added before. \a frame is in the parent's
    /// coordinates; a negative side of \a intrinsicSize means that the frame's own is used.
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
