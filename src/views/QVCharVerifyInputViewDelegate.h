#pragma once

#include "platform/QVDelegate.h"

#include <QString>

#include <optional>

class QVCharVerifyInputView;

/// Receives the typed answer. Both operations are optional: the default results mean that they are not
/// implemented.
class QVCharVerifyInputViewDelegate : public QVDelegate
{
public:
    /// The user has finished with \a charString, which is never empty. Return false if it was not taken: then
    /// the text stays in the field.
    virtual bool charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView *inputView,
                                                                       const QString &charString)
    {
        Q_UNUSED(inputView)
        Q_UNUSED(charString)
        return false;
    }

    /// Whether the user may start typing now. An empty result means yes.
    virtual std::optional<bool> canInput() { return std::nullopt; }
};
