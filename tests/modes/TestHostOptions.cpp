#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/QVEmbedManager.h"
#include "popup/QVWindow.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QSignalSpy>

using namespace std::chrono_literals;

namespace {

/// Counts what goes through it, and reads every answer itself, as a host's log may.
class CountingNetwork : public QNetworkAccessManager
{
public:
    CountingNetwork()
    {
        connect(this, &QNetworkAccessManager::finished, [](QNetworkReply *reply) { reply->readAll(); });
    }

    int count = 0;

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *data) override
    {
        ++count;
        return QNetworkAccessManager::createRequest(operation, request, data);
    }
};

} // namespace

/// What a host may ask for beside a token.
class TestHostOptions : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void attemptsEndInTime_data()
    {
        const auto row = addColumns<QString, QStringList>({"held", "said"});
        row("asking", config, words("failed -1001"));
        row("drawing", QString(), words("popup, failed -1001"));
    }

    void attemptsEndInTime()
    {
        QFETCH(QString, held);
        QVSDKManager::setAttemptTimeout(3s);
        if (!held.isEmpty())
            delay(held, 4s);
        for (const bool isInvisible : {false, true}) {
            outcomes().clear();
            start(isInvisible);
            pass(2900ms);
            QCOMPARE(outcomes().ends().size(), 0);
            pass(200ms);
            QTEST(outcomes().said(), "said");
            QVERIFY(!popup());
            pass(5s);
            QCOMPARE(outcomes().ends().size(), 1);
        }
        QCOMPARE(clickManager().button()->clickStatus(), QVClickStatusFailed);
    }

    void aPanelStartsAnewAfterItsTime()
    {
        QVSDKManager::setAttemptTimeout(3s);
        (void)embedManager();
        settle();
        pass(3s);
        QCOMPARE(outcomes().said(), words("ready, failed -1001"));
        embedManager().reset();
        settle();
        QCOMPARE(outcomes().said(), words("ready, failed -1001, ready"));
    }

    void successIsNotTimedOut_data()
    {
        const auto row = addColumns<bool, bool, QStringList>({"isInvisible", "draws", "said"});
        row("click", false, true, words("popup, passed main-token"));
        row("invisible", true, true, words("popup, passed main-token"));
        row("badge", true, false, words("passed click-token"));
    }

    void successIsNotTimedOut()
    {
        QFETCH(bool, isInvisible);
        QFETCH(bool, draws);
        QVSDKManager::setAttemptTimeout(3s);
        invisibleManager().setAnimation(true);
        if (!draws) {
            passByClick();
            delay(click, 2400ms);
        }
        start(isInvisible);
        QVERIFY(!draws || waitForPicture());
        pass(2s);
        if (draws)
            strokeAndVerify();
        pass(5s);
        QTEST(outcomes().said(), "said");
    }

    void tokensExpire_data()
    {
        const auto row = addColumns<QString, QString, int>({"mode", "meanwhile", "told"});
        for (const QString &mode : words("click, invisible, panel")) {
            row(qPrintable(mode), mode, QString(), 1);
            row(qPrintable(mode + q(", off")), mode, q("off"), 0);
            row(qPrintable(mode + q(", reset")), mode, q("reset"), 0);
            row(qPrintable(mode + q(", reset before")), mode, q("reset before"),
                mode == q("invisible") ? 1 : 0);
            row(qPrintable(mode + q(", destroyed")), mode, q("destroy"), 0);
            row(qPrintable(mode + q(", destroyed by expired()")), mode, q("destroy late"), 1);
        }
        row("started again", q("invisible"), q("start"), 0);
    }

    void tokensExpire()
    {
        QFETCH(QString, mode);
        QFETCH(QString, meanwhile);
        QFETCH(int, told);
        QVSDKManager::setTokenLifetime(meanwhile == q("off") ? 0s : 60s);
        const auto idle = time().pendingCount();
        const bool isInvisible = mode == q("invisible");
        auto panel = std::make_unique<QVEmbedManager>();
        int expiries = 0;
        const auto hears = [&](auto &manager, const auto &destroyed) {
            using Manager = std::remove_reference_t<decltype(manager)>;
            connect(&manager, &Manager::expired, &manager, [&, destroyed] {
                ++expiries;
                if (meanwhile == q("destroy late"))
                    destroyed();
            });
        };
        if (mode == q("panel")) {
            hears(*panel, [&panel] { delete panel->embedView(); });
            panel->renderView()->setParent(&host());
            panel->renderView()->setGeometry(0, 0, 400, 270);
            panel->renderView()->show();
            pass(200ms);
            QVERIFY(waitFor([&panel] { return panel->renderView()->canInput().value_or(false); }));
            pass(300ms);
            strokeOn(*panel->renderView());
            pass(500ms);
        } else {
            invisibleManager().setAnimation(true);
            hears(invisibleManager(), [this] { destroy(true); });
            hears(clickManager(), [this] { destroy(false); });
            passByClick();
            start(isInvisible);
            pass(400ms);
        }
        const auto reset = [&] {
            if (mode == q("panel"))
                panel->reset();
            else if (isInvisible)
                invisibleManager().reset();
            else
                clickManager().reset();
        };
        if (meanwhile == q("reset before"))
            reset();
        pass(1s);
        if (mode != q("panel"))
            QCOMPARE(outcomes().said(), words("passed click-token"));
        pass(50s);
        QCOMPARE(expiries, 0);
        if (meanwhile == q("reset"))
            reset();
        else if (meanwhile == q("start"))
            start(true);
        else if (meanwhile == q("destroy"))
            mode == q("panel") ? delete panel->embedView() : destroy(isInvisible);
        pass(12s);
        QCOMPARE(expiries, told);
        if (told && meanwhile.isEmpty() && mode == q("click"))
            QCOMPARE(clickManager().button()->clickStatus(), QVClickStatusNormal);
        if (mode != q("panel") && meanwhile != q("off") && meanwhile != q("start"))
            QCOMPARE(time().pendingCount(), idle);
        if (told && meanwhile.isEmpty() && mode == q("panel")) {
            auto *const bar = panel->embedView()->findChild<QAbstractButton *>(q("errorOverlayView"));
            QCOMPARE(bar->accessibleName(), q("Expired. Try again."));
            forgetAsked();
            bar->click();
            QVERIFY(waitFor([this] { return asked().contains(q("get")); }));
        }
        pass(100s);
        // The other start's token has its own time.
        QCOMPARE(expiries, meanwhile == q("start") ? 1 : told);
    }

    /// The way out is there exactly while somebody listens.
    void anAlternativeIsOffered_data()
    {
        const auto row = addColumns<QString>({"mode"});
        for (const QString &mode : words("click, invisible, panel"))
            row(qPrintable(mode), mode);
    }

    void anAlternativeIsOffered()
    {
        QFETCH(QString, mode);
        QVEmbedManager panel;
        int requests = 0;
        std::unique_ptr<QObject> receiver;
        const auto listen = [&](auto &manager) {
            using Manager = std::remove_reference_t<decltype(manager)>;
            receiver = std::make_unique<QObject>();
            connect(&manager, &Manager::alternativeRequested, receiver.get(), [&requests] { ++requests; });
        };
        const auto listenTo = [&] {
            if (mode == q("panel"))
                listen(panel);
            else if (mode == q("invisible"))
                listen(invisibleManager());
            else
                listen(clickManager());
        };
        listenTo();
        QVRenderDrawView *view = nullptr;
        if (mode == q("panel")) {
            view = panel.renderView();
            view->setParent(&host());
            view->setGeometry(0, 0, 400, 270);
            view->show();
            pass(200ms);
        } else {
            start(mode == q("invisible"));
            QVERIFY(waitForPicture());
            view = drawView();
        }
        QVERIFY(waitFor([view] { return view->canInput().value_or(false); }));
        pass(500ms);
        auto *const button = view->findChild<QAbstractButton *>(q("alternativeButton"));
        auto *const image = view->findChild<QWidget *>(q("imageView"));
        const auto bottom = [&] {
            return image->mapTo(view, QPoint(0, image->height())).y();
        };
        const int needed = view->heightForWidth(400);
        QVERIFY(button->isVisible() && button->accessibleName() == q("I can't do this"));
        QCOMPARE(button->y(), bottom());
        QVERIFY(view->rect().contains(button->geometry()));
        const QWidget *next = view->findChild<QWidget *>(q("helpButton"))->nextInFocusChain();
        while (!(next->focusPolicy() & Qt::TabFocus))
            next = next->nextInFocusChain();
        QCOMPARE(next, button);
        receiver.reset();
        QVERIFY(waitFor([button] { return button->isHidden(); }));
        QCOMPARE(view->heightForWidth(400), needed - 30);
        listenTo();
        QVERIFY(waitFor([button] { return button->isVisible(); }));
        QVPointerInput::click(*button, button->rect().center());
        QTest::keyClick(button, Qt::Key_Space);
        QCOMPARE(requests, 2);
        // The attempt goes on.
        strokeOn(*view);
        pass(2s);
        QVERIFY(mode == q("panel") ? !button->isEnabled()
                                   : outcomes().said().contains(q("passed main-token")));
        QCOMPARE(requests, 2);
    }

    void clicksBesideTheCard_data()
    {
        const auto row = addColumns<bool, bool>({"closes", "isBeside"});
        row("off, beside", false, true);
        row("on, beside", true, true);
        row("on, within", true, false);
    }

    void clicksBesideTheCard()
    {
        QFETCH(bool, closes);
        QFETCH(bool, isBeside);
        QVSDKManager::setPopupClosesOnOutsideClick(closes);
        host().resize(900, 700);
        start(true);
        QVERIFY(waitForPicture());
        const QRect card = popup()->popupScreen();
        QVPointerInput::click(*popup(), isBeside ? QPoint(10, 10) : card.topLeft() + QPoint(20, 20));
        QCOMPARE(!popup(), closes && isBeside);
        QCOMPARE(outcomes().ends().size(), closes && isBeside ? 1 : 0);
    }

    void outageIsTold()
    {
        service().answer(outageSwitch, {{QStringLiteral("active"), true}});
        QVEmbedManager embed;
        const QSignalSpy clickTold(&clickManager(), &QVClickManager::outageStarted);
        const QSignalSpy invisibleTold(&invisibleManager(), &QVInvisibleManager::outageStarted);
        const QSignalSpy embedTold(&embed, &QVEmbedManager::outageStarted);
        start(false);
        start(true);
        embed.embedView()->setParent(&host());
        pass(300ms);
        QCOMPARE(QList<qsizetype>({clickTold.size(), invisibleTold.size(), embedTold.size()}),
                 QList<qsizetype>({1, 1, 1}));
    }

    void outageMayEndThePanel_data()
    {
        const auto row = addColumns<bool>({"isReset"});
        row("destroyed", false);
        row("reset", true);
    }

    void outageMayEndThePanel()
    {
        QFETCH(bool, isReset);
        service().answer(outageSwitch, {{QStringLiteral("active"), true}});
        QVEmbedManager manager;
        const QPointer<QWidget> panel = manager.embedView();
        connect(&manager, &QVEmbedManager::outageStarted, this, [&] {
            service().answer(outageSwitch, {});
            if (isReset)
                manager.reset();
            else
                delete panel;
        });
        panel->setParent(&host());
        pass(300ms);
        QCOMPARE(panel != nullptr, isReset);
        QVERIFY(!isReset || waitFor([this] { return service().count(config) == 1; }));
    }

    void valuesAreKnownToTheMetaObjectSystem()
    {
        const QVariant error = QVariant::fromValue(QVError(q("No"), 7, {{q("key"), 1}}));
        const auto read = [&error](const char *name) {
            const QMetaObject &type = QVError::staticMetaObject;
            return type.property(type.indexOfProperty(name)).readOnGadget(error.constData());
        };
        QCOMPARE(read("domain").toString() + read("code").toString(), q("No7"));
        QCOMPARE(read("userInfo").toMap().value(q("key")).toInt(), 1);
        QCOMPARE(QMetaEnum::fromType<QVClickStatus>().keyToValue("QVClickStatusFailed"), 5);
        QCOMPARE(QMetaEnum::fromType<QVCloseReason>().keyToValue("WindowGone"), 2);

        answerCode(config, q("0101"));
        QVClickButton button;
        QStringList queued;
        connect(
            &button, &QVClickButton::clickStatusChanged, this,
            [&queued](QVClickStatus status) { queued.append(QVariant::fromValue(status).toString()); },
            Qt::QueuedConnection);
        connect(
            &button, &QVClickButton::failed, this,
            [&queued](const QVError &told) { queued.append(QString::number(told.code())); },
            Qt::QueuedConnection);
        button.show();
        button.click();
        QVERIFY(queued.isEmpty());
        pass(10ms);
        QCOMPARE(queued, words("QVClickStatusVerifying, QVClickStatusFailed, 101"));
        QCOMPARE(button.property("clickStatus").toInt(), 5);
    }

    void requestsGoTheHostsWay()
    {
        auto network = std::make_unique<CountingNetwork>();
        QVSDKManager::setNetworkAccessManager(network.get());
        (void)embedManager();
        settle();
        QCOMPARE(network->count, 4);
        // It goes while a request is under way.
        delay(config, 1s);
        embedManager().reset();
        QVERIFY(waitFor([&network] { return network->count == 6; }));
        network.reset();
        settle();
        delay(config, 0ms);
        embedManager().reset();
        QVERIFY(waitFor([this] { return outcomes().said() == words("ready, failed -1005, ready"); }));
    }

private:
    void finish() override
    {
        QVSDKManager::setAttemptTimeout(0ms);
        QVSDKManager::setTokenLifetime(0ms);
        QVSDKManager::setPopupClosesOnOutsideClick(false);
        QVSDKManager::setNetworkAccessManager(nullptr);
        ModesTestCase::finish();
    }
};

QV_TEST(TestHostOptions)
#include "TestHostOptions.moc"
