// Short fuzzing for compilers without libFuzzer: the seeds and random changes of them, the same in each run.
#include <QByteArray>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

constexpr quint32 seed = 20;
constexpr int mostRuns = 2000;
constexpr qint64 longestMilliseconds = 1500;
constexpr qsizetype longestInput = 1 << 16;

void run(const QByteArray &input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.constData()),
                           static_cast<std::size_t>(input.size()));
}

QByteArray changed(QByteArray input, const QList<QByteArray> &seeds, QRandomGenerator &random)
{
    const auto position = [&] {
        return qsizetype(random.bounded(quint32(input.size()) + 1));
    };
    for (int change = random.bounded(1, 6); change > 0; --change) {
        const qsizetype at = position();
        // Some bytes are replaced by another, or all that follow by those of another seed.
        if (random.bounded(4) > 0)
            input.replace(at, random.bounded(5), QByteArray(1, char(random.bounded(256))));
        else
            input = input.left(at) + seeds.at(random.bounded(int(seeds.size()))).mid(at);
    }
    return input.left(longestInput);
}

} // namespace

int main(int argc, char **argv)
{
    QList<QByteArray> seeds;
    const QDir corpus(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    for (const QString &name : corpus.entryList(QDir::Files, QDir::Name)) {
        QFile file(corpus.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            seeds.append(file.readAll());
    }
    if (seeds.isEmpty())
        qFatal("there are no seeds in %s", qUtf8Printable(corpus.path()));
    std::ranges::for_each(seeds, run);
    QRandomGenerator random(seed);
    QElapsedTimer timer;
    timer.start();
    int count = 0;
    for (; count < mostRuns && timer.elapsed() < longestMilliseconds; ++count)
        run(changed(seeds.at(random.bounded(int(seeds.size()))), seeds, random));
    std::printf("%d changed inputs\n", count);
    return 0;
}
