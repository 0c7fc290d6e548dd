#include "image/QVImageLoad.h"
#include "image/QVImageResources.h"
#include "image/QVTestPictures.h"
#include "platform/QVPictureCacheFolder.h"
#include "service/QVServiceTestCase.h"

#include <QDir>
#include <QSemaphore>
#include <QStandardPaths>

#include <csignal>
#include <dlfcn.h>
#include <netdb.h>
#include <sys/resource.h>

using namespace std::chrono_literals;

namespace {

const char *const slowName = "slow.quarvo.example";
QSemaphore lookupsAsked;
QSemaphore lookupsAllowed;

/// As on a disk without room: while it lives, no file of this process can grow.
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_usual);
        const rlimit none{0, m_usual.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_usual); }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_usual{};
};

QString cacheRoot()
{
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) +
           QStringLiteral("/quarvo-pictures");
}

} // namespace

// The program's own in place of the system's: the name above is looked up until it is allowed.
extern "C" Q_DECL_EXPORT int getaddrinfo(const char *node, const char *service, const addrinfo *hints,
                                         addrinfo **result)
{
    if (node && qstrcmp(node, slowName) == 0) {
        lookupsAsked.release();
        lookupsAllowed.acquire();
        return EAI_AGAIN;
    }
    static const auto usual = reinterpret_cast<decltype(&getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    return usual(node, service, hints, result);
}

/// What the system may keep the component waiting for. Its key chain is tried in TestSecureStore.
class TestBoundedWaiting : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNameLookupThatHangs()
    {
        QVServiceAddresses addresses;
        addresses.setApiHost(QStringLiteral("http://") + QLatin1String(slowName));
        settings().setServiceAddresses(addresses);
        Probe<QVConfigResponseModel> probe;
        probe.run([](auto completed) { return manager().requestConfigWithVid({}, {}, {}, completed); });
        QVERIFY(waitFor([] { return lookupsAsked.available() > 0; }));
        advance(7999ms);
        QVERIFY(!probe.isDone());
        advance(1ms);
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.code(), -1001);
        lookupsAllowed.release(lookupsAsked.available());
    }

    void aPictureCacheThatCannotBeMade()
    {
        QDir(cacheRoot()).removeRecursively();
        QVERIFY(QDir().mkpath(QFileInfo(cacheRoot()).path()));
        QFile obstacle(cacheRoot());
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("^No pictures are kept on disk")));
        QVERIFY(loadsAgain());
        QVERIFY(obstacle.remove());
    }

    void aPictureCacheOnAFullDisk()
    {
        const FullDisk full;
        QVERIFY(loadsAgain());
    }

    void aPictureCacheThatIsTakenAway()
    {
        const QFileInfo folder(QVPictureCacheFolder::shared().path());
        QVERIFY(QDir(folder.canonicalFilePath()).removeRecursively());
        // It is the disk that the host's developer hears of.
        for (int picture = 0; picture < 4; ++picture)
            QTest::ignoreMessage(QtWarningMsg, "QNetworkDiskCache::prepare() unable to open temporary file");
        QVERIFY(loadsAgain());
    }

private:
    /// More pictures than memory keeps, and the first once more, which is on disk at best.
    bool loadsAgain()
    {
        QVImageResources resources;
        static const QVScript picture = QVScript::answer(qv_testPicture({64, 64}, Qt::red, "png"));
        server().setResponder([](const QVReceivedRequest &) { return picture; });
        const bool isLoaded = loads(resources, "/a.png") && loads(resources, "/b.png") &&
                              loads(resources, "/c.png") && loads(resources, "/a.png");
        // The disk answers once it has written.
        bool isWritten = false;
        connect(&resources.disk(), &QVPictureDisk::wasRead, this, [&] { isWritten = true; });
        resources.disk().read(q("none"));
        return waitFor([&] { return isWritten; }) && isLoaded;
    }

    bool loads(QVImageResources &resources, const char *path)
    {
        QVCompletionProbe<QVPicture> probe;
        probe.run([&](auto completed) {
            QVImageLoad::start(resources, server().address() + QLatin1String(path), {}, completed);
        });
        return waitFor([&] { return probe.isDone(); }) && probe.fault().isNull() && !probe.error() &&
               probe.result().image.width() == 64;
    }
};

QV_TEST(TestBoundedWaiting)
#include "TestBoundedWaiting.moc"
