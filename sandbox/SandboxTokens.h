#pragma once

#include <QHash>
#include <QQueue>
#include <QString>

#include <optional>

/// The tokens that were issued and not checked yet.
class SandboxTokens
{
public:
    struct Grant
    {
        QString id;
        /// "draw", "character", "click" or "outage".
        QString earnedBy;
    };

    void add(const QString &token, const Grant &grant);
    /// What the token was issued for. A token can be checked only once.
    [[nodiscard]] std::optional<Grant> take(const QString &token);

private:
    QHash<QString, Grant> m_grants;
    QQueue<QString> m_order;
};
