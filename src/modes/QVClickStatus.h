#pragma once

/// \file
/// The states of a click button.

#include <Quarvo/QuarvoExport.h>

#include <QMetaType>
#include <QObject>

/// Holds an enumeration, so that QML and the meta-object system know its values.
class QUARVO_EXPORT QVClick
{
    Q_GADGET

public:
    /// How far a click verification has come.
    enum Status : qint64 {
        /// Ready to be clicked.
        QVClickStatusNormal = 0,
        /// Pressed.
        QVClickStatusTouching = 1,
        /// The service is being asked; also while a popup with its picture already chosen is open.
        QVClickStatusVerifying = 2,
        /// The user draws, in a popup whose picture was asked for afterwards.
        QVClickStatusDrawing = 3,
        /// The user has passed.
        QVClickStatusPassed = 4,
        /// The service could not be asked, or refused.
        QVClickStatusFailed = 5,
    };
    Q_ENUM(Status)
};

/// How far a click verification has come.
using QVClickStatus = QVClick::Status;

// As "using enum" does, which C++17 lacks.
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
