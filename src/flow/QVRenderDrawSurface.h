#pragma once

#include "flow/QVOverlaySurface.h"

#include <QRectF>
#include <QSize>

#include <chrono>
#include <memory>

class QVError;
class QVGetRefreshResponseModel;
struct QVPicture;

/// The interface of the drawing flow to the screen. A view of a toolkit implements it. The flow holds it
/// weakly.
class QVRenderDrawSurface : public QVOverlaySurface
{
public:
    static constexpr std::chrono::milliseconds clearDelay{100};

    /// Whether the surface is part of a host's window or scene.
    [[nodiscard]] virtual bool hasSuperview() const = 0;

    virtual void showLoadingAnimation() = 0;
    virtual void hiddenLoadingAnimation() = 0;

    virtual void setPicture(const QVPicture &picture) = 0;
    /// How many pixels of the screen the picture covers. Empty if it need not be scaled.
    [[nodiscard]] virtual QSize pictureSize() const = 0;
    /// hasPicture() is false at once. The screen is cleared only after clearDelay, so that an answer that is
    /// fast replaces the picture without a dark frame in between.
    virtual void clearPicture() = 0;
    /// Shows the picture for a picture that could not be loaded.
    virtual void showFailedPicture() = 0;
    [[nodiscard]] virtual bool hasPicture() const = 0;

    /// Selects the look of a character captcha or of a drawing captcha.
    virtual void updateContentWidthHeightQVVerifyPercentage(bool isCharVerify) = 0;
    /// Shows a caption. A null text hides it.
    virtual void setCaption(const QVText &caption) = 0;
    virtual void setHelpButtonShown(bool shown) = 0;
    virtual void setRefreshButtonShown(bool shown) = 0;
    virtual void setRefreshButtonEnabled(bool enabled) = 0;
    virtual void setOutage(bool outage) = 0;
    /// Shows the advertisement of \a answer. Null removes it.
    virtual void setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer) = 0;

    /// Tells whether the user can draw now. The flow enables its recogniser itself.
    virtual void setDrawingEnabled(bool enabled) = 0;
    /// Whether the surface is visible to the user: not on a hidden page, and not in a hidden or minimised
    /// window.
    [[nodiscard]] virtual bool isSeen() const = 0;
    /// The frame that traces are measured in: that of the view, or of its content if the view is flatter than
    /// that.
    [[nodiscard]] virtual QRectF traceFrame() const = 0;
    /// The picture's place in the view.
    [[nodiscard]] virtual QRectF imageFrame() const = 0;
    virtual void beginStroke(QPointF location) = 0;
    virtual void extendStroke(QPointF location) = 0;
    /// Removes the stroke from the screen: it has ended or was discarded.
    virtual void resetUIs() = 0;

    virtual void setCharInputBusy(bool busy) = 0;

    /// The picture has expired, and a new one is being requested.
    virtual void pictureHasExpired() = 0;
};
