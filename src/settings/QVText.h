#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QLatin1String>
#include <QString>

#include <functional>
#include <utility>

/// A text for users. It is looked up at each call of text(), so that views can follow a change of language.
class QUARVO_CORE_EXPORT QVText
{
public:
    using Source = std::function<QString()>;

    /// A null text.
    QVText() = default;
    // Implicit, since callers pass a key or a fixed text as often as a source.
    // NOLINTBEGIN(google-explicit-constructor)
    /// The text for a key of QVKey.
    QVText(QLatin1String key);
    /// A text that is the same in every language.
    QVText(const QString &text);
    // NOLINTEND(google-explicit-constructor)
    explicit QVText(Source source)
        : m_source(std::move(source))
    {
    }

    [[nodiscard]] bool isNull() const { return !m_source; }
    /// The text in the current language.
    [[nodiscard]] QString text() const { return m_source ? m_source() : QString(); }

private:
    Source m_source;
};
