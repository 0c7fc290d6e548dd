#include "draw/DrawTestCase.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVEmbedManagerDelegate.h"

#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace std::chrono_literals;

namespace {

struct Host : QVEmbedManagerDelegate
{
    void embedManagerVerifyPassedWithToken(const QString &token) override { tokens.append(token); }

    QStringList tokens;
};

} // namespace

class TestEmbedManager : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void relaysWhatTheViewTells()
    {
        QVEmbedManager manager;
        Host host;
        manager.setDelegate(&host);
        const QSignalSpy ready(&manager, &QVEmbedManager::ready);
        const QSignalSpy wrong(&manager, &QVEmbedManager::wrongAnswer);
        const QSignalSpy failed(&manager, &QVEmbedManager::failed);
        const QSignalSpy passed(&manager, &QVEmbedManager::passed);
        service().answerCode(q("verify"), q("0104"));
        QWidget window;
        place(manager, window);
        QVERIFY(waitFor([&] { return ready.size() == 1; }));
        advance(300ms);
        strokeOn(*manager.embedView());
        QVERIFY(waitFor([&] { return wrong.size() == 1; }));
        service().answerCode(q("get"), q("0105"));
        manager.reset();
        QVERIFY(waitFor([&] { return failed.size() == 1; }));
        service().answerCode(q("get"), q("0103"));
        service().answer(q("verify"), {{q("code"), q("0103")}, {q("token"), q("embed-token")}});
        manager.reset();
        QVERIFY(waitFor([&] { return ready.size() == 2; }));
        advance(300ms);
        strokeOn(*manager.embedView());
        QVERIFY(waitFor([&] { return service().count(q("verify")) == 2; }));
        pass(1500ms);
        QCOMPARE(host.tokens, QStringList{q("embed-token")});
        QCOMPARE(passed.size(), 1);
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
        QWidget window;
        view = manager->embedView();
        view->setParent(&window);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(q("QVEmbedManager was destroyed")));
        manager.reset();
        QVERIFY(view);
        advance(100ms);
        QVERIFY(waitFor([&] { return service().count(q("picture")) == 1; }));
    }

    void survivesAHostThatDestroysTheManager()
    {
        auto manager = std::make_unique<QVEmbedManager>();
        connect(manager.get(), &QVEmbedManager::ready, this, [&] { manager.reset(); });
        QWidget window;
        place(*manager, window);
        QVERIFY(waitFor([&] { return !manager; }));
    }

private:
    void place(QVEmbedManager &manager, QWidget &window)
    {
        window.resize(440, 310);
        manager.embedView()->setParent(&window);
        manager.embedView()->setGeometry(window.rect());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        advance(100ms);
    }

    void strokeOn(QWidget &view)
    {
        const auto points = QVPointerInput::wave(QPoint(40, view.height() / 2), 20, 8);
        QVPointerInput::strokeWithMouse(view, points, [this] { advance(20ms); });
    }
};

QV_TEST(TestEmbedManager)
#include "TestEmbedManager.moc"
