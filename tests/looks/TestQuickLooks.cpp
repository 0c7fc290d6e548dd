#include "looks/LookComparison.h"
#include "looks/Looks.h"
#include "quick/QVQuickSurface.h"
#include "quick/QVQuickValues.h"
#include "quick/QuickTestCase.h"
#include "settings/QVLocalization.h"
#include "settings/QVSDKManager.h"

#include <QAnimationDriver>
#include <QApplication>
#include <QQmlComponent>

using namespace std::chrono_literals;

namespace {

/// The animations of Qt Quick, in the component's own time.
class AnimationClock final : public QAnimationDriver
{
public:
    [[nodiscard]] qint64 elapsed() const override { return m_now; }
    void pass(int milliseconds)
    {
        m_now += milliseconds;
        advanceAnimation();
    }

private:
    qint64 m_now = 0;
};

} // namespace

/// What looks like the widgets, beside the pictures of these. Left out are steps that Qt Quick has not, and
/// what moves in real time there.
class TestQuickLooks : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void looksLikeTheWidgets_data()
    {
        const auto row = addColumns<QSize, QString>({"size", "steps"});
        static const QRegularExpression otherwise(q("ratio|dots|busy|turning|opening"));
        static const QSet<QString> others{q("panel-hovered"), q("popup-begun"), q("popup-unfolding-again"),
                                          q("strip-edited"), q("strip-done-focused")};
        for (const Look &look : looks) {
            if (!q(look.steps).contains(otherwise) && !others.contains(q(look.name)))
                row(look.name, look.size, q(look.steps));
        }
    }

    void looksLikeTheWidgets()
    {
        QFETCH(QSize, size);
        QFETCH(QString, steps);
        window().resize(size);
        leave();
        go(steps);
        // Qt Quick smooths circles otherwise.
        QRegion circles;
        if (steps.contains(q("button")))
            circles += QRect(10, 10, 44, 44);
        if (steps.contains(q("focus-close")))
            circles += QRect(288, 0, 32, 32);
        QVERIFY(LookComparison::matches(q(QTest::currentDataTag()), window().grabWindow(), circles));
    }

