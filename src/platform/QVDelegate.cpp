#include "platform/QVDelegate.h"

QVDelegate::QVDelegate()
    : m_life(std::make_shared<const bool>(true))
{
}

// A copy has a life of its own: whoever holds the original must not see the copy's end, nor the
// other way round.
QVDelegate::QVDelegate(const QVDelegate &)
    : QVDelegate()
{
}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
QVDelegate &QVDelegate::operator=(const QVDelegate &)
{
    return *this;
}

QVDelegate::~QVDelegate() = default;
