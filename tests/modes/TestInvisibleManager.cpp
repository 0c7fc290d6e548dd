#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVInvisibleManager.h"
#include "popup/QVWindow.h"
#include "views/QVInvisibleAnimationView.h"

using namespace std::chrono_literals;

class TestInvisibleManager : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sequenceDecides_data()
    {
        const auto row =
            addColumns<bool, QString, QByteArray, QStringList>({"animation", "what", "body", "said"});
        for (const bool animation : {true, false}) {
            const QByteArray suffix = animation ? ", badge" : "";
            row("pass" + suffix, animation, click, QByteArray(R"({"code":"0103","token":"t"})"),
                words("passed t"));
            row("draw" + suffix, animation, click, QByteArray(R"({"code":"0104"})"), words("popup"));
            row("no JSON" + suffix, animation, outageSwitch, QByteArray("?"), words("failed 3840"));
        }
        row("outage", true, outageSwitch, QByteArray(R"({"active":true})"), words("popup"));
        row("switch is no object", false, outageSwitch, QByteArray("0"), words("popup"));
        row("config is refused", true, config, QByteArray(R"({"code":"0315"})"), words("failed 315"));
    }

    void sequenceDecides()
    {
        QFETCH(bool, animation);
        QFETCH(QString, what);
        QFETCH(QByteArray, body);
        QFETCH(QStringList, said);
        service().answerBytes(what, body);
        m_manager->setAnimation(animation);
        m_manager->startInsivible();
        QCOMPARE(badges().size(), animation ? 1 : 0);
        // A pass is told when its animation has ended, anything else at once.
        const bool isLate = animation && body.contains("0103");
        QVERIFY(waitFor([&] { return isLate ? service().count(click) == 1 : m_outcomes->said() == said; }));
        settle();
        QCOMPARE(badges().size(), isLate ? 1 : 0);
        if (isLate) {
            advance(999ms);
            QCOMPARE(m_outcomes->said(), QStringList());
            advance(1ms);
        }
        QCOMPARE(m_outcomes->said(), said);
        QCOMPARE(badges().size(), 0);
        QCOMPARE(m_outcomes->told().size(), said == words("popup") ? 0 : 1);
        if (what != outageSwitch)
            QCOMPARE(service().query(config).value(q("type")), q("invisible"));
    }

    void badgeSitsInTheMiddleOfTheActiveWindow()
    {
        QWidget other;
        showActive(other);
        showActive(host());
        delay(outageSwitch, 1h);
        m_manager->startInsivible();
        const QVInvisibleAnimationView *const badge = badges().value(0);
        QCOMPARE(badge->parentWidget(), &host());
        QCOMPARE(badge->frame().center(), QPoint(349, 299));
        host().resize(500, 400);
        QCOMPARE(badge->frame().center(), QPoint(249, 199));
        QVERIFY(host().childAt(250, 200) != badge);
    }

    void badgeNeedsNoWindow()
    {
        destroyHost();
        m_manager->startInsivible();
        QCOMPARE(badges().size(), 1);
        QVERIFY(badges().constFirst()->isWindow());
        QVERIFY(waitForPicture());
        QVERIFY(popup()->isWindow());
        QCOMPARE(badges().size(), 0);
    }

    void hiddenPopupIsResumed()
    {
        m_manager->startInsivible();
        QVERIFY(waitForPicture());
        const QVWindow *const window = popup();
        pressClose();
        QVERIFY(!popup());
        forgetAsked();
        m_manager->startInsivible();
        QCOMPARE(popup(), window);
        // On screen already: the same attempt goes on.
        m_manager->startInsivible();
        m_manager->reset();
        settle();
        QCOMPARE(asked(), QStringList());
        QCOMPARE(popupCount(), 0);
        QCOMPARE(m_outcomes->said(), words("popup, closed User, popup, closed HostReset"));
        QCOMPARE(m_outcomes->told(), QStringList());
    }

    void secondStartWhileAskingReplacesThePopup()
    {
        delay(config, 10ms);
        m_manager->startInsivible();
        settle();
        m_manager->startInsivible();
        QCOMPARE(badges().size(), 1);
        pass(1100ms);
        QCOMPARE(service().count(click), 2);
        QCOMPARE(m_outcomes->said(), words("popup, closed Replaced, popup"));
        QCOMPARE(popupCount(), 1);
    }

    void endsOnceInEachPhase_data()
    {
        const auto row = addColumns<QString, QString, QStringList>({"held", "end", "said"});
        for (const QString &what : {outageSwitch, config, click, picture}) {
            const QStringList before = words(what == picture ? "popup" : "");
            QTest::addRow("destroyed, %s", qPrintable(what)) << what << q("destroy") << before;
            for (const char *end : {"reset", "close", "destroy window"})
                QTest::addRow("%s, %s", end, qPrintable(what))
                    << what << QString::fromLatin1(end)
                    << before + words(end == QByteArray("reset") ? "closed HostReset" : "closed WindowGone");
        }
        for (const char *end : {"reset", "destroy window"})
            QTest::addRow("%s, token", end)
                << QString() << QString::fromLatin1(end) << words("passed click-token");
        row("destroyed, token", QString(), q("destroy"), QStringList());
    }

    void endsOnceInEachPhase()
    {
        QFETCH(QString, held);
        QFETCH(QString, end);
        if (held.isEmpty())
            passByClick();
        delay(held, 100ms);
        m_manager->startInsivible();
        QVERIFY(waitFor([&] { return service().count(held.isEmpty() ? click : held) == 1; }));
        settle();
        forgetAsked();
        if (end == QLatin1String("reset"))
            m_manager->reset();
        else if (end == QLatin1String("destroy"))
            m_manager.reset();
        else if (end == QLatin1String("close"))
            host().close();
        else
            destroyHost();
        pass(1200ms);
        QCOMPARE(badges().size(), 0);
        QCOMPARE(asked(), QStringList());
        QCOMPARE(popupCount(), 0);
        QTEST(m_outcomes->said(), "said");
        QCOMPARE(m_outcomes->told().size(), held.isEmpty() ? 1 : 0);
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_outcomes = std::make_unique<Outcomes>();
        m_manager = std::make_unique<QVInvisibleManager>();
        m_outcomes->watch(m_manager.get());
    }

    void finish() override
    {
        m_manager.reset();
        m_outcomes.reset();
        ModesTestCase::finish();
    }

    static QList<QVInvisibleAnimationView *> badges()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QList<QVInvisibleAnimationView *> found;
        for (QWidget *widget : QApplication::allWidgets()) {
            if (auto *const badge = qobject_cast<QVInvisibleAnimationView *>(widget))
                found.append(badge);
        }
        return found;
    }

    std::unique_ptr<Outcomes> m_outcomes;
    std::unique_ptr<QVInvisibleManager> m_manager;
};

QV_TEST(TestInvisibleManager)
#include "TestInvisibleManager.moc"
