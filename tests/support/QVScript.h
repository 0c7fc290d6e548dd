#pragma once

#include <QByteArray>
#include <QList>

#include <chrono>

/// What a QVScriptedServer does about one request, step by step. When the steps are done the
/// connection stays open.
class QVScript
{
public:
    struct Step
    {
        enum class Kind { Send, Wait, Close };

        Kind kind;
        QByteArray bytes;
        std::chrono::milliseconds duration{0};
    };

    /// A whole answer. \a headers are lines, each ended by CR LF.
    [[nodiscard]] static QVScript answer(const QByteArray &body, int status = 200,
                                         const QByteArray &headers = {});

    QVScript &send(const QByteArray &bytes);
    /// Waits in the scheduler's time.
    QVScript &wait(std::chrono::milliseconds duration);
    QVScript &close();

    [[nodiscard]] const QList<Step> &steps() const { return m_steps; }

private:
    QList<Step> m_steps;
};
