#include "flow/QVRenderDrawFlow.h"

#include "flow/QVPassText.h"
#include "image/QVImageLoader.h"
#include "image/QVPicture.h"
#include "platform/QVErrorName.h"
#include "platform/QVPage.h"
#include "platform/QVScheduler.h"
#include "service/QVAPIRequestManager.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVServiceLog.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLocalizationKeys.h"

#include <limits>
#include <utility>

namespace {

constexpr auto embedStartDelay = std::chrono::milliseconds(100);
constexpr auto successNoticeDelay = std::chrono::seconds(1);
constexpr qint64 triesPerPicture = 2;

QVAPIRequestManager &service()
{
    return QVAPIRequestManager::shared();
}

// The count of the service may begin anywhere, even at the end of the range.
qint64 oneMore(qint64 count)
{
    return count == std::numeric_limits<qint64>::max() ? count : count + 1;
}

} // namespace

QVRenderDrawFlow::QVRenderDrawFlow(QVVerifyStyle style, QVRenderDrawSurface *surface,
                                   QVRenderDrawObserver *observer)
    : m_verifyStyle(style)
    , m_surface(surface)
    , m_observer(observer)
    , m_bars(std::make_shared<QVRenderDrawBars>(surface, this))
    , m_gesture(
          surface, [this] { m_bars->hiddernAll(); },
          [this](const QVRenderTrace &trace) { handleStroke(trace); })
{
}

QVRenderDrawFlow::~QVRenderDrawFlow()
{
    // A running countdown would keep its record and a timer for up to three minutes.
    if (m_getRefreshModel)
        m_getRefreshModel->endTimeDown();
}

void QVRenderDrawFlow::didMoveToSuperview()
{
    if (!isEmbedded())
        return;
    QVAPIRequestManager::prepare();
    // From the event loop, since the host is still creating its window.
    QVScheduler::shared().schedule({}, [] { QVImageLoader::shared().prepare(); });
    QVScheduler::shared().schedule(embedStartDelay, [weak = weak_from_this()] {
        const auto flow = weak.lock();
        if (flow && flow->m_surface && flow->surface().hasSuperview())
            flow->requestQuarvoConfigAction();
    });
}

void QVRenderDrawFlow::requestQuarvoConfigAction()
{
    beginAttempt();
    surface().clearPicture();
    setDrawingEnabled(false);
    requestOutageAction();
}

void QVRenderDrawFlow::reset()
{
    surface().setHelpButtonShown(false);
    surface().setRefreshButtonShown(false);
    setDrawingEnabled(false);
    m_bars->hiddernAll();
    requestQuarvoConfigAction();
}

void QVRenderDrawFlow::handleConfigResponseFromQuarvoServer(
    const std::shared_ptr<QVConfigResponseModel> &config,
    const std::shared_ptr<QVGetRefreshResponseModel> &getRefresh)
{
    beginAttempt();
    if (!config) {
        requestOutageAction();
        return;
    }
    handleConfigResponseFromQuarvoServer(config);
    handleGetRefreshResponseFromQuarvoServer(getRefresh, false);
}

void QVRenderDrawFlow::refreshButtonDidClickedAction()
{
    if (m_outage)
        requestGetFromOutageServer();
    else if (m_quarvoConfig)
        requestRefreshFromQuarvoServer();
    else
        requestQuarvoConfigAction();
}

void QVRenderDrawFlow::helpButtonDidClickedAction() const
{
    const QVServiceAddresses addresses = QVConfigurationManager::sharedManager().serviceAddresses();
    qv_openPage(m_outage ? addresses.outageHelpPage() : addresses.helpPage());
}

void QVRenderDrawFlow::charVerifyInputViewDidClickedDoneButtonWithCharString(const QString &charString)
{
    surface().setCharInputBusy(true);
    requestVerifyFromQuarvoServerWithV(charString, QStringLiteral("0"));
}

void QVRenderDrawFlow::renderDrawImageViewHiddenDelayErrorCompleted()
{
    if (!panGestureRecognizer().isDragging() && canDirectlyShow())
        showPromptIfEmbedded();
}

