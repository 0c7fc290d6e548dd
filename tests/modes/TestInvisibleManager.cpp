#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVInvisibleManager.h"
#include "modes/QVWindow.h"
#include "views/QVInvisibleAnimationView.h"

using namespace std::chrono_literals;

class TestInvisibleManager : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sequenceDecides_data();
    void sequenceDecides();
    void badgeSitsInTheMiddleOfTheActiveWindow();
    void badgeNeedsNoWindow();
    void traceInThePopupPassesAtOnce();
    void hiddenPopupIsResumed();
    void closeBeforeThePictureStartsAnew();
    void secondStartWhileAsking_data();
    void secondStartWhileAsking();
    void endsOnceInEachPhase_data();
    void endsOnceInEachPhase();

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

void TestInvisibleManager::sequenceDecides_data()
{
    QTest::addColumn<bool>("animation");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QStringList>("said");
    const auto row = [](const char *name, const QString &what, const QByteArray &body, const char *said) {
        QTest::addRow("%s", name) << false << what << body << words(said);
        QTest::addRow("%s, badge", name) << true << what << body << words(said);
    };
    row("pass", click, R"({"code":"0103","token":"t"})", "passed t");
    row("draw", click, R"({"code":"0104","img":"1"})", "popup");
    row("outage", outageSwitch, R"({"active":true})", "popup");
    row("switch is no JSON", outageSwitch, "?", "failed 3840");
    row("switch is no object", outageSwitch, "[]", "failed 0");
    row("config is refused", config, R"({"code":"0315"})", "failed 315");
    row("click is refused", click, R"({"code":"0106"})", "failed 106");
}

void TestInvisibleManager::sequenceDecides()
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
        QCOMPARE(service().query(config).value(QStringLiteral("type")), QStringLiteral("invisible"));
}

void TestInvisibleManager::badgeSitsInTheMiddleOfTheActiveWindow()
{
    QWidget other;
    other.resize(300, 200);
    showActive(other);
    showActive(host());
    delay(outageSwitch, 1h);
    m_manager->startInsivible();
    const QVInvisibleAnimationView *const badge = badges().value(0);
    QCOMPARE(badge->parentWidget(), &host());
    QVERIFY(badge->isVisible());
    const auto centre = [badge] {
        return badge->frame().center();
    };
    QCOMPARE(centre(), QPoint(349, 299));
    host().resize(500, 400);
    QCOMPARE(centre(), QPoint(249, 199));
    QVERIFY(host().childAt(250, 200) != badge);
}

void TestInvisibleManager::badgeNeedsNoWindow()
{
    destroyHost();
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    m_manager->startInsivible();
    QCOMPARE(badges().size(), 1);
    QVERIFY(badges().constFirst()->isWindow());
    QVERIFY(waitForPicture());
    QVERIFY(popup()->isWindow());
    QCOMPARE(badges().size(), 0);
}

void TestInvisibleManager::traceInThePopupPassesAtOnce()
{
    m_manager->startInsivible();
    QVERIFY(waitForPicture());
    strokeAndVerify();
    pass(950ms);
    QCOMPARE(m_outcomes->ended(), 0);
    pass(50ms);
    QCOMPARE(m_outcomes->said().last(), QStringLiteral("passed main-token"));
    QCOMPARE(popupCount(), 0);
    QCOMPARE(badges().size(), 0);
}

void TestInvisibleManager::hiddenPopupIsResumed()
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
    QCOMPARE(m_outcomes->said(), words("popup, closed, popup, closed"));
    QCOMPARE(m_outcomes->told(), QStringList());
}

void TestInvisibleManager::closeBeforeThePictureStartsAnew()
{
    openOutage();
    delay(outageGet, 1h);
    for (int attempt = 0; attempt < 2; ++attempt) {
        forgetAsked();
        m_manager->startInsivible();
        QVERIFY(waitFor([] { return popup() != nullptr; }));
        QVERIFY(asked().contains(outageSwitch));
        pressClose();
        QCOMPARE(popupCount(), 0);
        settle();
    }
    QCOMPARE(m_outcomes->said(), words("popup, closed, popup, closed"));
}

void TestInvisibleManager::secondStartWhileAsking_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("said");
    // The second popup takes the place of the first one.
    QTest::newRow("draw") << QStringLiteral("0104") << words("popup, popup, closed");
    QTest::newRow("pass") << QStringLiteral("0103") << words("passed click-token, passed click-token");
}

void TestInvisibleManager::secondStartWhileAsking()
{
    QFETCH(QString, code);
    answerCode(click, code);
    delay(config, 10ms);
    m_manager->startInsivible();
    settle();
    m_manager->startInsivible();
    QCOMPARE(badges().size(), 1);
    pass(1100ms);
    QCOMPARE(service().count(click), 2);
    QTEST(m_outcomes->said(), "said");
    QCOMPARE(popupCount(), code == QLatin1String("0104") ? 1 : 0);
}

void TestInvisibleManager::endsOnceInEachPhase_data()
{
    QTest::addColumn<QString>("held");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QStringList>("said");
    for (const QString &what : {outageSwitch, config, click, picture}) {
        const QStringList before = words(what == picture ? "popup" : "");
        QTest::addRow("destroyed, %s", qPrintable(what)) << what << QStringLiteral("destroy") << before;
        for (const char *end : {"reset", "close", "destroy window"})
            QTest::addRow("%s, %s", end, qPrintable(what))
                << what << QString::fromLatin1(end) << before + words("closed");
    }
    for (const char *end : {"reset", "destroy window"})
        QTest::addRow("%s, token", end)
            << QString() << QString::fromLatin1(end) << words("passed click-token");
    QTest::newRow("destroyed, token") << QString() << QStringLiteral("destroy") << QStringList();
}

void TestInvisibleManager::endsOnceInEachPhase()
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

QV_TEST(TestInvisibleManager)
#include "TestInvisibleManager.moc"
