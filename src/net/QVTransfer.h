#pragma once

#include <QObject>

/// Work under way behind a QVDataTask. It owns itself below its parent: it deletes itself once it
/// has completed, and ends without a word with its parent.
class QVTransfer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Makes it complete with a cancellation, after this call.
    virtual void cancel() = 0;
    [[nodiscard]] virtual bool isFinished() const = 0;
};
