#include "sandbox/SandboxTokens.h"

namespace {

constexpr qsizetype maximumTokens = 1000;

} // namespace

void SandboxTokens::add(const QString &token, const Grant &grant)
{
    m_grants.insert(token, grant);
    m_order.enqueue(token);
    if (m_order.size() > maximumTokens)
        m_grants.remove(m_order.dequeue());
}

std::optional<SandboxTokens::Grant> SandboxTokens::take(const QString &token)
{
    if (!m_grants.contains(token))
        return std::nullopt;
    return m_grants.take(token);
}
