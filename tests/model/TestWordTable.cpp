#include "model/QVWordTable.h"
#include "support/QVTestCase.h"

class TestWordTable : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void words_data()
    {
        QTest::addColumn<int>("word");
        const auto add = [](QVWord word, const char *texts) {
            for (const QByteArray &text : QByteArray(texts).split(' '))
                QTest::newRow(text.constData()) << static_cast<int>(word);
        };
        add(QVWord::True, "TRUE True true YES Yes yes");
        add(QVWord::False, "FALSE False false NO No no");
        add(QVWord::Null, "NIL Nil nil NULL Null null (NULL) (Null) (null) <NULL> <Null> <null>");
    }

    void words()
    {
        QFETCH(const int, word);
        const auto found = qv_wordFromText(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(found);
        QCOMPARE(static_cast<int>(*found), word);
    }

    void otherTexts_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text :
             {"tRUE", "yES", "oui", "(nil)", "<nil>", "(NULL>", " true", "true ", "1", "Y"})
            QTest::newRow(text) << QString::fromLatin1(text);
        QTest::newRow("empty") << QStringLiteral("");
        QTest::newRow("absent") << QString();
        QTest::newRow("look-alike letter") << QStringLiteral("nо");
    }

    void otherTexts()
    {
        QFETCH(const QString, text);
        QVERIFY(!qv_wordFromText(text));
    }
};

QV_TEST(TestWordTable)
#include "TestWordTable.moc"
