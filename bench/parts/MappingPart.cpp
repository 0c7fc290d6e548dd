#include "model/QVModelMapper.h"
#include "parts/PartTools.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVGetRefreshResponseModel.h"
#include "service/QVJsonAnswer.h"

#include <QJsonDocument>

namespace {

template<class Record>
void tellMapping(const QString &name, const QByteArray &body)
{
    const QJsonObject object = QJsonDocument::fromJson(body).object();
    const auto parse = [&] {
        return benchCostPerCall([&] { (void)QJsonDocument::fromJson(body); });
    };
    const BenchPair mapping = benchInTurn(
        21,
        [&] {
            return benchCostPerCall([&] {
                const auto record = std::make_shared<Record>();
                QVModelMapper::fill(*record, object);
            });
        },
        parse);
    tellRow({QStringLiteral("mapping the %1 onto its record").arg(name), QStringLiteral("us"),
             mapping.ours / nanosecondsPerMicrosecond, mapping.limit / nanosecondsPerMicrosecond,
             BenchRow::Target::Times, 1.5});
    const BenchPair whole = benchInTurn(
        21,
        [&] {
            return benchCostPerCall([&] {
                const QVJsonAnswer answer = qv_readJsonAnswer(body);
                const auto record = std::make_shared<Record>();
                QVModelMapper::fill(*record, *answer.object);
            });
        },
        parse);
    tellRow({QStringLiteral("parsing and mapping the %1").arg(name), QStringLiteral("us"),
             whole.ours / nanosecondsPerMicrosecond, whole.limit / nanosecondsPerMicrosecond});
}

} // namespace

void runMappingPart(const PartOptions &options)
{
    configureService(options, QStringLiteral("test-draw"));
    tellMapping<QVConfigResponseModel>(
        QStringLiteral("configuration"),
        R"({"code":"0103","challenge":"3f9c1c2b7a5d4e8f9a0b1c2d3e4f5a6b","type":"draw","guide":false,)"
        R"("api_server":"http://127.0.0.1:43210/app","cdn_servers":["http://127.0.0.1:43210/cdn"]})");
    tellMapping<QVGetRefreshResponseModel>(
        QStringLiteral("picture's answer"),
        R"({"code":"0103","img":"pictures/3f9c1c2b7a5d4e8f9a0b1c2d3e4f5a6b.jpg","verifyCount":0,)"
        R"("adlink":"https://advertisement.example/page","adlinkword":"Advertisement","frequency":0.5})");
}
