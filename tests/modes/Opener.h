#pragma once

#include "flow/QVPopup.h"
#include "flow/QVViewControllerDelegate.h"
#include "support/QVText.h"

#include <QPointer>
#include <QStringList>

/// An opener of popups that writes down what it hears.
class Opener : public QVViewControllerDelegate
{
public:
    explicit Opener(QObject *host)
        : m_host(host)
    {
    }

    [[nodiscard]] QObject *qv_controllerHost() const override { return m_host; }
    [[nodiscard]] QVIdentity qv_controllerIdentity() const override { return {}; }
    void qv_controllerPassedAction() override {}
    void quarvoControllerVerifySuccessWithToken(const QString &token) override
    {
        heard.append(token);
        windowWasThere = windowWasThere || !controller.expired();
    }
    void qv_controllerCloseAction() override { heard.append(q("close")); }
    void qv_controllerDestroyedAction() override { heard.append(q("destroyed")); }
    void qv_controllerOutageAction() override {}
    void qv_controllerFailedAction(const QVError & /*error*/) override { heard.append(q("failed")); }

    QStringList heard;
    std::weak_ptr<QVPopup> controller;
    bool windowWasThere = false;

private:
    QPointer<QObject> m_host;
};
