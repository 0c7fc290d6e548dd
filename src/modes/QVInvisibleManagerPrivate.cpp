#include "modes/QVInvisibleManagerPrivate.h"

#include "flow/QVPopup.h"
#include "modes/QVInvisibleDelegate.h"
#include "modes/QVInvisibleManager.h"
#include "popup/QVHostWatch.h"
#include "popup/QVHosts.h"
#include "popup/QVWidgetPresenter.h"
#include "views/QVInvisibleAnimationView.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
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
{
}

QVInvisibleManagerPrivate::~QVInvisibleManagerPrivate()
{
    // Beyond the application object nothing is on screen, and widgets cannot even be hidden.
    if (!QCoreApplication::instance())
        return;
    for (const Attempt &attempt : std::exchange(m_attempts, {}))
        attempt->abandon();
    removeAnimationView();
    dismissPopup();
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
    // Deleted by removeAnimationView(), or with the host's window.
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
    m_animationView->show();
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
    if (!m_animationView)
        return;
    m_animationView->clearLayers();
    m_animationView->hide();
    m_animationView->deleteLater();
    m_animationView = nullptr;
}

void QVInvisibleManagerPrivate::dismissPopup()
{
    if (const auto popup = std::exchange(m_qv_controller, {}).lock())
        popup->dismissWindow();
}

void QVInvisibleManagerPrivate::startInsivible()
{
    const auto popup = m_qv_controller.lock();
    const bool isReady = popup && popup->canDirectlyShow();
    const auto shows = [popup](const Attempt &attempt) {
        return attempt->popup() == popup;
    };
    if (isReady && std::ranges::any_of(m_attempts, shows)) {
        // It is on screen, and so its attempt goes on.
        popup->displayWindow();
        return;
    }
    const auto attempt = std::make_shared<QVAttempt>(QVVerifyStyleInvisible, identity,
                                                     QVWidgetPresenter::shared(), qv_activeHost(), this);
    m_attempts.push_back(attempt);
    attempt->start(isReady ? popup : nullptr);
}

void QVInvisibleManagerPrivate::attemptAsks(QVAttempt &attempt)
{
    if (auto *const view = animationView(attempt.qv_controllerHost()))
        view->startLoadingAnimation();
}

void QVInvisibleManagerPrivate::attemptIsAnswered(QVAttempt &attempt)
{
    removeAnimationView();
    replaceAttempts(&attempt);
}

void QVInvisibleManagerPrivate::attemptShowsPopup(QVAttempt &attempt)
{
    m_qv_controller = attempt.popup();
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

void QVInvisibleManagerPrivate::attemptHasPassed(QVAttempt &attempt, const QString &token)
{
    attemptHasEnded(attempt);
    auto *const view = attempt.popup() ? nullptr : animationView(attempt.qv_controllerHost());
    if (!view) {
        report(q, delegate, token);
        return;
    }
    // The user has passed, so neither reset() nor the manager's end takes the token from the host.
    view->passAnimationComplete([manager = QPointer(q), last = delegate, token] {
        if (manager) {
            manager->d->removeAnimationView();
            manager->d->replaceAttempts(nullptr);
        }
        report(manager, last, token);
    });
}

void QVInvisibleManagerPrivate::attemptHasFailed(QVAttempt &attempt, const QVError &error)
{
    attemptHasEnded(attempt);
    const QPointer<QVInvisibleManager> manager(q);
    if (auto *const receiver = delegate.get())
        receiver->invisibleVerifyFailedWithError(error);
    if (manager)
        Q_EMIT manager->failed(error);
}

void QVInvisibleManagerPrivate::attemptHasClosed(QVAttempt &attempt, QVCloseReason reason)
{
    attemptHasEnded(attempt);
    // The delegate is not told, on purpose: it hears results only.
    Q_EMIT q->closed(reason);
}

void QVInvisibleManagerPrivate::attemptHasEnded(const QVAttempt &attempt)
{
    std::erase_if(m_attempts, [&attempt](const Attempt &one) { return one.get() == &attempt; });
    // All attempts share the badge.
    if (std::ranges::none_of(m_attempts, &QVAttempt::isAsking))
        removeAnimationView();
}

void QVInvisibleManagerPrivate::replaceAttempts(const QVAttempt *by)
{
    const QPointer<QVInvisibleManager> manager(q);
    for (const Attempt &attempt : std::vector(m_attempts)) {
        if (attempt.get() != by && attempt->popup())
            attempt->close(QVCloseReason::Replaced);
    }
    if (manager)
        dismissPopup();
}

void QVInvisibleManagerPrivate::report(const QPointer<QVInvisibleManager> &manager,
                                       const QVWeakDelegate<QVInvisibleDelegate> &last, const QString &token)
{
    if (auto *const receiver = manager ? manager->delegate() : last.get())
        receiver->invisibleVerifyPassedWithToken(token);
    if (manager)
        Q_EMIT manager->passed(token);
}

void QVInvisibleManagerPrivate::reset()
{
    const QPointer<QVInvisibleManager> manager(q);
    removeAnimationView();
    for (const Attempt &attempt : std::vector(m_attempts))
        attempt->close(QVCloseReason::HostReset);
    if (manager)
        dismissPopup();
}