void QVRenderDrawFlow::beginAttempt()
{
    ++m_now.attempt;
    beginStep();
    // Left over from the attempt before: its countdown must not replace a picture of this attempt,
    // and its answer must not free the input.
    if (m_getRefreshModel)
        m_getRefreshModel->endTimeDown();
    surface().setCharInputBusy(false);
    m_tokenLife.stop();
    if (!isEmbedded())
        return;
    qCDebug(qv_serviceLog, "Attempt begins: embed");
    m_deadline.start([this](const QVError &error) { attemptTimedOut(error); });
}

void QVRenderDrawFlow::attemptTimedOut(const QVError &error)
{
    if (!m_surface)
        return;
    ++m_now.attempt;
    surface().setCharInputBusy(false);
    surface().hiddenLoadingAnimation();
    handleRequestError(error, true);
}

template<class Record>
QVCompletion<Record> QVRenderDrawFlow::ifNotOvertaken(Handler<Record> handler)
{
    return [weak = weak_from_this(), asked = m_now, handler](std::shared_ptr<Record> record,
                                                             std::optional<QVError> error) {
        const auto flow = weak.lock();
        if (flow && flow->m_surface && flow->m_now == asked)
            (flow.get()->*handler)(record, error);
    };
}

QVCompletion<QVVerifyResponseModel> QVRenderDrawFlow::verifyCompletion()
{
    return [weak = weak_from_this(), attempt = m_now.attempt, picture = heldPicture()](const auto &record,
                                                                                       const auto &error) {
        const auto flow = weak.lock();
        if (flow && flow->m_surface && flow->m_now.attempt == attempt)
            flow->handleVerifyResponse(picture, record, error);
    };
}

void QVRenderDrawFlow::beginStep()
{
    ++m_now.step;
    if (const auto sequence = std::exchange(m_sequence, nullptr))
        sequence->cancel();
}

void QVRenderDrawFlow::requestOutageAction()
{
    beginStep();
    surface().showLoadingAnimation();
    const auto weak = weak_from_this();
    const auto onScreen = [weak]() -> std::shared_ptr<QVRenderDrawFlow> {
        const auto flow = weak.lock();
        return flow && flow->m_surface ? flow : nullptr;
    };
    m_sequence =
        std::make_shared<QVClickSequence>(m_verifyStyle, m_identity, [onScreen](const auto &outcome) {
            if (const auto flow = onScreen())
                flow->handleOutcome(outcome);
        });
    m_sequence->setProgress(
        [onScreen](bool isOutage) {
            if (const auto flow = onScreen())
                flow->setOutage(isOutage);
        },
        [onScreen](const QVClickSequence::Config &config) {
            if (const auto flow = onScreen())
                flow->handleConfigResponseFromQuarvoServer(config);
        });
    m_sequence->requestOutageAction();
    // Prepared while the answer is awaited.
    QVImageLoader::shared().prepare();
}

void QVRenderDrawFlow::handleOutcome(const QVClickSequence::Outcome &outcome)
{
    if (const auto *const failed = std::get_if<QVClickSequence::Failed>(&outcome)) {
        surface().hiddenLoadingAnimation();
        handleRequestError(failed->error, true);
    } else if (const auto *const configured = std::get_if<QVClickSequence::Configured>(&outcome)) {
        handleConfigResponseFromQuarvoServer(configured->config);
    } else if (const auto *const passed = std::get_if<QVClickSequence::Passed>(&outcome)) {
        QVVerifyResponseModel verify;
        verify.setToken(passed->click->token());
        handleRequestVerifySuccess(verify);
    } else if (const auto *const draw = std::get_if<QVClickSequence::Draw>(&outcome)) {
        handleGetRefreshResponseFromQuarvoServer(draw->click, false);
    } else {
        enterOutage();
        observer().outageHasStarted();
    }
}

void QVRenderDrawFlow::setOutage(bool outage)
{
    m_outage = outage;
    m_gesture.setOutage(outage);
    surface().setOutage(outage);
}

void QVRenderDrawFlow::setDrawingEnabled(bool enabled)
{
    panGestureRecognizer().setEnabled(enabled);
    surface().setDrawingEnabled(enabled);
}

