#include "service/QVJsonAnswer.h"

#include "net/QVNetworkError.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

// A hundred times as many as in a usual answer. Each element takes about fifty bytes, and time on the
// user-interface thread.
constexpr qsizetype mostElements = 10'000;

bool isTooMuch(const QByteArray &body)
{
    return std::ranges::count_if(body, [](char each) { return each == ',' || each == '[' || each == '{'; }) >
           mostElements;
}

// Qt reads only objects and arrays; a lone number or text is JSON as well.
bool isLoneValue(const QByteArray &body)
{
    const QByteArray start = body.trimmed().left(1);
    return start != "{" && start != "[" && QJsonDocument::fromJson('[' + body + ']').array().size() == 1;
}

} // namespace

QVJsonAnswer qv_readJsonAnswer(const QByteArray &body)
{
    if (isTooMuch(body))
        return {std::nullopt, qv_networkError(QVError::NotJson)};
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (document.isObject())
        return {document.object(), std::nullopt};
    if (document.isArray() || isLoneValue(body))
        return {};
    return {std::nullopt, qv_networkError(QVError::NotJson)};
}
