#pragma once

#include "sandbox/QVSandbox.h"
#include "support/QVTestCase.h"

#include <QJsonObject>
#include <QNetworkAccessManager>

/// Base of tests with a listening sandbox, whose clock the test sets, and a client that may break rules.
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
    /// Sends a GET request to an address, or to a path below the sandbox's base address.
    Reply get(const QString &address) const;
    void age(std::chrono::milliseconds duration) { m_now += duration; }

private:
    std::chrono::milliseconds m_now{1000000};
    std::unique_ptr<QVSandbox> m_sandbox;
    std::unique_ptr<QNetworkAccessManager> m_network;
};
