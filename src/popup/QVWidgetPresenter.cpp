#include "popup/QVWidgetPresenter.h"

#include "flow/QVViewControllerDelegate.h"
#include "popup/QVHostWatch.h"
#include "popup/QVViewController.h"

#include <QApplication>

namespace {

/// Whether \a host is a Quick window on eglfs. That covers the whole screen, and windows of widgets over it
/// are never painted.
bool isCoveredForGood(const QObject *host)
{
    return host && !host->isWidgetType() && QGuiApplication::platformName() == QLatin1String("eglfs");
}

} // namespace

const QVPopupPresenter &QVWidgetPresenter::shared()
{
    static const QVWidgetPresenter presenter;
    return presenter;
}

bool QVWidgetPresenter::canShowOver(const QObject *host) const
{
    return qobject_cast<QApplication *>(QCoreApplication::instance()) && !isCoveredForGood(host);
}

bool QVWidgetPresenter::isShown(const QObject *host) const
{
    return QVHostWatch::isShown(host);
}

void QVWidgetPresenter::open(QVVerifyStyle style, const Config &config, const Click &click,
                             QVViewControllerDelegate *delegate) const
{
    QVViewController::showQvWithVerifyStyle(style, config, click, delegate);
}

std::unique_ptr<QObject> QVWidgetPresenter::watch(QObject *host, const std::function<void()> &gone) const
{
    auto watch = std::make_unique<QVHostWatch>(host);
    QObject::connect(watch.get(), &QVHostWatch::ended, watch.get(), gone);
    return watch;
}
