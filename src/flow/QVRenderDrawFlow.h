#pragma once

#include "flow/QVAttemptDeadline.h"
#include "flow/QVClickSequence.h"
#include "flow/QVRenderDrawBars.h"
#include "flow/QVRenderDrawGesture.h"
#include "flow/QVRenderDrawObserver.h"
#include "flow/QVRenderDrawSurface.h"
#include "flow/QVRenderDrawViewDelegate.h"
#include "flow/QVTokenLife.h"
#include "flow/QVVerifyStyle.h"
#include "platform/QuarvoCoreExport.h"
#include "service/QVCompletion.h"

#include <QString>

#include <memory>
#include <optional>

class QVClickResponseModel;
class QVConfigResponseModel;
class QVGetOutageResponseModel;
class QVGetRefreshResponseModel;
class QVResponseModel;
class QVVerifyResponseModel;

/// The requests and answers about one captcha after another, from the outage switch to the token. It knows no
/// widget, and drives a surface.
///
/// Requests may overlap: the user may draw again before a stroke is judged, the countdown may replace a
/// picture, the host may reset. Only the latest request decides what is shown; answers to earlier ones are
/// ignored. A judgement counts until the picture is replaced. A pass counts until a new attempt is started.
class QUARVO_CORE_EXPORT QVRenderDrawFlow final : public QVRenderDrawImageViewDelegate,
                                                  public std::enable_shared_from_this<QVRenderDrawFlow>
{
public:
    /// \a surface and \a observer are destroyed together.
    QVRenderDrawFlow(QVVerifyStyle style, QVRenderDrawSurface *surface, QVRenderDrawObserver *observer);
    ~QVRenderDrawFlow() override;
    Q_DISABLE_COPY(QVRenderDrawFlow)

    void setDelegate(QVRenderDrawViewDelegate *delegate) { m_delegate = delegate; }
    /// Sets the id and the scene of the following requests.
    void setIdentity(const QVIdentity &identity) { m_identity = identity; }
    [[nodiscard]] QVVerifyStyle verifyStyle() const { return m_verifyStyle; }
    [[nodiscard]] bool canDirectlyShow() const { return m_getRefreshModel || m_getOutageModel; }
    /// The recogniser that must receive the pointer events of the surface.
    [[nodiscard]] QVPanGestureRecognizer &panGestureRecognizer() { return m_gesture.panGestureRecognizer(); }

    /// Call when the surface was given a parent. An embedded one requests its picture soon afterwards.
    void didMoveToSuperview();
    /// Call when the surface is visible again. A picture that has expired meanwhile is replaced.
    void surfaceHasAppeared();
    void requestQuarvoConfigAction();
    void reset();
    /// Starts with answers that the host has already. Without a configuration it starts from scratch.
    void handleConfigResponseFromQuarvoServer(const std::shared_ptr<QVConfigResponseModel> &config,
                                              const std::shared_ptr<QVGetRefreshResponseModel> &getRefresh);

    /// Replaces the picture. If no service has been chosen yet, starts from scratch.
    void refreshButtonDidClickedAction();
    void helpButtonDidClickedAction() const;
    void charVerifyInputViewDidClickedDoneButtonWithCharString(const QString &charString);
    void renderDrawImageViewErrorDidClickedAction() override { reset(); }
    void renderDrawImageViewHiddenDelayErrorCompleted() override;

private:
    template<class Record>
    using Handler = void (QVRenderDrawFlow::*)(const std::shared_ptr<Record> &record,
                                               const std::optional<QVError> &error);
    /// The answer that belongs to a picture.
    using Picture = std::shared_ptr<const QVResponseModel>;
    /// Identifies when a request was started.
    struct Stamp
    {
        quint64 attempt = 0;
        quint64 step = 0;

        friend bool operator==(const Stamp &, const Stamp &) = default;
    };

    void beginAttempt();
    void attemptTimedOut(const QVError &error);
    void beginStep();
    template<class Record>
    [[nodiscard]] QVCompletion<Record> ifNotOvertaken(Handler<Record> handler);
    [[nodiscard]] QVCompletion<QVVerifyResponseModel> verifyCompletion();

    void requestOutageAction();
    void requestGetFromQuarvoServer();
    void requestRefreshFromQuarvoServer();
    void requestGetFromOutageServer();

    void handleStroke(const QVRenderTrace &trace);
    void requestVerifyFromQuarvoServerWithV(const QString &v, const QString &drwatime);
    void requestVerifyFromOutageServerWithV(const QString &v, const QString &drwatime);

    void handleOutcome(const QVClickSequence::Outcome &outcome);
    void setOutage(bool outage);
    void setDrawingEnabled(bool enabled);
    void showPromptIfEmbedded();
    void handleGetResponse(const std::shared_ptr<QVGetRefreshResponseModel> &record,
                           const std::optional<QVError> &error);
    void handleRefreshResponse(const std::shared_ptr<QVGetRefreshResponseModel> &record,
                               const std::optional<QVError> &error);
    void handleGetOutageResponse(const std::shared_ptr<QVGetOutageResponseModel> &record,
                                 const std::optional<QVError> &error);
    void handleVerifyResponse(const Picture &picture, const std::shared_ptr<QVVerifyResponseModel> &record,
                              const std::optional<QVError> &error);

    void enterOutage();
    void handleConfigResponseFromQuarvoServer(const QVClickSequence::Config &config);
    void handleGetRefreshResponseFromQuarvoServer(const std::shared_ptr<QVGetRefreshResponseModel> &record,
                                                  bool isRefresh);
    void handleGetRefreshResponseFromQuarvoServer(const std::shared_ptr<QVGetRefreshResponseModel> &record);
    void handleGetResponseFromOutageServer(const std::shared_ptr<QVGetOutageResponseModel> &record);
    void replaceExpiredPicture();
    void loadVerifyImageFromURLString(const QString &address, bool isRefresh);
    void handlePicture(const QVPicture &picture, const std::optional<QVError> &error);
    void handleRequestVerifySuccess(const QVVerifyResponseModel &verify);
    void tokenHasExpired();
    void handleWrongAnswer(const QVError &error);
    [[nodiscard]] qint64 countWrongAnswer();
    void handleRequestError(const QVError &error, bool canClickRefresh);
    void handleRequestError(const QVError &error, const QVText &message, bool canClickRefresh);
    void clearGetRefreshModel();
    [[nodiscard]] Picture heldPicture() const;

    [[nodiscard]] QVRenderDrawSurface &surface() const { return *m_surface.get(); }
    [[nodiscard]] QVRenderDrawObserver &observer() const { return *m_observer.get(); }
    [[nodiscard]] bool isEmbedded() const { return m_verifyStyle == QVVerifyStyleEmbed; }
    [[nodiscard]] bool isCharVerify() const;
    [[nodiscard]] QString apiServer() const;
    [[nodiscard]] QString challenge() const;

    const QVVerifyStyle m_verifyStyle;
    const QVWeakDelegate<QVRenderDrawSurface> m_surface;
    const QVWeakDelegate<QVRenderDrawObserver> m_observer;
    QVWeakDelegate<QVRenderDrawViewDelegate> m_delegate;
    const std::shared_ptr<QVRenderDrawBars> m_bars;
    QVRenderDrawGesture m_gesture;
    QVIdentity m_identity;
    std::shared_ptr<QVClickSequence> m_sequence;
    bool m_outage = false;
    std::shared_ptr<QVConfigResponseModel> m_quarvoConfig;
    std::shared_ptr<QVGetRefreshResponseModel> m_getRefreshModel;
    std::shared_ptr<QVGetOutageResponseModel> m_getOutageModel;
    /// The picture expired while nobody could see it.
    bool m_isExpired = false;
    Stamp m_now;
    /// Runs for a panel only: the attempt of a popup is ended by its opener.
    QVAttemptDeadline m_deadline;
    /// Runs for a panel only, as well.
    QVTokenLife m_tokenLife;
};