void QVRenderDrawFlow::requestGetFromQuarvoServer()
{
    beginStep();
    service().requestGetWithApiServer(apiServer(), m_identity.vid(), challenge(),
                                      ifNotOvertaken(&QVRenderDrawFlow::handleGetResponse));
}

void QVRenderDrawFlow::requestRefreshFromQuarvoServer()
{
    beginStep();
    surface().setAdLinkword(nullptr);
    surface().setRefreshButtonEnabled(false);
    surface().clearPicture();
    surface().showLoadingAnimation();
    service().requestRefreshWithApiServer(apiServer(), m_identity.vid(), challenge(),
                                          ifNotOvertaken(&QVRenderDrawFlow::handleRefreshResponse));
}

void QVRenderDrawFlow::requestGetFromOutageServer()
{
    beginStep();
    surface().setRefreshButtonShown(false);
    surface().setRefreshButtonEnabled(false);
    surface().clearPicture();
    surface().showLoadingAnimation();
    service().requestOutageGetcompleted(ifNotOvertaken(&QVRenderDrawFlow::handleGetOutageResponse));
}

void QVRenderDrawFlow::showPromptIfEmbedded()
{
    if (isEmbedded())
        m_bars->showPrompt(isCharVerify());
}

void QVRenderDrawFlow::handleStroke(const QVRenderTrace &trace)
{
    if (!trace.isAcceptable()) {
        showPromptIfEmbedded();
    } else if (m_outage) {
        requestVerifyFromOutageServerWithV(trace.getRenderOutage_v(surface().imageFrame()),
                                           trace.getRender_drawtime());
    } else {
        requestVerifyFromQuarvoServerWithV(trace.getRenderSource_v(), trace.getRender_drawtime());
    }
}

void QVRenderDrawFlow::requestVerifyFromQuarvoServerWithV(const QString &v, const QString &drwatime)
{
    surface().setRefreshButtonEnabled(false);
    service().requestVerifyWithApiServer(apiServer(), m_identity.vid(), challenge(), v, drwatime,
                                         verifyCompletion());
}

void QVRenderDrawFlow::requestVerifyFromOutageServerWithV(const QString &v, const QString &drwatime)
{
    surface().setRefreshButtonEnabled(false);
    const QString outageChallenge = m_getOutageModel ? m_getOutageModel->challenge() : QString();
    service().requestOutageVerifyWithChallenge(outageChallenge, v, drwatime, verifyCompletion());
}

void QVRenderDrawFlow::enterOutage()
{
    if (isCharVerify()) {
        // The outage service has only drawings, whatever the kind of the previous attempt was.
        m_quarvoConfig.reset();
        surface().updateContentWidthHeightQVVerifyPercentage(false);
    }
    surface().setHelpButtonShown(true);
    requestGetFromOutageServer();
    if (!isEmbedded())
        surface().setCaption(QVKey::drawCaptcha);
}

void QVRenderDrawFlow::handleConfigResponseFromQuarvoServer(const QVClickSequence::Config &config)
{
    m_quarvoConfig = config;
    const bool isCharacters = config->type() == QLatin1String("character");
    surface().updateContentWidthHeightQVVerifyPercentage(isCharacters);
    const QVText caption = isCharacters ? QVKey::characterCaptcha : QVKey::drawCaptcha;
    surface().setCaption(isEmbedded() ? QVText() : caption);
    surface().setHelpButtonShown(config->guide());
    surface().setRefreshButtonShown(true);
    if (isEmbedded())
        requestGetFromQuarvoServer();
}

void QVRenderDrawFlow::handleGetResponse(const std::shared_ptr<QVGetRefreshResponseModel> &record,
                                         const std::optional<QVError> &error)
{
    // The dots go on until the picture is there.
    if (record) {
        handleGetRefreshResponseFromQuarvoServer(record, false);
        return;
    }
    surface().hiddenLoadingAnimation();
    handleRequestError(*error, true);
}

void QVRenderDrawFlow::handleRefreshResponse(const std::shared_ptr<QVGetRefreshResponseModel> &record,
                                             const std::optional<QVError> &error)
{
    // The dots go on until the picture is there.
    if (record) {
        handleGetRefreshResponseFromQuarvoServer(record, true);
        return;
    }
    surface().hiddenLoadingAnimation();
    handleRequestError(*error, true);
}

