#pragma once

#include "flow/QVVerifyStyle.h"

#include <QObject>

#include <functional>
#include <memory>

class QVClickResponseModel;
class QVConfigResponseModel;
class QVViewControllerDelegate;

/// Shows popups with a toolkit. It exists until the end of the process.
///
/// The host of an attempt is the window that it was started in, an object of the toolkit's class. Without a
/// host (null) the popup is over the main screen.
class QVPopupPresenter
{
public:
    virtual ~QVPopupPresenter() = default;

    using Config = std::shared_ptr<QVConfigResponseModel>;
    using Click = std::shared_ptr<QVClickResponseModel>;

    /// Whether a popup over \a host would be visible.
    [[nodiscard]] virtual bool canShowOver(const QObject *host) const = 0;
    /// Whether \a host is on screen.
    [[nodiscard]] virtual bool isShown(const QObject *host) const = 0;
    /// Creates a popup, passes it to \a delegate, and shows it over the delegate's host. Moves the focus
    /// before it returns: in a focus handler the host may do anything.
    virtual void open(QVVerifyStyle style, const Config &config, const Click &click,
                      QVViewControllerDelegate *delegate) const = 0;
    /// Calls \a gone from the event loop when \a host is no longer on screen, until the result is
    /// destroyed.
    [[nodiscard]] virtual std::unique_ptr<QObject> watch(QObject *host,
                                                         const std::function<void()> &gone) const = 0;
};
