#include "parts/PartTools.h"

#include "secrets/QVDesktopStore.h"
#include "settings/QVConfigurationManager.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {

class ReadyStore final : public QVSecureStore
{
public:
    Answer copyMatching(const QVSecureQuery &, Return) override
    {
        QVSecureItem item;
        item.data = QByteArrayLiteral("0123456789abcdef0123456789abcdef");
        return {QVSecureStatus::Success, {item}};
    }
    QVSecureStatus add(const QVSecureItem &) override { return QVSecureStatus::Success; }
    QVSecureStatus update(const QVSecureQuery &, const QByteArray &, const QString &) override
    {
        return QVSecureStatus::Success;
    }
    QVSecureStatus deleteMatching(const QVSecureQuery &) override { return QVSecureStatus::Success; }
};

} // namespace

void tellRow(const BenchRow &row)
{
    const QByteArray line = QJsonDocument(row.toJson()).toJson(QJsonDocument::Compact);
    std::printf("%s\n", line.constData());
}

void configureService(const PartOptions &options, const QString &vid)
{
    static ReadyStore store;
    QVDesktopStore::setShared(&store);
    QVServiceAddresses addresses;
    addresses.setApiHost(options.addresses.value(QStringLiteral("apiHost")).toString());
    addresses.setDownloadHost(options.addresses.value(QStringLiteral("downloadHost")).toString());
    addresses.setImageHost(options.addresses.value(QStringLiteral("imageHost")).toString());
    addresses.setCdn(options.addresses.value(QStringLiteral("cdn")).toString());
    QVConfigurationManager &settings = QVConfigurationManager::sharedManager();
    settings.setServiceAddresses(addresses);
    settings.setVid(vid);
    settings.setScene(QStringLiteral("bench"));
}

void turnUntil(const std::function<bool()> &condition)
{
    constexpr double patience = 20e9;
    constexpr int step = 20;
    const double start = benchNow();
    while (!condition()) {
        if (benchNow() - start > patience) {
            std::fprintf(stderr, "waited in vain\n");
            std::exit(1);
        }
        turnFor(step);
    }
}

void turnFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}
