#include "flow/QVClickSequence.h"

#include "net/QVBoundedDownload.h"
#include "service/QVAPIRequestManager.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVDownTimeResponseModel.h"

#include <utility>

QVClickSequence::QVClickSequence(QVVerifyStyle style, QVIdentity identity, Completion completion)
    : m_style(style)
    , m_identity(std::move(identity))
    , m_completion(std::move(completion))
{
}

QVClickSequence::~QVClickSequence()
{
    cancel();
}

void QVClickSequence::setProgress(std::function<void(bool)> switched,
                                  std::function<void(const Config &)> configured)
{
    m_switched = std::move(switched);
    m_configured = std::move(configured);
}

void QVClickSequence::requestOutageAction()
{
    m_task = QVAPIRequestManager::shared().requestOutageComplted(
        [weak = weak_from_this()](const auto &record, const auto &error) {
            if (const auto self = weak.lock())
                self->handleOutage(record, error);
        });
}

void QVClickSequence::cancel()
{
    m_completion = nullptr;
    if (m_task)
        m_task->cancel();
}

void QVClickSequence::handleOutage(const std::shared_ptr<QVDownTimeResponseModel> &record,
                                   const std::optional<QVError> &error)
{
    if (isFinished())
        return;
    if (error) {
        finish(Failed{*error});
        return;
    }
    // There is no record if the answer is not an object.
    const bool isActive = record && record->active();
    if (m_switched)
        m_switched(isActive);
    if (isActive)
        finish(OutageActive{});
    else
        requestConfigFromQuarvoServer();
}

void QVClickSequence::requestConfigFromQuarvoServer()
{
    if (isFinished())
        return;
    m_task = QVAPIRequestManager::shared().requestConfigWithVid(
        m_identity.vid(), qv_typeStringForVerifyStyle(m_style), m_identity.scene(),
        [weak = weak_from_this()](const Config &config, const auto &error) {
            const auto self = weak.lock();
            if (!self)
                return;
            if (config)
                self->handleConfig(config);
            else
                self->finish(Failed{*error});
        });
}

void QVClickSequence::handleConfig(const Config &config)
{
    if (isFinished())
        return;
    if (m_style == QVVerifyStyleEmbed) {
        finish(Configured{config});
        return;
    }
    if (m_configured)
        m_configured(config);
    requestClickFromQuarvoServer(config);
}

void QVClickSequence::requestClickFromQuarvoServer(const Config &config)
{
    if (isFinished())
        return;
    // A strong reference: the decision is handled even if the owner has released this sequence. The
    // completion checks whether the owner still exists.
    m_task = QVAPIRequestManager::shared().requestClickWithApiServer(
        config->api_server(), m_identity.vid(), config->challenge(),
        [self = shared_from_this(), config](const Click &click, const auto &error) {
            if (!click)
                self->finish(Failed{*error});
            else if (click->code() == QVResponseModel::successCode)
                self->finish(Passed{click});
            else
                self->finish(Draw{config, click});
        });
}

void QVClickSequence::finish(const Outcome &outcome)
{
    // Taken out first: the completion may destroy this sequence or start another one.
    if (const Completion completion = std::exchange(m_completion, nullptr))
        completion(outcome);
}
