#include "sandbox/QVSandbox.h"

#include <QJsonArray>

QJsonObject QVSandboxAddresses::toJson() const
{
    return {
        {QStringLiteral("base"), base},
        {QStringLiteral("apiHost"), apiHost},
        {QStringLiteral("downloadHost"), downloadHost},
        {QStringLiteral("outageDownloadHost"), outageDownloadHost},
        {QStringLiteral("imageHost"), imageHost},
        {QStringLiteral("cdn"), cdn},
        {QStringLiteral("outageServer"), outageServer},
    };
}

QJsonObject QVSandboxLogEntry::toJson() const
{
    QJsonObject members;
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        members.insert(it.key(), it.value());
    return {
        {QStringLiteral("path"), path},      {QStringLiteral("query"), query},
        {QStringLiteral("values"), members}, {QStringLiteral("contentType"), contentType},
        {QStringLiteral("status"), status},  {QStringLiteral("code"), code},
    };
}

QJsonObject QVSandboxSolution::toJson() const
{
    if (points.isEmpty())
        return {{QStringLiteral("type"), QStringLiteral("character")},
                {QStringLiteral("characters"), characters}};
    QJsonArray pairs;
    for (const QPointF point : points)
        pairs.append(QJsonArray{point.x(), point.y()});
    return {{QStringLiteral("type"), QStringLiteral("draw")}, {QStringLiteral("points"), pairs}};
}
