#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVWindow.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"

#include <QAccessible>
#include <QPushButton>
#include <QSignalSpy>

using namespace std::chrono_literals;

namespace {

/// A host that does not let its window be closed.
class Refusal : public QObject
{
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Close)
            event->ignore();
        return event->type() == QEvent::Close;
    }
};

class DeleteOnDemand : public QObject
{
    Q_OBJECT

public:
    explicit DeleteOnDemand(QObject *victim)
        : m_victim(victim)
    {
    }

public Q_SLOTS:
    void run() { delete m_victim; }

private:
    QPointer<QObject> m_victim;
};

} // namespace

class TestClickButton : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyInputActivates_data();
    void everyInputActivates();
    void inputMovesTheStatus_data();
    void inputMovesTheStatus();
    void sequenceDecides_data();
    void sequenceDecides();
    void asksWithTheSettingsOfTheMoment();
    void tokenComesHalfASecondLater();
    void traceInThePopupPasses();
    void lateAnswerDoesNotUndoAClose();
    void takesNoInputWhileBusy_data();
    void takesNoInputWhileBusy();
    void closedPopupComesBackWithoutARequest();
    void endsOnceInEachPhase_data();
    void endsOnceInEachPhase();
    void hostMayDestroyTheButtonInAnySignal_data();
    void hostMayDestroyTheButtonInAnySignal();
    void hostMayStartAgainWhileClosing();

private:
    void prepare() override;
    void finish() override;
    void tap() const;
    [[nodiscard]] bool waitForStatus(int status) const
    {
        return waitFor([this, status] { return m_button->clickStatus() == status; });
    }
    void failOnce();

    std::unique_ptr<Outcomes> m_outcomes;
    QPointer<QVClickButton> m_button;
};

void TestClickButton::prepare()
{
    ModesTestCase::prepare();
    m_outcomes = std::make_unique<Outcomes>();
    m_button = new QVClickButton(&host());
    m_button->setGeometry(100, 100, 300, 44);
    m_button->show();
    m_outcomes->watch(m_button.data());
}

void TestClickButton::finish()
{
    delete m_button;
    m_outcomes.reset();
    ModesTestCase::finish();
}

void TestClickButton::tap() const
{
    QVPointerInput::press(*m_button, QPoint(150, 22));
    if (m_button)
        QVPointerInput::release(*m_button, QPoint(150, 22));
}

void TestClickButton::failOnce()
{
    service().answerBytes(outageSwitch, "not JSON");
    m_button->click();
    QVERIFY(waitForStatus(QVClickStatusFailed));
}

void TestClickButton::everyInputActivates_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("mouse") << -1;
    QTest::newRow("finger") << -2;
    QTest::newRow("click()") << -3;
    QTest::newRow("accessibility") << -4;
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
    QTest::newRow("select") << int(Qt::Key_Select);
}

void TestClickButton::everyInputActivates()
{
    QFETCH(int, key);
    if (key == -1)
        tap();
    else if (key == -2)
        QVPointerInput::strokeWithFinger(*m_button, {QPoint(20, 20), QPoint(22, 20)});
    else if (key == -3)
        m_button->click();
    else if (key == -4)
        QAccessible::queryAccessibleInterface(m_button)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
    else
        QTest::keyClick(m_button, Qt::Key(key));
    QVERIFY(waitFor([] { return popup() != nullptr; }));
    QCOMPARE(asked(), QStringList({outageSwitch, config, click}));
    QCOMPARE(m_outcomes->said(), words("popup"));
}

void TestClickButton::inputMovesTheStatus_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("status");
    const auto row = [](const char *steps, int status) {
        QTest::newRow(steps) << words(steps) << status;
    };
    row("press", 1);
    row("right press", 0);
    row("press, out", 0);
    row("press, out, in", 1);
    row("press, up outside", 0);
    row("press, out, in, up", 2);
    row("press, hide", 0);
    row("press, hide, show, up", 0);
    row("press, disable, enable, up", 0);
    row("press, focus elsewhere, up", 0);
    row("press, escape, up", 0);
    row("in", 0);
    row("up", 0);
    row("space down", 1);
    row("space down, space up", 2);
    row("space down, escape, space up", 0);
    row("space down, focus elsewhere, space up", 0);
    row("space up", 0);
    row("disable, press, up", 0);
    row("fail", 5);
    row("fail, press", 1);
    row("fail, press, up outside", 0);
    row("fail, press, up", 2);
}

