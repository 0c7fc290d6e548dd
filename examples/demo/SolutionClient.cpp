#include "demo/SolutionClient.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>

namespace {

constexpr int timeoutMilliseconds = 5000;

} // namespace

SolutionClient::SolutionClient(const QVector<QUrl> &services, QObject *parent)
    : QObject(parent)
    , m_addresses(services)
{
    for (QUrl &address : m_addresses) {
        address.setPath(QStringLiteral("/sandbox/solution"));
        address.setQuery(QString());
    }
}

void SolutionClient::ask()
{
    askService(0);
}

void SolutionClient::askService(qsizetype index)
{
    if (index == m_addresses.size()) {
        Q_EMIT failed(QStringLiteral("no service told a solution"));
        return;
    }
    QNetworkRequest request(m_addresses[index]);
    request.setTransferTimeout(timeoutMilliseconds);
    QNetworkReply *const reply = m_network.get(request);
    connect(reply, &QNetworkReply::finished, this, [this, reply, index] {
        reply->deleteLater();
        if (reply->error() != QNetworkReply::NoError || !read(reply->readAll()))
            askService(index + 1);
    });
}

bool SolutionClient::read(const QByteArray &answer)
{
    const QJsonObject solution = QJsonDocument::fromJson(answer).object();
    if (const QString text = solution.value(QLatin1String("characters")).toString(); !text.isEmpty()) {
        Q_EMIT characters(text);
        return true;
    }
    QVector<QPointF> points;
    const QJsonArray coordinates = solution.value(QLatin1String("points")).toArray();
    for (const auto &point : coordinates)
        points.append({point.toArray().at(0).toDouble(), point.toArray().at(1).toDouble()});
    if (points.size() < 2)
        return false;
    Q_EMIT curve(points);
    return true;
}
