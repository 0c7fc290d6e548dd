#include "conversations/DrawingTestCase.h"

#include "settings/QVSDKManager.h"

#include <QAccessible>
#include <QDesktopServices>

#include <cmath>

using namespace std::chrono_literals;

namespace {

QPointingDevice *touchScreen()
{
    static QPointingDevice *device = QTest::createTouchDevice();
    return device;
}

/// Strokes and the dots of a picture that is being loaded are of this colour. So is the focus ring, at the
/// edge.
bool hasAccent(const QImage &screen, const QRect &area)
{
    for (int y = area.top(); y < area.bottom(); ++y) {
        for (int x = area.left(); x < area.right(); ++x) {
            if (screen.pixelColor(x, y) == QColor(65, 141, 251))
                return true;
        }
    }
    return false;
}

/// A tap that moves a little, as a finger does.
std::vector<QPoint> tapAt(QPoint place)
{
    return {place, place + QPoint(4, -4)};
}

} // namespace

void DrawingTestCase::prepare()
{
    ConversationTestCase::prepare();
    defineSettings();
    defineAnswers();
    defineStrokes();
    defineClicks();
    defineKeys();
    defineLook();
    QVServiceAddresses addresses = service().addresses();
    addresses.setHelpPage(q("https://help.example/draw"));
    addresses.setOutageHelpPage(q("https://help.example/outage"));
    QVSDKManager::setServiceAddresses(addresses);
    for (const QString &scheme : {q("https"), q("ftp")})
        QDesktopServices::setUrlHandler(scheme, this, "openPage");
}

void DrawingTestCase::finish()
{
    for (const QString &scheme : {q("https"), q("ftp")})
        QDesktopServices::unsetUrlHandler(scheme);
    QVSDKManager::setOutageOpen(false);
    QVSDKManager::setPopupClosesOnOutsideClick(false);
    QVSDKManager::setContrast(QVContrast::System);
    QVSDKManager::setAppearance(QVAppearance::Light);
    QVSDKManager::setAccentColor({});
    QVSDKManager::setPopupPresentation(QVPopupPresentation::Automatic);
    ConversationTestCase::finish();
}

void DrawingTestCase::openPage(const QUrl &page)
{
    outcomes().add(page.toString());
}

void DrawingTestCase::follow()
{
    QFETCH(QString, mode);
    QFETCH(QString, steps);
    setMode(mode);
    steps.replace(q("embedded"), q("start -> switch config get ready"));
    steps.replace(q("opened"), q("start -> switch config click popup"));
    steps.replace(q("inOutage"), q("outage, start -> switch outage get outage ready"));
    QStringList seen;
    for (const QString &line : words(steps)) {
        const QString step = line.section(q(" -> "), 0, 0);
        forgetAsked();
        outcomes().clear();
        go(step);
        settle();
        QStringList log = asked() + outcomes().said();
        log.removeIf([&](const QString &entry) {
            // Of these only some front-ends tell, and the button's other tests tell enough.
            return entry.startsWith(u'(') || entry.startsWith(u'[');
        });
        seen.append(log.isEmpty() ? step : step + q(" -> ") + log.join(u' '));
    }
    QCOMPARE(seen, words(steps));
}

void DrawingTestCase::defineSettings()
{
    addStep("language", [](const QString &name) { QVSDKManager::setPreferredLanguage(name); });
    addStep("contrast", [](auto) { QVSDKManager::setContrast(QVContrast::High); });
    addStep("dark", [](auto) { QVSDKManager::setAppearance(QVAppearance::Dark); });
    addStep("accent", [](const QString &color) { QVSDKManager::setAccentColor(QColor(color)); });
    addStep("whole", [](auto) { QVSDKManager::setPopupPresentation(QVPopupPresentation::WholeWindow); });
}

void DrawingTestCase::defineAnswers()
{
    const auto extend = [this](const QString &request, const char *member, const QJsonValue &value) {
        service().extend(request, {{q(member), value}});
    };
    addStep("outage", [=](const QString &no) { extend(outageSwitch, "active", no.isEmpty()); });
    addStep("guide", [=](const QString &no) { extend(config, "guide", no.isEmpty()); });
    addStep("characters",
            [=](const QString &no) { extend(config, "type", no.isEmpty() ? q("character") : q("draw")); });
    addStep("count", [=](const QString &number) { extend(q("get"), "verifyCount", number); });
    addStep("advertise", [=](const QString &scheme) {
        for (const QString &what : {click, q("get")}) {
            extend(what, "adlinkword", q("Buy"));
            extend(what, "adlink", (scheme.isEmpty() ? q("https") : scheme) + q("://shop.example/x?y=z"));
        }
    });
    addStep("broken", [this](const QString &no) { service().breakPictures(no.isEmpty()); });
    addStep("allow-outside", [](auto) { QVSDKManager::setPopupClosesOnOutsideClick(true); });
    addStep("force", [](auto) { QVSDKManager::setOutageOpen(true); });
    addStep("tell", [this](const QString &what) {
        const QString request = what.section(u' ', 0, 0).replace(u'-', u' ');
        addReport(service().query(request)[what.section(u' ', 1)]);
    });
    addStep("idle", [this](auto) { addReport(time().pendingCount() == 0 ? q("yes") : q("no")); });
}

