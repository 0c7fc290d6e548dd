#pragma once

#include "flow/QVPopupPresenter.h"

/// Shows popups as widgets, over windows of widgets and of other toolkits.
class QVWidgetPresenter final : public QVPopupPresenter
{
public:
    [[nodiscard]] static const QVPopupPresenter &shared();

    [[nodiscard]] bool canShowOver(const QObject *host) const override;
    [[nodiscard]] bool isShown(const QObject *host) const override;
    void open(QVVerifyStyle style, const Config &config, const Click &click,
              QVViewControllerDelegate *delegate) const override;
    [[nodiscard]] std::unique_ptr<QObject> watch(QObject *host,
                                                 const std::function<void()> &gone) const override;
};
