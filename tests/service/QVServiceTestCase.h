#pragma once

#include "net/QVBoundedDownload.h"
#include "service/QVAPIRequestManager.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVDownTimeResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVConfigurationManager.h"
#include "support/QVCompletionProbe.h"
#include "support/QVScriptedServer.h"
#include "support/QVTestCase.h"

/// Base of the tests with a scripted server in place of all services.
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

    /// Requests a picture from the scripted server. That is the simplest request.
    Task requestPicture(Probe<Picture> &probe, const QString &vid = q("v")) const
    {
        return probe.run([&](QVCompletion<Picture> completed) {
            return manager().requestGetWithApiServer(server().address(), vid, q("c"), std::move(completed));
        });
    }

    /// Waits for the completion, and checks that it was called once, later and on the main thread.
    template<class Result>
    static void await(const QVCompletionProbe<Result> &probe)
    {
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
    }

    void prepare() override
    {
        m_server = std::make_unique<QVScriptedServer>();
        QVServiceAddresses addresses;
        addresses.setApiHost(server().address() + q("/api"));
        addresses.setDownloadHost(server().address() + q("/download"));
        settings().setServiceAddresses(addresses);
        settings().setOutage(server().address() + q("/outage"));
        settings().setPreferredLanguage(q("en"));
    }

    void finish() override
    {
        m_server.reset();
        settings().setServiceAddresses({});
        settings().setOutage({});
        settings().setIsOpenOutage(false);
        settings().setNetworkAccessManager(nullptr);
    }

private:
    std::unique_ptr<QVScriptedServer> m_server;
};