DrawingTestCase::Points DrawingTestCase::waveAt(QPoint start, int count, int step)
{
    Points points;
    for (int i = 0; i < count; ++i)
        points.push_back(start + QPoint(i * step, qRound(20 * std::sin(i * 0.3))));
    return points;
}

DrawingTestCase::Points DrawingTestCase::waveFrom(const QString &part, int count) const
{
    const QRect area = frameOf(picture);
    const QPoint start =
        part.isEmpty() ? area.topLeft() + QPoint(30, area.height() / 2) : frameOf(part).center();
    Points points = waveAt(start, count, start.x() > area.center().x() ? -8 : 8);
    for (QPoint &point : points)
        point = inWindow(point);
    return points;
}

QPoint DrawingTestCase::inWindow(QPoint point) const
{
    const QSize size = drawingWindow()->size();
    return {std::clamp(point.x(), 0, size.width() - 1), std::clamp(point.y(), 0, size.height() - 1)};
}

void DrawingTestCase::drawWithMouse(const Points &points) const
{
    QTest::mousePress(drawingWindow(), Qt::LeftButton, {}, points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        advance(20ms);
        if (!drawingWindow())
            return;
        QTest::mouseMove(drawingWindow(), points[i]);
    }
    QTest::mouseRelease(drawingWindow(), Qt::LeftButton, {}, points.back());
}

void DrawingTestCase::drawWithFinger(const Points &points) const
{
    const auto touch = [this] {
        return QTest::touchEvent(drawingWindow(), touchScreen());
    };
    touch().press(0, points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        advance(20ms);
        if (!drawingWindow())
            return;
        touch().move(0, points[i]);
    }
    touch().release(0, points.back());
}

void DrawingTestCase::drawWithTwoFingers(const QString &otherOn) const
{
    const Points points = waveFrom({});
    const QPoint other = frameOf(otherOn).center();
    for (std::size_t i = 0; i <= points.size(); ++i) {
        auto event = QTest::touchEvent(drawingWindow(), touchScreen());
        if (i == 0)
            event.press(0, points[i]);
        else if (i == points.size())
            event.release(0, points.back());
        else
            event.move(0, points[i]);
        if (i == 3)
            event.press(1, other);
        else if (i == 4)
            event.move(1, other + QPoint(0, -8));
        else if (i == 5)
            event.release(1, other);
    }
}

void DrawingTestCase::defineStrokes()
{
    addStep("draw", [this](const QString &part) { drawWithMouse(waveFrom(part)); });
    addStep("finger-draw", [this](const QString &part) { drawWithFinger(waveFrom(part)); });
    addStep("two-fingers", [this](const QString &otherOn) { drawWithTwoFingers(otherOn); });
    addStep("dash", [this](auto) {
        Points points = waveFrom({});
        points.resize(9);
        drawWithFinger(points);
    });
    // A stroke that begins above or below the picture, or leaves it.
    addStep("stray", [this](const QString &side) {
        const QRect area = frameOf(picture);
        Points points = waveFrom({});
        points[side == q("out") ? 15 : 0].setY(side == q("above") ? area.top() - 8 : area.bottom() + 1);
        drawWithMouse(points);
    });
    // From the top left down, up to the top right and down again.
    addStep("corners", [this](auto) {
        const QRect area = frameOf(picture).adjusted(20, 20, -20, -20);
        const QPoint ends[] = {area.topLeft(), area.bottomLeft(), area.topRight(), area.bottomRight()};
        Points points;
        for (int i = 0; i < 21; ++i)
            points.push_back(ends[i / 7] + (ends[i / 7 + 1] - ends[i / 7]) * (i % 7) / 6);
        drawWithFinger(points);
    });
}

