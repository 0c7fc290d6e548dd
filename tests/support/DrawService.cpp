#include "support/DrawService.h"

#include "image/QVImageLoader.h"
#include "net/QVBoundedDownload.h"
#include "net/QVNetworkSession.h"
#include "settings/QVSDKManager.h"
#include "support/QVText.h"

#include <QBuffer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrlQuery>

#include <algorithm>

DrawService::DrawService()
{
    const QString address = m_server.address();
    QVSDKManager::setServiceAddresses(addresses());
    QVSDKManager::setOutageServer(address + q("/outage"));
    QVSDKManager::setOutageOpen(false);
    QVSDKManager::setQuarvoSDKVid(q("some-id"), q("3"));

    const QString code = q("code");
    const QString ok = q("0103");
    const QString challenge = q("challenge");
    answer(q("switch"), {{q("active"), false}});
    answer(q("config"), {{code, ok},
                         {q("type"), q("draw")},
                         {challenge, q("main-challenge")},
                         {q("api_server"), address + q("/api")},
                         {q("cdn_servers"), QJsonArray{address + q("/pictures")}}});
    for (const QString &name : {q("get"), q("refresh")})
        answer(name, {{code, ok}});
    answer(q("click"), {{code, q("0104")}});
    answer(q("verify"), {{code, ok}, {q("token"), q("main-token")}});
    answer(q("outage get"), {{code, ok}, {challenge, q("outage-challenge")}});
    answer(q("outage verify"), {{code, ok}, {q("token"), q("outage-token")}});
    m_server.setResponder([this](const QVReceivedRequest &request) {
        const QString name = nameOf(request);
        return m_fault && name == m_faultyName ? m_fault(request) : respond(name);
    });
}

QVServiceAddresses DrawService::addresses() const
{
    auto result = QVServiceAddresses::at(m_server.address());
    result.setImageHost(m_server.address() + q("/outage-pictures"));
    return result;
}

void DrawService::extend(const QString &name, const QJsonObject &json)
{
    for (auto member = json.begin(); member != json.end(); ++member)
        m_answers[name].insert(member.key(), member.value());
}

bool DrawService::isQuiet() const
{
    const auto downloads =
        QVNetworkSession::shared().findChildren<QVBoundedDownload *>(Qt::FindDirectChildrenOnly);
    return downloads.size() == m_server.heldCount() && !QVImageLoader::shared().isWorking();
}

QStringList DrawService::asked() const
{
    QStringList names;
    for (const QVReceivedRequest &request : m_server.requests()) {
        const QString name = nameOf(request);
        if (!name.endsWith(QLatin1String("picture")))
            names.append(name);
    }
    return names;
}

qsizetype DrawService::count(const QString &name) const
{
    return std::ranges::count(m_server.requests(), name, nameOf);
}

QMap<QString, QString> DrawService::query(const QString &name) const
{
    QMap<QString, QString> result;
    for (const QVReceivedRequest &request : m_server.requests()) {
        if (nameOf(request) != name)
            continue;
        result.clear();
        const QUrlQuery query(QUrl(QString::fromLatin1(request.target)));
        for (const auto &[key, value] : query.queryItems(QUrl::FullyDecoded))
            result.insert(key, value);
    }
    return result;
}

QString DrawService::nameOf(const QVReceivedRequest &request)
{
    const QString path = QString::fromLatin1(request.target).section(u'?', 0, 0);
    if (path == QLatin1String("/config"))
        return q("switch");
    if (path == QLatin1String("/outage"))
        return q("outage ") + (request.target.contains("action=verify") ? q("verify") : q("get"));
    if (path.startsWith(QLatin1String("/pictures/")))
        return q("picture");
    if (path.startsWith(QLatin1String("/outage-pictures/")))
        return q("outage picture");
    // "/app/config/v1", "/api/verify/v1"
    return path.section(u'/', 2, 2);
}

QVScript DrawService::respond(const QString &name)
{
    const QVScript answer = QVScript::answer(bodyFor(name));
    const auto delay = m_delays.value(name);
    if (delay.count() == 0)
        return answer;
    QVScript late;
    late.wait(delay);
    for (const QVScript::Step &step : answer.steps())
        late.send(step.bytes);
    return late;
}

QByteArray DrawService::bodyFor(const QString &name)
{
    if (name.endsWith(QLatin1String("picture")))
        return m_picturesAreBroken ? QByteArrayLiteral("no picture") : nextPicture();
    if (m_bodies.contains(name))
        return m_bodies.value(name);
    QJsonObject json = m_answers.value(name);
    // Each picture has another name, so that none comes from a cache.
    const QString picture = q("%1-%2").arg(m_server.requests().size()).arg(m_server.serverPort());
    if (name == QLatin1String("outage get"))
        json.insert(q("imgid"), picture);
    else if (name == QLatin1String("get") || name == QLatin1String("refresh") ||
             name == QLatin1String("click"))
        json.insert(q("img"), picture);
    return QJsonDocument(json).toJson();
}

QByteArray DrawService::nextPicture()
{
    // Small, since the size does not matter here.
    QImage picture(40, 23, QImage::Format_RGB32);
    picture.fill(QColor::fromHsv(++m_pictureCount * 40 % 360, 120, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}
