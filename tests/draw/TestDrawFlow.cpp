#include "draw/DrawTestCase.h"
#include "settings/QVSDKManager.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCharVerifyTextField.h"
#include "views/QVLabel.h"
#include "views/QVSpokenMessage.h"

#include <QDesktopServices>
#include <QUrl>

using namespace std::chrono_literals;
using namespace QVPointerInput;

/// Conversations of the view with the service: the effects of each step of the user, the host or the clock.
class TestDrawFlow : public DrawTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void open(const QUrl &page) { told.append(page.toString()); }

private Q_SLOTS:
    void conversations_data()
    {
        // Each step is followed by the requests that it causes and by what the view then reports or shows.
        const auto row = addColumns<QString>({"steps"});
        addStarts(row);
        addStrokes(row);
        addPointers(row);
        addFailures(row);
        addPictures(row);
        addKinds(row);
    }

    void conversations()
    {
        QFETCH(QString, steps);
        // The steps that most conversations begin with.
        steps.replace(q("embedded"), q("begin embed -> switch config get ready"));
        steps.replace(q("inOutage"), q("outage true, begin embed -> switch outage get outage ready"));
        steps.replace(q("opened"), q("begin popup -> switch config click ready"));
        QStringList seen;
        for (const QString &line : steps.split(q(", "))) {
            const QString step = line.section(q(" -> "), 0, 0);
            const qsizetype asked = service().asked().size();
            told.clear();
            if (step.endsWith(q("ms")))
                pass(1ms * step.chopped(2).toInt());
            else
                QVERIFY2(QMetaObject::invokeMethod(this, step.section(u' ', 0, 0).toLatin1().constData(),
                                                   Q_ARG(QString, step.section(u' ', 1))),
                         qPrintable(step));
            settle();
            const QStringList log = service().asked().mid(asked) + told;
            seen.append(log.isEmpty() ? step : step + q(" -> ") + log.join(u' '));
        }
        QCOMPARE(seen, steps.split(q(", ")));
    }

