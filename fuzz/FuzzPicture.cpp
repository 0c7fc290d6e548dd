// Pictures of a hostile server.
#include "fuzz/FuzzInput.h"
#include "image/QVFirstFrame.h"
#include "image/QVImageDecoder.h"
#include "image/QVPictureSize.h"
#include "platform/QVProcessorTime.h"

#include <QImage>

#include <sys/resource.h>

using namespace std::chrono_literals;

namespace {

constexpr qint64 mostMemory = 64 << 20;
constexpr auto mostTime = 2s;

/// The highest memory use of this process so far, in bytes.
qint64 peakMemory()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) << 10;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Qt's plugins log many messages about broken pictures.
    static const auto silent =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    // Plugins are loaded in advance, so that their cost does not count.
    static const bool isReady = qv_decoderReads("png") && qv_decoderReads("jpeg") && qv_decoderReads("gif") &&
                                qv_decoderReads("webp");
    Q_UNUSED(silent)
    fuzzRequire(isReady);

    const QByteArray file = fuzzBytes(data, size);
    // Reducing the first frame once more must not change it.
    const QVFirstFrame frame = QVFirstFrame::ofFile(file);
    const QVFirstFrame again = QVFirstFrame::ofFile(frame.bytes);
    fuzzRequire(frame.format == again.format && frame.bytes == again.bytes);
    fuzzRequire(frame.bytes.size() <= file.size() + 2);

    const qint64 memory = peakMemory();
    const auto start = qv_processorTime();
    const QImage image = qv_decodedImage(file);
    fuzzRequire(qv_processorTime() - start < mostTime);
    fuzzRequire(peakMemory() - memory <= mostMemory + image.sizeInBytes());
    fuzzRequire(image.isNull() || qv_isPictureSizeAllowed(image.width(), image.height()));
    return 0;
}
