// Answers of a hostile service: from bytes to a record, and on to an error.
#include "fuzz/FuzzInput.h"
#include "model/QVModelMapper.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVDownTimeResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVJsonAnswer.h"
#include "service/QVVerifyResponseModel.h"

namespace {

template<class Record>
std::shared_ptr<Record> recordFrom(const QByteArray &body)
{
    const QVJsonAnswer answer = qv_readJsonAnswer(body);
    fuzzRequire(!answer.object || !answer.error);
    if (!answer.object)
        return nullptr;
    auto record = std::make_shared<Record>();
    QVModelMapper::fill(*record, *answer.object);
    if constexpr (std::is_base_of_v<QVResponseModel, Record>) {
        if (!record->responseSuccess()) {
            const QVError error = QVErrorClassification::customErrorWithErrorResponse(record.get());
            fuzzRequire(!error.domain().isEmpty() && QVErrorClassification::isQVCustomError(error));
            fuzzRequire(QVErrorClassification::parseError(error) == error);
        }
    }
    return record;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray body = fuzzBytes(data, size);
    (void)recordFrom<QVVerifyResponseModel>(body);
    (void)recordFrom<QVClickResponseModel>(body);
    (void)recordFrom<QVDownTimeResponseModel>(body);
    if (const auto config = recordFrom<QVConfigResponseModel>(body)) {
        fuzzRequire(config->api_server().isNull() || config->api_server().startsWith(QLatin1String("http")));
        fuzzRequire(config->isCharVerify() || config->type() != QLatin1String("character"));
    }
    if (const auto outage = recordFrom<QVGetOutageResponseModel>(body))
        fuzzRequire(outage->imgUrlString().endsWith(QLatin1String(".jpg")));
    return 0;
}
