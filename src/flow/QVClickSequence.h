#pragma once

#include "flow/QVIdentity.h"
#include "flow/QVVerifyStyle.h"
#include "platform/QVError.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <variant>

class QVClickResponseModel;
class QVConfigResponseModel;
class QVBoundedDownload;
class QVDownTimeResponseModel;

/// The requests before a picture, in this order: outage switch, configuration, and, unless the style is
/// embedded, click decision. It ends with exactly one outcome, unless it is cancelled, or destroyed before
/// the click decision is requested.
class QVClickSequence final : public std::enable_shared_from_this<QVClickSequence>
{
public:
    using Config = std::shared_ptr<QVConfigResponseModel>;
    using Click = std::shared_ptr<QVClickResponseModel>;

    /// The outage service is to be used.
    struct OutageActive
    {
    };
    /// There is a configuration. An embedded panel requests a picture next.
    struct Configured
    {
        Config config;
    };
    /// The click has passed; the record contains the token.
    struct Passed
    {
        Click click;
    };
    /// The user has to draw on the picture of the click record.
    struct Draw
    {
        Config config;
        Click click;
    };
    struct Failed
    {
        QVError error;
    };
    using Outcome = std::variant<OutageActive, Configured, Passed, Draw, Failed>;
    using Completion = std::function<void(const Outcome &)>;

    QVClickSequence(QVVerifyStyle style, QVIdentity identity, Completion completion);
    ~QVClickSequence();
    Q_DISABLE_COPY(QVClickSequence)

    /// Sets callbacks for the answer of the outage switch, and for the configuration, before the click
    /// decision is requested.
    void setProgress(std::function<void(bool isOutage)> switched,
                     std::function<void(const Config &)> configured);
    void requestOutageAction();
    /// Cancels the sequence: no outcome is reported any more.
    void cancel();
    /// Whether the outcome was reported or the sequence was cancelled.
    [[nodiscard]] bool isFinished() const { return !m_completion; }

private:
    void handleOutage(const std::shared_ptr<QVDownTimeResponseModel> &record,
                      const std::optional<QVError> &error);
    void requestConfigFromQuarvoServer();
    void handleConfig(const Config &config);
    void requestClickFromQuarvoServer(const Config &config);
    void finish(const Outcome &outcome);

    const QVVerifyStyle m_style;
    const QVIdentity m_identity;
    Completion m_completion;
    std::function<void(bool)> m_switched;
    std::function<void(const Config &)> m_configured;
    QPointer<QVBoundedDownload> m_task;
};
