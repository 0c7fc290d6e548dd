#pragma once

#include "support/QVText.h"

#include <QRegularExpression>
#include <QStringList>

#include <functional>

/// What a host has heard, in order.
class Record
{
public:
    void add(const QString &text)
    {
        m_said.append(text);
        if (heard)
            heard(text);
    }
    void clear() { m_said.clear(); }
    [[nodiscard]] const QStringList &said() const { return m_said; }
    /// The part of the record that ends attempts.
    [[nodiscard]] QStringList ends() const
    {
        static const QRegularExpression end(q("^(passed|failed|closed)"));
        return m_said.filter(end);
    }

    /// Called with each entry after it was recorded.
    std::function<void(const QString &)> heard;

private:
    QStringList m_said;
};
