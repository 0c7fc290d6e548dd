#include "model/QVWordTable.h"
#include "support/QVTestCase.h"

class TestWordTable : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void words()
    {
        const QVCases<QVWord, QString> cases{
            {QVWord::True, q("TRUE True true YES Yes yes")},
            {QVWord::False, q("FALSE False false NO No no")},
            {QVWord::Null, q("NIL Nil nil NULL Null null (NULL) (Null) (null) <NULL> <Null> <null>")}};
        for (const auto &[word, texts] : cases) {
            for (const QString &text : texts.split(u' '))
                QVERIFY2(qv_wordFromText(text) == word, qPrintable(text));
        }
    }

    void otherTexts()
    {
        for (const char *text :
             {"tRUE", "oui", "(nil)", "<nil>", "(NULL>", " true", "true ", "1", "Y", "", "nо"})
            QVERIFY2(!qv_wordFromText(q(text)), text);
        QVERIFY(!qv_wordFromText(QString()));
    }
};

QV_TEST(TestWordTable)
#include "TestWordTable.moc"
