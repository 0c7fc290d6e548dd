// HTTP answers: the reader must keep its bounds, and the result must not depend on how the bytes are split.
#include "fuzz/FuzzInput.h"
#include "net/QVHttpReader.h"

namespace {

constexpr qint64 limit = 4096;

QVHttpReader readerOf(QByteArrayView bytes, qsizetype atOnce)
{
    QVHttpReader reader(limit);
    while (!bytes.isEmpty()) {
        const qsizetype length = std::min(atOnce, bytes.size());
        reader.read(bytes.first(length));
        bytes = bytes.sliced(length);
        fuzzRequire(reader.body().size() <= limit);
    }
    reader.end();
    return reader;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const qsizetype atOnce = size > 0 ? 1 + *data : 1;
    const QByteArray bytes = fuzzBytes(data, size).mid(1);
    const QVHttpReader whole = readerOf(bytes, std::max<qsizetype>(bytes.size(), 1));
    const QVHttpReader parcelled = readerOf(bytes, atOnce);
    fuzzRequire(whole.state() != QVHttpReader::State::Reading);
    fuzzRequire(whole.state() == parcelled.state());
    if (whole.state() != QVHttpReader::State::Complete)
        return 0;
    fuzzRequire(whole.body() == parcelled.body());
    fuzzRequire(whole.head().status() >= 200);
    return 0;
}
