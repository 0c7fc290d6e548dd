#pragma once

#include "flow/QVVerifyStyle.h"

#include <QObject>

#include <functional>
#include <memory>

class QVClickResponseModel;
class QVConfigResponseModel;
class QVViewControllerDelegate;

/// Shows popups in a toolkit's way. It lives as long as the process.
///
/// The host of an attempt is the window that it was started on, in the toolkit's own class; null stands
/// for none, and the popup lies over the main screen.
class QVPopupPresenter
{
public:
    virtual ~QVPopupPresenter() = default;

    using Config = std::shared_ptr<QVConfigResponseModel>;
    using Click = std::shared_ptr<QVClickResponseModel>;

    /// Whether a popup over \a host would be seen.
    [[nodiscard]] virtual bool canShowOver(const QObject *host) const = 0;
    /// Whether \a host is on screen.
    [[nodiscard]] virtual bool isShown(const QObject *host) const = 0;
    /// Creates and shows a popup, which \a delegate is handed, over the host that it names. Moves the
    /// focus, in answer to which anything may happen, before it returns.
    virtual void open(QVVerifyStyle style, const Config &config, const Click &click,
                      QVViewControllerDelegate *delegate) const = 0;
    /// Calls \a gone from the event loop when \a host is no longer on screen, until the result is
    /// destroyed.
    [[nodiscard]] virtual std::unique_ptr<QObject> watch(QObject *host,
                                                         const std::function<void()> &gone) const = 0;
};
