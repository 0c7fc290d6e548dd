#pragma once

#include "platform/QVDelegate.h"

#include <QString>

#include <optional>

class QVCharVerifyInputView;

/// Takes the typed answer. Both operations are optional: their results say whether they are there.
class QVCharVerifyInputViewDelegate : public QVDelegate
{
public:
    /// The user has finished with \a charString, which is never empty. False means that nobody took
    /// it: then the text stays in the field.
    virtual bool charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView *inputView,
                                                                       const QString &charString)
    {
        Q_UNUSED(inputView)
        Q_UNUSED(charString)
        return false;
    }

    /// Whether the user may start typing now; no answer allows it.
    virtual std::optional<bool> canInput() { return std::nullopt; }
};