private:
    [[nodiscard]] bool isShown(const QString &name) const { return part(name) && part(name)->isVisible(); }

    static void addStarts(const auto &row)
    {
        row("embedded",
            "embedded, look -> 'Draw along the curve' picture 1 refreshButton, tell config type -> embed, "
            "tell config id -> some-id, tell config scene -> 3, tell get challenge -> main-challenge");
        row("popup", "opened, tell config type -> popup, tell click challenge -> main-challenge");
        row("invisible", "begin invisible -> switch config click ready, tell config type -> invisible");
        row("passed by click",
            "say click 0103, begin popup -> switch config click passed, "
            "look -> 'Verified' caption 'Draw along the curve', 999ms, 1ms -> click-token");
    }
    static void addStrokes(const auto &row)
    {
        row("passes after a second, for good",
            "embedded, draw -> verify passed, look -> 'Verified' image, 999ms, 1ms -> main-token, draw, "
            "200000ms, tell verify challenge -> main-challenge, tell verify drawtime -> 360");
        row("two tries a picture",
            "say verify 0104, embedded, draw -> verify wrong, "
            "look -> 'Not quite right. Try again.' picture 1 refreshButton, 999ms, "
            "look -> 'Not quite right. Try again.' picture 1 refreshButton, 1ms, "
            "look -> 'Draw along the curve' picture 1 refreshButton, draw -> verify refresh wrong ready, "
            "look -> 'Not quite right. Try again.' picture 2 refreshButton");
        row("the service's own count of tries",
            "say verify 0104, count 1, embedded, draw -> verify refresh wrong ready");
        row("a count of tries beyond the last", "say verify 0104, count 2, embedded, draw -> verify wrong");
        row("no prompt during a stroke",
            "say verify 0104, embedded, draw -> verify wrong, press, jump, "
            "look -> picture 1 refreshButton, 2000ms, look -> picture 1 refreshButton, lift, "
            "look -> 'Draw along the curve' picture 1 refreshButton");
        row("short",
            "embedded, dash, look -> 'Draw along the curve' picture 1 refreshButton, draw -> verify passed");
        row("across two sizes", "embedded, press, move, resize, lift, draw -> verify passed");
        row("begun before the picture is replaced",
            "say verify 0104, hold refresh 3000, embedded, 178500ms, press, move -> refresh, "
            "look -> loading refreshButton disabled, lift -> verify wrong, press, jump, 3000ms -> ready, "
            "lift");
        row("two judgements",
            "say verify 0104, hold verify 1000, hold refresh 3000, embedded, draw -> verify, "
            "draw -> verify, look -> picture 1 refreshButton disabled, 2500ms -> refresh wrong wrong, "
            "look -> 'Draw along the curve' loading refreshButton disabled");
        row("two judgements, right",
            "hold verify 1000, embedded, draw -> verify, draw -> verify, 2500ms -> passed main-token");
        row("wrong about a replaced picture",
            "say verify 0104, hold verify 4000, embedded, 176000ms, draw -> verify, "
            "3000ms -> refresh ready, 2000ms, look -> 'Draw along the curve' picture 2 refreshButton");
        row("right about a replaced picture",
            "hold verify 3000, hold refresh 4000, opened, 176000ms, draw -> verify, "
            "3000ms -> refresh passed, look -> 'Verified' caption 'Draw along the curve', "
            "6000ms -> main-token");
    }
    static void addPointers(const auto &row)
    {
        for (const char *by :
             {"finger", "pen", "finger refreshButton", "draw captchaLabel", "draw refreshButton",
              "draw helpButton", "draw adButton", "twoFingers imageView", "twoFingers refreshButton",
              "tap imageView, move, tap imageView"})
            row(by, q("guide true, ad click, opened, %1 -> verify passed, "
                      "look -> 'Verified' image caption 'Draw along the curve' adButton helpButton")
                        .arg(q(by)));
        row("from the alternative", "embedded, offer, draw alternativeButton -> verify passed");
        row("disabled", "embedded, enabled false, draw, finger, pen, enabled true");
        row("taps on controls",
            "embedded, tap refreshButton -> refresh ready, fingerTap refreshButton -> refresh ready, "
            "hold refresh 100, tap refreshButton -> refresh, fingerTap refreshButton, 100ms -> ready");
        row("a tap on a control ends the line",
            "embedded, tap imageView, move, tap refreshButton -> refresh ready");
        row("other mouse buttons",
            "embedded, pressRight, move, liftRight, press, move, pressRight, liftRight, "
            "lift -> verify passed");
        for (const char *by : {"lose release", "lose touch", "lose dialog", "press",
                               "window hidden, window shown", "enabled false, enabled true"})
            row(by, q("embedded, press, jump, look -> picture 1 refreshButton, %1, "
                      "look -> 'Draw along the curve' picture 1 refreshButton, lift")
                        .arg(q(by)));
        row("by keys", "embedded, tab -> pen, keys Space Right*15 Space -> verify passed");
        row("too short by keys", "embedded, keys Space Right*4 Space");
        row("escaped by keys",
            "embedded, tab -> pen, escape -> left, keys Space Right*15, escape -> taken, keys Space");
        row("by keys, the focus goes", "embedded, keys Space Right*15, blur, keys Space");
        row("by keys, disabled",
            "embedded, keys Space Right*15, enabled false, enabled true, mark -> 19 11.5 Pen up, keys Space");
        // The picture is 40 steps wide.
        row("steps by keys",
            "embedded, keys Right*15, mark -> 19 11.5 Pen up, keys Shift+Up*15, mark -> 19 7.75 Pen up, keys "
            "Ctrl+Right, "
            "mark -> 19 7.75 Pen up, keys Left*60 Up*60, mark -> 0 0 Pen up, aslant, mark -> 2 2 Pen up");
        row("no pen without a picture",
            "hold switch 100, begin embed -> switch, tab, 100ms -> config get ready, tab -> pen, "
            "restart -> switch, tab -> picture, 100ms -> config get ready, tab -> pen");
    }
    static void addFailures(const auto &row)
    {
        row("picture fails", "say get 1002, guide true, begin embed -> switch config get failed 1002, "
                             "look -> 'Expired. Try again.' image helpButton, 200000ms, idle -> yes");
        row("verify fails",
            "say verify 1002, ad get, embedded, "
            "look -> 'Draw along the curve' picture 1 adButton refreshButton, draw -> verify failed 1002, "
            "look -> 'Expired. Try again.' image, 200000ms, idle -> yes");
        row("starts anew where a picture does not load",
            "guide true, broken true, begin embed -> switch config get failed 10000, "
            "look -> 'Picture not loaded. Try again.' image helpButton, 5000ms, draw, "
            "look -> 'Picture not loaded. Try again.' image helpButton, broken false, hold switch 100, "
            "tap errorOverlayView -> switch, look -> loading, 200ms -> config get ready");
    }
    static void addPictures(const auto &row)
    {
        row("refreshed by the button",
            "hold refresh 100, ad click, opened, "
            "look -> picture 1 caption 'Draw along the curve' adButton refreshButton, "
            "tap refreshButton -> refresh, "
            "look -> loading caption 'Draw along the curve' refreshButton disabled, 100ms -> ready, "
            "look -> picture 2 caption 'Draw along the curve' refreshButton");
        row("replaced in time", "embedded, 178999ms, 1ms -> refresh ready, "
                                "spoken -> Time for this picture is up. A new one is on its way.");
        row("replaced when it is seen",
            "embedded, window hidden, 170000ms, window shown, window hidden, 600000ms, "
            "window shown -> refresh ready");
        row("pages",
            "guide true, ad get, embedded, tap adButton -> https://ad.example/x?y=z, "
            "tap helpButton -> https://help.example/draw, outage true, "
            "reset -> switch outage get outage ready, tap helpButton -> https://help.example/outage");
        row("no help in the next configuration",
            "guide true, embedded, look -> 'Draw along the curve' picture 1 helpButton refreshButton, "
            "guide false, restart -> switch config get ready, "
            "look -> 'Draw along the curve' picture 2 refreshButton");
    }
    static void addKinds(const auto &row)
    {
        row("outage by grid cells, by force",
            "force true, begin embed -> switch outage get outage ready, corners -> outage verify passed, "
            "look -> 'Verified' image outageLabel helpButton, tell outage verify v -> 0c3f, "
            "tell outage verify challenge -> outage-challenge, 1000ms -> outage-token");
        row("outage: two tries a picture",
            "outage true, say outage verify 0104, begin embed -> switch outage get outage ready, "
            "draw -> outage verify wrong, "
            "look -> 'Not quite right. Try again.' picture 1 outageLabel helpButton refreshButton, "
            "draw -> outage verify outage get wrong ready, hold outage get 100, "
            "tap refreshButton -> outage get, "
            "look -> 'Not quite right. Try again.' loading outageLabel helpButton, 100ms -> ready");
        row("outage: strokes stay in the picture",
            "inOutage, stray above, stray below, "
            "stray out, look -> 'Draw along the curve' picture 1 outageLabel helpButton refreshButton, "
            "draw -> outage verify passed");
        row("an outage ends",
            "inOutage, outage false, "
            "reset -> switch config get ready, look -> 'Draw along the curve' picture 2 refreshButton, "
            "stray above -> verify passed");
        row("characters, wrong",
            "kind character, say verify 0104, hold verify 100, embedded, "
            "look -> 'Type the characters you see' picture 1 refreshButton charInputView, draw, "
            "type Ab 9 -> verify, "
            "look -> 'Type the characters you see' picture 1 refreshButton charInputView disabled busy, "
            "100ms -> wrong, look -> 'Not quite right. Try again.' picture 1 refreshButton charInputView, "
            "tell verify v -> Ab 9, tell verify drawtime -> 0");
        row("from characters to drawing",
            "kind character, embedded, kind draw, reset -> switch config get ready, "
            "look -> 'Draw along the curve' picture 2 refreshButton, draw -> verify passed");
        row("passed, destroyed", "embedded, draw -> verify passed, destroy, 1000ms -> main-token");
    }

    // Steps that change the answers of the service.
    Q_INVOKABLE void outage(const QString &is) { answer("switch", "active", is == q("true")); }
    Q_INVOKABLE void guide(const QString &is) { answer("config", "guide", is == q("true")); }
    Q_INVOKABLE void kind(const QString &type) { answer("config", "type", type); }
    Q_INVOKABLE void count(const QString &number) { answer("get", "verifyCount", number); }
    Q_INVOKABLE void ad(const QString &request)
    {
        answer(request.toLatin1(), "adlinkword", q("word"));
        answer(request.toLatin1(), "adlink", q("https://ad.example/x?y=z"));
    }
    Q_INVOKABLE void say(const QString &what) { answer(front(what).toLatin1(), "code", back(what)); }
    Q_INVOKABLE void hold(const QString &what) { service().delay(front(what), 1ms * back(what).toInt()); }
    Q_INVOKABLE void broken(const QString &is) { service().breakPictures(is == q("true")); }
    Q_INVOKABLE void force(const QString &is) { QVSDKManager::setOutageOpen(is == q("true")); }

    void answer(const QByteArray &request, const char *member, const QJsonValue &value)
    {
        service().extend(QString::fromLatin1(request), {{q(member), value}});
    }
    // All words except the last one, and the last one.
    static QString front(const QString &words) { return words.section(u' ', 0, -2); }
    static QString back(const QString &words) { return words.section(u' ', -1); }

    // Steps of the host.
    Q_INVOKABLE void begin(const QString &style)
    {
        start(QVVerifyStyle(QStringList{q("embed"), q("popup"), q("invisible")}.indexOf(style)));
    }
    Q_INVOKABLE void reset(const QString &)
    {
        view->reset();
        QVERIFY(waitForTold("ready"));
    }
    Q_INVOKABLE void restart(const QString &) { view->requestQuarvoConfigAction(); }
    Q_INVOKABLE void resize(const QString &) { view->resize(view->width() - 1, 300); }
    Q_INVOKABLE void window(const QString &is) { view->window()->setVisible(is == q("shown")); }
    Q_INVOKABLE void enabled(const QString &is) { view->setEnabled(is == q("true")); }
    Q_INVOKABLE void offer(const QString &) { view->setOffersAlternative(true); }
    Q_INVOKABLE void destroy(const QString &) { delete view; }

    // Steps that add something to the report.
    Q_INVOKABLE void idle(const QString &) { told.append(time().pendingCount() == 0 ? q("yes") : q("no")); }
    Q_INVOKABLE void tell(const QString &what) { told.append(service().query(front(what))[back(what)]); }
    Q_INVOKABLE void spoken(const QString &)
    {
        told.append(view->findChild<QVSpokenMessage *>()->accessibleName());
    }

    // Steps of the user, at the named part of the view.
    Q_INVOKABLE void draw(const QString &part) { strokeWithMouse(*view, stroke(part), m_pause); }
    Q_INVOKABLE void finger(const QString &part) { strokeWithFinger(*view, stroke(part), m_pause); }
    Q_INVOKABLE void pen(const QString &part) { strokeWithPen(*view, stroke(part), m_pause); }
    Q_INVOKABLE void tap(const QString &part) { strokeWithMouse(*view, tapped(part)); }
    Q_INVOKABLE void fingerTap(const QString &part) { strokeWithFinger(*view, tapped(part)); }
    Q_INVOKABLE void press(const QString &) { QVPointerInput::press(*view, stroke().front()); }
    Q_INVOKABLE void lift(const QString &) { release(*view, stroke().back()); }
    Q_INVOKABLE void jump(const QString &) { QVPointerInput::move(*view, stroke().back()); }
    Q_INVOKABLE void move(const QString &)
    {
        for (const QPoint point : stroke()) {
            QVPointerInput::move(*view, point);
            advance(40ms);
        }
    }
    Q_INVOKABLE void pressRight(const QString &)
    {
        QVPointerInput::press(*view, stroke().front(), Qt::RightButton);
    }
    Q_INVOKABLE void liftRight(const QString &) { release(*view, stroke().back(), Qt::RightButton); }
    Q_INVOKABLE void blur(const QString &) { picture().clearFocus(); }
    Q_INVOKABLE void keys(const QString &keys)
    {
        picture().setFocus(Qt::TabFocusReason);
        for (const QString &key : keys.split(u' ')) {
            for (int i = 0; i < std::max(1, key.section(u'*', 1).toInt()); ++i) {
                advance(30ms);
                QTest::keySequence(&picture(), QKeySequence(key.section(u'*', 0, 0)));
            }
        }
    }
    Q_INVOKABLE void tab(const QString &)
    {
        for (int i = 0; i < 5 && !picture().hasFocus(); ++i)
            QTest::keyClick(view->window(), Qt::Key_Tab);
        if (picture().hasFocus())
            told.append(isShown(q("keyPen")) ? q("pen") : q("picture"));
    }
    Q_INVOKABLE void escape(const QString &)
    {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&picture(), &event);
        told.append(event.isAccepted() ? q("taken") : q("left"));
    }
    Q_INVOKABLE void aslant(const QString &)
    {
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down}) {
            QTest::keyPress(&picture(), key);
            advance(30ms);
        }
        QTest::keyRelease(&picture(), Qt::Key_Right);
        QTest::keyClick(&picture(), Qt::Key_Down);
    }
    /// Where the pen is, in steps from the picture's corner, and its state.
    Q_INVOKABLE void mark(const QString &)
    {
        const QPoint place = frame(q("keyPen")).center() - frame(q("imageView")).topLeft();
        const auto steps = [this](int pixels) {
            return qRound(pixels * 160.0 / picture().width()) / 4.0;
        };
        told.append(q("%1 %2 %3")
                        .arg(steps(place.x()))
                        .arg(steps(place.y()))
                        .arg(part(q("keyPen"))->accessibleName()));
    }
    Q_INVOKABLE void type(const QString &text)
    {
        auto *field = part<QVCharVerifyTextField>(q("inputTF"));
        QVPointerInput::click(*field, field->rect().center());
        QTest::keyClicks(field, text);
        clickOn(q("doneButton"));
    }
    Q_INVOKABLE void dash(const QString &)
    {
        Points points = stroke();
        points.resize(9);
        strokeWithFinger(*view, points);
    }
    /// Draws a stroke that begins above or below the picture, or leaves it.
    Q_INVOKABLE void stray(const QString &side)
    {
        const QRect area = frame(q("imageView"));
        Points points = stroke();
        points[side == q("out") ? 15 : 0].setY(side == q("above") ? area.top() - 8 : area.bottom() + 1);
        strokeWithMouse(*view, points, m_pause);
    }
    /// Draws a stroke from the top left down, up to the top right and down again.
    Q_INVOKABLE void corners(const QString &)
    {
        const QRect area = frame(q("imageView")).adjusted(20, 20, -20, -20);
        const QPoint ends[] = {area.topLeft(), area.bottomLeft(), area.topRight(), area.bottomRight()};
        Points points;
        for (int i = 0; i < 21; ++i)
            points.push_back(ends[i / 7] + (ends[i / 7 + 1] - ends[i / 7]) * (i % 7) / 6);
        strokeWithFinger(*view, points, m_pause);
    }
    /// A tap that moves a little, as a finger does.
    [[nodiscard]] Points tapped(const QString &part) const
    {
        const QPoint place = frame(part).center();
        return {place, place + QPoint(4, -4)};
    }
    /// Draws a stroke, during which a second finger touches and leaves the screen.
    Q_INVOKABLE void twoFingers(const QString &otherOn)
    {
        const Points points = stroke();
        const QPoint other = frame(otherOn).center();
        for (std::size_t i = 0; i <= points.size(); ++i) {
            auto event = QTest::touchEvent(view->window(), touchScreen());
            if (i == 0)
                event.press(0, points[i], view);
            else if (i == points.size())
                event.release(0, points.back(), view);
            else
                event.move(0, points[i], view);
            if (i == 3)
                event.press(1, other, view);
            else if (i == 4)
                event.move(1, other + QPoint(0, -8), view);
            else if (i == 5)
                event.release(1, other, view);
        }
    }
    /// Takes the drag under way from the view: the release does not reach it.
    Q_INVOKABLE void lose(const QString &way)
    {
        if (way == q("release")) {
            QMouseEvent move(QEvent::MouseMove, QPointF(80, 80), QPointF(80, 80), Qt::NoButton, Qt::NoButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(view, &move);
        } else if (way == q("touch")) {
            QTest::touchEvent(view->window(), touchScreen()).press(0, stroke()[0], view);
            QTest::touchEvent(view->window(), touchScreen()).move(0, stroke()[9], view);
            QTouchEvent cancel(QEvent::TouchCancel, touchScreen());
            QCoreApplication::sendEvent(view->window()->windowHandle(), &cancel);
        } else {
            QWidget dialog;
            dialog.setWindowModality(Qt::ApplicationModal);
            dialog.show();
        }
    }

    /// Reports what can be seen: the text of the bar, the number of the picture, and all other parts.
    Q_INVOKABLE void look(const QString &)
    {
        QStringList seen;
        if (bar())
            seen.append(q("'%1'").arg(bar()->overlayLabel()->text().trimmed()));
        if (view->canDirectlyShow() && picture().hasImage())
            seen.append(q("picture %1").arg(qRound(picture().image().pixelColor(5, 5).hue() / 40.0)));
        else if (picture().hasImage())
            seen.append(q("image"));
        if (picture().accessibleDescription() == q("Loading"))
            seen.append(q("loading"));
        if (isShown(q("captchaLabel")))
            seen.append(q("caption '%1'").arg(part<QVLabel>(q("captchaLabel"))->text()));
        for (const char *name : {"adButton", "outageLabel", "helpButton", "refreshButton", "charInputView"}) {
            if (isShown(q(name)))
                seen.append(q(name));
        }
        if (isShown(q("refreshButton")) && !part(q("refreshButton"))->isEnabled())
            seen.append(q("disabled"));
        if (part<QVCharVerifyInputViewDoneButton>(q("doneButton"))->buttonStauts() == 1)
            seen.append(q("busy"));
        told.append(seen.join(u' '));
    }

    void prepare() override
    {
        DrawTestCase::prepare();
        QVServiceAddresses addresses = service().addresses();
        addresses.setHelpPage(q("https://help.example/draw"));
        addresses.setOutageHelpPage(q("https://help.example/outage"));
        QVSDKManager::setServiceAddresses(addresses);
        QDesktopServices::setUrlHandler(q("https"), this, "open");
    }

    void finish() override
    {
        QDesktopServices::unsetUrlHandler(q("https"));
        DrawTestCase::finish();
    }

    const Pause m_pause = [this] {
        advance(20ms);
    };
};

QV_TEST(TestDrawFlow)
#include "TestDrawFlow.moc"
