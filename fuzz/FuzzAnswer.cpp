// Answers of a hostile service, from bytes to records.
#include "fuzz/FuzzInput.h"
#include "model/QVModelMapper.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVJsonAnswer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QVJsonAnswer answer = qv_readJsonAnswer(fuzzBytes(data, size));
    fuzzRequire(!answer.object || !answer.error);
    if (!answer.object)
        return 0;
    QVConfigResponseModel config;
    QVModelMapper::fill(config, *answer.object);
    fuzzRequire(config.api_server().isNull() || config.api_server().startsWith(QLatin1String("http")));
    fuzzRequire(config.isCharVerify() || config.type() != QLatin1String("character"));
    const QVError error = QVErrorClassification::customErrorWithErrorResponse(&config);
    fuzzRequire(!error.domain().isEmpty() && QVErrorClassification::isQVCustomError(error));
    QVGetOutageResponseModel outage;
    QVModelMapper::fill(outage, *answer.object);
    fuzzRequire(outage.imgUrlString().endsWith(QLatin1String(".jpg")));
    return 0;
}
