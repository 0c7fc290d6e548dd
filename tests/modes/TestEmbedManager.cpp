#include "draw/DrawTestCase.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVEmbedManagerDelegate.h"

#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace {

struct Host : QVEmbedManagerDelegate
{
    void embedManagerVerifyPassedWithToken(const QString &token) override
    {
        tokens.append(token);
        if (passed)
            passed();
    }

    QStringList tokens;
    std::function<void()> passed;
};

} // namespace

class TestEmbedManager : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void makesOneViewWhichAsksNothingByItself()
    {
        QVEmbedManager manager;
        QWidget *view = manager.embedView();
        QCOMPARE(manager.embedView(), view);
        advance(1s);
        QTest::qWait(10);
        QCOMPARE(service().asked(), QStringList());
        QCOMPARE(time().pendingCount(), 0);
        QCOMPARE(manager.embedViewWidthHeightPercentage(), 400.0 / 270.0);
    }

    void relaysTheToken()
    {
        QVEmbedManager manager;
        Host host;
        manager.setDelegate(&host);
        QCOMPARE(manager.delegate(), &host);
        const QSignalSpy ready(&manager, &QVEmbedManager::ready);
        const QSignalSpy wrong(&manager, &QVEmbedManager::wrongAnswer);
        const QSignalSpy passed(&manager, &QVEmbedManager::passed);
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        QWidget window;
        place(manager, window);
        QVERIFY(waitFor([&] { return ready.size() == 1; }));
        advance(300ms);
        strokeOn(*manager.embedView());
        QVERIFY(waitFor([&] { return wrong.size() == 1; }));
        service().answer(QStringLiteral("verify"),
                         {{QStringLiteral("code"), QStringLiteral("0103")},
                          {QStringLiteral("token"), QStringLiteral("embed-token")}});
        strokeOn(*manager.embedView());
        QVERIFY(waitFor([&] { return service().count(QStringLiteral("verify")) == 2; }));
        pass(1500ms);
        QCOMPARE(host.tokens, QStringList{QStringLiteral("embed-token")});
        QCOMPARE(passed.size(), 1);
        QCOMPARE(passed.first().first().toString(), QStringLiteral("embed-token"));
    }

    void tellsOfFailuresAndStartsAnew()
    {
        QVEmbedManager manager;
        QList<QVError> errors;
        connect(&manager, &QVEmbedManager::failed, this, [&](const QVError &error) { errors.append(error); });
        const QSignalSpy ready(&manager, &QVEmbedManager::ready);
        service().answerCode(QStringLiteral("get"), QStringLiteral("0105"));
        manager.reset();
        QVERIFY(waitFor([&] { return errors.size() == 1; }));
        QCOMPARE(errors.first().code(), 105);
        service().answerCode(QStringLiteral("get"), QStringLiteral("0103"));
        manager.reset();
        QVERIFY(waitFor([&] { return ready.size() == 1; }));
    }

    void ownsTheViewUntilTheHostDoes()
    {
        QPointer<QWidget> view;
        {
            QVEmbedManager manager;
            view = manager.embedView();
        }
        QVERIFY(!view);
        QWidget window;
        {
            QVEmbedManager manager;
            view = manager.embedView();
            view->setParent(&window);
        }
        QVERIFY(view);
        advance(100ms);
        QVERIFY(waitFor([&] { return service().count(QStringLiteral("picture")) == 1; }));

        QVEmbedManager manager;
        {
            QWidget page;
            view = manager.embedView();
            view->setParent(&page);
        }
        QVERIFY(!view);
        QVERIFY(manager.embedView());
    }

    void survivesAHostThatDestroysTheManager()
    {
        auto manager = std::make_unique<QVEmbedManager>();
        Host host;
        host.passed = [&] {
            manager.reset();
        };
        manager->setDelegate(&host);
        const QSignalSpy ready(manager.get(), &QVEmbedManager::ready);
        QWidget window;
        place(*manager, window);
        QVERIFY(waitFor([&] { return ready.size() == 1; }));
        advance(300ms);
        strokeOn(*manager->embedView());
        QVERIFY(waitFor([&] { return service().count(QStringLiteral("verify")) == 1; }));
        pass(1500ms);
        QCOMPARE(host.tokens.size(), 1);
        QVERIFY(!manager);
    }

private:
    void place(QVEmbedManager &manager, QWidget &window)
    {
        auto *layout = new QVBoxLayout(&window);
        // The offscreen platform has nobody to tell a minimum size to, and says so.
        layout->setSizeConstraint(QLayout::SetNoConstraint);
        layout->addWidget(manager.embedView());
        window.resize(440, 310);
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