void TestClickButton::inputMovesTheStatus()
{
    QFETCH(QStringList, steps);
    QVClickButton &button = *m_button;
    const QPoint in(20, 20);
    const QPoint out(-20, 20);
    const QMap<QString, std::function<void()>> actions{
        {QStringLiteral("press"),
         [&] {
             QVPointerInput::press(button, in);
         }},
        {QStringLiteral("right press"),
         [&] {
             QVPointerInput::press(button, in, Qt::RightButton);
         }},
        {QStringLiteral("in"),
         [&] {
             QVPointerInput::move(button, in);
         }},
        {QStringLiteral("out"),
         [&] {
             QVPointerInput::move(button, out);
         }},
        {QStringLiteral("up"),
         [&] {
             QVPointerInput::release(button, in);
         }},
        {QStringLiteral("up outside"),
         [&] {
             QVPointerInput::release(button, out);
         }},
        {QStringLiteral("space down"),
         [&] {
             QTest::keyPress(&button, Qt::Key_Space);
         }},
        {QStringLiteral("space up"),
         [&] {
             QTest::keyRelease(&button, Qt::Key_Space);
         }},
        {QStringLiteral("escape"),
         [&] {
             QTest::keyPress(&button, Qt::Key_Escape);
         }},
        {QStringLiteral("hide"),
         [&] {
             button.hide();
         }},
        {QStringLiteral("show"),
         [&] {
             button.show();
         }},
        {QStringLiteral("disable"),
         [&] {
             button.setEnabled(false);
         }},
        {QStringLiteral("enable"),
         [&] {
             button.setEnabled(true);
         }},
        {QStringLiteral("focus elsewhere"),
         [&] {
             host().setFocus();
         }},
        {QStringLiteral("fail"),
         [&] {
             failOnce();
         }},
    };
    button.setFocus();
    for (const QString &step : steps)
        actions[step]();
    QTEST(int(button.clickStatus()), "status");
}

void TestClickButton::sequenceDecides_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QLatin1String>("text");
    const auto row = [](const char *name, const QString &what, const char *body, int status, const char *said,
                        QLatin1String text) {
        QTest::newRow(name) << what << QByteArray(body) << status << QString::fromLatin1(said) << text;
    };
    row("draw", click, R"({"code":"0104","img":"1"})", 2, "popup", QVKey::inVerify);
    row("outage", outageSwitch, R"({"active":true})", 3, "popup", QVKey::drawCaptcha);
    row("pass", click, R"({"code":"0103","token":"t"})", 4, "", QVKey::clickPass);
    row("switch is no JSON", outageSwitch, "<html>", 5, "failed 3840", QVKey::systemError);
    row("switch is no object", outageSwitch, "[1]", 5, "failed 0", QVKey::systemError);
    row("config is refused", config, R"({"code":"0101"})", 5, "failed 101", QVKey::accessDenied);
    row("click is refused", click, R"({"code":"1002"})", 5, "failed 1002", QVKey::expired);
}

void TestClickButton::sequenceDecides()
{
    QFETCH(QString, what);
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    QFETCH(QString, said);
    QFETCH(QLatin1String, text);
    service().answerBytes(what, body);
    delay(outageGet, 1h);
    tap();
    QVERIFY(waitForStatus(status));
    QVERIFY(waitFor([&] { return m_outcomes->said() == words(qPrintable(said)); }));
    const QStringList all{outageSwitch, config, click};
    // The outage popup looks at the switch once more by itself.
    if (status != 3)
        QCOMPARE(asked(), all.mid(0, all.indexOf(what) + 1));
    QCOMPARE(m_outcomes->told(), QStringList());
    QCOMPARE(popup() != nullptr, said == QLatin1String("popup"));
    const QString message = qv_localizedStringForKey(text).replace(
        QLatin1String("{domain}"), qv_localizedStringForKey(QVKey::otherRequestError));
    QCOMPARE(m_button->statusText(), message);
    QCOMPARE(m_button->accessibleName(), message);
}