void DrawingTestCase::defineClicks()
{
    const auto press = [this](Qt::MouseButton button) {
        QTest::mousePress(drawingWindow(), button, {}, waveFrom({}).front());
    };
    const auto lift = [this](Qt::MouseButton button) {
        QTest::mouseRelease(drawingWindow(), button, {}, waveFrom({}).back());
    };
    addStep("press", [=](auto) { press(Qt::LeftButton); });
    addStep("lift", [=](auto) { lift(Qt::LeftButton); });
    addStep("press-right", [=](auto) { press(Qt::RightButton); });
    addStep("lift-right", [=](auto) { lift(Qt::RightButton); });
    addStep("jump", [this](auto) { QTest::mouseMove(drawingWindow(), waveFrom({}).back()); });
    addStep("move", [this](auto) {
        for (const QPoint point : waveFrom({})) {
            QTest::mouseMove(drawingWindow(), point);
            advance(40ms);
        }
    });
    addStep("click", [this](const QString &at) {
        const QStringList places = at.split(u' ');
        const QPoint place(places[0].toInt(), places[1].toInt());
        QTest::mousePress(drawingWindow(), Qt::LeftButton, {}, place);
        const QPoint end = places.size() > 2 ? QPoint(places[2].toInt(), places[3].toInt()) : place;
        QTest::mouseRelease(drawingWindow(), Qt::LeftButton, {}, end);
    });
    addStep("tap", [this](const QString &part) { drawWithMouse(tapAt(frameOf(part).center())); });
    addStep("finger-tap", [this](const QString &part) { drawWithFinger(tapAt(frameOf(part).center())); });
    // The finger goes back to where it was pressed.
    addStep("lose-touch", [this](const QString &part) {
        const Points points = waveFrom(part);
        const auto touch = [this] {
            return QTest::touchEvent(drawingWindow(), touchScreen());
        };
        touch().press(0, points[0]);
        touch().move(0, points[9]);
        QTouchEvent cancel(QEvent::TouchCancel, touchScreen());
        QCoreApplication::sendEvent(drawingWindow(), &cancel);
        touch().move(0, points[0]);
        touch().release(0, points[0]);
    });
    addStep("enabled", [this](const QString &no) { setPanelEnabled(no.isEmpty()); });
    addStep("resize", [this](auto) { resizePanel(QSize(413, 300)); });
    addStep("offer", [this](auto) { offerAlternative(); });
}

void DrawingTestCase::defineKeys()
{
    addStep("keys", [this](const QString &keys) {
        focusPicture(true);
        for (const QString &key : keys.split(u' ')) {
            for (int i = 0; i < std::max(1, key.section(u'*', 1).toInt()); ++i) {
                advance(30ms);
                QTest::keySequence(drawingWindow(), QKeySequence(key.section(u'*', 0, 0)));
            }
        }
    });
    addStep("escape", [this](auto) { QTest::keyClick(drawingWindow(), Qt::Key_Escape); });
    addStep("focus", [this](auto) { focusPicture(true); });
    addStep("blur", [this](auto) { focusPicture(false); });
    addStep("tab", [this](auto) {
        const auto hasFocus = [this] {
            return QGuiApplication::focusObject() == objectOf(picture);
        };
        for (int i = 0; i < 5 && !hasFocus(); ++i)
            QTest::keyClick(drawingWindow(), Qt::Key_Tab);
        if (hasFocus())
            addReport(frameOf(q("keyPen")).isEmpty() ? picture : q("pen"));
    });
    addStep("escape-key", [this](auto) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(objectOf(picture), &event);
        addReport(event.isAccepted() ? q("taken") : q("left"));
    });
    addStep("aslant", [this](auto) {
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down}) {
            QTest::keyPress(drawingWindow(), key);
            advance(30ms);
        }
        QTest::keyRelease(drawingWindow(), Qt::Key_Right);
        QTest::keyClick(drawingWindow(), Qt::Key_Down);
    });
    // Where the pen is, in steps from the picture's corner, and its state.
    addStep("mark", [this](auto) {
        const QPoint place = frameOf(q("keyPen")).center() - frameOf(picture).topLeft();
        const auto steps = [this](int pixels) {
            return qRound(pixels * 160.0 / frameOf(picture).width()) / 4.0;
        };
        const auto *const mark = QAccessible::queryAccessibleInterface(objectOf(q("keyPen")));
        addReport(
            q("%1 %2 %3").arg(steps(place.x())).arg(steps(place.y())).arg(mark->text(QAccessible::Name)));
    });
    addStep("type", [this](const QString &text) {
        drawWithMouse(tapAt(frameOf(q("characterField")).center()));
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, drawingWindow(), Qt::Key_unknown, letter, Qt::NoModifier);
    });
    addStep("return", [this](auto) { QTest::keyClick(drawingWindow(), Qt::Key_Return); });
}

/// The text of the bar, the number of the picture, and all other parts that can be seen.
void DrawingTestCase::look()
{
    QStringList seen;
    if (!barText().isEmpty())
        seen.append(q("'%1'").arg(barText()));
    const QImage screen = screenshot();
    const QColor colour = screen.pixelColor(frameOf(picture).center() + QPoint(0, 30));
    // That of the service's pictures.
    if (std::abs(colour.saturation() - 120) < 9)
        seen.append(q("picture %1").arg(qRound(colour.hue() / 40.0)));
    if (hasAccent(screen, frameOf(picture).adjusted(4, 4, -4, -60)))
        seen.append(isLoading() ? q("loading") : q("stroke"));
    for (const char *name :
         {"caption", "adButton", "outageBadge", "helpButton", "refreshButton", "characterField", "penHint"}) {
        if (!frameOf(q(name)).isEmpty())
            seen.append(q(name));
        if (seen.endsWith(q("refreshButton")) && !objectOf(q("refreshButton"))->property("enabled").toBool())
            seen.append(q("disabled"));
    }
    addReport(seen.join(u' '));
}

void DrawingTestCase::defineLook()
{
    addStep("look", [this](auto) { look(); });
}
