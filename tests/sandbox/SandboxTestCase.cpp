#include "sandbox/SandboxTestCase.h"

#include <QJsonDocument>
#include <QNetworkReply>

QJsonObject SandboxTestCase::Reply::json() const
{
    return QJsonDocument::fromJson(body).object();
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
