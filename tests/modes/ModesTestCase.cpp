#include "modes/ModesTestCase.h"

#include "draw/QVRenderDrawView.h"
#include "popup/QVCloseButton.h"
#include "popup/QVWindow.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"
#include "views/QVInvisibleAnimationView.h"

#include <QApplication>
#include <QJsonDocument>
#include <QLineEdit>

using namespace std::chrono_literals;

QStringList ModesTestCase::words(const QString &text)
{
    return text.split(q(", "), Qt::SkipEmptyParts);
}

void ModesTestCase::prepare()
{
    if (m_steps.empty()) {
        defineSteps();
        defineHostSteps();
    }
    m_service = std::make_unique<DrawService>();
    m_service->extend(click, {{q("token"), q("click-token")}});
    m_mode = QVVerifyStylePopup;
    m_forgotten = 0;
    m_outcomes = std::make_unique<Outcomes>();
    m_outcomes->heard = [this](const QString &said) {
        react(said);
    };
    connect(qApp, &QApplication::focusChanged, this, [this] { react(q("focus")); });
    QVSDKManager::setPreferredLanguage(q("en"));
    auto host = std::make_unique<QWidget>();
    host->resize(700, 600);
    replaceHost(std::move(host));
}

void ModesTestCase::finish()
{
    m_reactions.clear();
    disconnect(qApp, nullptr, this, nullptr);
    destroyManagers();
    m_dialog.reset();
    m_outcomes.reset();
    m_foreignHost.reset();
    m_otherHost.reset();
    m_host.reset();
    settle();
    m_service.reset();
    QVSDKManager::setAttemptTimeout(0ms);
    QVSDKManager::setTokenLifetime(0ms);
}

void ModesTestCase::go(const QString &steps)
{
    for (const QString &step : words(steps)) {
        const auto found = m_steps.find(step.section(u' ', 0, 0));
        QVERIFY2(found != m_steps.end(), qPrintable(step));
        found->second(step.section(u' ', 1));
    }
}

void ModesTestCase::addStep(const char *name, const std::function<void(const QString &)> &action)
{
    m_steps[q(name)] = action;
}

void ModesTestCase::defineSteps()
{
    addStep("start", [this](auto) { start(); });
    addStep("reset", [this](auto) { reset(); });
    addStep("destroy", [this](auto) { destroy(); });
    addStep("wait", [this](const QString &duration) { pass(1ms * duration.toInt()); });
    // "when WHAT: STEP" does something once in answer to what is said.
    addStep("when", [this](const QString &text) {
        m_reactions[text.section(q(": "), 0, 0)] = text.section(q(": "), 1);
    });
    // "answer REQUEST CODE", or a whole body; "hold REQUEST MILLISECONDS".
    addStep("answer", [this](const QString &text) {
        setAnswer(text.section(u' ', 0, 0).replace(u'-', u' '), text.section(u' ', 1));
    });
    addStep("hold", [this](const QString &text) {
        delay(text.section(u' ', 0, 0).replace(u'-', u' '), 1ms * text.section(u' ', 1).toInt());
    });
    addStep("outage", [this](auto) { service().answer(outageSwitch, {{q("active"), true}}); });
    addStep("pass", [this](auto) { passByClick(); });
    addStep("characters", [this](auto) { m_service->extend(config, {{q("type"), q("character")}}); });
    addStep("guide", [this](auto) { m_service->extend(config, {{q("guide"), true}}); });
    addStep("advertise", [this](auto) {
        for (const QString &what : {click, q("get")})
            m_service->extend(what, {{q("adlinkword"), q("Buy")}, {q("adlink"), q("https://shop.example")}});
    });
    addStep("badge", [this](auto) { invisibleManager().setAnimation(true); });
    addStep("limit", [](const QString &time) { QVSDKManager::setAttemptTimeout(1ms * time.toInt()); });
    addStep("lifetime", [](const QString &time) { QVSDKManager::setTokenLifetime(1s * time.toInt()); });
    // What the user does.
    addStep("picture", [this](auto) {
        QVERIFY(waitForPicture());
        pass(500ms);
    });
    addStep("stroke", [this](auto) {
        stroke();
        settle();
    });
    addStep("press", [](auto) {
        QVPointerInput::press(*drawView(), QPoint(100, 100));
        QVPointerInput::move(*drawView(), QPoint(130, 120));
    });
    addStep("type", [this](auto) {
        clickPart("inputTF");
        QTest::keyClicks(part("inputTF"), q("typed7"));
        clickPart("doneButton");
        settle();
    });
    addStep("refresh", [this](auto) { clickPart("refreshButton"); });
    addStep("close", [](auto) { pressClose(); });
    // What is told besides.
    addStep("|", [this](auto) { m_outcomes->add(q("|")); });
    addStep("asked", [this](auto) {
        m_outcomes->add((QStringList(q("asked")) + asked()).join(u' '));
        forgetAsked();
    });
    addStep("forget", [this](auto) { forgetAsked(); });
    addStep("text", [this](auto) {
        if (m_mode == QVVerifyStylePopup)
            m_outcomes->add(q("[%1]").arg(clickManager().button()->statusText()));
    });
    addStep("popups", [this](auto) { m_outcomes->add(q("popups %1").arg(popupCount())); });
    addStep("timers", [this](auto) { m_outcomes->add(q("timers %1").arg(time().pendingCount())); });
    addStep("badges", [this](auto) { m_outcomes->add(q("badges %1").arg(badgeCount())); });
    addStep("place", [this](auto) {
        const bool isHere = popup()->window() == m_host.get();
        m_outcomes->add(popup()->isWindow() ? q("alone") : isHere ? q("here") : q("elsewhere"));
    });
}

