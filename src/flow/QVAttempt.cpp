#include "flow/QVAttempt.h"

#include "flow/QVPopup.h"
#include "flow/QVPopupPresenter.h"
#include "service/QVClickResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVServiceLog.h"

#include <QMetaEnum>

#include <utility>

QVAttempt::QVAttempt(QVVerifyStyle style, QVIdentity identity, const QVPopupPresenter &presenter,
                     QObject *host, QVAttemptObserver *observer)
    : m_style(style)
    , m_identity(std::move(identity))
    , m_presenter(presenter)
    , m_hasHost(host)
    , m_host(host)
    , m_observer(observer)
{
}

QVAttempt::~QVAttempt()
{
    abandon();
}

void QVAttempt::start(const std::shared_ptr<QVPopup> &hidden)
{
    qCDebug(qv_serviceLog, "Attempt begins: %s", qUtf8Printable(qv_typeStringForVerifyStyle(m_style)));
    m_deadline.start([this](const QVError &error) { handleError(error); });
    if (m_host)
        m_hostWatch = m_presenter.watch(m_host, [this] { close(QVCloseReason::WindowGone); });
    if (hidden)
        displayAgain(hidden);
    else
        requestOutageAction();
}

void QVAttempt::close(QVCloseReason reason)
{
    const auto self = shared_from_this();
    if (!end())
        return;
    qCDebug(qv_serviceLog, "Attempt closed: %s",
            QMetaEnum::fromType<QVCloseReason>().valueToKey(int(reason)));
    // This gives the focus back, and the host may destroy the front-end in a focus handler.
    if (reason != QVCloseReason::User)
        dismissPopup();
    if (auto *const told = m_observer.get())
        told->attemptHasClosed(*this, reason);
}

bool QVAttempt::isHostShown() const
{
    return !m_hasHost || m_presenter.isShown(m_host);
}

void QVAttempt::abandon()
{
    if (end())
        dismissPopup();
}

void QVAttempt::displayAgain(const std::shared_ptr<QVPopup> &popup)
{
    const auto self = shared_from_this();
    m_popup = popup;
    popup->setDelegate(this);
    if (auto *const told = observer())
        told->attemptDraws(*this);
    if (m_hasEnded)
        return;
    popup->displayWindow();
    popupIsShown();
}

void QVAttempt::requestOutageAction()
{
    const auto self = shared_from_this();
    m_sequence = std::make_shared<QVClickSequence>(m_style, m_identity,
                                                   [weak = weak_from_this()](const auto &outcome) {
                                                       // The click answer may arrive after the attempt has
                                                       // ended.
                                                       if (const auto attempt = weak.lock())
                                                           attempt->handleOutcome(outcome);
                                                   });
    if (auto *const told = observer())
        told->attemptAsks(*this);
    if (!m_hasEnded)
        m_sequence->requestOutageAction();
}

void QVAttempt::handleOutcome(const QVClickSequence::Outcome &outcome)
{
    const auto self = shared_from_this();
    m_sequence.reset();
    if (auto *const told = observer())
        told->attemptIsAnswered(*this);
    if (const auto *const passed = std::get_if<QVClickSequence::Passed>(&outcome)) {
        handleSuccess(passed->click->token());
    } else if (const auto *const failed = std::get_if<QVClickSequence::Failed>(&outcome)) {
        handleError(failed->error);
    } else if (const auto *const draw = std::get_if<QVClickSequence::Draw>(&outcome)) {
        showVerifyControllerWithConfig(draw->config, draw->click);
    } else {
        if (auto *const told = observer())
            told->attemptDraws(*this);
        showVerifyControllerWithConfig(nullptr, nullptr);
    }
}

void QVAttempt::showVerifyControllerWithConfig(const QVClickSequence::Config &config,
                                               const QVClickSequence::Click &click)
{
    if (m_hasEnded)
        return;
    // The host may have been hidden before the start, which is checked only now.
    if (!isHostShown()) {
        close(QVCloseReason::WindowGone);
        return;
    }
    if (!m_presenter.canShowOver(m_host)) {
        qCWarning(qv_serviceLog,
                  "No popup can be shown: there is no QApplication, or a Quick window covers all");
        handleError(QVErrorClassification::parseError(QVError({}, QVError::CannotBeShown)));
        return;
    }
    m_presenter.open(m_style, config, click, this);
    popupIsShown();
}

void QVAttempt::popupIsShown()
{
    qCDebug(qv_serviceLog, "Attempt goes on in a popup");
    if (auto *const told = observer())
        told->attemptShowsPopup(*this);
}

void QVAttempt::handleSuccess(const QString &token)
{
    const auto self = shared_from_this();
    if (!end())
        return;
    qCDebug(qv_serviceLog, "Attempt passed");
    if (auto *const told = m_observer.get())
        told->attemptHasPassed(*this, token);
}

void QVAttempt::handleError(const QVError &error)
{
    const auto self = shared_from_this();
    if (!end())
        return;
    qCDebug(qv_serviceLog, "Attempt failed: code %lld", static_cast<long long>(error.code()));
    dismissPopup();
    if (auto *const told = m_observer.get())
        told->attemptHasFailed(*this, error);
}

void QVAttempt::qv_controllerShowAction(const std::shared_ptr<QVPopup> &popup)
{
    m_popup = popup;
}

void QVAttempt::qv_controllerPassedAction()
{
    // The user has passed in time.
    m_deadline.stop();
}

void QVAttempt::quarvoControllerVerifySuccessWithToken(const QString &token)
{
    handleSuccess(token);
}

void QVAttempt::qv_controllerCloseAction()
{
    close(QVCloseReason::User);
}

void QVAttempt::qv_controllerDestroyedAction()
{
    close(QVCloseReason::WindowGone);
}

void QVAttempt::qv_controllerOutageAction()
{
    if (auto *const told = observer())
        told->attemptEntersOutage(*this);
}

void QVAttempt::qv_controllerFailedAction(const QVError &error)
{
    if (auto *const told = observer())
        told->attemptFailsInPopup(*this, error);
}

bool QVAttempt::qv_controllerOffersAlternative() const
{
    const auto *const told = observer();
    return told && told->offersAlternative();
}

void QVAttempt::qv_controllerAlternativeAction()
{
    if (auto *const told = observer())
        told->attemptWantsAlternative(*this);
}

bool QVAttempt::end()
{
    if (std::exchange(m_hasEnded, true))
        return false;
    m_deadline.stop();
    if (const auto sequence = std::exchange(m_sequence, nullptr))
        sequence->cancel();
    m_hostWatch.reset();
    return true;
}

void QVAttempt::dismissPopup()
{
    if (const auto popup = std::exchange(m_popup, {}).lock())
        popup->dismissWindow();
}
