#pragma once

#include "layout/QVLayoutSolver.h"

#include <QPointer>

#include <map>

class QWidget;

/// The widgets of a layout, by the numbers that its constraints use. A number is never used twice, so that a
/// new widget at the address of a destroyed one does not get its constraints.
class QVLayoutItems
{
public:
    using ItemId = QVLayoutConstraint::ItemId;

    /// The number of a null or unknown widget. No solver knows it.
    static constexpr ItemId nothing = ~ItemId(0);

    [[nodiscard]] ItemId find(const QWidget *widget) const;
    /// The number of \a widget, which is given one if it has none. \a isNew is set to whether it had none.
    ItemId add(QWidget *widget, bool &isNew);
    [[nodiscard]] QWidget *widget(ItemId id) const;

    /// Adds every known widget below \a container to the solver.
    void describeTo(QVLayoutSolver &solver, QWidget *container) const;

private:
    void describeBranch(QVLayoutSolver &solver, QWidget *container, QWidget *widget) const;

    std::map<ItemId, QPointer<QWidget>> m_widgets;
    ItemId m_lastId = 0;
};
