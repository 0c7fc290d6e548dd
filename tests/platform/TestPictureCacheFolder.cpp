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

    void clearsWhatNoProcessHoldsAnyMore_data()
    {
        const auto row = addColumns<bool>({"isAsked"});
        row("when asked", true);
        row("with a new folder", false);
    }

    void clearsWhatNoProcessHoldsAnyMore()
    {
        QFETCH(const bool, isAsked);
        QVPictureCacheFolder own;
        const QString ownPath = own.path();
        QString abandoned;
        {
            QVPictureCacheFolder earlier;
            abandoned = earlier.path();
            QFile picture(abandoned + q("/picture"));
            QVERIFY(picture.open(QIODevice::WriteOnly));
            // Each new folder starts a clearing, which would take this one as soon as it is let go.
            QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
        }
        QVERIFY(QFile::exists(abandoned + q("/picture")));

        QVPictureCacheFolder next;
        if (isAsked)
            QVPictureCacheFolder::clearInBackground();
        else
            QVERIFY(!next.path().isEmpty());
        QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));

        QVERIFY(!QDir(abandoned).exists());
        QVERIFY(QDir(ownPath).exists());
    }
};

QV_TEST(TestPictureCacheFolder)
#include "TestPictureCacheFolder.moc"
