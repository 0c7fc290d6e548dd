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

/// The client of the captcha service and of the outage service. Used on the main thread.
///
/// Arguments are put into the address unchanged. Null arguments are sent as empty text.
class QVAPIRequestManager
{
public:
    using Parameters = QMap<QString, QString>;
    /// A started request; null once it has ended. The request goes on if this pointer is destroyed.
    using Task = QPointer<QVBoundedDownload>;

    QVAPIRequestManager(const QVAPIRequestManager &) = delete;
    QVAPIRequestManager &operator=(const QVAPIRequestManager &) = delete;

    [[nodiscard]] static QVAPIRequestManager &shared();
    /// Makes ready on other threads what the first request needs, since one is sent shortly.
    static void prepare();

    Task requestConfigWithVid(const QString &vid, const QString &type, const QString &scene,
                              QVCompletion<QVConfigResponseModel> completed);

    // With a null vid the next four go to the default API base, otherwise to apiServer, unchanged, even if
    // that is null or empty.
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
    /// \a drawtime is not sent to the outage service; it is only put into the record.
    Task requestOutageVerifyWithChallenge(const QString &challenge, const QString &v, const QString &drawtime,
                                          QVCompletion<QVVerifyResponseModel> completed);
    /// The outage switch. If the answer is JSON but not an object, it completes with neither a record nor an
    /// error. No other request does that.
    Task requestOutageComplted(QVCompletion<QVDownTimeResponseModel> completed);

    /// The query without its question mark, with the device identifier added. The order of the pairs is
    /// undefined.
    [[nodiscard]] static QString getParametersStringFromParameterDictionary(Parameters parameters,
                                                                            const QString &deviceId);

private:
    QVAPIRequestManager();

    Task start(const QString &address, const Parameters &parameters, std::chrono::seconds deadline,
               std::function<void(const QVJsonAnswer &)> answered);
    static Task create(std::chrono::seconds deadline, std::function<void(const QVJsonAnswer &)> answered);
    void send(QVBoundedDownload &download, const QString &address);
    static QVNetworkSession &requestSession();
    const QMap<QByteArray, QByteArray> &requestHTTPHeaderFields();

    QMap<QByteArray, QByteArray> m_requestHTTPHeaderFields;
};