void TestClickButton::asksWithTheSettingsOfTheMoment()
{
    delay(outageSwitch, 10ms);
    tap();
    settle();
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("later"), QStringLiteral("9"));
    pass(10ms);
    QVERIFY(waitFor([] { return popup() != nullptr; }));
    const auto query = service().query(config);
    QCOMPARE(query.value(QStringLiteral("id")), QStringLiteral("later"));
    QCOMPARE(query.value(QStringLiteral("scene")), QStringLiteral("9"));
    QCOMPARE(query.value(QStringLiteral("type")), QStringLiteral("popup"));
    QCOMPARE(service().query(click).value(QStringLiteral("challenge")), QStringLiteral("main-challenge"));
}

void TestClickButton::tokenComesHalfASecondLater()
{
    passByClick();
    tap();
    QVERIFY(waitForStatus(QVClickStatusPassed));
    advance(499ms);
    QCOMPARE(m_outcomes->said(), QStringList());
    advance(1ms);
    QCOMPARE(m_outcomes->said(), words("passed click-token"));
    QCOMPARE(m_outcomes->told(), words("click-token"));
}

void TestClickButton::traceInThePopupPasses()
{
    tap();
    QVERIFY(waitForPicture());
    strokeAndVerify();
    pass(1000ms);
    QCOMPARE(m_button->clickStatus(), QVClickStatusPassed);
    QCOMPARE(popupCount(), 0);
    QCOMPARE(m_outcomes->ended(), 0);
    advance(500ms);
    QCOMPARE(m_outcomes->said(), words("popup, passed main-token"));
}

void TestClickButton::lateAnswerDoesNotUndoAClose()
{
    tap();
    QVERIFY(waitForPicture());
    delay(verify, 50ms);
    strokeAndVerify();
    pressClose();
    pass(1600ms);
    QCOMPARE(m_button->clickStatus(), QVClickStatusNormal);
    QCOMPARE(m_outcomes->said(), words("popup, closed"));
    QCOMPARE(m_outcomes->told(), QStringList());
    QCOMPARE(popupCount(), 0);
}

void TestClickButton::takesNoInputWhileBusy_data()
{
    QTest::addColumn<int>("status");
    QTest::newRow("verifying") << 2;
    QTest::newRow("drawing") << 3;
    QTest::newRow("passed") << 4;
}

void TestClickButton::takesNoInputWhileBusy()
{
    QFETCH(int, status);
    QPushButton below(&host());
    below.setGeometry(m_button->geometry());
    below.show();
    below.stackUnder(m_button);
    const QSignalSpy pressed(&below, &QPushButton::pressed);
    if (status == 2)
        delay(outageSwitch, 1h);
    if (status == 3)
        openOutage();
    if (status == 4)
        passByClick();
    tap();
    QCOMPARE(pressed.count(), 0);
    QVERIFY(waitForStatus(status));
    if (QVWindow *const window = popup())
        window->hide();
    settle();
    forgetAsked();
    tap();
    QCOMPARE(pressed.count(), 1);
    QTest::keyClick(m_button, Qt::Key_Return);
    QTest::keyClick(m_button, Qt::Key_Space);
    m_button->click();
    settle();
    QCOMPARE(int(m_button->clickStatus()), status);
    QCOMPARE(asked(), QStringList());
    m_button->reset();
    tap();
    QCOMPARE(m_button->clickStatus(), QVClickStatusVerifying);
    QCOMPARE(pressed.count(), 1);
}

void TestClickButton::closedPopupComesBackWithoutARequest()
{
    tap();
    QVERIFY(waitForPicture());
    const QVWindow *const window = popup();
    pressClose();
    QCOMPARE(m_button->clickStatus(), QVClickStatusNormal);
    QVERIFY(!popup());
    forgetAsked();
    tap();
    QCOMPARE(popup(), window);
    QCOMPARE(m_button->clickStatus(), QVClickStatusDrawing);
    settle();
    QCOMPARE(asked(), QStringList());
    pressClose();
    QCOMPARE(m_outcomes->said(), words("popup, closed, popup, closed"));
    QCOMPARE(m_outcomes->told(), QStringList());
}

