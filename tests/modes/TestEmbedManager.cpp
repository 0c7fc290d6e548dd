#include "modes/ModesTestCase.h"

#include <QPointer>
#include <QRegularExpression>

using namespace std::chrono_literals;

class TestEmbedManager : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatBecomesOfThePanel()
    {
        answerCode(verify, q("0104"));
        QVERIFY(isReadyAfter(QStringList()));
        strokeAndVerify();
        answerCode(q("get"), q("0105"));
        embedManager().reset();
        settle();
        QCOMPARE(outcomes().said(), words("ready, wrong, failed 105"));
        answerCode(q("get"), q("0103"));
        answerCode(verify, q("0103"));
        embedManager().reset();
        QVERIFY(isReadyAfter(words("ready, wrong, failed 105")));
        outcomes().clear();
        strokeAndVerify();
        pass(1500ms);
        QCOMPARE(outcomes().said(), words("passed main-token"));
        QCOMPARE(outcomes().told(), words("main-token"));
    }

    void ownsTheViewUntilTheHostDoes()
    {
        auto manager = std::make_unique<QVEmbedManager>();
        QPointer<QWidget> view = manager->embedView();
        QCOMPARE(manager->embedView(), view.data());
        manager.reset();
        QVERIFY(!view);
        manager = std::make_unique<QVEmbedManager>();
        {
            QWidget page;
            view = manager->embedView();
            view->setParent(&page);
        }
        QVERIFY(!view);
        view = manager->embedView();
        view->setParent(&host());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q("QVEmbedManager was destroyed")));
        manager.reset();
        QVERIFY(view);
        advance(100ms);
        QVERIFY(waitFor([this] { return service().count(picture) == 1; }));
    }

    void survivesAHostThatDestroysTheManager()
    {
        auto manager = std::make_unique<QVEmbedManager>();
        connect(manager.get(), &QVEmbedManager::ready, this, [&] { manager.reset(); });
        manager->embedView()->setParent(&host());
        advance(100ms);
        QVERIFY(waitFor([&] { return !manager; }));
    }

private:
    /// Whether a picture comes up, \a before having been said already.
    bool isReadyAfter(const QStringList &before)
    {
        (void)embedManager();
        const bool isReady = waitFor([&] { return outcomes().said() == before + words("ready"); });
        advance(300ms);
        return isReady;
    }
};

QV_TEST(TestEmbedManager)
#include "TestEmbedManager.moc"
