#pragma once

#include "flow/QVCloseReason.h"
#include "modes/QVClickButtonDelegate.h"
#include "modes/QVClickManagerDelegate.h"
#include "modes/QVEmbedManagerDelegate.h"
#include "modes/QVInvisibleDelegate.h"
#include "support/QVText.h"

#include <QMetaEnum>
#include <QObject>
#include <QStringList>

/// Writes down what one of the host-facing objects says, by its signals and to its delegate.
class Outcomes : public QVClickButtonDelegate,
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
        if constexpr (requires { &Sender::popupOpened; })
            watchPopup(sender);
        else
            watchPanel(sender);
    }

    /// The signals, in order.
    [[nodiscard]] const QStringList &said() const { return m_said; }
    /// Those of them that end an attempt.
    [[nodiscard]] QStringList ends() const
    {
        QStringList ends = m_said;
        ends.removeIf(
            [](const QString &said) { return said.startsWith(q("popup")) || said.startsWith(q("in ")); });
        return ends;
    }
    void clear() { m_said.clear(); }
    /// What the delegate was told.
    [[nodiscard]] const QStringList &told() const { return m_told; }

    void clickButtonVerifyPassedWithToken(const QString &token) override { m_told.append(token); }
    void clickManagerVerifyPassedWithToken(const QString &token) override { m_told.append(token); }
    void embedManagerVerifyPassedWithToken(const QString &token) override { m_told.append(token); }
    void invisibleVerifyPassedWithToken(const QString &token) override { m_told.append(token); }
    void invisibleVerifyFailedWithError(const QVError &error) override { m_told.append(error.domain()); }

private:
    template<class Sender>
    void watchPopup(Sender *sender)
    {
        QObject::connect(sender, &Sender::closed, &m_context, [this](QVCloseReason reason) {
            add(q("closed ") +
                QString::fromLatin1(QMetaEnum::fromType<QVCloseReason>().valueToKey(int(reason))));
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

    void add(const QString &text) { m_said.append(text); }

    QObject m_context;
    QStringList m_said;
    QStringList m_told;
};