void QVRenderDrawFlow::handleGetOutageResponse(const std::shared_ptr<QVGetOutageResponseModel> &record,
                                               const std::optional<QVError> &error)
{
    if (!record) {
        surface().hiddenLoadingAnimation();
        handleRequestError(*error, true);
        return;
    }
    surface().setRefreshButtonShown(true);
    handleGetResponseFromOutageServer(record);
}

void QVRenderDrawFlow::handleGetResponseFromOutageServer(
    const std::shared_ptr<QVGetOutageResponseModel> &record)
{
    m_getOutageModel = record;
    loadVerifyImageFromURLString(record->imgUrlString(), false);
}

void QVRenderDrawFlow::handleVerifyResponse(const Picture &picture,
                                            const std::shared_ptr<QVVerifyResponseModel> &record,
                                            const std::optional<QVError> &error)
{
    surface().setCharInputBusy(false);
    if (record) {
        handleRequestVerifySuccess(*record);
        return;
    }
    // Several judgements of one picture may be under way; each counts until the picture is replaced.
    if (picture != heldPicture())
        return;
    if (error->code() == QVErrorClassification::wrongAnswerCode)
        handleWrongAnswer(*error);
    else
        handleRequestError(*error, true);
}

void QVRenderDrawFlow::handleGetRefreshResponseFromQuarvoServer(
    const std::shared_ptr<QVGetRefreshResponseModel> &record, bool isRefresh)
{
    handleGetRefreshResponseFromQuarvoServer(record);
    const QString path = record ? record->img() : QString();
    loadVerifyImageFromURLString(m_quarvoConfig->source_server() + u'/' + path, isRefresh);
}

void QVRenderDrawFlow::handleGetRefreshResponseFromQuarvoServer(
    const std::shared_ptr<QVGetRefreshResponseModel> &record)
{
    if (m_getRefreshModel)
        m_getRefreshModel->endTimeDown();
    m_getRefreshModel = record;
    m_isExpired = false;
    surface().setAdLinkword(record && !record->adlinkword().isEmpty() ? record : nullptr);
    m_quarvoConfig->setGetRefreshCount(oneMore(m_quarvoConfig->getRefreshCount()));
    if (!record)
        return;
    record->startTimeDown();
    record->setFireTimeDown([weak = weak_from_this()] {
        const auto flow = weak.lock();
        if (flow && flow->m_surface)
            flow->replaceExpiredPicture();
    });
}

void QVRenderDrawFlow::replaceExpiredPicture()
{
    // While the surface is not visible, its picture need not be replaced every three minutes.
    m_isExpired = !surface().isSeen();
    if (m_isExpired)
        return;
    surface().pictureHasExpired();
    requestRefreshFromQuarvoServer();
}

void QVRenderDrawFlow::surfaceHasAppeared()
{
    if (m_isExpired)
        replaceExpiredPicture();
}

void QVRenderDrawFlow::loadVerifyImageFromURLString(const QString &address, bool isRefresh)
{
    beginStep();
    surface().setRefreshButtonEnabled(true);
    if (!isRefresh)
        surface().clearPicture();
    if (!surface().hasPicture())
        surface().showLoadingAnimation();
    setDrawingEnabled(false);
    // Keeps the flow alive until the picture is loaded or has failed.
    QVImageLoader::shared().load(address, surface().pictureSize(),
                                 [flow = shared_from_this(), asked = m_now](
                                     const QVPicture &picture, const std::optional<QVError> &error) {
                                     if (flow->m_surface && flow->m_now == asked)
                                         flow->handlePicture(picture, error);
                                 });
}

void QVRenderDrawFlow::handlePicture(const QVPicture &picture, const std::optional<QVError> &error)
{
    surface().hiddenLoadingAnimation();
    if (error) {
        qCWarning(qv_serviceLog, "Request for the picture failed: %s (code %lld)", qv_errorName(*error),
                  static_cast<long long>(error->code()));
        handleRequestError(QVError({}, QVError::PictureNotLoaded), QVKey::loadFaild, true);
        return;
    }
    qCDebug(qv_serviceLog, "Picture is shown");
    surface().setPicture(picture);
    setDrawingEnabled(!isCharVerify());
    showPromptIfEmbedded();
    observer().pictureIsReady();
}