void ModesTestCase::defineHostSteps()
{
    addStep("window", [this](const QString &what) { changeWindow(what); });
    addStep("field", [this](const QString &) {
        auto *const field = new QLineEdit(m_host.get());
        field->show();
        field->setFocus();
    });
    addStep("dialog", [this](const QString &size) {
        if (size == q("close"))
            return void(m_dialog->close());
        m_dialog = std::make_unique<QWidget>(m_host.get(), Qt::Dialog);
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->resize(size.section(u'x', 0, 0).toInt(), size.section(u'x', 1).toInt());
        m_dialog->show();
    });
    addStep("children", [this](const QString &action) {
        for (QWidget *widget : m_host->findChildren<QWidget *>())
            action == q("hide") ? widget->hide() : widget->setEnabled(false);
    });
}

void ModesTestCase::changeWindow(const QString &what)
{
    const auto window = [this](const auto &act) {
        m_foreignHost ? act(*m_foreignHost) : act(*m_host);
    };
    if (what == q("close"))
        window([](auto &host) { host.close(); });
    else if (what == q("hide") || what == q("show"))
        window([&](auto &host) { host.setVisible(what == q("show")); });
    else if (what == q("disable"))
        m_host->setEnabled(false);
    else if (what == q("destroy"))
        m_foreignHost ? m_foreignHost.reset() : m_host.reset();
    else if (what == q("destroy other"))
        m_otherHost.reset();
    else if (what == q("foreign"))
        showForeignHost();
    else if (what == q("other"))
        changeHost();
    else
        m_host->resize(what.section(u'x', 0, 0).toInt(), what.section(u'x', 1).toInt());
}

void ModesTestCase::showForeignHost()
{
    m_host.reset();
    m_foreignHost = std::make_unique<QWindow>();
    m_foreignHost->setGeometry(40, 30, 640, 600);
    m_foreignHost->show();
}

void ModesTestCase::changeHost()
{
    if (!m_otherHost) {
        m_otherHost = std::make_unique<QWidget>();
        m_otherHost->resize(600, 500);
    }
    std::swap(m_host, m_otherHost);
    showActive(*m_host);
}

void ModesTestCase::setAnswer(const QString &what, const QString &answer)
{
    bool isCode = false;
    (void)answer.toInt(&isCode);
    if (isCode)
        answerCode(what, answer);
    else
        m_service->answerBytes(what, answer.toUtf8());
}

void ModesTestCase::react(const QString &event)
{
    const auto found =
        std::ranges::find_if(m_reactions, [&](const auto &entry) { return event.startsWith(entry.first); });
    if (found != m_reactions.end())
        go(m_reactions.extract(found).mapped().replace(q(" + "), q(", ")));
}

void ModesTestCase::setMode(const QString &name)
{
    m_mode = QVVerifyStyle(words("embed, click, invisible").indexOf(name));
}

void ModesTestCase::answerCode(const QString &what, const QString &code)
{
    m_service->extend(what, {{q("code"), code}});
}

void ModesTestCase::answerForStatus(int status)
{
    if (status == 2)
        delay(outageSwitch, std::chrono::hours(1));
    if (status == 3)
        m_service->answer(outageSwitch, {{q("active"), true}});
    if (status == 4)
        passByClick();
    if (status == 5)
        answerCode(config, q("0101"));
}

void ModesTestCase::settle() const
{
    const auto isQuiet = [this] {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_service->isQuiet();
    };
    QVERIFY(waitFor(isQuiet));
}

void ModesTestCase::pass(std::chrono::milliseconds duration) const
{
    const auto stretch = std::max(50ms, duration / 10);
    for (auto left = duration; left > 0ms; left -= stretch) {
        settle();
        advance(std::min(left, stretch));
    }
    settle();
}

