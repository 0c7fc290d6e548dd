#include "conversations/Conversations.h"

#include "support/QVText.h"

#include <QTest>

namespace Conversations {

void addTable()
{
    for (const char *name : {"mode", "steps", "said"})
        QTest::addColumn<QString>(name);
}

void row(const QByteArray &name, const QByteArray &modes, const QByteArray &steps, const QByteArray &said)
{
    for (const QByteArray &mode : modes.split(','))
        QTest::addRow("%s, %s", name.constData(), mode.trimmed().constData())
            << q(mode.trimmed()) << q(steps) << q(said);
}

void addInput()
{
    addTable();
    const auto input = [](const QByteArray &steps, const char *said) {
        row(steps, "click", "focus, hold switch 9000, " + steps + ", wait 1", said);
    };
    input("finger", "[1], [2]");
    input("return", "[1], [2]");
    input("press", "[1]");
    input("press, out", "[1], [0]");
    input("press, lift", "[1], [2]");
    input("press, out, in, lift", "[1], [0], [1], [2]");
    input("press, hide, show, lift", "[1], [0]");
    input("press, disable, enable, lift", "[1], [0]");
    input("press, focus-elsewhere, lift", "[1], [0]");
    input("lift", "");
    input("space-down", "[1]");
    input("space-down, space-up", "[1], [2]");
    input("space-up", "");
    input("disable, press, lift", "");
    input("disable, finger", "");
    input("when [1]: reset, return", "[1], [0]");
    input("when [1]: disable, return", "[1], [0]");
    input("start, wait 0, return, space-down, space-up, start, wait 0, asked", "[2], asked switch");
    row("tries again", "click",
        "focus, answer config 0101, start, wait 0, hold switch 9000, press, lift, wait 0",
        "[2], [5], failed 101, [1], [2]");
}

void addAnswers()
{
    addTable();
    row("drawn", "click, invisible", "start, picture, asked, stroke, wait 100000",
        "[2], popup, asked switch config click, [4], (main-token), passed main-token");
    row("drawn", "embed", "start, picture, asked, stroke, wait 100000",
        "ready, asked switch config get, (main-token), passed main-token");
    row("passed", "click", "pass, start, wait 0, |, wait 499, |, wait 1, text",
        "[2], [4], |, |, (click-token), passed click-token, [Verified]");
    row("passed", "invisible", "pass, start, wait 0, badges", "(click-token), passed click-token, badges");
    row("passed, badge", "invisible", "badge, pass, start, wait 0, badges, wait 999, badges, wait 1, badges",
        "badges Verified, badges Verified, (click-token), passed click-token, badges");
    row("badge of an attempt that is reset", "invisible",
        "badge, hold switch 9000, start, wait 0, reset, badges", "closed HostReset, badges");
    row("refused click", "click, invisible", "answer click 1002, start, wait 100, text, asked",
        "[2], [5], failed 1002, [Expired. Try again.], asked switch config click");
    row("refused configuration", "click, invisible", "answer config 0101, start, wait 100, text, asked",
        "[2], [5], failed 101, [Access denied. Try again.], asked switch config");
    row("no JSON", "click, invisible", "answer switch <html>, start, wait 100, text, asked",
        "[2], [5], failed 3840, [Something went wrong (request failed)], asked switch");
    row("no object", "click, invisible", "answer switch [1], start, picture", "[2], popup");
    // The popup looks at the switch once more by itself.
    row("outage", "click, invisible", "outage, start, picture, text, asked, stroke, wait 2000",
        "[2], [3], popup, outage, [Draw along the curve], asked switch switch outage get, [4], "
        "(outage-token), passed outage-token");
    row("outage without a picture", "click, invisible", "outage, answer outage-get ?, start, wait 100, close",
        "[2], [3], popup, outage, in popup 3840, [0], closed User");
    row("outage", "embed", "outage, start, picture, stroke, wait 2000",
        "outage, ready, (outage-token), passed outage-token");
    row("wrong, then failed", "embed",
        "answer verify 0104, start, picture, stroke, wait 2000, answer get 0105, reset, wait 100, "
        "answer get 0103, reset, picture",
        "ready, wrong, failed 105, ready");
    row("outage ended by its signal", "embed", "outage, when outage: reset, start, wait 300",
        "outage, outage, ready");
    row("host destroys it in an outage", "click, invisible", "outage, when outage: destroy, start, wait 300",
        "[2], [3], popup, outage");
    row("host destroys it in an outage", "embed", "outage, when outage: destroy, start, wait 300", "outage");
}

void addCloses()
{
    addTable();
    row("comes back without a request", "click, invisible",
        "start, picture, close, asked, start, popups, start, reset, asked, popups",
        "[2], popup, [0], closed User, asked switch config click, [3], popup, popups 1, [0], closed "
        "HostReset, asked, popups 0");
    for (const char *way : {"escape", "allow-outside, click 5 5"})
        row(way, "click, invisible", QByteArray("start, picture, ") + way, "[2], popup, [0], closed User");
    row("outside", "click, invisible", "start, picture, click 5 5, popups", "[2], popup, popups 1");
    row("inside", "click, invisible",
        "start, picture, allow-outside, click 350 130, click 350 130 5 5, click 5 5 350 130, popups",
        "[2], popup, popups 1");
    row("pass after the close", "click, invisible",
        "start, picture, hold verify 200, stroke, close, wait 2000, popups, asked, start, wait 100, "
        "asked",
        "[2], popup, [0], closed User, popups 0, asked switch config click verify, [2], popup, asked "
        "switch config click");
    row("second start while asking", "invisible",
        "badge, hold config 10, start, start, wait 0, badges, wait 1100, popups",
        "badges Verifying…, popup, closed Replaced, popup, popups 1");
    row("kept without a timer but the countdown", "invisible",
        "start, picture, close, wait 2000, timers, forget, wait 177000, asked, start, wait 100, asked",
        "popup, closed User, timers 1, asked, popup, asked refresh");
    row("no picture yet", "click, invisible", "outage, hold outage-get 9000, start, wait 100, close, popups",
        "[2], [3], popup, outage, [0], closed User, popups 0");
    row("limit while asking", "click, invisible",
        "limit 3000, hold config 4000, start, wait 2900, |, wait 200, |, wait 5000",
        "[2], |, [5], failed -1001, |");
    row("limit while drawing", "click, invisible", "limit 3000, start, wait 2900, |, wait 200, wait 5000",
        "[2], popup, |, [5], failed -1001");
    row("limit", "embed", "limit 3000, start, wait 2900, |, wait 200, reset, wait 500",
        "ready, |, failed -1001, ready");
    row("passed within the limit", "click, invisible",
        "limit 3000, start, picture, wait 2000, stroke, wait 5000",
        "[2], popup, [4], (main-token), passed main-token");
    row("passed within the limit", "embed", "limit 3000, start, picture, wait 2000, stroke, wait 5000",
        "ready, (main-token), passed main-token");
    row("badge after the limit", "invisible", "limit 3000, badge, pass, hold click 2400, start, wait 7000",
        "(click-token), passed click-token");
    row("a limit for each start", "invisible",
        "limit 3000, hold switch 9000, start, wait 2500, start, wait 2500, start, wait 2500",
        "failed -1001, failed -1001");
}

void addEnds(std::initializer_list<End> ends)
{
    addTable();
    const auto phase = [&](const QByteArray &name, const QByteArray &reach, const QByteArray &before) {
        for (const End &end : ends)
            row(name + ", " + end.step, "click, invisible",
                reach + ", forget, " + end.step + ", |, wait 1200, asked, popups, badges",
                before + end.said + ", asked, popups 0, badges");
    };
    for (const char *held : {"switch", "config", "click"})
        phase(held, QByteArray("badge, hold ") + held + " 100, start, wait 0", "[2]");
    phase("picture", "hold picture 100, start, wait 0", "[2], popup");
    phase("stroke", "start, picture, begin", "[2], popup");
    phase("verify", "hold verify 100, start, picture, stroke", "[2], popup");
}

void addLives()
{
    addTable();
    const QByteArray passes = "lifetime 60, pass, start, wait 1000, ";
    const QByteArray draws = "lifetime 60, start, picture, stroke, wait 1500, ";
    const auto each = [&](const char *name, const char *steps, const char *button, const char *unseen,
                          const char *panel) {
        row(name, "click", passes + steps,
            QByteArray("[2], [4], (click-token), passed click-token") + button);
        row(name, "invisible", passes + steps, QByteArray("(click-token), passed click-token") + unseen);
        row(name, "embed", draws + steps, QByteArray("ready, (main-token), passed main-token") + panel);
    };
    each("in its time", "wait 57000, |, wait 3000, wait 100000", ", |, [0], expired", ", |, expired",
         ", |, expired");
    each("reset", "wait 50000, reset, wait 100000", ", [0]", "", ", ready");
    each("destroyed", "wait 50000, destroy, wait 100000", "", "", "");
    each("destroyed when told", "when expired: destroy, wait 100000", ", [0], expired", ", expired",
         ", expired");
    row("reset before it is told", "click", "lifetime 60, pass, start, wait 100, reset, wait 100000",
        "[2], [4], [0], (click-token), passed click-token");
    row("reset before it is told", "invisible",
        "badge, lifetime 60, pass, start, wait 100, reset, wait 100000",
        "(click-token), passed click-token, expired");
    row("started again", "invisible", passes + "wait 50000, start, wait 59000, |, wait 2000",
        "(click-token), passed click-token, (click-token), passed click-token, |, expired");
}

} // namespace Conversations
