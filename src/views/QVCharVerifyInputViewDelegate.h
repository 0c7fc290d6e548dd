#pragma once

#include "platform/QVDelegate.h"

#include <QString>

class QVCharVerifyInputView;

/// Receives the typed answer.
class QVCharVerifyInputViewDelegate : public QVDelegate
{
public:
    /// The user has finished with \a charString, which is never empty. The field is cleared afterwards.
    virtual void charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView *inputView,
                                                                       const QString &charString) = 0;
    /// Whether the user may start typing now.
    [[nodiscard]] virtual bool canInput() = 0;
};
