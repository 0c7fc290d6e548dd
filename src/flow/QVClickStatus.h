#pragma once

/// \file
/// The states of a click button.

#include <Quarvo/QuarvoExport.h>

#include <QMetaType>
#include <QObject>

/// The scope of an enumeration, so that QML and the meta-object system know its values.
class QUARVO_EXPORT QVClick
{
    Q_GADGET

public:
    /// The state of a click verification.
    enum Status : qint64 {
        /// Ready to be clicked.
        QVClickStatusNormal = 0,
        /// Pressed.
        QVClickStatusTouching = 1,
        /// The service is being asked, or a popup is open whose picture came with the answer to the click.
        QVClickStatusVerifying = 2,
        /// The user draws in a popup whose picture is requested separately, as in an outage.
        QVClickStatusDrawing = 3,
        /// The user has passed.
        QVClickStatusPassed = 4,
        /// The service did not answer, or refused.
        QVClickStatusFailed = 5,
    };
    Q_ENUM(Status)
};

/// The state of a click verification.
using QVClickStatus = QVClick::Status;

// Same as "using enum", which C++17 lacks.
/// See QVClick::QVClickStatusNormal.
inline constexpr QVClickStatus QVClickStatusNormal = QVClick::QVClickStatusNormal;
/// See QVClick::QVClickStatusTouching.
inline constexpr QVClickStatus QVClickStatusTouching = QVClick::QVClickStatusTouching;
/// See QVClick::QVClickStatusVerifying.
inline constexpr QVClickStatus QVClickStatusVerifying = QVClick::QVClickStatusVerifying;
/// See QVClick::QVClickStatusDrawing.
inline constexpr QVClickStatus QVClickStatusDrawing = QVClick::QVClickStatusDrawing;
/// See QVClick::QVClickStatusPassed.
inline constexpr QVClickStatus QVClickStatusPassed = QVClick::QVClickStatusPassed;
/// See QVClick::QVClickStatusFailed.
inline constexpr QVClickStatus QVClickStatusFailed = QVClick::QVClickStatusFailed;
