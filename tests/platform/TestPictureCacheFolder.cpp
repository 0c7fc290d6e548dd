#include "platform/QVPictureCacheFolder.h"
#include "support/QVTestCase.h"

#include <QDirIterator>
#include <QNetworkDiskCache>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <unistd.h>

namespace {

constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
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

void makeFile(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("foreign");
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
    void isPrivateToTheUser()
    {
        QVPictureCacheFolder folder;
        const QDir dir(QFileInfo(folder.path()).canonicalFilePath());
        QCOMPARE(QFileInfo(dir.filePath(q(".."))).canonicalFilePath(), root());
        for (const QString &path : {dir.path(), root()})
            QCOMPARE(QFileInfo(path).permissions() & others, QFile::Permissions());
    }

    void clearsWhatNoProcessHoldsAnyMore()
    {
        for (const bool isAsked : {true, false}) {
            QVPictureCacheFolder own;
            keepPicture(own.path());
            const QStringList kept = contents(root());
            {
                QVPictureCacheFolder earlier;
                keepPicture(earlier.path());
                QVERIFY(contents(root()).size() > kept.size());
            }
            if (isAsked) {
                QVPictureCacheFolder::clear();
                QCOMPARE(contents(root()), kept);
                continue;
            }
            // A new folder clears the others by itself.
            QVPictureCacheFolder next;
            QCOMPARE(QDir(root()).entryList(QDir::AllDirs | QDir::NoDotAndDotDot).size(), 2);
        }
    }

    void leavesAloneWhatItDidNotMake()
    {
        const QString victim = m_cache->filePath(q("victim"));
        for (const char *file : {"keep.txt", "a.d", "data8/0/a.d", "data8/a.d", "quarvo.lock"})
            makeFile(victim + u'/' + q(file));
        QVPictureCacheFolder own;
        keepPicture(own.path());
        const QString hex = q(nameOfOurForm);
        // Files that a user has made, and links in the place of our folders.
        makeFile(root() + q("/notes/data8/0/a.d"));
        makeFile(root() + q("/a.d"));
        makeFile(root() + u'/' + hex + q("/data8/0/a.d"));
        QVERIFY(QFile::link(victim, root() + u'/' + QString(hex).replace(u'0', u'1')));
        QVERIFY(QFile::link(victim, root() + q("/zz")));
        // The folder of an earlier process, into which somebody has put other files.
        const QString mixed = root() + u'/' + QString(hex).replace(u'0', u'2');
        for (const char *file : {"quarvo.lock", "data8/0/photo.jpg", "mine/a.d"})
            makeFile(mixed + u'/' + q(file));
        QVERIFY(QFile::link(victim, mixed + q("/data9")));
        QVERIFY(QFile::link(victim + q("/a.d"), mixed + q("/data8/0/a.d")));

        QStringList kept = contents(m_cache->path());
        QVPictureCacheFolder::clear();
        kept.removeIf([&](const QString &entry) { return entry.startsWith(mixed + q("/quarvo.lock ")); });
        QCOMPARE(contents(m_cache->path()), kept);
    }

    void keepsNothingInAPlaceThatIsNotItsUsersAlone_data()
    {
        const auto row = addColumns<QString>({"place"});
        for (const char *place : {"link", "dangling link", "file", "open to others"})
            row(place, q(place));
        // Only root can change the owner of a folder.
        if (::geteuid() == 0)
            row("another user's", q("another user's"));
    }

    void keepsNothingInAPlaceThatIsNotItsUsersAlone()
    {
        QFETCH(const QString, place);
        const QString victim = m_cache->filePath(q("victim"));
        makeFile(victim + u'/' + q(nameOfOurForm) + q("/data8/0/a.d"));
        makeFile(victim + u'/' + q(nameOfOurForm) + q("/quarvo.lock"));
        QVERIFY(QDir().mkpath(QFileInfo(root()).path()));
        if (place == q("link"))
            QVERIFY(QFile::setPermissions(victim, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner) &&
                    QFile::link(victim, root()));
        else if (place == q("dangling link"))
            QVERIFY(QFile::link(m_cache->filePath(q("nowhere")), root()));
        else if (place == q("file"))
            makeFile(root());
        else
            QVERIFY(QFile::rename(victim, root()));
        if (place == q("another user's")) {
            QVERIFY(QFile::setPermissions(root(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
            QCOMPARE(::chown(QFile::encodeName(root()).constData(), 65534, 65534), 0);
        }

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
        const QString victim = m_cache->filePath(q("victim"));
        QVERIFY(QDir().mkpath(victim));
        QVERIFY(QFile::rename(root(), m_cache->filePath(q("moved"))));
        QVERIFY(QFile::link(victim, root()));
        keepPicture(path);
        QVERIFY(QDir(victim).isEmpty());
        QVERIFY(!contents(m_cache->filePath(q("moved"))).filter(q(".d ")).isEmpty());
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

    std::optional<QTemporaryDir> m_cache;
};

QV_TEST(TestPictureCacheFolder)
#include "TestPictureCacheFolder.moc"