QVClickManager &ModesTestCase::clickManager()
{
    if (!m_click) {
        m_click = std::make_unique<QVClickManager>();
        m_outcomes->watch(m_click.get());
        m_click->button()->setParent(m_host.get());
        m_click->button()->setGeometry(100, 100, 300, 44);
        m_click->button()->show();
        connect(m_click->button(), &QVClickButton::clickStatusChanged, this,
                [this](QVClickStatus status) { m_outcomes->add(q("[%1]").arg(status)); });
    }
    return *m_click;
}

QVInvisibleManager &ModesTestCase::invisibleManager()
{
    if (!m_invisible) {
        m_invisible = std::make_unique<QVInvisibleManager>();
        m_invisible->setAnimation(false);
        m_outcomes->watch(m_invisible.get());
    }
    return *m_invisible;
}

QVEmbedManager &ModesTestCase::embedManager()
{
    if (!m_embed) {
        m_embed = std::make_unique<QVEmbedManager>();
        m_outcomes->watch(m_embed.get());
        m_embed->embedView()->setParent(m_host.get());
        m_embed->embedView()->setGeometry(0, 0, 414, 300);
        m_embed->embedView()->show();
        advance(100ms);
    }
    return *m_embed;
}

void ModesTestCase::start(QVVerifyStyle style)
{
    m_mode = style;
    start();
}

void ModesTestCase::start()
{
    if (m_mode == QVVerifyStylePopup)
        clickManager().button()->click();
    else if (m_mode == QVVerifyStyleInvisible)
        invisibleManager().startInsivible();
    else if (m_embed)
        m_embed->reset();
    else
        (void)embedManager();
}

void ModesTestCase::reset()
{
    withManager([](auto &manager) { manager.reset(); });
}

void ModesTestCase::destroy()
{
    if (m_mode == QVVerifyStyleInvisible)
        m_invisible.reset();
    // A panel or a button that has a parent outlives its manager.
    if (m_mode == QVVerifyStyleEmbed && m_embed) {
        delete m_embed->embedView();
        m_embed.reset();
    }
    if (m_mode == QVVerifyStylePopup && m_click) {
        delete m_click->button();
        m_click.reset();
    }
}

void ModesTestCase::destroyManagers()
{
    for (const QVVerifyStyle style : {QVVerifyStyleEmbed, QVVerifyStylePopup, QVVerifyStyleInvisible}) {
        m_mode = style;
        destroy();
    }
}

void ModesTestCase::replaceHost(std::unique_ptr<QWidget> host)
{
    m_host = std::move(host);
    showActive(*m_host);
}

void ModesTestCase::showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    QVERIFY(qv_becomesActive(window));
}

QVWindow *ModesTestCase::popup()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *const window = qobject_cast<QVWindow *>(widget);
        if (window && window->isVisible())
            return window;
    }
    return nullptr;
}

qsizetype ModesTestCase::popupCount()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return std::ranges::count_if(QApplication::allWidgets(),
                                 [](QWidget *widget) { return qobject_cast<QVWindow *>(widget); });
}

qsizetype ModesTestCase::badgeCount()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return std::ranges::count_if(QApplication::allWidgets(), [](QWidget *widget) {
        return qobject_cast<QVInvisibleAnimationView *>(widget);
    });
}

QVRenderDrawView *ModesTestCase::drawView()
{
    if (QVWindow *const window = popup())
        return window->findChild<QVRenderDrawView *>();
    const auto widgets = QApplication::allWidgets();
    const auto found = std::ranges::find_if(widgets, [](const QWidget *widget) {
        return widget->isVisible() && qobject_cast<const QVRenderDrawView *>(widget);
    });
    return found == widgets.end() ? nullptr : static_cast<QVRenderDrawView *>(*found);
}

QWidget *ModesTestCase::part(const char *name)
{
    return drawView() ? drawView()->findChild<QWidget *>(QLatin1String(name)) : nullptr;
}

void ModesTestCase::clickPart(const char *name) const
{
    // What slides or fades in has come to rest.
    advance(500ms);
    QVPointerInput::click(*part(name), part(name)->rect().center());
}

bool ModesTestCase::waitForPicture()
{
    return waitFor([] { return drawView() && drawView()->canInput().value_or(false); });
}

void ModesTestCase::strokeOn(QWidget &view) const
{
    const auto points = QVPointerInput::wave(view.rect().center() - QPoint(60, 0), 14, 9);
    QVPointerInput::strokeWithMouse(view, points, [this] { advance(16ms); });
}

void ModesTestCase::stroke() const
{
    strokeOn(*drawView());
}

void ModesTestCase::strokeAndVerify() const
{
    stroke();
    QVERIFY(waitFor([this] { return m_service->count(verify) > 0; }));
    settle();
}

void ModesTestCase::pressClose()
{
    auto *const button = popup()->findChild<QVCloseButton *>();
    QVPointerInput::click(*button, button->rect().center());
}
