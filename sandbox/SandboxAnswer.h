#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// An HTTP answer before it is sent.
struct SandboxAnswer
{
    int status = 200;
    QByteArray contentType;
    QByteArray body;
    /// The service code in the body, for the log.
    QString code;

    [[nodiscard]] static SandboxAnswer json(const QJsonObject &object, int status = 200);
    /// An answer of the service that contains only a code.
    [[nodiscard]] static SandboxAnswer onlyCode(const QString &code);
    [[nodiscard]] static SandboxAnswer failure(int status, const QString &message);
    /// An HTML page, where the client expects JSON.
    [[nodiscard]] static SandboxAnswer notJson();
};

namespace SandboxCode {

inline const QString success = QStringLiteral("0103");
/// A wrong answer. As the answer to a click: the user has to draw.
inline const QString wrong = QStringLiteral("0104");
inline const QString refreshedTooFast = QStringLiteral("0105");
inline const QString refreshedTooOften = QStringLiteral("0106");
inline const QString expired = QStringLiteral("1002");

} // namespace SandboxCode
