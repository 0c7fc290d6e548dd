#include "layout/QVLayoutConstraint.h"

bool qv_isHorizontal(QVLayoutAttribute attribute)
{
    return attribute <= QVLayoutAttribute::Width;
}

bool qv_isLength(QVLayoutAttribute attribute)
{
    return attribute == QVLayoutAttribute::Width || attribute == QVLayoutAttribute::Height;
}

bool QVLayoutConstraint::hasFormOf(const QVLayoutConstraint &other) const
{
    QVLayoutConstraint same = other;
    same.offset = offset;
    return *this == same;
}