void QVRenderDrawFlow::handleRequestVerifySuccess(const QVVerifyResponseModel &verify)
{
    // From here on all answers under way are ignored, a second pass included: an attempt has one token.
    ++m_now.attempt;
    m_deadline.stop();
    if (isEmbedded())
        qCDebug(qv_serviceLog, "Attempt passed");
    clearGetRefreshModel();
    surface().hiddenLoadingAnimation();
    surface().setRefreshButtonShown(false);
    setDrawingEnabled(false);
    m_bars->showSuccess(QVText([verify] { return qv_passText(verify); }));
    // Keeps the flow alive: the delegate receives the token even if the view was destroyed meanwhile.
    QVScheduler::shared().schedule(
        successNoticeDelay, [flow = shared_from_this(), token = verify.token(), attempt = m_now.attempt] {
            if (flow->isEmbedded() && flow->m_now.attempt == attempt)
                flow->m_tokenLife.start([flow = flow.get()] { flow->tokenHasExpired(); });
            if (auto *delegate = flow->m_delegate.get())
                delegate->renderDrawViewVerifySuccess(token);
        });
    if (auto *delegate = m_delegate.get())
        delegate->renderDrawViewHasPassed();
}

void QVRenderDrawFlow::tokenHasExpired()
{
    if (!m_surface)
        return;
    m_bars->hiddernAll();
    m_bars->showError(QVKey::expired, true);
    observer().tokenHasExpired();
}

void QVRenderDrawFlow::handleWrongAnswer(const QVError &error)
{
    const qint64 count = countWrongAnswer();
    surface().setRefreshButtonEnabled(true);
    handleRequestError(error, QVKey::fail, false);
    // Equal, not at least: the service may send a picture with a higher count.
    if (count == triesPerPicture)
        refreshButtonDidClickedAction();
    observer().answerWasWrong();
}

qint64 QVRenderDrawFlow::countWrongAnswer()
{
    const auto countOn = [](auto *picture) -> qint64 {
        if (!picture)
            return 0;
        picture->setVerifyCount(oneMore(picture->verifyCount()));
        return picture->verifyCount();
    };
    return m_outage ? countOn(m_getOutageModel.get()) : countOn(m_getRefreshModel.get());
}

void QVRenderDrawFlow::handleRequestError(const QVError &error, bool canClickRefresh)
{
    handleRequestError(error, QVErrorClassification::message(error), canClickRefresh);
}

void QVRenderDrawFlow::handleRequestError(const QVError &error, const QVText &message, bool canClickRefresh)
{
    surface().setRefreshButtonShown(!canClickRefresh);
    if (canClickRefresh) {
        qCDebug(qv_serviceLog, "Picture gives way to a failure: code %lld",
                static_cast<long long>(error.code()));
        m_deadline.stop();
        beginStep();
        surface().showFailedPicture();
        setDrawingEnabled(false);
        clearGetRefreshModel();
        surface().setAdLinkword(nullptr);
    }
    m_bars->showError(message, canClickRefresh);
    if (canClickRefresh)
        observer().attemptHasFailed(QVError(message.text(), error.code(), error.userInfo()));
}

void QVRenderDrawFlow::clearGetRefreshModel()
{
    if (m_getRefreshModel)
        m_getRefreshModel->endTimeDown();
    m_getRefreshModel.reset();
    m_isExpired = false;
    m_getOutageModel.reset();
}

QVRenderDrawFlow::Picture QVRenderDrawFlow::heldPicture() const
{
    return m_outage ? Picture(m_getOutageModel) : Picture(m_getRefreshModel);
}

bool QVRenderDrawFlow::isCharVerify() const
{
    return m_quarvoConfig && m_quarvoConfig->isCharVerify();
}

QString QVRenderDrawFlow::apiServer() const
{
    return m_quarvoConfig ? m_quarvoConfig->api_server() : QString();
}

QString QVRenderDrawFlow::challenge() const
{
    return m_quarvoConfig ? m_quarvoConfig->challenge() : QString();
}
