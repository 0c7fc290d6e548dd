#include "quick/QVQuickSurface.h"

#include "image/QVPicture.h"
#include "platform/QVPage.h"
#include "quick/QVQuickWindows.h"
#include "service/QVGetRefreshResponseModel.h"
#include "settings/QVBundleImage.h"
#include "settings/QVLanguageNotice.h"

#include <QQuickWindow>

QVQuickSurface::QVQuickSurface(QQuickItem *parent)
    : QVQuickPad(parent)
{
    connect(&QVLanguageNotice::shared(), &QVLanguageNotice::languageChanged, this, [this] {
        for (QVQuickBar &each : m_bars)
            Q_EMIT each.changed();
        Q_EMIT shown();
    });
}

QVQuickSurface::~QVQuickSurface() = default;

void QVQuickSurface::begin(QVVerifyStyle style, const QVIdentity &identity,
                           QVRenderDrawViewDelegate *delegate)
{
    QVRenderDrawSurface *const surface = this;
    QVRenderDrawObserver *const observer = this;
    m_identity = identity;
    m_flow = std::make_shared<QVRenderDrawFlow>(style, surface, observer);
    m_flow->setDelegate(delegate);
    m_flow->setIdentity(m_identity);
    tell(m_flow->panGestureRecognizer());
}

void QVQuickSurface::componentComplete()
{
    QVQuickPad::componentComplete();
    if (!m_isEmbedded)
        return;
    begin(QVVerifyStyleEmbed, m_identity, this);
    if (window())
        enterScene();
}

void QVQuickSurface::enterScene()
{
    polish();
    m_flow->didMoveToSuperview();
}

void QVQuickSurface::updatePolish()
{
    // Which window shows this is known only now.
    disconnect(m_visibility);
    m_visibility = connect(QVQuickWindows::shown(window()), &QWindow::visibilityChanged, this,
                           &QVQuickSurface::lookWhetherSeen);
    lookWhetherSeen();
}

void QVQuickSurface::lookWhetherSeen()
{
    if (!isSeen())
        cancel();
    else if (m_flow)
        m_flow->surfaceHasAppeared();
}

void QVQuickSurface::itemChange(ItemChange change, const ItemChangeData &data)
{
    QVQuickPad::itemChange(change, data);
    if (!m_flow)
        return;
    if (change == ItemSceneChange && data.window)
        enterScene();
    else if (change == ItemVisibleHasChanged)
        lookWhetherSeen();
}

void QVQuickSurface::geometryChange(const QRectF &now, const QRectF &before)
{
    QVQuickPad::geometryChange(now, before);
    // What was drawn would lie elsewhere on the picture.
    if (now.size() != before.size())
        cancel();
    Q_EMIT placed();
    refreshPen();
}

void QVQuickSurface::setVid(const QString &vid)
{
    m_identity.ownVid = qv_ownText(vid);
    if (m_flow)
        m_flow->setIdentity(m_identity);
    Q_EMIT identityChanged();
}

void QVQuickSurface::setScene(const QString &scene)
{
    m_identity.ownScene = qv_ownText(scene);
    if (m_flow)
        m_flow->setIdentity(m_identity);
    Q_EMIT identityChanged();
}

void QVQuickSurface::refresh()
{
    if (m_flow)
        m_flow->refreshButtonDidClickedAction();
}

void QVQuickSurface::help()
{
    if (m_flow)
        m_flow->helpButtonDidClickedAction();
}

void QVQuickSurface::retry()
{
    if (m_flow)
        m_flow->renderDrawImageViewErrorDidClickedAction();
}

void QVQuickSurface::openAdvertisement()
{
    qv_openPage(m_adLink);
}

void QVQuickSurface::answer(const QString &characters)
{
    if (m_flow)
        m_flow->charVerifyInputViewDidClickedDoneButtonWithCharString(characters);
}

void QVQuickSurface::reset()
{
    if (m_flow)
        m_flow->reset();
}

void QVQuickSurface::slideIn(Bar which, const QVText &text, bool acceptsTouches)
{
    bar(which).slideIn(text, acceptsTouches, ++m_barCount);
}

