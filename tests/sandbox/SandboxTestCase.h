#pragma once

#include "sandbox/QVSandbox.h"
#include "support/QVTestCase.h"

#include <QJsonObject>
#include <QNetworkAccessManager>

/// A listening sandbox with a clock of its own, and a client without manners to ask it.
class SandboxTestCase : public QVTestCase
{
    Q_OBJECT

protected:
    struct Reply
    {
        int status = 0;
        QByteArray contentType;
        QByteArray body;

        [[nodiscard]] QJsonObject json() const;
        [[nodiscard]] QString text(const char *member) const
        {
            return json()[QLatin1String(member)].toString();
        }
        [[nodiscard]] QString code() const { return text("code"); }
    };

    void prepare() override;
    void finish() override;

    [[nodiscard]] QVSandbox &sandbox() const { return *m_sandbox; }
    /// GETs an address, or a path below the sandbox's base.
    Reply get(const QString &address) const;
    void age(std::chrono::milliseconds duration) { m_now += duration; }

private:
    std::chrono::milliseconds m_now{1000000};
    std::unique_ptr<QVSandbox> m_sandbox;
    std::unique_ptr<QNetworkAccessManager> m_network;
};
