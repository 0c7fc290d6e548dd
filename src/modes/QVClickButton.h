#pragma once

#include <Quarvo/QVClickStatus.h>
#include <Quarvo/QVCloseReason.h>
#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QAbstractButton>

#include <memory>

class QVClickButtonDelegate;
class QVClickButtonPrivate;

/// The click-to-verify button. When the user activates it, it asks the service. If the service requires more,
/// a popup opens in which the user draws.
///
/// A host places it like any widget. It paints itself: style, style sheet, text and icon have no effect.
/// While it verifies and after it has passed, it takes no input, and touches go to the widget below.
///
/// Each attempt (an activation by mouse, touch, key, accessibility or click()) ends with exactly one of
/// passed(), failed() and closed(). If the button is destroyed during an attempt, no signal is emitted.
///
/// Use it on the thread of the application object, as every widget. Other calls log a warning and do nothing.
///
/// \code
/// auto *button = new QVClickButton(this);
/// layout->addWidget(button);
/// connect(button, &QVClickButton::passed, this, &Login::sendToken);
/// \endcode
class QUARVO_EXPORT QVClickButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QVClickStatus clickStatus READ clickStatus NOTIFY clickStatusChanged)
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)
    Q_PROPERTY(int cornerRadius READ cornerRadius WRITE setCornerRadius)

public:
    /// Creates a button that is ready to be clicked.
    explicit QVClickButton(QWidget *parent = nullptr);
    /// Closes an open popup. If the user has just passed, the delegate still receives the token.
    ~QVClickButton() override;

    /// The delegate; null if there is none.
    [[nodiscard]] QVClickButtonDelegate *delegate() const;
    /// Sets the delegate, which is held weakly: the host keeps the ownership.
    void setDelegate(QVClickButtonDelegate *delegate);

    /// The verification id of this button. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Sets the verification id of this button, or with null that of QVSDKManager. Takes effect for the next
    /// attempt.
    void setVid(const QString &vid);
    /// The scene of this button. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Sets the scene of this button, or with null that of QVSDKManager. Takes effect for the next attempt.
    void setScene(const QString &scene);

    /// The radius of the corners in logical pixels, as it was set; 0 by default.
    [[nodiscard]] int cornerRadius() const;
    /// Sets the radius of the corners. A negative \a radius counts as 0. A radius of more than half of the
    /// button's height is painted as half of it.
    void setCornerRadius(int radius);

    /// The state of the verification.
    [[nodiscard]] QVClickStatus clickStatus() const;
    /// The text on the button: the state, or the message of the last failure.
    [[nodiscard]] QString statusText() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Closes an open popup and makes the button ready for a new attempt.
    void reset();

Q_SIGNALS:
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The last token has expired, after the time set by QVSDKManager::setTokenLifetime(). The button is
    /// ready again. Not emitted after reset().
    void expired();
    /// The service did not answer, or refused. The button shows the error's domain.
    void failed(const QVError &error);
    /// The attempt ended without a result, for \a reason.
    void closed(QVCloseReason reason);
    /// Something failed inside the popup, which shows the error's domain. The attempt goes on: the user can
    /// try again, or close the popup.
    void popupFailed(const QVError &error);
    /// A popup has opened, since the user has to draw.
    void popupOpened();
    /// The outage service replaces the main one, since that is down or the host has set
    /// QVSDKManager::setOutageOpen().
    void outageStarted();
    /// The user asks for another way, since they cannot do what the picture asks. Popups offer this, by a
    /// text button below the picture, only while the signal is connected. Nothing else happens: the attempt
    /// goes on until the host calls reset().
    ///
    /// \code
    /// connect(m_button, &QVClickButton::alternativeRequested, this, [this] {
    ///     m_button->reset();
    ///     sendCodeByMail();
    /// });
    /// \endcode
    void alternativeRequested();
    /// The state of the verification has changed to \a status.
    void clickStatusChanged(QVClickStatus status);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    friend class QVClickButtonPrivate;
    const std::unique_ptr<QVClickButtonPrivate> d;
};
