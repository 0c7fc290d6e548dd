#include "layout/QVLayoutSolver.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

using Attribute = QVLayoutAttribute;
using Constraint = QVLayoutConstraint;

namespace {

// The fraction of the item's length at which a position lies.
double fractionOf(Attribute place)
{
    if (place == Attribute::Left || place == Attribute::Top)
        return 0;
    return place == Attribute::CenterX || place == Attribute::CenterY ? 0.5 : 1;
}

double lengthOf(const QSizeF &size, bool horizontal)
{
    return horizontal ? size.width() : size.height();
}

} // namespace

/// One attempt to solve.
class QVLayoutPass
{
public:
    using ItemId = Constraint::ItemId;

    QVLayoutPass(const QVLayoutSolver &solver, const std::vector<Constraint> &constraints)
        : m_solver(solver)
        , m_constraints(constraints)
    {
    }

    /// A constraint that closes a cycle. The values are of no use then.
    [[nodiscard]] const std::optional<Constraint> &cycle() const { return m_cycle; }

    QRectF frame(ItemId item)
    {
        return {value(item, Attribute::Left), value(item, Attribute::Top), value(item, Attribute::Width),
                value(item, Attribute::Height)};
    }

private:
    /// One of the two attributes that define an axis. Without a constraint the fallback is used.
    struct Term
    {
        Attribute attribute = Attribute::Left;
        const Constraint *constraint = nullptr;
    };
    using Terms = std::array<Term, 2>;
    using Key = std::pair<ItemId, Attribute>;

    double value(ItemId item, Attribute attribute)
    {
        const Key key(item, attribute);
        if (const auto known = m_values.find(key); known != m_values.end())
            return known->second;
        const double computed = compute(item, attribute);
        const double result = qv_isLength(attribute) ? std::max(computed, 0.0) : computed;
        m_values.emplace(key, result);
        return result;
    }

    double compute(ItemId item, Attribute attribute)
    {
        const Terms terms = termsOf(item, qv_isHorizontal(attribute));
        for (const Term &term : terms) {
            if (term.attribute == attribute)
                return termValue(item, term);
        }
        return derived(item, attribute, terms);
    }

    // A position is origin + fraction * length, so that any two attributes of an axis give the others.
    double derived(ItemId item, Attribute attribute, const Terms &terms)
    {
        const Term &place = qv_isLength(terms[0].attribute) ? terms[1] : terms[0];
        const Term &other = qv_isLength(terms[0].attribute) ? terms[0] : terms[1];
        const double fraction = fractionOf(place.attribute);
        const double start = termValue(item, place);
        double length = termValue(item, other);
        if (!qv_isLength(other.attribute))
            length = (length - start) / (fractionOf(other.attribute) - fraction);
        if (qv_isLength(attribute))
            return length;
        return start + (fractionOf(attribute) - fraction) * length;
    }

    [[nodiscard]] Terms termsOf(ItemId item, bool horizontal) const
    {
        std::vector<Term> terms;
        for (auto it = m_constraints.rbegin(); it != m_constraints.rend() && terms.size() < 2; ++it) {
            const bool isTaken =
                std::ranges::any_of(terms, [&](const Term &term) { return term.attribute == it->attribute; });
            if (it->item == item && qv_isHorizontal(it->attribute) == horizontal && !isTaken)
                terms.push_back({it->attribute, &*it});
        }
        const bool hasLength =
            std::ranges::any_of(terms, [](const Term &term) { return qv_isLength(term.attribute); });
        if (terms.size() < 2 && !hasLength)
            terms.push_back({horizontal ? Attribute::Width : Attribute::Height});
        if (terms.size() < 2)
            terms.push_back({horizontal ? Attribute::Left : Attribute::Top});
        return {terms[0], terms[1]};
    }

    double termValue(ItemId item, const Term &term)
    {
        return term.constraint ? constraintValue(*term.constraint) : fallback(item, term.attribute);
    }

    double fallback(ItemId item, Attribute attribute)
    {
        const QVLayoutSolver::Item &known = m_solver.m_items.at(item);
        const bool horizontal = qv_isHorizontal(attribute);
        if (!qv_isLength(attribute))
            return origin(known.parent, horizontal) + (horizontal ? known.frame.x() : known.frame.y());
        const double length = lengthOf(known.frame.size(), horizontal);
        const bool isConstrained =
            std::ranges::any_of(m_constraints, [&](const Constraint &each) { return each.item == item; });
        if (!isConstrained || !known.intrinsicSize)
            return length;
        const auto [measured, isNew] = m_measured.try_emplace(item);
        if (isNew)
            measured->second = known.intrinsicSize();
        const double intrinsic = lengthOf(measured->second, horizontal);
        return intrinsic >= 0 ? intrinsic : length;
    }

    double constraintValue(const Constraint &constraint)
    {
        const Key key(constraint.item, constraint.attribute);
        if (!m_open.insert(key).second) {
            m_cycle = constraint;
            return 0;
        }
        const double result = relativeValue(constraint) + base(constraint.item, constraint.attribute);
        m_open.erase(key);
        return result;
    }

    double relativeValue(const Constraint &constraint)
    {
        if (constraint.target == 0)
            return constraint.offset;
        const double target = value(constraint.target, constraint.targetAttribute) -
                              base(constraint.item, constraint.targetAttribute);
        return target * constraint.multiplier + constraint.offset;
    }

    // The origin of the coordinates that an attribute of the item is counted in.
    double base(ItemId item, Attribute attribute)
    {
        return qv_isLength(attribute) ? 0
                                      : origin(m_solver.m_items.at(item).parent, qv_isHorizontal(attribute));
    }

    double origin(ItemId parent, bool horizontal)
    {
        return parent == 0 ? 0 : value(parent, horizontal ? Attribute::Left : Attribute::Top);
    }

    const QVLayoutSolver &m_solver;
    const std::vector<Constraint> &m_constraints;
    std::map<Key, double> m_values;
    std::map<ItemId, QSizeF> m_measured;
    std::set<Key> m_open;
    std::optional<Constraint> m_cycle;
};

QVLayoutSolver::QVLayoutSolver(ItemId container, QSizeF size)
    : m_container(container)
{
    m_items.emplace(container, Item{0, QRectF(QPointF(), size), {}});
}

void QVLayoutSolver::addItem(ItemId item, ItemId parent, const QRectF &frame,
                             std::function<QSizeF()> intrinsicSize)
{
    if (item != 0 && contains(parent))
        m_items.emplace(item, Item{parent, frame, std::move(intrinsicSize)});
}

std::map<QVLayoutSolver::ItemId, QRectF> QVLayoutSolver::solve(std::vector<Constraint> constraints) const
{
    std::erase_if(constraints, [&](const Constraint &each) {
        return !contains(each.item) || each.item == m_container ||
               (each.target != 0 && !contains(each.target));
    });
    // Each round except the last one removes a constraint, so the loop ends.
    for (;;) {
        QVLayoutPass pass(*this, constraints);
        std::map<ItemId, QRectF> frames;
        for (const auto &[id, item] : m_items)
            frames.emplace(id, pass.frame(id));
        if (!pass.cycle())
            return frames;
        std::erase(constraints, *pass.cycle());
    }
}
