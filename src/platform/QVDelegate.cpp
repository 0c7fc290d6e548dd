#include "platform/QVDelegate.h"

QVDelegate::QVDelegate()
    : m_life(std::make_shared<const bool>(true))
{
}

// A copy has its own m_life: weak pointers to the original stay valid when the copy is destroyed, and the
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
