#pragma once

#include "flow/QVOverlaySurface.h"

#include <QRectF>

#include <memory>

class QImage;
class QVError;
class QVGetRefreshResponseModel;

/// What the drawing flow needs of a screen. A toolkit's view implements it; the flow holds it weakly.
class QVRenderDrawSurface : public QVOverlaySurface
{
public:
    /// Whether the surface is part of a host's window or scene.
    [[nodiscard]] virtual bool hasSuperview() const = 0;

    virtual void showLoadingAnimation() = 0;
    virtual void hiddenLoadingAnimation() = 0;

    virtual void setPicture(const QImage &picture) = 0;
    virtual void clearPicture() = 0;
    /// Shows the picture that stands for one that could not be had.
    virtual void showFailedPicture() = 0;
    [[nodiscard]] virtual bool hasPicture() const = 0;

    /// Chooses between the looks of a drawing and of a character captcha.
    virtual void setIsCharVerify(bool isCharVerify) = 0;
    virtual void updateContentWidthHeightQVVerifyPercentage(bool isCharVerify) = 0;
    /// Shows a caption; a null one is hidden.
    virtual void setCaption(const QVText &caption) = 0;
    virtual void setHelpButtonShown(bool shown) = 0;
    virtual void setRefreshButtonShown(bool shown) = 0;
    virtual void setRefreshButtonEnabled(bool enabled) = 0;
    virtual void setOutage(bool outage) = 0;
    /// Shows the advertisement of an answer; a null one removes it.
    virtual void setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer) = 0;

    /// Whether the user can draw now, which the flow's recogniser knows by itself.
    virtual void setDrawingEnabled(bool enabled) = 0;
    /// Whether a user could see it: not on a hidden page, and not in a hidden or minimised window.
    [[nodiscard]] virtual bool isSeen() const = 0;
    /// The frame that traces are measured in: that of the view, or of as much of it as its
    /// content can fill.
    [[nodiscard]] virtual QRectF traceFrame() const = 0;
    /// The picture's place in the view.
    [[nodiscard]] virtual QRectF imageFrame() const = 0;
    virtual void beginStroke(QPointF location) = 0;
    virtual void extendStroke(QPointF location) = 0;
    /// The stroke has ended, or was discarded, and is shown no more.
    virtual void resetUIs() = 0;

    virtual void setCharInputBusy(bool busy) = 0;

    /// The picture has been there for as long as one may be, and a new one is being asked for.
    virtual void pictureHasExpired() = 0;

    // Each tells the host, which may destroy the surface or start anew in answer: the flow calls them last.
    virtual void outageHasStarted() = 0;
    virtual void pictureIsReady() = 0;
    virtual void answerWasWrong() = 0;
    virtual void attemptHasFailed(const QVError &error) = 0;
    virtual void tokenHasExpired() = 0;
};
