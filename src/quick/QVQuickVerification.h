#pragma once

#include "flow/QVModeFlow.h"
#include "quick/QVQuickPresenter.h"
#include "quick/QVQuickValues.h"

#include <QObject>

/// What the click button and invisible mode have in common in QML.
class QVQuickVerification : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    /// The verification id; empty stands for that of `Quarvo`.
    Q_PROPERTY(QString vid READ vid WRITE setVid NOTIFY identityChanged)
    /// The scene; empty stands for that of `Quarvo`.
    Q_PROPERTY(QString scene READ scene WRITE setScene NOTIFY identityChanged)
    /// Whether popups offer another way below the picture, which alternativeRequested() tells.
    Q_PROPERTY(bool offersAlternative MEMBER m_offersAlternative NOTIFY offersAlternativeChanged)

public:
    explicit QVQuickVerification(QObject *parent);

    [[nodiscard]] QString vid() const { return m_identity.ownVid; }
    void setVid(const QString &vid);
    [[nodiscard]] QString scene() const { return m_identity.ownScene; }
    void setScene(const QString &scene);
    [[nodiscard]] bool isAlternativeOffered() const { return m_offersAlternative; }

Q_SIGNALS:
    void identityChanged();
    void offersAlternativeChanged();
    /// The user has passed; \a token is for the host's own server.
    void passed(const QString &token);
    /// The service could not be asked or refused.
    void failed(QVQuickError error);
    /// The attempt ended without a result.
    void closed(QVQuickCloseReason::Reason reason);
    /// Something failed inside the popup, where the user may try again. The attempt goes on.
    void popupFailed(QVQuickError error);
    void popupOpened();
    void outageStarted();
    /// The time of the last token is up.
    void expired();
    /// The user asks for another way. The attempt goes on until the host calls reset().
    void alternativeRequested();

protected:
    [[nodiscard]] virtual QVModeFlow &modeFlow() = 0;
    [[nodiscard]] const QVQuickPresenter &presenter() const { return m_presenter; }

private:
    void setIdentity(const QVIdentity &identity);

    QVQuickPresenter m_presenter{*this};
    QVIdentity m_identity;
    bool m_offersAlternative = false;
};

/// Tells a verification's host by its signals, on behalf of a surface of one of the modes.
template<class Surface>
class QVQuickTeller : public Surface
{
protected:
    explicit QVQuickTeller(QVQuickVerification &verification)
        : m_verification(verification)
    {
    }

    [[nodiscard]] bool offersAlternative() const override { return m_verification.isAlternativeOffered(); }
    [[nodiscard]] QVModeSurface::TellToken tellToken() const override
    {
        return [verification = QPointer(&m_verification)](const QString &token) {
            if (verification)
                Q_EMIT verification->passed(token);
        };
    }
    void popupHasOpened() override { Q_EMIT m_verification.popupOpened(); }
    void outageHasStarted() override { Q_EMIT m_verification.outageStarted(); }
    void popupHasFailed(const QVError &error) override
    {
        Q_EMIT m_verification.popupFailed(QVQuickError(error));
    }
    void alternativeIsWanted() override { Q_EMIT m_verification.alternativeRequested(); }
    void hasFailed(const QVError &error) override { Q_EMIT m_verification.failed(QVQuickError(error)); }
    void hasClosed(QVCloseReason reason) override
    {
        Q_EMIT m_verification.closed(QVQuickCloseReason::Reason(int(reason)));
    }
    void hasExpired() override { Q_EMIT m_verification.expired(); }

private:
    QVQuickVerification &m_verification;
};
