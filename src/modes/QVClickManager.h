#pragma once

#include <Quarvo/QVClickButtonDelegate.h>
#include <Quarvo/QVCloseReason.h>
#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QObject>

#include <memory>

class QAbstractButton;
class QVClickButton;
class QVClickManagerDelegate;
class QVClickManagerPrivate;

/// Click verification for a host that does not want to deal with the button itself: creates the
/// button on demand and relays what becomes of it.
///
/// Each attempt of the user ends in exactly one of passed(), failed() and closed().
class QUARVO_EXPORT QVClickManager : public QObject, public QVClickButtonDelegate
{
    Q_OBJECT
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)

public:
    /// Makes no button yet.
    explicit QVClickManager(QObject *parent = nullptr);
    ~QVClickManager() override;

    /// Who hears what becomes of it; null where nobody does.
    [[nodiscard]] QVClickManagerDelegate *delegate() const;
    /// The delegate stays the host's own and is held weakly.
    void setDelegate(QVClickManagerDelegate *delegate);

    /// The verification id of the button; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Takes effect for the next attempt.
    void setVid(const QString &vid);
    /// The scene of the button; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Takes effect for the next attempt.
    void setScene(const QString &scene);

    /// The button, created by the first call. It belongs to the manager until it is given a parent.
    /// Null where the application object is no QApplication, which failed() then tells with the code
    /// QVError::CannotBeShown.
    [[nodiscard]] QVClickButton *button();
    /// The same button, for a host that only places it in a layout.
    [[nodiscard]] QAbstractButton *clickButton();

    void clickButtonVerifyPassedWithToken(const QString &token) override;

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
    /// connect(&verification, &QVClickManager::alternativeRequested, this, [this] {
    ///     m_verification.reset();
    ///     sendCodeByMail();
    /// });
    /// \endcode
    void alternativeRequested();

protected:
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    friend class QVClickManagerPrivate;
    const std::unique_ptr<QVClickManagerPrivate> d;
};
