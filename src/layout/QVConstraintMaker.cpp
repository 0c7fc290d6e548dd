#include "layout/QVConstraintMaker.h"

#include <span>
#include <utility>

using Attribute = QVLayoutAttribute;

QVConstraintAmount &QVConstraintAmount::multipliedBy(double factor)
{
    for (QVConstraintDraft &draft : std::span(m_maker.m_drafts).subspan(m_first))
        draft.multiplier = factor;
    return *this;
}

QVConstraintAmount &QVConstraintAmount::offset(double constant)
{
    for (QVConstraintDraft &draft : std::span(m_maker.m_drafts).subspan(m_first))
        draft.offset = constant;
    return *this;
}

QVConstraintAmount QVConstraintSubject::equalTo(QWidget *target) const
{
    const std::size_t first = m_maker.m_drafts.size();
    for (const Attribute attribute : m_attributes)
        m_maker.m_drafts.push_back({attribute, target, attribute});
    return {m_maker, first};
}

QVConstraintAmount QVConstraintSubject::equalTo(QWidget *target, Attribute attribute) const
{
    const std::size_t first = m_maker.m_drafts.size();
    for (const Attribute own : m_attributes)
        m_maker.m_drafts.push_back({own, target, attribute});
    return {m_maker, first};
}

QVConstraintAmount QVConstraintSubject::equalTo(const QVConstraintSubject &own) const
{
    return equalTo(m_maker.m_widget, own.m_attributes.front());
}

void QVConstraintSubject::equalTo(double value) const
{
    equalTo(QSizeF(value, value));
}

void QVConstraintSubject::equalTo(QSizeF size) const
{
    for (const Attribute attribute : m_attributes) {
        const double value = qv_isHorizontal(attribute) ? size.width() : size.height();
        m_maker.m_drafts.push_back({attribute, nullptr, attribute, 1, value});
    }
}

QVConstraintSubject QVConstraintMaker::center()
{
    return subject({Attribute::CenterX, Attribute::CenterY});
}

QVConstraintSubject QVConstraintMaker::size()
{
    return subject({Attribute::Width, Attribute::Height});
}

QVConstraintSubject QVConstraintMaker::subject(std::vector<Attribute> attributes)
{
    return {*this, std::move(attributes)};
}
