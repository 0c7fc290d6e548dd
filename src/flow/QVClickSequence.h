#pragma once

#include "platform/QVError.h"
#include "platform/QuarvoCoreExport.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <variant>

class QVClickResponseModel;
class QVConfigResponseModel;
class QVDataTask;
class QVDownTimeResponseModel;

/// One conversation with the service, up to the decision whether the user has to draw: outage
/// switch, configuration, click decision. It ends in exactly one outcome, unless it is cancelled or
/// its owner lets it go before the click decision is asked for.
class QUARVO_CORE_EXPORT QVClickSequence final : public std::enable_shared_from_this<QVClickSequence>
{
public:
    using Config = std::shared_ptr<QVConfigResponseModel>;
    using Click = std::shared_ptr<QVClickResponseModel>;

    /// The outage service is in force.
    struct OutageActive
    {
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
    using Outcome = std::variant<OutageActive, Passed, Draw, Failed>;
    using Completion = std::function<void(const Outcome &)>;

    /// \a type is what the configuration is asked for: "popup" or "invisible".
    QVClickSequence(QString type, Completion completion);
    ~QVClickSequence();
    Q_DISABLE_COPY(QVClickSequence)

    void start();
    /// No outcome is reported any more.
    void cancel();
    /// Whether the outcome is known, or will never be.
    [[nodiscard]] bool isFinished() const { return !m_completion; }

private:
    void handleOutage(const std::shared_ptr<QVDownTimeResponseModel> &record,
                      const std::optional<QVError> &error);
    void requestConfigFromQuarvoServer();
    void requestClickFromQuarvoServer(const Config &config);
    void finish(const Outcome &outcome);

    QString m_type;
    Completion m_completion;
    std::shared_ptr<QVDataTask> m_task;
};
