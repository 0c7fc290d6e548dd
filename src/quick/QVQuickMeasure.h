#pragma once

#include "flow/QVClickSurface.h"
#include "flow/QVDrawGeometry.h"
#include "flow/QVInvisibleSurface.h"
#include "flow/QVOverlaySurface.h"
#include "flow/QVPopupGeometry.h"

#include <QtQml/qqmlregistration.h>

/// The captcha's measures in logical pixels, and its times in milliseconds, for the module's own files.
namespace QVQuickMeasure {
Q_NAMESPACE
QML_NAMED_ELEMENT(QuarvoMeasure)

enum Measure {
    WidestContent = QVDrawGeometry::widestContent,
    InputHeight = QVDrawGeometry::inputHeight,
    CaptionGap = QVDrawGeometry::captionGap,
    CloseButtonRoom = QVDrawGeometry::closeButtonRoom,
    ControlSide = QVDrawGeometry::controlSide,
    WidestBadge = QVDrawGeometry::widestBadge,
    PenHintMargin = QVDrawGeometry::penHintMargin,
    AlternativeHeight = QVDrawGeometry::alternativeHeight,
    ChangeDuration = int(QVDrawGeometry::changeDuration.count()),
    SpinDuration = int(QVDrawGeometry::spinDuration.count()),
    SlideDuration = int(QVOverlaySurface::slideDuration.count()),
    BarHeight = QVOverlaySurface::barHeight,
    BarInset = QVOverlaySurface::barInset,
    RetrySide = QVOverlaySurface::retrySide,
    CardRadius = QVPopupGeometry::cardRadius,
    SupportRight = QVPopupGeometry::supportOffset.x(),
    SupportBottom = QVPopupGeometry::supportOffset.y(),
    DimDuration = int(QVPopupGeometry::dimDuration.count()),
    UnfoldDuration = int(QVPopupGeometry::unfoldDuration.count()),
    OpenDuration = int(QVInvisibleSurface::openDuration.count()),
    HaloDelay = int(QVInvisibleSurface::haloDelay.count()),
    HaloDuration = int(QVInvisibleSurface::haloDuration.count()),
    RingDuration = int(QVClickSurface::ringDuration.count()),
    MarkDuration = int(QVClickSurface::markDuration.count()),
    RippleDuration = int(QVClickSurface::rippleDuration.count()),
};
Q_ENUM_NS(Measure)

} // namespace QVQuickMeasure
