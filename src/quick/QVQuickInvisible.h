#pragma once

#include "flow/QVInvisibleFlow.h"
#include "quick/QVQuickVerification.h"

#include <QQuickItem>

/// A verification that shows nothing of its own but a badge, until the user has to draw.
///
/// \code
/// InvisibleVerification {
///     id: verification
///     onPassed: token => server.logIn(token)
/// }
/// Button { text: "Log in"; onClicked: verification.start() }
/// \endcode
class QVQuickInvisible : public QVQuickVerification, private QVQuickTeller<QVInvisibleSurface>
{
    Q_OBJECT
    QML_NAMED_ELEMENT(InvisibleVerification)
    /// Whether there is a badge; true at first.
    Q_PROPERTY(bool animation MEMBER m_animation NOTIFY animationChanged)

public:
    explicit QVQuickInvisible(QObject *parent = nullptr);
    ~QVQuickInvisible() override;

    /// Starts a verification, or shows again what the user closed.
    Q_INVOKABLE void start();
    /// Ends what is under way and closes an open popup.
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void animationChanged();

private:
    [[nodiscard]] QVModeFlow &modeFlow() override { return m_flow; }
    [[nodiscard]] QObject *host() const override;
    void showBadge(QObject *host) override;
    bool passBadge(QObject *host, const std::function<void()> &completion) override;
    void removeBadge() override;
    /// The badge over \a host, made where there is none; null where none is wanted or can be shown.
    QQuickItem *badge(QObject *host);

    QPointer<QQuickItem> m_badge;
    bool m_animation = true;
    QVInvisibleFlow m_flow;
};