private:
    void prepare() override
    {
        QuickTestCase::prepare();
        // The looks of the widgets are the right ones.
        qunsetenv("QUARVO_UPDATE_LOOKS");
        m_clock = std::make_unique<AnimationClock>();
        m_clock->install();
        m_offer = q("An\u2029offer");
        settings().setProperty("reducedMotion", false);
        defineStates();
        defineInput();
    }

    void finish() override
    {
        if (m_pressedAt)
            QTest::mouseRelease(&window(), Qt::LeftButton, {}, *std::exchange(m_pressedAt, {}));
        QApplication::setFont(m_usualFont);
        m_clock.reset();
        m_offersAlternative = false;
        m_made.reset();
        QuickTestCase::finish();
    }

    void rest(int milliseconds)
    {
        constexpr int frame = 10;
        for (int left = milliseconds; left > 0; left -= frame) {
            advance(std::min(left, frame) * 1ms);
            m_clock->pass(std::min(left, frame));
            QCoreApplication::processEvents();
        }
    }

    /// Makes one of the module's own parts.
    void make(const char *type, const QRect &frame, QVariantMap properties)
    {
        QQmlComponent component(qmlEngine(&window()), qv_moduleFile(q(type)));
        properties[q("parent")] = QVariant::fromValue(window().contentItem());
        m_made.reset(qobject_cast<QQuickItem *>(component.createWithInitialProperties(properties)));
        m_made->setPosition(frame.topLeft());
        m_made->setSize(frame.size());
    }

    QQuickItem &place(const QString &mode, const QRect &frame)
    {
        auto &made = *qobject_cast<QQuickItem *>(part(mode));
        made.setPosition(frame.topLeft());
        made.setSize(frame.size());
        made.setProperty("offersAlternative", m_offersAlternative);
        return made;
    }

    void focus(const char *name) { item(q(name))->forceActiveFocus(Qt::TabFocusReason); }

    void pointAt(QPoint place)
    {
        // Qt drops a move to where the pointer was in the window before.
        for (const int step : {1, 0})
            QTest::mouseMove(&window(), place + QPoint(step, 0));
    }

    void press(QPoint at)
    {
        m_pressedAt = at;
        pointAt(at);
        QTest::mousePress(&window(), Qt::LeftButton, {}, at);
    }

    /// The pointer leaves the window.
    void leave()
    {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&window(), &leave);
    }

    void bring(int status)
    {
        answerForStatus(status);
        start(q("button"));
        QVERIFY(waitFor([&] { return part(q("button"))->property("status") == status; }));
        if (status == 3)
            clickOn(q("closeButton"));
        leave();
        // Counts the time from here.
        QQuickItem &ring = *item(q("statusRing"));
        ring.setProperty("status", 0);
        ring.setProperty("status", status);
        if (status == 2)
            turnRing();
    }

    void turnRing()
    {
        if (QQuickItem *const arc = item(q("arc")))
            arc->setProperty("start", 0.2);
    }

    void showPanel()
    {
        go(q("guide"));
        service().extend(q("get"), {{q("adlinkword"), m_offer}, {q("adlink"), q("https://x.example")}});
        place(q("panel"), {{}, window().size()});
        QVERIFY(waitForPicture());
        rest(300);
    }

    void defineStates()
    {
        addStep("ground", [this](const QString &color) { window().setColor(QColor(color)); });
        addStep("rest", [this](const QString &time) { rest(time.toInt()); });
        addStep("font", [](const QString &size) {
            QFont font = QApplication::font();
            font.setPixelSize(size.toInt());
            QApplication::setFont(font);
        });
        addStep("alternative", [this](auto) { m_offersAlternative = true; });
        addStep("panel", [this](auto) { showPanel(); });
        addStep("long-offer", [this](auto) { m_offer = QString(900000, u'W'); });
        addStep("size", [this](const QString &size) {
            window().resize(size.section(u' ', 0, 0).toInt(), size.section(u' ', 1).toInt());
            if (item(q("panel")))
                place(q("panel"), {{}, window().size()});
            rest(10);
        });
        addStep("view", [this](auto) {
            make("DrawingParts.qml", {{}, window().size()}, {{q("contentWidth"), window().width()}});
            m_made->property("picture").value<QVQuickPicture *>()->setImage(LookComparison::photograph());
        });
        addStep("bar", [this](const QString &text) {
            const QString key = text.section(u' ', 1);
            const bool isTappable = key == q("loadFaild") || key == q("No");
            m_made->property(text.section(u' ', 0, 0).toLatin1())
                .value<QVQuickBar *>()
                ->slideIn(key == q("No") ? key : qv_localizedStringForKey(key), isTappable, 1);
        });
        addStep("strip", [this](auto) {
            make("CharacterInput.qml", {{}, window().size()},
                 {{q("surface"), QVariant::fromValue(&m_surface)}});
        });
        addStep("type",
                [this](const QString &text) { item(q("characterField"))->setProperty("text", text); });
        addStep("down", [this](auto) { item(q("doneButton"))->setProperty("down", true); });
        addStep("push", [this](const QString &name) { item(name)->setProperty("down", true); });
    }

    void defineInput()
    {
        addStep("button", [this](auto) { place(q("button"), {10, 10, 280, 44}); });
        addStep("wide",
                [this](const QString &width) { part(q("button"))->setProperty("width", width.toInt()); });
        addStep("focus", [this](auto) { focus("button"); });
        addStep("focus-close", [this](auto) { focus("closeButton"); });
        addStep("disable", [this](auto) { part(q("button"))->setProperty("enabled", false); });
        addStep("hover", [this](const QString &name) {
            pointAt(name.isEmpty() ? QPoint(250, 30) : frameOf(name).center());
        });
        addStep("press", [this](const QString &at) {
            press({at.section(u' ', 0, 0).toInt(), at.section(u' ', 1).toInt()});
        });
        addStep("status", [this](const QString &status) { bring(status.toInt()); });
        addStep("tap", [this](auto) {
            start(q("button"));
            QVERIFY(waitForPicture());
            turnRing();
            leave();
        });
        addStep("draw", [this](auto) {
            const QPoint middle(window().width() / 2, window().height() / 2);
            const auto points = waveAt(middle - QPoint(101, 1), 30, 6);
            press(points.front());
            for (const QPoint &point : points)
                QTest::mouseMove(&window(), point);
        });
        addStep("tab", [this](auto) { QTest::keyClick(&window(), Qt::Key_Tab); });
        addStep("pen", [this](auto) {
            QTest::keyClick(&window(), Qt::Key_Space);
            for (int i = 0; i < 8; ++i)
                QTest::keyClick(&window(), Qt::Key_Right);
        });
        addStep("refresh", [this](auto) {
            clickOn(q("refreshButton"));
            QVERIFY(waitFor([this] { return item(q("errorBar")) != nullptr; }));
        });
    }

    const QFont m_usualFont = QApplication::font();
    std::unique_ptr<AnimationClock> m_clock;
    QVQuickSurface m_surface;
    std::unique_ptr<QQuickItem> m_made;
    std::optional<QPoint> m_pressedAt;
    bool m_offersAlternative = false;
    QString m_offer;
};

QV_TEST(TestQuickLooks)
#include "TestQuickLooks.moc"
