#pragma once

#include "service/QVAPIRequestManager.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVDataTask.h"
#include "service/QVDownTimeResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVConfigurationManager.h"
#include "support/QVCompletionProbe.h"
#include "support/QVScriptedServer.h"
#include "support/QVTestCase.h"

/// Base of the tests that talk to a scripted server standing in for all services.
class QVServiceTestCase : public QVTestCase
{
protected:
    template<class Record>
    using Probe = QVCompletionProbe<std::shared_ptr<Record>>;
    using Picture = QVGetRefreshResponseModel;
    using Task = QVAPIRequestManager::Task;

    [[nodiscard]] static QVConfigurationManager &settings()
    {
        return QVConfigurationManager::sharedManager();
    }
    [[nodiscard]] static QVAPIRequestManager &manager() { return QVAPIRequestManager::shared(); }
    [[nodiscard]] QVScriptedServer &server() const { return *m_server; }

    /// Asks the scripted server for a picture, the plainest of all requests.
    Task requestPicture(Probe<Picture> &probe, const QString &vid = QStringLiteral("v")) const
    {
        return probe.run([&](QVCompletion<Picture> completed) {
            return manager().requestGetWithApiServer(server().address(), vid, QStringLiteral("c"), completed);
        });
    }

    void prepare() override
    {
        m_server = std::make_unique<QVScriptedServer>();
        QVServiceAddresses addresses;
        addresses.setApiHost(server().address() + QStringLiteral("/api"));
        addresses.setDownloadHost(server().address() + QStringLiteral("/download"));
        settings().setServiceAddresses(addresses);
        settings().setOutage(server().address() + QStringLiteral("/outage"));
        settings().setPreferredLanguage(QStringLiteral("en"));
    }

    void finish() override
    {
        m_server.reset();
        settings().setServiceAddresses({});
        settings().setOutage({});
        settings().setIsOpenOutage(false);
    }

private:
    std::unique_ptr<QVScriptedServer> m_server;
};
