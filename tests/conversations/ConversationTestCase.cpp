#include "conversations/ConversationTestCase.h"

#include "settings/QVSDKManager.h"

using namespace std::chrono_literals;

void ConversationTestCase::prepare()
{
    DrawServiceTestCase::prepare();
    defineHost();
    defineService();
    defineUser();
    defineReports();
    setMode(click);
}

void ConversationTestCase::finish()
{
    m_reactions.clear();
    DrawServiceTestCase::finish();
}

void ConversationTestCase::go(const QString &steps)
{
    for (const QString &step : words(steps)) {
        const auto found = m_steps.find(step.section(u' ', 0, 0));
        QVERIFY2(found != m_steps.end(), qPrintable(step));
        found->second(step.section(u' ', 1));
    }
}

void ConversationTestCase::addStep(const char *name, const std::function<void(const QString &)> &action)
{
    m_steps[q(name)] = action;
}

void ConversationTestCase::defineHost()
{
    addStep("start", [this](auto) { start(); });
    addStep("reset", [this](auto) { reset(); });
    addStep("destroy", [this](auto) { destroy(); });
    addStep("badge", [this](auto) { showBadge(); });
    addStep("window", [this](const QString &what) { changeWindow(what); });
    addStep("wait", [this](const QString &duration) { pass(1ms * duration.toInt()); });
    // "when WHAT: STEP" does something once in answer to what is said.
    addStep("when", [this](const QString &text) {
        outcomes().heard = [this](const QString &said) {
            react(said);
        };
        m_reactions[text.section(q(": "), 0, 0)] = text.section(q(": "), 1);
    });
    addStep("limit", [](const QString &time) { QVSDKManager::setAttemptTimeout(1ms * time.toInt()); });
    addStep("lifetime", [](const QString &time) { QVSDKManager::setTokenLifetime(1s * time.toInt()); });
}

void ConversationTestCase::defineService()
{
    // "answer REQUEST CODE", or a whole body; "hold REQUEST MILLISECONDS".
    addStep("answer", [this](const QString &text) {
        const QString request = text.section(u' ', 0, 0).replace(u'-', u' ');
        const QString answer = text.section(u' ', 1);
        bool isCode = false;
        (void)answer.toInt(&isCode);
        isCode ? answerCode(request, answer) : service().answerBytes(request, answer.toUtf8());
    });
    addStep("hold", [this](const QString &text) {
        delay(text.section(u' ', 0, 0).replace(u'-', u' '), 1ms * text.section(u' ', 1).toInt());
    });
    addStep("pass", [this](auto) { passByClick(); });
}

void ConversationTestCase::defineUser()
{
    addStep("picture", [this](auto) {
        QVERIFY(waitForPicture());
        pass(500ms);
    });
    addStep("stroke", [this](auto) {
        stroke();
        settle();
    });
    addStep("begin", [this](auto) { pressPicture(); });
    addStep("refresh", [this](auto) { clickPart("refreshButton"); });
    addStep("close", [this](auto) { pressClose(); });
}

void ConversationTestCase::defineReports()
{
    addStep("|", [this](auto) { outcomes().add(q("|")); });
    addStep("asked", [this](auto) {
        outcomes().add((QStringList(q("asked")) + asked()).join(u' '));
        forgetAsked();
    });
    addStep("forget", [this](auto) { forgetAsked(); });
    addStep("text", [this](auto) {
        if (m_modeName == click)
            outcomes().add(q("[%1]").arg(statusText()));
    });
    addStep("popups", [this](auto) { outcomes().add(q("popups %1").arg(popupCount())); });
    addStep("timers", [this](auto) { outcomes().add(q("timers %1").arg(time().pendingCount())); });
    addStep("badges", [this](auto) { outcomes().add((QStringList(q("badges")) + badges()).join(u' ')); });
}

void ConversationTestCase::react(const QString &event)
{
    const auto found =
        std::ranges::find_if(m_reactions, [&](const auto &entry) { return event.startsWith(entry.first); });
    if (found != m_reactions.end())
        go(m_reactions.extract(found).mapped().replace(q(" + "), q(", ")));
}

void ConversationTestCase::converse()
{
    QFETCH(QString, mode);
    QFETCH(QString, steps);
    QFETCH(QString, said);
    setMode(mode);
    go(steps);
    QStringList expected = words(said);
    expected.removeIf([&](const QString &entry) {
        return (mode != click && entry.startsWith(u'[')) || (!hasDelegates() && entry.startsWith(u'('));
    });
    QCOMPARE(outcomes().said().join(q(", ")), expected.join(q(", ")));
    checkDelegates(expected);
    destroyAll();
    forgetAsked();
    pass(10s);
    QCOMPARE(outcomes().said().size(), expected.size());
    QCOMPARE(asked(), QStringList());
    QCOMPARE(popupCount() + badges().size() + time().pendingCount(), 0);
}
