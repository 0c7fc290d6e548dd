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
    , flow(QVWidgetPresenter::shared(), *this)
{
}

QVInvisibleManagerPrivate::~QVInvisibleManagerPrivate()
{
    // Without an application object nothing is on screen, and widgets cannot be hidden.
    if (!QCoreApplication::instance())
        return;
    flow.abandon();
    removeBadge();
}

QVInvisibleAnimationView *QVInvisibleManagerPrivate::animationView(QObject *host)
{
    if (!animation || !QVWidgetPresenter::shared().canShowOver(host)) {
        removeBadge();
        return nullptr;
    }
    if (!m_animationView)
        createAnimationView(host);
    return m_animationView;
}

void QVInvisibleManagerPrivate::createAnimationView(QObject *host)
{
    // Deleted by removeBadge(), or together with the host's window.
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

void QVInvisibleManagerPrivate::removeBadge()
{
    m_badgeWatch.reset();
    const QPointer<QVInvisibleAnimationView> view = std::exchange(m_animationView, nullptr);
    if (!view)
        return;
    // Not hidden here, since the host may notice that and destroy the manager.
    view->clearLayers();
    view->deleteLater();
}

void QVInvisibleManagerPrivate::showBadge(QObject *host)
{
    auto *const view = animationView(host);
    if (!view)
        return;
    view->startLoadingAnimation();
    view->show();
}

bool QVInvisibleManagerPrivate::passBadge(QObject *host, const std::function<void()> &completion)
{
    const QPointer<QVInvisibleAnimationView> view = animationView(host);
    if (!view)
        return false;
    view->passAnimationComplete(completion);
    if (view)
        view->show();
    return true;
}

QObject *QVInvisibleManagerPrivate::host() const
{
    return qv_activeHost();
}

bool QVInvisibleManagerPrivate::offersAlternative() const
{
    return q->isSignalConnected(QMetaMethod::fromSignal(&QVInvisibleManager::alternativeRequested));
}

QVInvisibleManagerPrivate::TellToken QVInvisibleManagerPrivate::tellToken() const
{
    return [manager = QPointer(q), last = delegate](const QString &token) {
        if (auto *const receiver = manager ? manager->delegate() : last.get())
            receiver->invisibleVerifyPassedWithToken(token);
        if (manager)
            Q_EMIT manager->passed(token);
    };
}

void QVInvisibleManagerPrivate::popupHasOpened()
{
    Q_EMIT q->popupOpened();
}

void QVInvisibleManagerPrivate::outageHasStarted()
{
    Q_EMIT q->outageStarted();
}

void QVInvisibleManagerPrivate::popupHasFailed(const QVError &error)
{
    Q_EMIT q->popupFailed(error);
}

void QVInvisibleManagerPrivate::alternativeIsWanted()
{
    Q_EMIT q->alternativeRequested();
}

void QVInvisibleManagerPrivate::hasFailed(const QVError &error)
{
    const QPointer<QVInvisibleManager> manager(q);
    if (auto *const receiver = delegate.get())
        receiver->invisibleVerifyFailedWithError(error);
    if (manager)
        Q_EMIT manager->failed(error);
}

void QVInvisibleManagerPrivate::hasClosed(QVCloseReason reason)
{
    // The delegate receives only results, so a close is only a signal.
    Q_EMIT q->closed(reason);
}

void QVInvisibleManagerPrivate::hasExpired()
{
    Q_EMIT q->expired();
}
