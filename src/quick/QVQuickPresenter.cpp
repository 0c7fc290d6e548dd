#include "quick/QVQuickPresenter.h"

#include "platform/QVScheduler.h"
#include "quick/QVQuickPopup.h"
#include "quick/QVQuickWindows.h"

#include <QQmlEngine>
#include <QQuickWindow>

bool QVQuickPresenter::canShowOver(const QObject *host) const
{
    return qobject_cast<const QQuickWindow *>(host) && qmlEngine(&m_owner);
}

bool QVQuickPresenter::isShown(const QObject *host) const
{
    return QVQuickWindows::isShown(host);
}

void QVQuickPresenter::open(QVVerifyStyle style, const Config &config, const Click &click,
                            QVViewControllerDelegate *delegate) const
{
    QVQuickPopup::show(*qmlEngine(&m_owner), style, config, click, delegate);
}

std::unique_ptr<QObject> QVQuickPresenter::watch(QObject *host, const std::function<void()> &gone) const
{
    auto watch = std::make_unique<QObject>();
    // The host may still refuse to close, which shows only once its handler has run.
    const auto look = [context = QPointer(watch.get()), window = QPointer(host), gone] {
        QVScheduler::shared().schedule({}, [context, window, gone] {
            if (context && !QVQuickWindows::isShown(window))
                gone();
        });
    };
    QObject::connect(host, &QObject::destroyed, watch.get(), look);
    if (auto *const window = qobject_cast<QQuickWindow *>(host))
        QObject::connect(QVQuickWindows::shown(window), &QWindow::visibleChanged, watch.get(), look);
    return watch;
}
