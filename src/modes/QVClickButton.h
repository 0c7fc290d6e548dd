#pragma once

#include <Quarvo/QVClickStatus.h>
#include <Quarvo/QVCloseReason.h>
#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QAbstractButton>

#include <memory>

class QVClickButtonDelegate;
class QVClickButtonPrivate;

/// The click-to-verify button: the user activates it, and it asks the service. Where the service
/// wants more, a popup opens in which the user draws.
///
/// A host places it like any widget. It paints itself, whatever style or style sheet is in force,
/// and ignores text and icon. While it verifies and after it has passed, it takes no input: touches
/// go to what lies below it.
///
/// Each attempt (an activation by mouse, touch, key, accessibility or click()) ends in exactly one
/// of passed(), failed() and closed(). If the button is destroyed during an attempt, no signal is
/// emitted.
class QUARVO_EXPORT QVClickButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QVClickStatus clickStatus READ clickStatus NOTIFY clickStatusChanged)
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)
    Q_PROPERTY(int cornerRadius READ cornerRadius WRITE setCornerRadius)

public:
    /// Ready to be clicked.
    explicit QVClickButton(QWidget *parent = nullptr);
    /// Closes an open popup. A token that is about to be reported still reaches a living delegate.
    ~QVClickButton() override;

    /// Who hears what becomes of it; null where nobody does.
    [[nodiscard]] QVClickButtonDelegate *delegate() const;
    /// The delegate stays the host's own and is held weakly.
    void setDelegate(QVClickButtonDelegate *delegate);

    /// The verification id of this button; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Takes effect for the next attempt.
    void setVid(const QString &vid);
    /// The scene of this button; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Takes effect for the next attempt.
    void setScene(const QString &scene);

    /// The radius of the corners in logical pixels; 0 at first.
    [[nodiscard]] int cornerRadius() const;
    /// A negative \a radius counts as 0, a large one as half the button's height.
    void setCornerRadius(int radius);

    /// How far the verification has come.
    [[nodiscard]] QVClickStatus clickStatus() const;
    /// What the button says: the state, or the message of the last failure.
    [[nodiscard]] QString statusText() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Closes an open popup and makes the button ready for a new attempt.
    void reset();

Q_SIGNALS:
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The time that QVSDKManager::setTokenLifetime() gives a token is up, and the last one is no longer
    /// good. The button is ready again. Not emitted after reset().
    void expired();
    /// The service could not be asked or refused; the button shows the error's domain.
    void failed(const QVError &error);
    /// The attempt ended without a result, for \a reason.
    void closed(QVCloseReason reason);
    /// Something failed inside the popup, which shows the error's domain. The attempt goes on: the user
    /// may try again, or close the popup.
    void popupFailed(const QVError &error);
    /// The user has to draw.
    void popupOpened();
    /// The service is down or the host said so, and the outage service asks the user instead.
    void outageStarted();
    /// The user asks for another way, since they cannot do what the picture asks. Only while this is
    /// connected do popups offer it, by a text button below the picture. Nothing else happens: the attempt
    /// goes on until the host calls reset().
    ///
    /// \code
    /// connect(&verification, &QVClickButton::alternativeRequested, this, [this] {
    ///     m_verification.reset();
    ///     sendCodeByMail();
    /// });
    /// \endcode
    void alternativeRequested();
    /// The verification has come to \a status.
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
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    friend class QVClickButtonPrivate;
    const std::unique_ptr<QVClickButtonPrivate> d;
};
