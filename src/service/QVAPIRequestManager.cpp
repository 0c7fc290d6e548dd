#include "service/QVAPIRequestManager.h"

#include "model/QVModelMapper.h"
#include "net/QVBoundedDownload.h"
#include "net/QVNetworkError.h"
#include "net/QVNetworkSession.h"
#include "net/QVPlainAddress.h"
#include "platform/QVErrorName.h"
#include "platform/QVMainThread.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVDownTimeResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVJsonAnswer.h"
#include "service/QVServiceLog.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVDeviceIdentifier.h"

using namespace std::chrono_literals;

namespace {

using Answered = std::function<void(const QVJsonAnswer &)>;

constexpr std::chrono::seconds switchDeadline = 10s;
constexpr std::chrono::seconds startDeadline = 8s;
constexpr std::chrono::seconds usualDeadline = 5s;
constexpr qint64 answerLimit = 1 << 20;

QString presentText(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

template<class Record>
std::shared_ptr<Record> recordFrom(const QVJsonAnswer &answer)
{
    if (!answer.object)
        return nullptr;
    auto record = std::make_shared<Record>();
    QVModelMapper::fill(*record, *answer.object);
    return record;
}

// Logs the request for debugging, without address, id or trace.
template<class Record>
QVCompletion<Record> logged(const char *what, QVCompletion<Record> completed)
{
    if (!completed)
        return {};
    qCDebug(qv_serviceLog, "Asking for %s", what);
    return [what, completed = std::move(completed)](const std::shared_ptr<Record> &record,
                                                    const std::optional<QVError> &error) {
        if (!error)
            qCDebug(qv_serviceLog, "Request for %s answered", what);
        else if (error->code() == QVErrorClassification::wrongAnswerCode)
            qCDebug(qv_serviceLog, "Request for %s answered: wrong", what);
        else if (error->code() == QVNetworkError::cancelled)
            qCDebug(qv_serviceLog, "Request for %s given up", what);
        else
            qCWarning(qv_serviceLog, "Request for %s failed: %s (code %lld)", what, qv_errorName(*error),
                      static_cast<long long>(error->code()));
        completed(record, error);
    };
}

// Handles an answer: completes with the record, after \a finish has changed it, or with the classified error.
template<class Record, class Finish>
Answered judged(QVCompletion<Record> completed, Finish finish)
{
    return [completed = std::move(completed), finish = std::move(finish)](const QVJsonAnswer &answer) {
        if (!completed)
            return;
        if (answer.error)
            return completed(nullptr, QVErrorClassification::parseError(answer.error));
        const std::shared_ptr<Record> record = recordFrom<Record>(answer);
        if (!record || !record->responseSuccess())
            return completed(nullptr, QVErrorClassification::customErrorWithErrorResponse(record.get()));
        finish(*record);
        completed(record, std::nullopt);
    };
}

template<class Record>
Answered judged(QVCompletion<Record> completed)
{
    return judged(std::move(completed), [](Record &) {});
}

Answered judgedTrace(QVCompletion<QVVerifyResponseModel> completed, const QString &drawtime)
{
    return judged(std::move(completed), [drawtime = presentText(drawtime)](QVVerifyResponseModel &record) {
        record.setDrawtime(drawtime);
    });
}

QString apiBase(const QString &apiServer, const QString &vid)
{
    if (!vid.isNull())
        return apiServer;
    return QVConfigurationManager::sharedManager().serviceAddresses().apiHost() + QLatin1String("/app");
}

void warnOfPlainServers(const QString &host, const QVConfigResponseModel &config)
{
    const bool isPlain = qv_isOpenOnTheWay(config.api_server()) || qv_isOpenOnTheWay(config.source_server());
    if (isPlain && host.startsWith(QLatin1String("https:")))
        qCWarning(qv_serviceLog,
                  "The captcha service names a server without encryption: what is sent to it can be "
                  "read and changed on the way");
}

QVAPIRequestManager::Parameters challengeParameters(const QString &vid, const QString &challenge)
{
    return {{QStringLiteral("id"), presentText(vid)}, {QStringLiteral("challenge"), presentText(challenge)}};
}

} // namespace

QVAPIRequestManager &QVAPIRequestManager::shared()
{
    // Never destroyed: a host's static application object may be destroyed after our statics.
    static auto *const manager = new QVAPIRequestManager;
    return *manager;
}

QVAPIRequestManager::QVAPIRequestManager() = default;

QVAPIRequestManager::Task
QVAPIRequestManager::requestConfigWithVid(const QString &vid, const QString &type, const QString &scene,
                                          QVCompletion<QVConfigResponseModel> completed)
{
    if (vid.isEmpty())
        qCWarning(qv_serviceLog, "No verification id is set: QVSDKManager::setQuarvoSDKVid() sets it");
    const QString host = QVConfigurationManager::sharedManager().serviceAddresses().apiHost();
    return start(
        host + QLatin1String("/app/config/v1"),
        {{QStringLiteral("id"), presentText(vid)},
         {QStringLiteral("type"), presentText(type)},
         {QStringLiteral("scene"), presentText(scene)}},
        startDeadline,
        judged(logged("the configuration", std::move(completed)), [host](QVConfigResponseModel &config) {
            warnOfPlainServers(host, config);
            // An answer without picture servers gets the default one.
            if (config.source_server().isNull())
                config.setCdn_servers({});
        }));
}

QVAPIRequestManager::Task
QVAPIRequestManager::requestGetWithApiServer(const QString &apiServer, const QString &vid,
                                             const QString &challenge,
                                             QVCompletion<QVGetRefreshResponseModel> completed)
{
    return start(apiBase(apiServer, vid) + QLatin1String("/get/v1"), challengeParameters(vid, challenge),
                 startDeadline, judged(logged("a picture", std::move(completed))));
}

QVAPIRequestManager::Task
QVAPIRequestManager::requestRefreshWithApiServer(const QString &apiServer, const QString &vid,
                                                 const QString &challenge,
                                                 QVCompletion<QVGetRefreshResponseModel> completed)
{
    return start(apiBase(apiServer, vid) + QLatin1String("/refresh/v1"), challengeParameters(vid, challenge),
                 usualDeadline, judged(logged("another picture", std::move(completed))));
}

QVAPIRequestManager::Task QVAPIRequestManager::requestVerifyWithApiServer(
    const QString &apiServer, const QString &vid, const QString &challenge, const QString &v,
    const QString &drawtime, QVCompletion<QVVerifyResponseModel> completed)
{
    Parameters parameters = challengeParameters(vid, challenge);
    parameters.insert(QStringLiteral("v"), presentText(v));
    parameters.insert(QStringLiteral("drawtime"), presentText(drawtime));
    return start(apiBase(apiServer, vid) + QLatin1String("/verify/v1"), parameters, usualDeadline,
                 judgedTrace(logged("a verdict", std::move(completed)), drawtime));
}

QVAPIRequestManager::Task
QVAPIRequestManager::requestClickWithApiServer(const QString &apiServer, const QString &vid,
                                               const QString &challenge,
                                               QVCompletion<QVClickResponseModel> completed)
{
    return start(apiBase(apiServer, vid) + QLatin1String("/click/v1"), challengeParameters(vid, challenge),
                 usualDeadline, judged(logged("the click's decision", std::move(completed))));
}

QVAPIRequestManager::Task
QVAPIRequestManager::requestOutageGetcompleted(QVCompletion<QVGetOutageResponseModel> completed)
{
    return start(QVConfigurationManager::sharedManager().outage(),
                 {{QStringLiteral("action"), QStringLiteral("get")}}, usualDeadline,
                 judged(logged("an outage picture", std::move(completed))));
}

QVAPIRequestManager::Task
QVAPIRequestManager::requestOutageVerifyWithChallenge(const QString &challenge, const QString &v,
                                                      const QString &drawtime,
                                                      QVCompletion<QVVerifyResponseModel> completed)
{
    return start(QVConfigurationManager::sharedManager().outage(),
                 {{QStringLiteral("action"), QStringLiteral("verify")},
                  {QStringLiteral("challenge"), presentText(challenge)},
                  {QStringLiteral("v"), presentText(v)}},
                 usualDeadline, judgedTrace(logged("an outage verdict", std::move(completed)), drawtime));
}

void QVAPIRequestManager::prepare()
{
    QVConfigurationManager::prepareDeviceId();
    const QVServiceAddresses addresses = QVConfigurationManager::sharedManager().serviceAddresses();
    QVNetworkSession::shared().prepareFor(QUrl(addresses.apiHost()));
}

QVAPIRequestManager::Task
QVAPIRequestManager::requestOutageComplted(QVCompletion<QVDownTimeResponseModel> completed)
{
    // The outage switch needs no device identifier, but the next request does.
    prepare();
    const QString host = QVConfigurationManager::sharedManager().serviceAddresses().downloadHost();
    Task task =
        create(switchDeadline,
               [completed = logged("the outage switch", std::move(completed))](const QVJsonAnswer &answer) {
                   if (!completed)
                       return;
                   if (answer.error)
                       return completed(nullptr, QVErrorClassification::parseError(answer.error));
                   const auto record = recordFrom<QVDownTimeResponseModel>(answer);
                   if (record && QVConfigurationManager::sharedManager().isOpenOutage())
                       record->setActive(true);
                   completed(record, std::nullopt);
               });
    send(*task, host + QLatin1String("/config"));
    return task;
}

QString QVAPIRequestManager::getParametersStringFromParameterDictionary(Parameters parameters,
                                                                        const QString &deviceId)
{
    parameters.insert(QStringLiteral("deviceid"), deviceId);
    QString query;
    for (auto pair = parameters.cbegin(); pair != parameters.cend(); ++pair) {
        if (pair.value().isNull())
            continue;
        if (!query.isNull())
            query += u'&';
        query += pair.key() + u'=' + pair.value();
    }
    return query;
}

QVAPIRequestManager::Task QVAPIRequestManager::start(const QString &address, const Parameters &parameters,
                                                     std::chrono::seconds deadline, Answered answered)
{
    Task task = create(deadline, std::move(answered));
    // The store may take its time, or never answer: the user-interface thread does not wait for it.
    QVDeviceIdentifier::requestDeviceId([this, task, address, parameters](const QString &deviceId) {
        if (task)
            send(*task, address + u'?' + getParametersStringFromParameterDictionary(parameters, deviceId));
    });
    return task;
}

QVAPIRequestManager::Task QVAPIRequestManager::create(std::chrono::seconds deadline, Answered answered)
{
    qv_assertMainThread();
    auto *const host = QVConfigurationManager::sharedManager().networkAccessManager();
    return new QVBoundedDownload(requestSession(), host, {deadline, answerLimit},
                                 [answered = std::move(answered)](const QVBoundedDownload::Result &result) {
                                     answered(result.error ? QVJsonAnswer{std::nullopt, result.error}
                                                           : qv_readJsonAnswer(result.body));
                                 });
}

void QVAPIRequestManager::send(QVBoundedDownload &download, const QString &address)
{
    QNetworkRequest request{QUrl(address)};
    const auto &headers = requestHTTPHeaderFields();
    for (auto header = headers.cbegin(); header != headers.cend(); ++header)
        request.setRawHeader(header.key(), header.value());
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    // The host's own network access manager may have a cache.
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    download.send(request);
}

QVNetworkSession &QVAPIRequestManager::requestSession()
{
    return QVNetworkSession::shared();
}

const QMap<QByteArray, QByteArray> &QVAPIRequestManager::requestHTTPHeaderFields()
{
    if (m_requestHTTPHeaderFields.isEmpty()) {
        m_requestHTTPHeaderFields.insert(
            QByteArrayLiteral("Content-Type"),
            QByteArrayLiteral("application/x-www-form-urlencoded;charset=UTF-8"));
    }
    return m_requestHTTPHeaderFields;
}