void TestClickButton::endsOnceInEachPhase_data()
{
    QTest::addColumn<QString>("held");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QStringList>("said");
    for (const QString &what : {outageSwitch, config, click}) {
        QTest::addRow("reset, %s", qPrintable(what)) << what << QStringLiteral("reset") << words("closed");
        QTest::addRow("destroyed, %s", qPrintable(what))
            << what << QStringLiteral("destroy") << QStringList();
        QTest::addRow("window closed, %s", qPrintable(what))
            << what << QStringLiteral("close") << words("closed");
        QTest::addRow("window refuses, %s", qPrintable(what))
            << what << QStringLiteral("refuse") << words("popup");
    }
    QTest::newRow("reset, popup") << picture << QStringLiteral("reset") << words("popup, closed");
    QTest::newRow("destroyed, popup") << picture << QStringLiteral("destroy") << words("popup");
    QTest::newRow("window closed, popup") << picture << QStringLiteral("close") << words("popup, closed");
    QTest::newRow("reset, token") << QString() << QStringLiteral("reset") << words("passed click-token");
    QTest::newRow("destroyed, token") << QString() << QStringLiteral("destroy") << QStringList();
}

void TestClickButton::endsOnceInEachPhase()
{
    QFETCH(QString, held);
    QFETCH(QString, end);
    const bool isTokenOnItsWay = held.isEmpty();
    if (isTokenOnItsWay)
        passByClick();
    delay(held, 100ms);
    tap();
    QVERIFY(isTokenOnItsWay ? waitForStatus(QVClickStatusPassed)
                            : waitFor([&] { return service().count(held) == 1; }));
    forgetAsked();
    Refusal refusal;
    if (end == QLatin1String("refuse"))
        host().installEventFilter(&refusal);
    if (end == QLatin1String("reset"))
        m_button->reset();
    else if (end == QLatin1String("destroy"))
        delete m_button;
    else
        QCOMPARE(host().close(), end == QLatin1String("close"));
    pass(1000ms);
    QTEST(m_outcomes->said(), "said");
    QCOMPARE(m_outcomes->told().size(), isTokenOnItsWay ? 1 : 0);
    if (end == QLatin1String("refuse"))
        return;
    QCOMPARE(asked(), QStringList());
    QCOMPARE(popupCount(), 0);
    QVERIFY(!m_button || m_button->clickStatus() == QVClickStatusNormal);
}

void TestClickButton::hostMayDestroyTheButtonInAnySignal_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<int>("status");
    for (const char *signal :
         {SIGNAL(pressed()), SIGNAL(released()), SIGNAL(clicked()), SIGNAL(popupOpened()), SIGNAL(closed()),
          SIGNAL(failed(QVError)), SIGNAL(passed(QString))})
        QTest::newRow(signal + 1) << QByteArray(signal) << -1;
    for (int status = 0; status <= 5; ++status)
        QTest::addRow("status %d", status) << QByteArray() << status;
}

void TestClickButton::hostMayDestroyTheButtonInAnySignal()
{
    QFETCH(QByteArray, signal);
    QFETCH(int, status);
    if (status == 3)
        openOutage();
    if (status == 4 || signal.contains("passed"))
        passByClick();
    if (status == 5 || signal.contains("failed"))
        answerCode(config, QStringLiteral("0101"));
    DeleteOnDemand deletion(m_button);
    if (!signal.isEmpty())
        connect(m_button, signal, &deletion, SLOT(run()));
    connect(m_button, &QVClickButton::clickStatusChanged, &deletion, [&](QVClickStatus reached) {
        if (int(reached) == status)
            deletion.run();
    });
    tap();
    pass(500ms);
    if (popup())
        pressClose();
    QVERIFY(!m_button);
    pass(1000ms);
    QCOMPARE(popupCount(), 0);
}

void TestClickButton::hostMayStartAgainWhileClosing()
{
    tap();
    QVERIFY(waitForPicture());
    connect(m_button, &QVClickButton::closed, m_button, &QVClickButton::click, Qt::SingleShotConnection);
    pressClose();
    QVERIFY(popup());
    QCOMPARE(m_button->clickStatus(), QVClickStatusDrawing);
    pressClose();
    QVERIFY(!popup());
    QCOMPARE(m_outcomes->ended(), 2);
}

QV_TEST(TestClickButton)
#include "TestClickButton.moc"
