#include "platform/QVPictureCacheFolder.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QThreadPool>

class TestPictureCacheFolder : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isPrivateToTheUser()
    {
        QVPictureCacheFolder folder;
        const QFileInfo info(folder.path());
        QVERIFY(info.isDir());
        QVERIFY(!(info.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther)));
    }

    void clearsWhatNoProcessHoldsAnyMore()
    {
        QVPictureCacheFolder own;
        const QString ownPath = own.path();
        QString abandoned;
        {
            QVPictureCacheFolder earlier;
            abandoned = earlier.path();
        }
        QFile left(abandoned + q("/picture"));
        QVERIFY(left.open(QIODevice::WriteOnly));
        left.close();

        QVPictureCacheFolder::clearInBackground();
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));

        QVERIFY(!QDir(abandoned).exists());
        QVERIFY(QDir(ownPath).exists());
    }
};

QV_TEST(TestPictureCacheFolder)
#include "TestPictureCacheFolder.moc"
