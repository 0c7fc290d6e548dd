#include "platform/QVPage.h"
#include "support/QVTestCase.h"

#include <QDesktopServices>
#include <QUrl>

class TestPage : public QVTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void take(const QUrl &url) { m_opened.append(url.toString()); }

private Q_SLOTS:
    void opensWebPagesOnly_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("opens");
        QTest::newRow("https") << "https://help.example/a?b=c" << true;
        QTest::newRow("http") << "http://help.example/" << true;
        QTest::newRow("file") << "file:///etc/passwd" << false;
        QTest::newRow("script") << "javascript:alert(1)" << false;
        QTest::newRow("mail") << "mailto:a@b.example" << false;
        QTest::newRow("no scheme") << "help.example" << false;
        QTest::newRow("no host") << "https://" << false;
        QTest::newRow("host with a space") << "https://a b/" << false;
        QTest::newRow("empty") << "" << false;
    }

    void opensWebPagesOnly()
    {
        QFETCH(QString, address);
        QFETCH(bool, opens);
        for (const char *scheme : {"http", "https", "file", "javascript", "mailto"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "take");
        QCOMPARE(qv_openPage(address), opens);
        QCOMPARE(m_opened, opens ? QStringList{address} : QStringList{});
    }

private:
    void finish() override
    {
        m_opened.clear();
        for (const char *scheme : {"http", "https", "file", "javascript", "mailto"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }

    QStringList m_opened;
};

QV_TEST(TestPage)
#include "TestPage.moc"
