#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QLatin1String>
#include <QObject>
#include <QPointer>
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
    /// The text of one of QVKey's keys.
    QVText(QLatin1String key);
    /// A text that is the same in every language.
    QVText(const QString &text);
    QVText(Source source)
        : m_source(std::move(source))
    {
    }

    [[nodiscard]] bool isNull() const { return !m_source; }
    /// In the language in force.
    [[nodiscard]] QString text() const { return m_source ? m_source() : QString(); }

private:
    Source m_source;
};

/// Tells that other texts are in force.
class QUARVO_CORE_EXPORT QVLanguageNotice final : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] static QVLanguageNotice &shared();

Q_SIGNALS:
    void languageChanged();
};

/// Calls \a show now, and whenever other texts are in force for as long as \a owner lives.
template<class Show>
void qv_followLanguage(QObject *owner, Show show)
{
    show();
    // A part of the owner that the caller's class added may be gone while the owner still tells of its end.
    QObject::connect(&QVLanguageNotice::shared(), &QVLanguageNotice::languageChanged, owner,
                     [living = QPointer<QObject>(owner), show = std::move(show)] {
                         if (living)
                             show();
                     });
}
