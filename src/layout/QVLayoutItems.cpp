#include "layout/QVLayoutItems.h"

#include <QWidget>

#include <algorithm>

QVLayoutItems::ItemId QVLayoutItems::find(const QWidget *widget) const
{
    const auto found =
        std::ranges::find_if(m_widgets, [widget](const auto &entry) { return entry.second == widget; });
    return !widget || found == m_widgets.end() ? nothing : found->first;
}

QVLayoutItems::ItemId QVLayoutItems::add(QWidget *widget, bool &isNew)
{
    const ItemId known = find(widget);
    isNew = widget && known == nothing;
    if (!isNew)
        return known;
    m_widgets.emplace(++m_lastId, widget);
    return m_lastId;
}

QWidget *QVLayoutItems::widget(ItemId id) const
{
    const auto found = m_widgets.find(id);
    return found == m_widgets.end() ? nullptr : found->second.data();
}

void QVLayoutItems::describeTo(QVLayoutSolver &solver, QWidget *container) const
{
    for (const auto &[id, known] : m_widgets) {
        if (known && known != container && container->isAncestorOf(known))
            describeBranch(solver, container, known);
    }
}

void QVLayoutItems::describeBranch(QVLayoutSolver &solver, QWidget *container, QWidget *widget) const
{
    const ItemId id = find(widget);
    if (widget == container || solver.contains(id))
        return;
    QWidget *parent = widget->parentWidget();
    describeBranch(solver, container, parent);
    solver.addItem(id, find(parent), QRectF(widget->geometry()),
                   [widget] { return QSizeF(widget->sizeHint()); });
}
