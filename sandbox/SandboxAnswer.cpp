#include "sandbox/SandboxAnswer.h"

#include <QJsonDocument>

SandboxAnswer SandboxAnswer::json(const QJsonObject &object, int status)
{
    return {status, QByteArrayLiteral("application/json;charset=UTF-8"),
            QJsonDocument(object).toJson(QJsonDocument::Compact),
            object.value(QLatin1String("code")).toString()};
}

SandboxAnswer SandboxAnswer::onlyCode(const QString &code)
{
    return json({{QStringLiteral("code"), code}});
}

SandboxAnswer SandboxAnswer::failure(int status, const QString &message)
{
    return json({{QStringLiteral("error"), message}}, status);
}

SandboxAnswer SandboxAnswer::notJson()
{
    return {200,
            QByteArrayLiteral("text/html;charset=UTF-8"),
            QByteArrayLiteral("<html><body>Gateway maintenance</body></html>"),
            {}};
}
