#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QLatin1String>
#include <QString>

#include <functional>
#include <utility>

/// A text for users that is looked up whenever it is asked for, so that what shows it can follow the
/// language.
class QUARVO_CORE_EXPORT QVText
{
public:
    using Source = std::function<QString()>;

    /// A null text.
    QVText() = default;
    // Whoever shows a text is handed a key or a fixed text as often as a source, so these convert.
    // NOLINTBEGIN(google-explicit-constructor)
    /// The text of one of QVKey's keys.
    QVText(QLatin1String key);
    /// A text that is the same in every language.
    QVText(const QString &text);
    // NOLINTEND(google-explicit-constructor)
    explicit QVText(Source source)
        : m_source(std::move(source))
    {
    }

    [[nodiscard]] bool isNull() const { return !m_source; }
    /// In the language in force.
    [[nodiscard]] QString text() const { return m_source ? m_source() : QString(); }

private:
    Source m_source;
};
