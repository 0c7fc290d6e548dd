#include "modes/QVInvisibleManagerPrivate.h"

#include "modes/QVInvisibleDelegate.h"
#include "modes/QVInvisibleManager.h"
#include "popup/QVHostWatch.h"
#include "popup/QVHosts.h"
#include "popup/QVWidgetPresenter.h"
#include "views/QVInvisibleAnimationView.h"

#include <QGuiApplication>
#include <QMetaMethod>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace {

constexpr Qt::WindowFlags badgeWindowFlags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                                             Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus;

QRect placeOf(const QObject *host)
{
    if (const auto *const widget = qobject_cast<const QWidget *>(host))
        return widget->rect();
    if (const auto *const window = qobject_cast<const QWindow *>(host))
        return window->geometry();
    return QGuiApplication::primaryScreen()->geometry();
}

} // namespace

QVInvisibleManagerPrivate::QVInvisibleManagerPrivate(QVInvisibleManager *manager)
    : q(manager)
    , m_attempts(QVVerifyStyleInvisible, QVWidgetPresenter::shared(), this)
{
}

QVInvisibleManagerPrivate::~QVInvisibleManagerPrivate()
{
    // Without an application object nothing is on screen, and widgets cannot be hidden.
    if (!QCoreApplication::instance())
        return;
    m_attempts.abandon();
    removeAnimationView();
}

QVInvisibleAnimationView *QVInvisibleManagerPrivate::animationView(QObject *host)
{
    if (!animation || !QVWidgetPresenter::shared().canShowOver(host)) {
        removeAnimationView();
        return nullptr;
    }
    if (!m_animationView)
        createAnimationView(host);
    return m_animationView;
}

void QVInvisibleManagerPrivate::createAnimationView(QObject *host)
{
    // Deleted by removeAnimationView(), or together with the host's window.
    m_animationView = new QVInvisibleAnimationView;
    m_badgeHost = host;
    if (auto *const window = qobject_cast<QWidget *>(host)) {
        QVHostWatch::adopt(window, m_animationView);
    } else {
        m_animationView->setWindowFlags(badgeWindowFlags);
        m_animationView->setAttribute(Qt::WA_TranslucentBackground);
        m_animationView->setAttribute(Qt::WA_ShowWithoutActivating);
        m_animationView->setAttribute(Qt::WA_QuitOnClose, false);
    }
    if (host) {
        m_badgeWatch = std::make_unique<QVHostWatch>(host);
        QObject::connect(m_badgeWatch.get(), &QVHostWatch::resized, q, [this] { centreAnimationView(); });
    }
    centreAnimationView();
}

void QVInvisibleManagerPrivate::centreAnimationView() const
{
    if (!m_animationView)
        return;
    const QRect around = placeOf(m_badgeHost);
    m_animationView->setCenter(around.topLeft() + QPoint(around.width() / 2, around.height() / 2));
}

void QVInvisibleManagerPrivate::removeAnimationView()
{
    m_badgeWatch.reset();
    const QPointer<QVInvisibleAnimationView> view = std::exchange(m_animationView, nullptr);
    if (!view)
        return;
    // Not hidden here, since the host may notice that and destroy the manager.
    view->clearLayers();
    view->deleteLater();
}

void QVInvisibleManagerPrivate::startInsivible()
{
    m_tokenLife.stop();
    m_attempts.start(identity, qv_activeHost());
}

void QVInvisibleManagerPrivate::attemptAsks(QVAttempt &attempt)
{
    // Queued: the host may start in a focus handler while Qt destroys its window, when children can no longer
    // be added.
    const auto showBadge = [this, started = attempt.weak_from_this()] {
        const auto asking = started.lock();
        if (asking && asking->isAsking() && asking->isHostShown())
            showLoadingBadge(asking->qv_controllerHost());
    };
    QMetaObject::invokeMethod(q, showBadge, Qt::QueuedConnection);
}

void QVInvisibleManagerPrivate::showLoadingBadge(QObject *host)
{
    auto *const view = animationView(host);
    if (!view)
        return;
    view->startLoadingAnimation();
    view->show();
}

void QVInvisibleManagerPrivate::attemptIsAnswered(QVAttempt &attempt)
{
    removeAnimationView();
    m_attempts.replacePopup(&attempt);
}

void QVInvisibleManagerPrivate::attemptShowsPopup(QVAttempt & /*attempt*/)
{
    Q_EMIT q->popupOpened();
}

void QVInvisibleManagerPrivate::attemptEntersOutage(QVAttempt & /*attempt*/)
{
    Q_EMIT q->outageStarted();
}

void QVInvisibleManagerPrivate::attemptFailsInPopup(QVAttempt & /*attempt*/, const QVError &error)
{
    Q_EMIT q->popupFailed(error);
}

bool QVInvisibleManagerPrivate::offersAlternative() const
{
    return q->isSignalConnected(QMetaMethod::fromSignal(&QVInvisibleManager::alternativeRequested));
}

void QVInvisibleManagerPrivate::attemptWantsAlternative(QVAttempt & /*attempt*/)
{
    Q_EMIT q->alternativeRequested();
}

void QVInvisibleManagerPrivate::attemptHasPassed(QVAttempt &attempt, const QString &token)
{
    attemptHasEnded();
    auto *const view = attempt.popup() ? nullptr : animationView(attempt.qv_controllerHost());
    if (!view) {
        report(q, delegate, token);
        return;
    }
    const QPointer<QWidget> badge(view);
    // The user has passed, so the host receives the token even after reset() or the destruction of the
    // manager.
    view->passAnimationComplete([manager = QPointer(q), last = delegate, token] {
        if (manager) {
            manager->d->removeAnimationView();
            manager->d->m_attempts.replacePopup(nullptr);
        }
        report(manager, last, token);
    });
    if (badge)
        badge->show();
}

void QVInvisibleManagerPrivate::attemptHasFailed(QVAttempt & /*attempt*/, const QVError &error)
{
    attemptHasEnded();
    const QPointer<QVInvisibleManager> manager(q);
    if (auto *const receiver = delegate.get())
        receiver->invisibleVerifyFailedWithError(error);
    if (manager)
        Q_EMIT manager->failed(error);
}

void QVInvisibleManagerPrivate::attemptHasClosed(QVAttempt & /*attempt*/, QVCloseReason reason)
{
    attemptHasEnded();
    // The delegate receives only results, so a close is only a signal.
    Q_EMIT q->closed(reason);
}

void QVInvisibleManagerPrivate::attemptHasEnded()
{
    // All attempts share the badge.
    if (!m_attempts.areAsking())
        removeAnimationView();
}

void QVInvisibleManagerPrivate::report(const QPointer<QVInvisibleManager> &manager,
                                       const QVWeakDelegate<QVInvisibleDelegate> &last, const QString &token)
{
    if (manager)
        manager->d->m_tokenLife.start([q = manager.data()] { Q_EMIT q->expired(); });
    if (auto *const receiver = manager ? manager->delegate() : last.get())
        receiver->invisibleVerifyPassedWithToken(token);
    if (manager)
        Q_EMIT manager->passed(token);
}

void QVInvisibleManagerPrivate::reset()
{
    m_tokenLife.stop();
    removeAnimationView();
    m_attempts.close(QVCloseReason::HostReset);
}
