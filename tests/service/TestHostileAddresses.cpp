#include "service/QVServiceTestCase.h"

class TestHostileAddresses : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void unusable_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QList<qint64>>("codes");
        const auto row = [](const char *name, const QString &address, const QList<qint64> &codes) {
            QTest::newRow(name) << address << codes;
        };
        row("absent", QString(), {-1002});
        row("empty", QStringLiteral(""), {-1002});
        row("no scheme", QStringLiteral("outage.example/x"), {-1002});
        row("words", QStringLiteral("not an address"), {-1002});
        row("file", QStringLiteral("file:///etc/passwd"), {-1002});
        row("ftp", QStringLiteral("ftp://127.0.0.1/"), {-1002});
        row("data", QStringLiteral("data:application/json,{\"code\":\"0103\"}"), {-1002});
        row("compiled in", QStringLiteral("qrc:/x"), {-1002});
        row("no host", QStringLiteral("http:///x"), {-1000});
        row("scheme alone", QStringLiteral("https://"), {-1000});
        row("space in the host", QStringLiteral("http://out age.example/"), {-1000, -1003, -1009});
        row("open bracket", QStringLiteral("http://[::1/"), {-1000});
        row("port too large", QStringLiteral("http://127.0.0.1:99999/"), {-1000});
        row("port of letters", QStringLiteral("http://127.0.0.1:http/"), {-1000});
        row("control characters", QStringLiteral("\x01\x02"), {-1000, -1002});
        row("control character in the host", QStringLiteral("http://a\x01z/"), {-1000});
        row("colons", QStringLiteral(":::"), {-1000, -1002});
    }

    void unusable()
    {
        QFETCH(const QString, address);
        QFETCH(const QList<qint64>, codes);
        settings().setOutage(address);
        Probe<QVGetOutageResponseModel> probe;
        const Task task = probe.run([](QVCompletion<QVGetOutageResponseModel> completed) {
            return manager().requestOutageGetcompleted(completed);
        });
        QVERIFY(!task->isFinished());
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QVERIFY(!probe.result());
        QVERIFY2(codes.contains(probe.code()), qPrintable(QString::number(probe.code())));
        QCOMPARE(time().pendingCount(), 0);
    }

    void pastedText_data()
    {
        QTest::addColumn<QString>("vid");
        QTest::addColumn<QByteArray>("onTheWire");
        const auto row = [](const char *name, const QString &vid, const QByteArray &onTheWire) {
            QTest::newRow(name) << vid << onTheWire;
        };
        row("space", QStringLiteral("a b"), "id=a%20b");
        row("encoded already", QStringLiteral("a%20b"), "id=a%20b");
        row("broken encoding", QStringLiteral("%zz"), "id=%25zz");
        row("beyond Latin", QStringLiteral("验证"), "id=%E9%AA%8C%E8%AF%81");
        row("second request", QStringLiteral("a HTTP/1.1\r\nEvil: 1\r\n\r\nGET /"),
            "id=a%20HTTP/1.1%0D%0AEvil:%201%0D%0A%0D%0AGET%20/");
        row("nothing character", QStringLiteral("a") + QChar(u'\0') + u'b', "id=a%00b");
        row("another pair", QStringLiteral("a&b=c"), "b=c");
        row("question mark", QStringLiteral("a?b"), "id=a?b");
    }

    void pastedText()
    {
        QFETCH(const QString, vid);
        QFETCH(const QByteArray, onTheWire);
        const Probe<Picture> probe = answeredWith(vid);
        QVERIFY(probe.result());
        QVERIFY2(server().requests().first().pairs().contains(onTheWire),
                 server().requests().first().target.constData());
        QVERIFY(!server().requests().first().head.contains("\nEvil"));
    }

    void textThatEndsTheQuery()
    {
        QVERIFY(answeredWith(QStringLiteral("a#b")).result());
        // What follows the mark never leaves this machine.
        QVERIFY(server().requests().first().pairs().contains("id=a"));
    }

    void oddText_data()
    {
        QTest::addColumn<QString>("vid");
        QTest::newRow("half a surrogate pair") << QString(QChar(0xd800));
        QTest::newRow("noncharacter") << QString(QChar(0xffff));
        QTest::newRow("very long") << QString(200000, u'x');
    }

    void oddText()
    {
        QFETCH(const QString, vid);
        // Whether it can be sent is the platform's business; that it ends well is ours.
        const Probe<Picture> probe = answeredWith(vid);
        QCOMPARE(probe.result() != nullptr, !probe.error());
    }

private:
    Probe<Picture> answeredWith(const QString &vid)
    {
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        Probe<Picture> probe;
        requestPicture(probe, vid);
        [&] {
            QVERIFY(waitFor([&] { return probe.isDone(); }));
            QCOMPARE(probe.fault(), QString());
            QVERIFY(server().requests().size() <= 1);
        }();
        return probe;
    }
};

QV_TEST(TestHostileAddresses)
#include "TestHostileAddresses.moc"
