#include "service/QVJsonAnswer.h"

#include "net/QVNetworkError.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

// Qt reads only objects and arrays; a lone number or text is JSON as well.
bool isLoneValue(const QByteArray &body)
{
    return QJsonDocument::fromJson('[' + body + ']').array().size() == 1;
}

} // namespace

QVJsonAnswer qv_readJsonAnswer(const QByteArray &body)
{
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (document.isObject())
        return {document.object(), std::nullopt};
    if (document.isArray() || isLoneValue(body))
        return {};
    return {std::nullopt, qv_networkError(QVNetworkError::notJson)};
}
