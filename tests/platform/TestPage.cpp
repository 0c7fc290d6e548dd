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
    void opensWebPagesOnly()
    {
        for (const char *scheme : {"http", "https", "file", "javascript"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "take");
        for (const char *address :
             {"file:///etc/passwd", "javascript:alert(1)", "help.example", "https://", "https://a b/", ""})
            QVERIFY2(!qv_openPage(q(address)), address);
        QVERIFY(qv_openPage(q("https://help.example/a?b=c")));
        QCOMPARE(m_opened, QStringList{q("https://help.example/a?b=c")});
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
