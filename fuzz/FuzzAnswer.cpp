// Answers of a hostile service: from bytes to a record, and on to an error or into the conversation.
#include "flow/QVRenderDrawFlow.h"
#include "flow/QVRenderDrawSurface.h"
#include "fuzz/FuzzInput.h"
#include "model/QVModelMapper.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "service/QVDownTimeResponseModel.h"
#include "service/QVErrorClassification.h"
#include "service/QVGetOutageResponseModel.h"
#include "service/QVJsonAnswer.h"
#include "service/QVVerifyResponseModel.h"

#include <QApplication>
#include <QImage>
#include <QNetworkProxy>

namespace {

/// Shows nothing, and reads what it is handed as a real one would.
class BlindSurface final : public QVRenderDrawSurface
{
public:
    [[nodiscard]] bool hasSuperview() const override { return true; }
    void showLoadingAnimation() override {}
    void hiddenLoadingAnimation() override {}
    void setPicture(const QImage & /*picture*/) override {}
    void clearPicture() override {}
    void showFailedPicture() override {}
    [[nodiscard]] bool hasPicture() const override { return false; }
    void slideIn(Bar /*bar*/, const QString &text, bool /*acceptsTouches*/) override
    {
        fuzzRequire(!text.isEmpty());
    }
    void slideOut(Bar /*bar*/) override {}
    void setIsCharVerify(bool /*isCharVerify*/) override {}
    void updateContentWidthHeightQVVerifyPercentage(bool /*isCharVerify*/) override {}
    void setCaption(const QString & /*caption*/) override {}
    void setHelpButtonShown(bool /*shown*/) override {}
    void setRefreshButtonShown(bool /*shown*/) override {}
    void setRefreshButtonEnabled(bool /*enabled*/) override {}
    void setOutage(bool /*outage*/) override {}
    void setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer) override
    {
        fuzzRequire(!answer || !answer->adlinkword().isEmpty());
    }
    void setDrawingEnabled(bool /*enabled*/) override {}
    [[nodiscard]] QSizeF frameSize() const override { return {}; }
    [[nodiscard]] QRectF imageFrame() const override { return {}; }
    void beginStroke(QPointF /*location*/) override {}
    void extendStroke(QPointF /*location*/) override {}
    void resetUIs() override {}
    void setCharInputBusy(bool /*busy*/) override {}
    void outageHasStarted() override {}
    void pictureIsReady() override {}
    void answerWasWrong() override {}
    void attemptHasFailed(const QVError & /*error*/) override {}
};

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

void converse(const QByteArray &configBody, const QByteArray &pictureBody, QVVerifyStyle style)
{
    const auto config = recordFrom<QVConfigResponseModel>(configBody);
    const auto picture = recordFrom<QVClickResponseModel>(pictureBody);
    if (!config)
        return;
    BlindSurface surface;
    const auto flow = std::make_shared<QVRenderDrawFlow>(style, &surface);
    flow->handleConfigResponseFromQuarvoServer(config, picture);
    QCoreApplication::processEvents();
    flow->refreshButtonDidClickedAction();
    QCoreApplication::processEvents();
}

void startOnce()
{
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    // Never a static itself: at the end of the process Qt's network threads would outlive what they use.
    static const auto *const application = new QApplication(count, arguments);
    Q_UNUSED(application)
    static const bool isReady = [] {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        // Nothing leaves the machine, not even a name to look up: all goes to a port that refuses.
        QNetworkProxy::setApplicationProxy(
            QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), 1));
        return true;
    }();
    Q_UNUSED(isReady)
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startOnce();
    FuzzInput input(data, size);
    const auto style = QVVerifyStyle(input.take<std::uint8_t>() % 3);
    const QByteArray first = input.takeText();
    const QByteArray second = input.takeText();
    (void)recordFrom<QVVerifyResponseModel>(first);
    (void)recordFrom<QVDownTimeResponseModel>(first);
    if (const auto outage = recordFrom<QVGetOutageResponseModel>(first))
        fuzzRequire(outage->imgUrlString().endsWith(QLatin1String(".jpg")));
    converse(first, second, style);
    return 0;
}
