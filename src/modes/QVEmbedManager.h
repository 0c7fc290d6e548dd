#pragma once

#include <Quarvo/QVError.h>
#include <Quarvo/QuarvoExport.h>

#include <QObject>

#include <memory>

class QVEmbedManagerDelegate;
class QVEmbedManagerPrivate;
class QVRenderDrawView;
class QWidget;

/// Verification inside the host's own layout: the host places embedView(), which starts by itself a
/// tenth of a second after it was given a parent.
///
/// Failures are shown in the view, where the user can start again.
class QUARVO_EXPORT QVEmbedManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString vid READ vid WRITE setVid)
    Q_PROPERTY(QString scene READ scene WRITE setScene)

public:
    /// Makes no view yet.
    explicit QVEmbedManager(QObject *parent = nullptr);
    /// Destroys the view if the host has not given it a parent; otherwise the view stays, but nothing
    /// is reported any more.
    ~QVEmbedManager() override;

    /// Who hears what becomes of it; null where nobody does.
    [[nodiscard]] QVEmbedManagerDelegate *delegate() const;
    /// The delegate stays the host's own and is held weakly.
    void setDelegate(QVEmbedManagerDelegate *delegate);

    /// The verification id of this manager; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString vid() const;
    /// Takes effect for the next request.
    void setVid(const QString &vid);
    /// The scene of this manager; null, as at first, stands for that of QVSDKManager.
    [[nodiscard]] QString scene() const;
    /// Takes effect for the next request.
    void setScene(const QString &scene);

    /// The view to place, made on first use. It belongs to the manager until it gets a parent, and to
    /// that parent from then on; if the parent destroys it, the next call makes another. Null where the
    /// application object is no QApplication, which failed() then tells with the code QVError::CannotBeShown.
    [[nodiscard]] QWidget *embedView();
    /// The same view.
    [[nodiscard]] QVRenderDrawView *renderView();
    /// How wide the view is to be for its height: 400 to 270 leaves room for typing characters.
    [[nodiscard]] static constexpr double embedViewWidthHeightPercentage() { return 1.4814814814814814; }

public Q_SLOTS:
    /// Starts anew with another picture.
    void reset();

Q_SIGNALS:
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The time that QVSDKManager::setTokenLifetime() gives a token is up, and the last one is no longer
    /// good. The panel lets the user start anew. Not emitted after reset().
    void expired();
    /// A picture is there for the user.
    void ready();
    /// The service is down or the host said so, and the outage service asks the user instead.
    void outageStarted();
    /// The answer was wrong. The user may go on.
    void wrongAnswer();
    /// Something failed, as the view shows it; the error's domain is the message.
    void failed(const QVError &error);
    /// The user asks for another way, since they cannot do what the picture asks. Only while this is
    /// connected do panels offer it, by a text button below the picture. Nothing else happens: the attempt
    /// goes on until the host calls reset().
    ///
    /// \code
    /// connect(&verification, &QVEmbedManager::alternativeRequested, this, [this] {
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
