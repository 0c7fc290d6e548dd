#pragma once

#include "layout/QVLayoutSolver.h"

#include <QPointer>

#include <map>

class QWidget;

/// The widgets behind the numbers that a layout's constraints use. A number is never given twice,
/// so that a new widget at a dead one's address inherits nothing.
class QVLayoutItems
{
public:
    using ItemId = QVLayoutConstraint::ItemId;

    /// Stands for what is no widget at all; never known to a solver.
    static constexpr ItemId nothing = ~ItemId(0);

    [[nodiscard]] ItemId find(const QWidget *widget) const;
    /// Gives the widget a number; tells through \a isNew whether it had none.
    ItemId add(QWidget *widget, bool &isNew);
    [[nodiscard]] QWidget *widget(ItemId id) const;
    /// Class and object name, for messages.
    [[nodiscard]] QString nameOf(ItemId id) const;
    /// Drops the numbers of dead widgets and tells whether there were any.
    bool forgetDead();

    /// Tells the solver of every widget that lies below \a container.
    void describeTo(QVLayoutSolver &solver, QWidget *container) const;

private:
    void describeBranch(QVLayoutSolver &solver, QWidget *container, QWidget *widget) const;

    std::map<ItemId, QPointer<QWidget>> m_widgets;
    ItemId m_lastId = 0;
};
