#pragma once

#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QObject>

#include <memory>

class QVEmbedManagerDelegate;
class QVEmbedManagerPrivate;
class QVRenderDrawView;
class QWidget;

/// Verification inside the host's own layout. The host places embedView(), which starts by itself a tenth of
/// a second after it was given a parent, or was shown as a window.
///
/// Failures are shown in the view's bar; a tap on the bar starts again.
///
/// Use it on the thread of the application object, after that was created. Other calls log a warning and do
/// nothing, except that embedView() may emit failed().
///
/// \code
/// layout->addWidget(m_verification.embedView());
/// connect(&m_verification, &QVEmbedManager::passed, this, &Login::sendToken);
/// \endcode
class QUARVO_EXPORT QVEmbedManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)

public:
    /// Does not create the view yet.
    explicit QVEmbedManager(QObject *parent = nullptr);
    /// Destroys the view if it has no parent. Otherwise the view stays, but no signal is emitted any more.
    ~QVEmbedManager() override;

    /// The delegate; null if there is none.
    [[nodiscard]] QVEmbedManagerDelegate *delegate() const;
    /// Sets the delegate, which is held weakly: the host keeps the ownership.
    void setDelegate(QVEmbedManagerDelegate *delegate);

    /// The verification id of this manager. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Sets the verification id of this manager, or with null that of QVSDKManager. Takes effect for the next
    /// request.
    void setVid(const QString &vid);
    /// The scene of this manager. Null, the default, means that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Sets the scene of this manager, or with null that of QVSDKManager. Takes effect for the next request.
    void setScene(const QString &scene);

    /// The view to place, which the first call creates. The manager owns it until it is given a parent, which
    /// owns it from then on. If the parent destroys it, the next call creates another one. Null if the
    /// application object is not a QApplication or does not exist yet; then failed() is emitted with the code
    /// QVError::CannotBeShown once the event loop runs. Null, without a signal, on another thread.
    [[nodiscard]] QWidget *embedView();
    /// \cond
    [[nodiscard]] QVRenderDrawView *renderView();
    /// \endcond
    /// The ratio of the view's width to its height. 400 x 270 has room for typing characters.
    [[nodiscard]] static constexpr double embedViewWidthHeightPercentage() { return 1.4814814814814814; }

public Q_SLOTS:
    /// Starts again with another picture.
    void reset();

Q_SIGNALS:
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The last token has expired, after the time set by QVSDKManager::setTokenLifetime(). The panel lets the
    /// user start again. Not emitted after reset().
    void expired();
    /// A picture is shown.
    void ready();
    /// The outage service replaces the main one, since that is down or the host has set
    /// QVSDKManager::setOutageOpen().
    void outageStarted();
    /// The answer was wrong. The user may go on.
    void wrongAnswer();
    /// Something failed. The view shows the message, which is the error's domain.
    void failed(const QVError &error);
    /// The user asks for another way, since they cannot do what the picture asks. Panels offer this, by a
    /// text button below the picture, only while the signal is connected. Nothing else happens: the attempt
    /// goes on until the host calls reset().
    ///
    /// \code
    /// connect(&m_verification, &QVEmbedManager::alternativeRequested, this, [this] {
    ///     m_verification.reset();
    ///     sendCodeByMail();
    /// });
    /// \endcode
    void alternativeRequested();

protected:
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    friend class QVEmbedManagerPrivate;
    const std::unique_ptr<QVEmbedManagerPrivate> d;
};
