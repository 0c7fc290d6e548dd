#pragma once

#include "flow/QVCloseReason.h"
#include "modes/QVClickButtonDelegate.h"
#include "modes/QVClickManagerDelegate.h"
#include "modes/QVEmbedManagerDelegate.h"
#include "modes/QVInvisibleDelegate.h"
#include "support/Record.h"

#include <QMetaEnum>
#include <QObject>

/// Records the signals of the host-facing objects, and as "(token)" the calls of their delegates.
class Outcomes : public Record,
                 public QVClickButtonDelegate,
                 public QVClickManagerDelegate,
                 public QVEmbedManagerDelegate,
                 public QVInvisibleDelegate
{
public:
    template<class Sender>
    void watch(Sender *sender)
    {
        sender->setDelegate(this);
        QObject::connect(sender, &Sender::passed, &m_context,
                         [this](const QString &token) { add(q("passed ") + token); });
        QObject::connect(sender, &Sender::failed, &m_context,
                         [this](const QVError &error) { add(q("failed %1").arg(error.code())); });
        QObject::connect(sender, &Sender::expired, &m_context, [this] { add(q("expired")); });
        QObject::connect(sender, &Sender::outageStarted, &m_context, [this] { add(q("outage")); });
        if constexpr (requires { &Sender::popupOpened; })
            watchPopup(sender);
        else
            watchPanel(sender);
    }

    /// The number of delegate calls for failures.
    [[nodiscard]] int failuresTold() const { return m_failuresTold; }

    void clickButtonVerifyPassedWithToken(const QString &token) override { addToken(token); }
    void clickManagerVerifyPassedWithToken(const QString &token) override { addToken(token); }
    void embedManagerVerifyPassedWithToken(const QString &token) override { addToken(token); }
    void invisibleVerifyPassedWithToken(const QString &token) override { addToken(token); }
    void invisibleVerifyFailedWithError(const QVError &) override { ++m_failuresTold; }

private:
    template<class Sender>
    void watchPopup(Sender *sender)
    {
        QObject::connect(sender, &Sender::closed, &m_context, [this](QVCloseReason reason) {
            add(q("closed ") + q(QMetaEnum::fromType<QVCloseReason>().valueToKey(int(reason))));
        });
        QObject::connect(sender, &Sender::popupFailed, &m_context,
                         [this](const QVError &error) { add(q("in popup %1").arg(error.code())); });
        QObject::connect(sender, &Sender::popupOpened, &m_context, [this] { add(q("popup")); });
    }

    template<class Sender>
    void watchPanel(Sender *sender)
    {
        QObject::connect(sender, &Sender::ready, &m_context, [this] { add(q("ready")); });
        QObject::connect(sender, &Sender::wrongAnswer, &m_context, [this] { add(q("wrong")); });
    }

    void addToken(const QString &token) { add(q("(%1)").arg(token)); }

    QObject m_context;
    int m_failuresTold = 0;
};
