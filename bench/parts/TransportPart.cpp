#include "parts/PartTools.h"
#include "service/QVAPIRequestManager.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVDownTimeResponseModel.h"
#include "settings/QVConfigurationManager.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>

namespace {

/// What it takes until the call that \a start was given comes.
double costUntilCalled(const std::function<void(std::function<void()>)> &start)
{
    QEventLoop loop;
    double end = 0;
    const double begin = benchNow();
    start([&] {
        end = benchNow();
        loop.quit();
    });
    loop.exec();
    return end - begin;
}

double bareGet(QNetworkAccessManager &network, const QString &address)
{
    return costUntilCalled([&](const std::function<void()> &done) {
        QNetworkReply *reply = network.get(QNetworkRequest(QUrl(address)));
        QObject::connect(reply, &QNetworkReply::finished, reply, [reply, done] {
            const QJsonObject object = QJsonDocument::fromJson(reply->readAll()).object();
            reply->deleteLater();
            if (!object.isEmpty())
                done();
        });
    });
}

void tell(const QString &what, const BenchPair &cost)
{
    tellRow({what, QStringLiteral("us"), cost.ours / nanosecondsPerMicrosecond,
             cost.limit / nanosecondsPerMicrosecond, BenchRow::Target::Times, 1.05});
}

} // namespace

void runTransportPart(const PartOptions &options)
{
    configureService(options, QStringLiteral("test-draw"));
    QNetworkAccessManager network;
    const QVConfigurationManager &settings = QVConfigurationManager::sharedManager();
    const QString configQuery = QVAPIRequestManager::getParametersStringFromParameterDictionary(
        {{QStringLiteral("id"), settings.vid()},
         {QStringLiteral("scene"), settings.scene()},
         {QStringLiteral("type"), QStringLiteral("embed")}});
    const QString config =
        settings.serviceAddresses().apiHost() + QStringLiteral("/app/config/v1?") + configQuery;
    const int rounds = options.rounds(1500, 20);
    tell(QStringLiteral("transport: configuration"),
         benchInTurn(
             rounds,
             [&] {
                 return costUntilCalled([&](const std::function<void()> &done) {
                     QVAPIRequestManager::shared().requestConfigWithVid(
                         settings.vid(), QStringLiteral("embed"), settings.scene(),
                         [done](const auto &record, const auto &) {
                             if (record)
                                 done();
                         });
                 });
             },
             [&] { return bareGet(network, config); }));
    const QString address = settings.serviceAddresses().downloadHost() + QStringLiteral("/config");
    tell(QStringLiteral("transport: outage switch"),
         benchInTurn(
             rounds,
             [&] {
                 return costUntilCalled([&](const std::function<void()> &done) {
                     QVAPIRequestManager::shared().requestOutageComplted(
                         [done](const auto &record, const auto &) {
                             if (record)
                                 done();
                         });
                 });
             },
             [&] { return bareGet(network, address); }));
}
