#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QObject>
#include <QPointer>

#include <utility>

/// Emits a signal when the language or the texts have changed.
class QUARVO_CORE_EXPORT QVLanguageNotice final : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] static QVLanguageNotice &shared();

Q_SIGNALS:
    void languageChanged();
};

/// Calls \a show now, and whenever the texts change until \a owner is destroyed.
template<class Show>
void qv_followLanguage(QObject *owner, Show show)
{
    show();
    // While the QObject destructor of the owner runs, the connection still exists, but the members that
    // show() uses are destroyed. The guard is null by then.
    QObject::connect(&QVLanguageNotice::shared(), &QVLanguageNotice::languageChanged, owner,
                     [living = QPointer<QObject>(owner), show = std::move(show)] {
                         if (living)
                             show();
                     });
}
