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

/// The questions before a picture, in their order: outage switch, configuration, and, unless the style
/// is embedded, the click decision. It ends in exactly one outcome, unless it is cancelled or its owner
/// lets it go before the click decision is asked for.
class QVClickSequence final : public std::enable_shared_from_this<QVClickSequence>
{
public:
    using Config = std::shared_ptr<QVConfigResponseModel>;
    using Click = std::shared_ptr<QVClickResponseModel>;

    /// The outage service is in force.
    struct OutageActive
    {
    };
    /// An embedded panel asks for a picture next.
    struct Configured
    {
        Config config;
    };
    /// The click was enough; the record carries the token.
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

    /// Is told the outage switch's answer and, before the click decision is asked for, the configuration.
    void setProgress(std::function<void(bool isOutage)> switched,
                     std::function<void(const Config &)> configured);
    void requestOutageAction();
    /// No outcome is reported any more.
    void cancel();
    /// Whether the outcome is known, or will never be.
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
