#pragma once

#include "draw/QVRenderDrawParts.h"
#include "flow/QVRenderDrawObserver.h"
#include "flow/QVRenderDrawViewDelegate.h"
#include "platform/QVError.h"
#include "views/QVCharVerifyInputViewDelegate.h"

#include <QWidget>

#include <memory>

class QVConfigResponseModel;
class QVGetRefreshResponseModel;
struct QVIdentity;
class QVRenderDrawFlow;

/// The drawing captcha as a widget. QVRenderDrawFlow decides what happens, its parts show it, and this view
/// tells its owner.
class QVRenderDrawView final : public QWidget,
                               private QVRenderDrawObserver,
                               private QVCharVerifyInputViewDelegate
{
    Q_OBJECT

public:
    explicit QVRenderDrawView(QVVerifyStyle style, QWidget *parent = nullptr);
    ~QVRenderDrawView() override;

    void setDelegate(QVRenderDrawViewDelegate *delegate);
    void setIdentity(const QVIdentity &identity);
    [[nodiscard]] QVVerifyStyle verifyStyle() const;
    /// Whether there is an answer with a picture, so that a hidden view may be shown again as it is.
    [[nodiscard]] Q_INVOKABLE bool canDirectlyShow() const;
    /// Whether there is a picture, so that its characters can be typed.
    [[nodiscard]] bool canInput() override;

    void requestQuarvoConfigAction();
    void reset();
    /// Starts with answers that the host has already. Without a configuration it starts from scratch.
    void handleConfigResponseFromQuarvoServer(const std::shared_ptr<QVConfigResponseModel> &config,
                                              const std::shared_ptr<QVGetRefreshResponseModel> &getRefresh);

    /// Sets whether the user is offered another way, below the picture.
    void setOffersAlternative(bool offers);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    /// A picture is shown, to draw on or to read.
    void ready();
    /// The service has judged the answer as wrong. The user may go on.
    void wrongAnswer();
    /// The outage service replaces the main one.
    void outageStarted();
    /// Something failed. The view shows it and lets the user start again.
    void failed(const QVError &error);
    /// The token of an embedded view has expired. The view lets the user start again.
    void expired();
    /// The user asks for another way.
    void alternativeRequested();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void connectParts();
    void refreshButtonDidClickedAction();

    void charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView *view,
                                                               const QString &charString) override;

    void outageHasStarted() override;
    void pictureIsReady() override;
    void answerWasWrong() override;
    void attemptHasFailed(const QVError &error) override;
    void tokenHasExpired() override;

    std::shared_ptr<QVRenderDrawFlow> m_flow;
    // Destroyed before the flow, to whose recogniser it reports.
    QVRenderDrawParts m_parts{this};
};
