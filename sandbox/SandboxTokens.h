#pragma once

#include <QHash>
#include <QQueue>
#include <QString>

#include <optional>

/// The tokens that were given out and not asked about yet.
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
    /// What the token stands for; the token is spent by asking.
    [[nodiscard]] std::optional<Grant> take(const QString &token);

private:
    QHash<QString, Grant> m_grants;
    QQueue<QString> m_order;
};
