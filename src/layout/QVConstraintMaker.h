#pragma once

#include "layout/QVLayoutConstraint.h"

#include <QSizeF>

#include <vector>

class QVConstraintMaker;
class QWidget;

/// One equation of a maker, in terms of widgets.
struct QVConstraintDraft
{
    QVLayoutAttribute attribute = QVLayoutAttribute::Left;
    /// Without a target the offset alone is the value.
    bool hasTarget = false;
    QWidget *target = nullptr;
    QVLayoutAttribute targetAttribute = QVLayoutAttribute::Left;
    double multiplier = 1;
    double offset = 0;
};

/// Last stage: what is done to the target's value.
class QVConstraintAmount
{
public:
    /// Factor on the target's value; applies before the offset, wherever it is written.
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

/// Middle stage: the attributes to set, waiting for what they are equal to.
class QVConstraintSubject
{
public:
    /// The same attributes of another widget.
    QVConstraintAmount equalTo(QWidget *target) const;
    /// One attribute of another widget.
    QVConstraintAmount equalTo(QWidget *target, QVLayoutAttribute attribute) const;
    /// The widget's own attribute.
    QVConstraintAmount equalTo(const QVConstraintSubject &own) const;
    /// A number; for a place it is counted from the parent's left or top edge.
    void equalTo(double value) const;
    // For a literal 0, which could as well be a null widget.
    void equalTo(int value) const { equalTo(static_cast<double>(value)); }
    /// The size's width for what is horizontal, its height for the rest.
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

/// First stage: chooses what of a widget is set.
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
