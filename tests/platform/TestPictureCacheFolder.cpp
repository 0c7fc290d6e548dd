#include "platform/QVPictureCacheFolder.h"
#include "support/QVTestCase.h"

#include <QDirIterator>
#include <QNetworkDiskCache>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <unistd.h>

namespace {

constexpr QFile::Permissions owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
const char *const nameOfOurForm = "0123456789abcdef0123456789abcdef";

void keepPicture(const QString &folder)
{
    QNetworkDiskCache cache;
    cache.setCacheDirectory(folder);
    QNetworkCacheMetaData meta;
    meta.setUrl(QUrl(q("https://pictures.example/a.png")));
    meta.setSaveToDisk(true);
    cache.insert(cache.prepare(meta));
    // An unfinished file, as a process leaves it that ends during a download.
    (void)cache.prepare(meta);
}

void makeFiles(const QString &folder, const QStringList &names)
{
    for (const QString &name : names) {
        QFile file(folder + u'/' + name);
        QVERIFY(QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly));
        file.write("foreign");
    }
}

/// The permissions of a folder, and all its contents with their permissions.
QStringList contents(const QString &folder)
{
    QStringList entries{QString::number(QFileInfo(folder).permissions())};
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QFileInfo entry(all.next());
        entries.append(entry.filePath() + u' ' + QString::number(entry.permissions()) +
                       entry.symLinkTarget());
    }
    entries.sort();
    return entries;
}

} // namespace

class TestPictureCacheFolder : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isPrivateAndClearedWhenItsProcessHasEnded()
    {
        QVPictureCacheFolder own;
        keepPicture(own.path());
        constexpr QFile::Permissions others(0x0077);
        for (const QString &path : {own.path() + q("/."), root()})
            QCOMPARE(QFileInfo(path).permissions() & others, QFile::Permissions());
        const QStringList kept = contents(root());
        for (const bool isAsked : {true, false}) {
            {
                QVPictureCacheFolder earlier;
                keepPicture(earlier.path());
                QVERIFY(contents(root()).size() > kept.size());
            }
            // A new folder clears the others by itself.
            QVPictureCacheFolder next;
            isAsked ? QVPictureCacheFolder::clear() : void(next.path());
            QCOMPARE(QDir(root()).entryList(QDir::AllDirs | QDir::NoDotAndDotDot).size(), isAsked ? 1 : 2);
            QVERIFY(!isAsked || contents(root()) == kept);
        }
    }

    void leavesAloneWhatItDidNotMake()
    {
        makeFiles(victim(), {q("keep.txt"), q("a.d"), q("data8/0/a.d"), q("data8/a.d"), q("quarvo.lock")});
        QVPictureCacheFolder own;
        keepPicture(own.path());
        const QString hex = q(nameOfOurForm);
        // Files that a user has made, and links in the place of our folders.
        makeFiles(root(), {q("notes/data8/0/a.d"), q("a.d"), hex + q("/data8/0/a.d")});
        QVERIFY(QFile::link(victim(), root() + u'/' + QString(hex).replace(u'0', u'1')));
        QVERIFY(QFile::link(victim(), root() + q("/zz")));
        // The folder of an earlier process, into which somebody has put other files.
        const QString mixed = root() + u'/' + QString(hex).replace(u'0', u'2');
        makeFiles(mixed, {q("quarvo.lock"), q("data8/0/photo.jpg"), q("mine/a.d")});
        QVERIFY(QFile::link(victim(), mixed + q("/data9")));
        QVERIFY(QFile::link(victim() + q("/a.d"), mixed + q("/data8/0/a.d")));

        QStringList kept = contents(m_cache->path());
        QVPictureCacheFolder::clear();
        kept.removeIf([&](const QString &entry) { return entry.startsWith(mixed + q("/quarvo.lock ")); });
        QCOMPARE(contents(m_cache->path()), kept);
    }

    void keepsNothingInAPlaceThatIsNotItsUsersAlone_data()
    {
        const auto row = addColumns<std::function<bool()>>({"make"});
        using Make = std::function<bool()>;
        row("link",
            Make([this] { return QFile::setPermissions(victim(), owner) && QFile::link(victim(), root()); }));
        row("dangling link", Make([this] { return QFile::link(m_cache->filePath(q("nowhere")), root()); }));
        row("file", Make([] { return QFile(root()).open(QIODevice::WriteOnly); }));
        row("open to others", Make([this] { return QFile::rename(victim(), root()); }));
        // Only root can change the owner of a folder.
        if (::geteuid() == 0)
            row("another user's", Make([this] {
                    return QFile::rename(victim(), root()) && QFile::setPermissions(root(), owner) &&
                           ::chown(QFile::encodeName(root()).constData(), 65534, 65534) == 0;
                }));
    }

    void keepsNothingInAPlaceThatIsNotItsUsersAlone()
    {
        QFETCH(const std::function<bool()>, make);
        makeFiles(victim() + u'/' + q(nameOfOurForm), {q("data8/0/a.d"), q("quarvo.lock")});
        QVERIFY(QDir().mkpath(QFileInfo(root()).path()) && make());
        const QStringList kept = contents(m_cache->path());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q("^No pictures are kept on disk: ")));
        QVPictureCacheFolder folder;
        QCOMPARE(folder.path(), QString());
        QVPictureCacheFolder::clear();
        QCOMPARE(contents(m_cache->path()), kept);
    }

    void staysInItsFolderWhateverHasItsPlace()
    {
        QVPictureCacheFolder folder;
        const QString path = folder.path();
        const QString moved = m_cache->filePath(q("moved"));
        QVERIFY(QDir().mkpath(victim()) && QFile::rename(root(), moved) && QFile::link(victim(), root()));
        keepPicture(path);
        QVERIFY(QDir(victim()).isEmpty());
        QVERIFY(!contents(moved).filter(q(".d ")).isEmpty());
    }

protected:
    void prepare() override
    {
        m_cache.emplace();
        qputenv("XDG_CACHE_HOME", QFile::encodeName(m_cache->path()));
    }

private:
    static QString root()
    {
        return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + q("/quarvo-pictures");
    }
    QString victim() const { return m_cache->filePath(q("victim")); }

    std::optional<QTemporaryDir> m_cache;
};

QV_TEST(TestPictureCacheFolder)
#include "TestPictureCacheFolder.moc"
