#pragma once

#include "service/QVCompletion.h"

#include <QMap>
#include <QPointer>
#include <QString>

class QVBoundedDownload;
class QVClickResponseModel;
class QVConfigResponseModel;
class QVDownTimeResponseModel;
class QVGetOutageResponseModel;
class QVGetRefreshResponseModel;
class QVNetworkSession;
class QVVerifyResponseModel;
struct QVJsonAnswer;

/// The one client of the captcha service and of the outage service. Used on the main thread.
///
/// Arguments are pasted into the address as they are; absent ones are sent as empty text.
class QVAPIRequestManager
{
public:
    using Parameters = QMap<QString, QString>;
    /// A started request; null once it has ended. Dropping it leaves the request running.
    using Task = QPointer<QVBoundedDownload>;

    QVAPIRequestManager(const QVAPIRequestManager &) = delete;
    QVAPIRequestManager &operator=(const QVAPIRequestManager &) = delete;

    [[nodiscard]] static QVAPIRequestManager &shared();

    Task requestConfigWithVid(const QString &vid, const QString &type, const QString &scene,
                              QVCompletion<QVConfigResponseModel> completed);

    // With a null vid the four below go to the default API base; otherwise to \a apiServer as it is,
    // even where that is null or empty.
    Task requestGetWithApiServer(const QString &apiServer, const QString &vid, const QString &challenge,
                                 QVCompletion<QVGetRefreshResponseModel> completed);
    Task requestRefreshWithApiServer(const QString &apiServer, const QString &vid, const QString &challenge,
                                     QVCompletion<QVGetRefreshResponseModel> completed);
    Task requestVerifyWithApiServer(const QString &apiServer, const QString &vid, const QString &challenge,
                                    const QString &v, const QString &drawtime,
                                    QVCompletion<QVVerifyResponseModel> completed);
    Task requestClickWithApiServer(const QString &apiServer, const QString &vid, const QString &challenge,
                                   QVCompletion<QVClickResponseModel> completed);

    Task requestOutageGetcompleted(QVCompletion<QVGetOutageResponseModel> completed);
    /// The outage service is not told \a drawtime; it only ends up on the record.
    Task requestOutageVerifyWithChallenge(const QString &challenge, const QString &v, const QString &drawtime,
                                          QVCompletion<QVVerifyResponseModel> completed);
    /// The outage switch. It alone may complete with neither record nor error: when the answer is JSON
    /// without being an object.
    Task requestOutageComplted(QVCompletion<QVDownTimeResponseModel> completed);

    /// The query without its question mark, the device identifier added; pairs in no fixed order.
    [[nodiscard]] static QString getParametersStringFromParameterDictionary(Parameters parameters);

private:
    QVAPIRequestManager();

    Task start(const QString &address, const Parameters &parameters, std::chrono::seconds deadline,
               std::function<void(const QVJsonAnswer &)> answered);
    Task startPlain(const QString &address, std::chrono::seconds deadline,
                    std::function<void(const QVJsonAnswer &)> answered);
    static QVNetworkSession &requestSession();
    const QMap<QByteArray, QByteArray> &requestHTTPHeaderFields();

    QMap<QByteArray, QByteArray> m_requestHTTPHeaderFields;
};
