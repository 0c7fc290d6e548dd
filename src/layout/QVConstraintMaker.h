#pragma once

#include "layout/QVLayoutConstraint.h"

#include <QSizeF>

#include <vector>

class QVConstraintMaker;
class QWidget;

/// One constraint of a maker, between widgets.
struct QVConstraintDraft
{
    QVLayoutAttribute attribute = QVLayoutAttribute::Left;
    /// Without a target the value is the offset.
    QWidget *target = nullptr;
    QVLayoutAttribute targetAttribute = QVLayoutAttribute::Left;
    double multiplier = 1;
    double offset = 0;
};

/// The last stage: changes the value of the target.
class QVConstraintAmount
{
public:
    /// A factor for the target's value. It applies before the offset, whatever the order of the calls.
    QVConstraintAmount &multipliedBy(double factor);
    QVConstraintAmount &offset(double constant);

private:
    friend class QVConstraintSubject;

    QVConstraintAmount(QVConstraintMaker &maker, std::size_t first)
        : m_maker(maker)
        , m_first(first)
    {
    }

    QVConstraintMaker &m_maker;
    std::size_t m_first;
};

/// The middle stage: the attributes are chosen, and their value is to be set.
class QVConstraintSubject
{
public:
    /// The same attributes of another widget.
    QVConstraintAmount equalTo(QWidget *target) const;
    /// One attribute of another widget.
    QVConstraintAmount equalTo(QWidget *target, QVLayoutAttribute attribute) const;
    /// Another attribute of the same widget.
    QVConstraintAmount equalTo(const QVConstraintSubject &own) const;
    /// A number. A position is counted from the parent's left or top edge.
    void equalTo(double value) const;
    // For a literal 0, which would be ambiguous, since it can also be a null pointer.
    void equalTo(int value) const { equalTo(static_cast<double>(value)); }
    /// The width of \a size for horizontal attributes, its height for vertical ones.
    void equalTo(QSizeF size) const;

private:
    friend class QVConstraintMaker;

    QVConstraintSubject(QVConstraintMaker &maker, std::vector<QVLayoutAttribute> attributes)
        : m_maker(maker)
        , m_attributes(std::move(attributes))
    {
    }

    QVConstraintMaker &m_maker;
    std::vector<QVLayoutAttribute> m_attributes;
};

/// The first stage: chooses the attributes of a widget.
///
///     layout.make(badge, [&](QVConstraintMaker &make) {
///         make.left().equalTo(picture).offset(10);
///         make.height().equalTo(make.width()).multipliedBy(0.575);
///     });
class QVConstraintMaker
{
public:
    explicit QVConstraintMaker(QWidget *widget)
        : m_widget(widget)
    {
    }

    [[nodiscard]] QVConstraintSubject left() { return subject({QVLayoutAttribute::Left}); }
    [[nodiscard]] QVConstraintSubject right() { return subject({QVLayoutAttribute::Right}); }
    [[nodiscard]] QVConstraintSubject top() { return subject({QVLayoutAttribute::Top}); }
    [[nodiscard]] QVConstraintSubject bottom() { return subject({QVLayoutAttribute::Bottom}); }
    [[nodiscard]] QVConstraintSubject centerX() { return subject({QVLayoutAttribute::CenterX}); }
    [[nodiscard]] QVConstraintSubject centerY() { return subject({QVLayoutAttribute::CenterY}); }
    [[nodiscard]] QVConstraintSubject width() { return subject({QVLayoutAttribute::Width}); }
    [[nodiscard]] QVConstraintSubject height() { return subject({QVLayoutAttribute::Height}); }
    [[nodiscard]] QVConstraintSubject center();
    [[nodiscard]] QVConstraintSubject size();

    [[nodiscard]] const std::vector<QVConstraintDraft> &drafts() const { return m_drafts; }

private:
    friend class QVConstraintAmount;
    friend class QVConstraintSubject;

    QVConstraintSubject subject(std::vector<QVLayoutAttribute> attributes);

    QWidget *m_widget;
    std::vector<QVConstraintDraft> m_drafts;
};
