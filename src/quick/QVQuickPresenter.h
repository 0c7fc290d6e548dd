#pragma once

#include "flow/QVPopupPresenter.h"

/// Shows popups in the overlay of the host's window.
class QVQuickPresenter final : public QVPopupPresenter
{
public:
    /// Uses the QML engine of \a owner, which outlives this.
    explicit QVQuickPresenter(const QObject &owner)
        : m_owner(owner)
    {
    }

    [[nodiscard]] bool canShowOver(const QObject *host) const override;
    [[nodiscard]] bool isShown(const QObject *host) const override;
    void open(QVVerifyStyle style, const Config &config, const Click &click,
              QVViewControllerDelegate *delegate) const override;
    [[nodiscard]] std::unique_ptr<QObject> watch(QObject *host,
                                                 const std::function<void()> &gone) const override;

private:
    const QObject &m_owner;
};
