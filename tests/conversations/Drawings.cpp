#include "conversations/Conversations.h"
#include "support/QVText.h"

#include <QTest>

namespace Conversations {

namespace {

void row(const char *name, const QString &steps, const QString &mode = q("embed"))
{
    QTest::newRow(name) << mode << steps;
}

void row(const char *name, const char *steps)
{
    row(name, q(steps));
}

void addStrokes()
{
    row("embedded",
        "embedded, look -> 'Draw along the curve' picture 1 refreshButton, tell config type -> embed, "
        "tell config id -> some-id, tell config scene -> 3, tell get challenge -> main-challenge");
    row("popup", q("opened, tell config type -> popup, tell click challenge -> main-challenge"), q("click"));
    row("invisible", q("opened, tell config type -> invisible"), q("invisible"));
    row("passes after a second, for good",
        "embedded, draw -> verify, look -> 'Verified' picture 1, wait 999, wait 1 -> passed main-token, "
        "draw, "
        "wait 200000, tell verify challenge -> main-challenge, tell verify drawtime -> 360");
    row("two tries a picture",
        "answer verify 0104, embedded, draw -> verify wrong, "
        "look -> 'Not quite right. Try again.' picture 1 refreshButton, wait 999, "
        "look -> 'Not quite right. Try again.' picture 1 refreshButton, wait 1, "
        "look -> 'Draw along the curve' picture 1 refreshButton, draw -> verify refresh wrong ready, "
        "look -> 'Not quite right. Try again.' picture 2 refreshButton");
    row("the service's own count of tries",
        "answer verify 0104, count 1, embedded, draw -> verify refresh wrong ready");
    row("a count of tries beyond the last", "answer verify 0104, count 2, embedded, draw -> verify wrong");
    row("a verdict cannot be tapped", "answer verify 0104, embedded, draw -> verify wrong, tap errorBar");
    row("no prompt during a stroke",
        "answer verify 0104, embedded, draw -> verify wrong, press, jump, "
        "look -> picture 1 stroke refreshButton, wait 2000, look -> picture 1 stroke refreshButton, lift, "
        "look -> 'Draw along the curve' picture 1 refreshButton");
    row("short", "embedded, dash, look -> 'Draw along the curve' picture 1 refreshButton, draw -> verify");
    row("across two sizes",
        "embedded, press, move, resize, look -> 'Draw along the curve' picture 1 refreshButton, lift, "
        "draw -> verify");
    row("begun before the picture is replaced",
        "answer verify 0104, hold refresh 3000, embedded, wait 178500, press, move -> refresh, "
        "look -> loading refreshButton disabled, lift -> verify wrong, press, jump, wait 3000 -> ready, "
        "lift");
    row("two judgements",
        "answer verify 0104, hold verify 1000, hold refresh 3000, embedded, draw -> verify, "
        "draw -> verify, look -> picture 1 refreshButton disabled, wait 2500 -> refresh wrong wrong, "
        "look -> 'Draw along the curve' loading refreshButton disabled");
    row("two judgements, right",
        "hold verify 1000, embedded, draw -> verify, draw -> verify, wait 2500 -> passed main-token");
    row("wrong about a replaced picture",
        "answer verify 0104, hold verify 4000, embedded, wait 176000, draw -> verify, "
        "wait 3000 -> refresh ready, wait 2000, look -> 'Draw along the curve' picture 2 refreshButton");
    row("right about a replaced picture",
        "hold verify 3000, hold refresh 4000, embedded, wait 176000, draw -> verify, "
        "wait 3000 -> refresh, look -> 'Verified', "
        "wait 6000 -> passed main-token");
}

void addPointers()
{
    for (const char *by : {"finger-draw", "finger-draw refreshButton", "draw refreshButton",
                           "draw helpButton", "draw adButton", "two-fingers picture",
                           "two-fingers refreshButton", "tap picture, move, tap picture"})
        row(by, q("guide, advertise, embedded, %1 -> verify, "
                  "look -> 'Verified' picture 1 adButton helpButton")
                    .arg(q(by)));
    row("from the alternative", "embedded, offer, draw alternativeButton -> verify");
    row("disabled", "embedded, enabled no, draw, finger-draw, enabled");
    row("taps on controls",
        "embedded, tap refreshButton -> refresh ready, finger-tap refreshButton -> refresh ready, "
        "hold refresh 100, tap refreshButton -> refresh, finger-tap refreshButton, wait 100 -> ready, "
        "finger-draw -> verify");
    row("a tap on a control ends the line",
        "embedded, tap picture, move, tap refreshButton -> refresh ready");
    row("other mouse buttons",
        "embedded, press-right, move, lift-right, press, move, press-right, lift-right, "
        "lift -> verify");
    for (const char *by :
         {"press", "window hide, window show", "enabled no, enabled", "reset -> switch config get ready"})
        row(by, q("embedded, press, jump, look -> picture 1 stroke refreshButton, %1, "
                  "look -> 'Draw along the curve' picture %2 refreshButton, lift")
                    .arg(q(by), q(*by == 'r' ? "2" : "1")));
    row("a touch that is taken away",
        "embedded, lose-touch refreshButton, lose-touch, "
        "look -> 'Draw along the curve' picture 1 refreshButton, finger-draw -> verify");
    row("a pen without a button, disabled",
        "embedded, tap picture, move, enabled no, enabled, move, tap picture, move, tap picture -> verify");
    row("by keys", "embedded, keys Left Right*2 Down*3 Up Shift+Down Space Left Up Right*9 Space -> verify, "
                   "tell verify v -> "
                   "krpkrkkrkkrpkrzksokvkkvokvzkjokjzk5pkvhkvhkvpkvpkvpkvpkvpkvpkvpkvpkvpkvpkkkkkkkqokrzkvokj"
                   "zk6ok7zkpokdkk8ok9z, wait 1000 -> passed main-token");
    row("too short by keys", "embedded, keys Space Right*4 Space");
    row("escaped by keys", "embedded, keys Escape Space Right*15 Escape Space");
    row("escape",
        "embedded, tab -> pen, escape-key -> left, keys Space Right*15, escape-key -> taken, keys Space");
    // The picture is 40 steps wide.
    row("steps by keys",
        "embedded, keys Right*15, mark -> 19 11.5 Pen up, keys Shift+Up*15, mark -> 19 7.75 Pen up, "
        "keys Ctrl+Right, mark -> 19 7.75 Pen up, keys Left*60 Up*60, mark -> 0 0 Pen up, "
        "keys Shift+Right*120, mark -> 30 0 Pen up, keys Left*60, aslant, "
        "mark -> 2 2 Pen up, resize, mark -> 2 2 Pen up, keys Space, "
        "mark -> 2 2 Pen down, offer, mark -> 2 2 Pen down");
    row("no pen without a picture",
        "hold switch 100, start -> switch, tab, wait 100 -> config get ready, tab -> pen, "
        "reset -> switch, tab -> picture, look -> picture 1, wait 100 -> config get ready, tab -> pen");
    row("passed, destroyed", "embedded, draw -> verify, destroy, wait 1000");
    row("by keys, the focus goes",
        "embedded, focus, look -> 'Draw along the curve' picture 1 refreshButton penHint, "
        "keys Space Right*15, look -> picture 1 stroke refreshButton, blur, "
        "look -> 'Draw along the curve' picture 1 refreshButton, keys Space");
}

void addFailures()
{
    row("picture fails", "answer get 1002, guide, start -> switch config get failed 1002, "
                         "look -> 'Expired. Try again.' helpButton, wait 200000, idle -> yes");
    row("verify fails",
        "answer verify 1002, advertise, embedded, "
        "look -> 'Draw along the curve' picture 1 adButton refreshButton, draw -> verify failed 1002, "
        "look -> 'Expired. Try again.', wait 200000, idle -> yes");
    row("retried by finger", "answer verify 1002, embedded, finger-draw -> verify failed 1002, wait 500, "
                             "finger-tap errorBar -> switch config get ready");
    row("starts anew where a picture does not load",
        "guide, broken, start -> switch config get failed 10000, "
        "look -> 'Picture not loaded. Try again.' helpButton, wait 5000, draw, "
        "look -> 'Picture not loaded. Try again.' helpButton, broken no, hold switch 200, "
        "tap errorBar -> switch, wait 100, look -> loading, wait 200 -> config get ready");
}

void addPictures()
{
    row("refreshed by the button",
        "hold refresh 200, advertise, embedded, "
        "look -> 'Draw along the curve' picture 1 adButton refreshButton, "
        "tap refreshButton -> refresh, wait 99, "
        "look -> 'Draw along the curve' picture 1 refreshButton disabled, wait 1, "
        "look -> 'Draw along the curve' loading refreshButton disabled, wait 100 -> ready, "
        "look -> 'Draw along the curve' picture 2 refreshButton");
    row("refreshed quickly", "embedded, hold picture 50, tap refreshButton -> refresh, wait 40, "
                             "look -> 'Draw along the curve' picture 1 refreshButton, wait 10 -> ready");
    row("the next configuration of a popup",
        q("opened, answer click 1002, answer verify 1002, draw -> verify in popup 1002, guide, wait 500, "
          "tap errorBar -> switch config click in popup 1002, look -> 'Expired. Try again.' caption "
          "helpButton"),
        q("click"));
    row("no stroke while a picture loads",
        "embedded, hold picture 9000, tap refreshButton -> refresh, draw, wait 9000 -> ready");
    row("replaced in time", "embedded, wait 178999, wait 1 -> refresh ready");
    row("replaced when it is seen",
        "embedded, window hide, wait 170000, window show, window hide, wait 600000, "
        "window show -> refresh ready");
    row("pages", "guide, advertise, embedded, tap adButton -> https://shop.example/x?y=z, "
                 "advertise ftp, reset -> switch config get ready, tap adButton, "
                 "tap helpButton -> https://help.example/draw, outage, "
                 "reset -> switch outage get outage ready, tap helpButton -> https://help.example/outage");
    row("no help in the next configuration",
        "guide, embedded, look -> 'Draw along the curve' picture 1 helpButton refreshButton, "
        "guide no, reset -> switch config get ready, "
        "look -> 'Draw along the curve' picture 2 refreshButton");
}

void addKinds()
{
    row("outage by grid cells, by force",
        "force, start -> switch outage get outage ready, corners -> outage verify, "
        "look -> 'Verified' picture 1 outageBadge helpButton, tell outage-verify v -> 0c3f, "
        "tell outage-verify challenge -> outage-challenge, wait 1000 -> passed outage-token");
    row("outage: two tries a picture",
        "outage, answer outage-verify 0104, start -> switch outage get outage ready, "
        "draw -> outage verify wrong, "
        "look -> 'Not quite right. Try again.' picture 1 outageBadge helpButton refreshButton, "
        "draw -> outage verify outage get wrong ready, hold outage-get 200, "
        "tap refreshButton -> outage get, wait 100, "
        "look -> 'Not quite right. Try again.' loading outageBadge helpButton, wait 100 -> ready");
    row("outage: an answer that is judged",
        "inOutage, hold outage-verify 100, draw -> outage verify, "
        "look -> picture 1 outageBadge helpButton refreshButton disabled");
    row("outage: strokes stay in the picture",
        "inOutage, stray above, stray below, "
        "stray out, look -> 'Draw along the curve' picture 1 outageBadge helpButton refreshButton, "
        "draw -> outage verify");
    row("an outage ends",
        "inOutage, outage no, "
        "reset -> switch config get ready, look -> 'Draw along the curve' picture 2 refreshButton, "
        "stray above -> verify");
    row("characters, wrong",
        "characters, answer verify 0104, hold verify 100, embedded, "
        "look -> 'Type the characters you see' picture 1 refreshButton characterField, draw, "
        "type Ab 9, tap doneButton -> verify, "
        "look -> 'Type the characters you see' picture 1 refreshButton disabled characterField, "
        "tap doneButton, wait 100 -> wrong, look -> 'Not quite right. Try again.' picture 1 refreshButton "
        "characterField, "
        "tell verify v -> Ab 9, tell verify drawtime -> 0");
    row("characters",
        "characters, embedded, tap doneButton, type a, return, tap doneButton -> verify, tell verify v -> a, "
        "wait 1000 -> passed main-token");
    row("from characters to an outage",
        "characters, embedded, outage, reset -> switch outage get outage ready, "
        "look -> 'Draw along the curve' picture 2 outageBadge helpButton refreshButton");
    row("from characters to drawing",
        "characters, embedded, characters no, reset -> switch config get ready, "
        "look -> 'Draw along the curve' picture 2 refreshButton, draw -> verify");
}

} // namespace

void addDrawingColumns()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("steps");
}

void addDrawings()
{
    addDrawingColumns();
    addStrokes();
    addPointers();
    addFailures();
    addPictures();
    addKinds();
}

} // namespace Conversations