void QVQuickSurface::slideOut(Bar which)
{
    bar(which).slideOut();
}

bool QVQuickSurface::hasSuperview() const
{
    return window() && parentItem();
}

void QVQuickSurface::showLoadingAnimation()
{
    change(m_isLoading, true);
}

void QVQuickSurface::hiddenLoadingAnimation()
{
    change(m_isLoading, false);
}

void QVQuickSurface::show(const QImage &picture)
{
    if (m_picture)
        m_picture->setImage(picture);
    Q_EMIT shown();
}

void QVQuickSurface::setPicture(const QVPicture &picture)
{
    m_clearing.stop();
    m_hasPicture = !picture.image.isNull();
    show(picture.image);
}

void QVQuickSurface::clearPicture()
{
    const bool isSeenToGo = m_hasPicture && isVisible();
    m_hasPicture = false;
    if (!isSeenToGo)
        return setPicture({});
    m_clearing.start(clearDelay, [this] { show({}); });
}

void QVQuickSurface::showFailedPicture()
{
    setPicture({qv_imageFromBundleWithName(QStringLiteral("qv_request_faild.jpg")).toImage(), {}});
}

void QVQuickSurface::updateContentWidthHeightQVVerifyPercentage(bool isCharVerify)
{
    change(m_isCharVerify, isCharVerify);
    Q_EMIT placed();
}

void QVQuickSurface::setCaption(const QVText &caption)
{
    change(m_caption, caption);
}

void QVQuickSurface::setHelpButtonShown(bool isShown)
{
    change(m_isHelpShown, isShown);
}

void QVQuickSurface::setRefreshButtonShown(bool isShown)
{
    change(m_isRefreshShown, isShown);
}

void QVQuickSurface::setRefreshButtonEnabled(bool enabled)
{
    change(m_isRefreshEnabled, enabled);
}

void QVQuickSurface::setOutage(bool outage)
{
    change(m_isOutage, outage);
}

void QVQuickSurface::setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer)
{
    m_adLink = answer ? answer->adlink() : QString();
    change(m_adWord, answer ? answer->adlinkword() : QString());
}

void QVQuickSurface::setDrawingEnabled(bool enabled)
{
    setPenReady(enabled);
    if (m_picture)
        enabled ? m_picture->setCursor(qv_penCursor()) : m_picture->unsetCursor();
    m_isDrawingEnabled = enabled;
    Q_EMIT isDrawingEnabledChanged();
}

bool QVQuickSurface::isSeen() const
{
    if (!isVisible() || !window())
        return false;
    const QWindow *const shown = QVQuickWindows::shown(window());
    return shown->isVisible() && shown->visibility() != QWindow::Minimized;
}

QRectF QVQuickSurface::traceFrame() const
{
    return m_traceArea;
}

QRectF QVQuickSurface::imageFrame() const
{
    return m_picture ? mapRectFromItem(m_picture, m_picture->boundingRect()) : QRectF();
}

void QVQuickSurface::beginStroke(QPointF location)
{
    if (m_stroke)
        m_stroke->moveTo(location);
}

void QVQuickSurface::extendStroke(QPointF location)
{
    if (m_stroke)
        m_stroke->addLineTo(location);
}

void QVQuickSurface::resetUIs()
{
    if (m_stroke)
        m_stroke->removeAllPoints();
    refreshPen();
}

void QVQuickSurface::setCharInputBusy(bool busy)
{
    change(m_isAnswerChecked, busy);
}

void QVQuickSurface::pictureHasExpired()
{
    Q_EMIT pictureExpired();
}

void QVQuickSurface::outageHasStarted()
{
    Q_EMIT outageStarted();
}

void QVQuickSurface::pictureIsReady()
{
    Q_EMIT ready();
}

void QVQuickSurface::answerWasWrong()
{
    Q_EMIT wrongAnswer();
}

void QVQuickSurface::attemptHasFailed(const QVError &failure)
{
    Q_EMIT failed(QVQuickError(failure));
}

void QVQuickSurface::tokenHasExpired()
{
    Q_EMIT expired();
}

void QVQuickSurface::renderDrawViewVerifySuccess(const QString &token)
{
    Q_EMIT passed(token);
}
