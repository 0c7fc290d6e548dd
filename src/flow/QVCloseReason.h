#pragma once

/// \file
/// Why an attempt ended without a result.

#include <Quarvo/QuarvoExport.h>

#include <QMetaType>
#include <QObject>

/// The scope of an enumeration, so that QML and the meta-object system know its values.
class QUARVO_EXPORT QVClose
{
    Q_GADGET

public:
    /// The reason why an attempt ended without a result.
    enum class Reason {
        /// The user closed the popup.
        User,
        /// The host called reset().
        HostReset,
        /// The window that the attempt belongs to was closed, hidden or destroyed.
        WindowGone,
        /// Another attempt of the same manager needed the popup.
        Replaced,
    };
    Q_ENUM(Reason)
};

/// Why an attempt ended without a result.
using QVCloseReason = QVClose::Reason;
