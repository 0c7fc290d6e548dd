#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QObject>
#include <QPointer>

#include <utility>

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
