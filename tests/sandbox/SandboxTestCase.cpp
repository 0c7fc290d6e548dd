#include "sandbox/SandboxTestCase.h"

#include "sandbox/SandboxStrokes.h"

#include <QJsonDocument>
#include <QNetworkReply>

QJsonObject SandboxTestCase::Reply::json() const
{
    return QJsonDocument::fromJson(body).object();
}

QString SandboxTestCase::Reply::text(const char *member) const
{
    return json().value(QLatin1String(member)).toString();
}

void SandboxTestCase::prepare()
{
    QVSandboxOptions options;
    options.seed = 20240101;
    options.slowDelay = std::chrono::milliseconds(120);
    options.logLimit = 12;
    options.clock = [this] {
        return m_now;
    };
    m_sandbox = std::make_unique<QVSandbox>(options);
    m_network = std::make_unique<QNetworkAccessManager>();
    QVERIFY2(m_sandbox->listen(), qUtf8Printable(m_sandbox->errorString()));
}

void SandboxTestCase::finish()
{
    m_network.reset();
    m_sandbox.reset();
}

SandboxTestCase::Reply SandboxTestCase::get(const QString &address) const
{
    const QString whole = address.startsWith(u'/') ? m_sandbox->baseAddress() + address : address;
    const std::unique_ptr<QNetworkReply> reply(m_network->get(QNetworkRequest(QUrl(whole))));
    if (!waitFor([&reply] { return reply->isFinished(); }))
        return {};
    return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
            reply->header(QNetworkRequest::ContentTypeHeader).toByteArray(), reply->readAll()};
}

SandboxTestCase::Reply SandboxTestCase::service(const QString &operation, const QString &id,
                                                const QString &challenge, const QString &more) const
{
    return get(q("/app/%1/v1?challenge=%2&deviceid=d&id=%3%4").arg(operation, challenge, id, more));
}

QString SandboxTestCase::configured(const QString &id) const
{
    return get(q("/app/config/v1?id=%1&type=popup&scene=1&deviceid=d").arg(id)).text("challenge");
}

SandboxTestCase::Reply SandboxTestCase::drawn(const QString &id, const QString &challenge,
                                              const QList<QPointF> &points) const
{
    constexpr int between = 25;
    return service(q("verify"), id, challenge,
                   q("&v=%1&drawtime=%2")
                       .arg(SandboxStrokes::encoded(points, between))
                       .arg((points.size() - 1) * between));
}
