#include "QuietPlatform.h"
#include "demo/DemoServices.h"
#include "demo/DemoWindow.h"
#include "demo/EventLog.h"

#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QScreen>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <unistd.h>

namespace {

constexpr int exitBadInput = 2;
// Longer than any step may take; whoever hangs is ended by the signal.
constexpr unsigned hangSeconds = 20;

/// Swallows the pages that random clicks would open.
class PageEater : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void take(const QUrl & /*url*/) {}
};

/// Somebody, or something, at all devices at once.
class RandomInput
{
public:
    RandomInput(quint32 seed, std::vector<std::unique_ptr<DemoWindow>> &windows)
        : m_seed(seed)
        , m_windows(windows)
    {
    }

    void step(quint32 number)
    {
        // Afresh, so that what one step meets does not change the choices of those after it.
        const quint32 words[]{m_seed, number};
        m_random = QRandomGenerator(words);
        switch (roll(14)) {
        case 0:
        case 1:
        case 2:
            return click();
        case 3:
        case 4:
        case 5:
            return stroke();
        case 6:
        case 7:
            return touch();
        case 8:
            return press();
        case 9:
            return window().resize(200 + roll(1100), 200 + roll(700));
        case 10:
            return window().setVisible(roll(4) > 0);
        case 11:
            return changeScreen();
        case 12:
            return changeLanguage();
        default:
            return roll(2) ? window().startInvisible() : window().resetVerification();
        }
    }

private:
    [[nodiscard]] int roll(int sides) { return m_random.bounded(sides); }
    [[nodiscard]] DemoWindow &window() { return *m_windows[std::size_t(roll(int(m_windows.size())))]; }

    /// Not one of Qt's own menus and tool tips, which come and go by themselves.
    [[nodiscard]] QWindow *shownWindow()
    {
        QList<QWindow *> shown;
        for (QWindow *candidate : QGuiApplication::topLevelWindows()) {
            const Qt::WindowType type = candidate->type();
            if (candidate->isVisible() && type != Qt::Popup && type != Qt::ToolTip)
                shown.append(candidate);
        }
        return shown.isEmpty() ? nullptr : shown[roll(int(shown.size()))];
    }

    /// A point of the window; mostly on a button or a panel, where there is something to go wrong.
    [[nodiscard]] QPoint pointOf(const QWindow &target)
    {
        const QPoint anywhere(roll(std::max(target.width(), 1)), roll(std::max(target.height(), 1)));
        const QWidgetList parts = shownParts(target);
        if (parts.isEmpty() || roll(5) == 0)
            return anywhere;
        const QWidget *part = parts[roll(int(parts.size()))];
        return part->mapTo(part->window(), QPoint(roll(part->width() + 1), roll(part->height() + 1)));
    }

    /// In the order in which they were made.
    [[nodiscard]] static QWidgetList shownParts(const QWindow &target)
    {
        QWidgetList parts;
        for (const QWidget *top : QApplication::topLevelWidgets()) {
            if (top->windowHandle() == &target)
                parts = top->findChildren<QWidget *>();
        }
        parts.removeIf([&target](const QWidget *part) {
            return !part->isVisible() || part->window()->windowHandle() != &target;
        });
        return parts;
    }

    void click()
    {
        if (QWindow *const target = shownWindow())
            QTest::mouseClick(target, roll(8) ? Qt::LeftButton : Qt::RightButton, {}, pointOf(*target));
    }

    void stroke()
    {
        QWindow *const target = shownWindow();
        if (!target)
            return;
        QPoint point = pointOf(*target);
        QTest::mousePress(target, Qt::LeftButton, {}, point);
        for (int i = roll(100); i > 0; --i) {
            point += QPoint(roll(21) - 8, roll(21) - 10);
            QTest::mouseMove(target, point);
        }
        // At times the release goes astray.
        if (roll(6) > 0)
            QTest::mouseRelease(target, Qt::LeftButton, {}, point);
    }

    void touch()
    {
        QWindow *const target = shownWindow();
        if (!target)
            return;
        static QPointingDevice *const device = QTest::createTouchDevice();
        const int fingers = 1 + roll(3);
        for (int phase = 0; phase < 2 + roll(20); ++phase) {
            auto sequence = QTest::touchEvent(target, device);
            for (int finger = 0; finger < fingers; ++finger) {
                const QPoint point = pointOf(*target);
                if (phase == 0)
                    sequence.press(finger, point);
                else
                    sequence.move(finger, point);
            }
        }
        auto end = QTest::touchEvent(target, device);
        for (int finger = 0; finger < fingers; ++finger)
            end.release(finger, pointOf(*target));
    }

    void press()
    {
        static const QList<Qt::Key> keys{Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Space,
                                         Qt::Key_Escape, Qt::Key_A,       Qt::Key_9,      Qt::Key_Backspace,
                                         Qt::Key_Left,   Qt::Key_Down};
        if (QWindow *const target = shownWindow())
            QTest::keyClick(target, keys[roll(int(keys.size()))],
                            roll(5) ? Qt::NoModifier : Qt::ShiftModifier);
    }

    void changeScreen()
    {
        QScreen *const screen = QGuiApplication::primaryScreen();
        if (roll(2))
            Q_EMIT screen->geometryChanged(QRect(0, 0, 300 + roll(2000), 300 + roll(2000)));
        else
            Q_EMIT screen->orientationChanged(roll(2) ? Qt::PortraitOrientation : Qt::LandscapeOrientation);
    }

    void changeLanguage()
    {
        static const QStringList languages{QStringLiteral("zh-Hans"), QStringLiteral("zh-Hant"),
                                           QStringLiteral("en"), QString()};
        QVSDKManager::setPreferredLanguage(languages[roll(int(languages.size()))]);
        for (QWidget *widget : QApplication::topLevelWidgets())
            QCoreApplication::postEvent(widget, new QEvent(QEvent::LanguageChange));
    }

    const quint32 m_seed;
    QRandomGenerator m_random;
    std::vector<std::unique_ptr<DemoWindow>> &m_windows;
};

int play(int seconds, quint32 seed)
{
    DemoServices services(seed);
    QString problem;
    if (!services.start({}, problem))
        qFatal("%s", qUtf8Printable(problem));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("demo"), QStringLiteral("random"));
    EventLog log;
    std::vector<std::unique_ptr<DemoWindow>> windows;
    for (const DemoMode mode : {DemoMode::Embed, DemoMode::Click, DemoMode::Invisible}) {
        DemoOptions options;
        options.mode = mode;
        windows.push_back(std::make_unique<DemoWindow>(options, log));
        windows.back()->show();
    }
    RandomInput input(seed, windows);
    // A menu of Qt's own, such as a scroll bar's, waits in its own loop for a choice.
    QTimer menuCloser;
    QObject::connect(&menuCloser, &QTimer::timeout, [] {
        if (QWidget *const menu = QApplication::activePopupWidget())
            menu->close();
    });
    menuCloser.start(100);
    QElapsedTimer clock;
    clock.start();
    quint32 steps = 0;
    for (; clock.elapsed() < seconds * 1000LL; ++steps) {
        ::alarm(hangSeconds);
        input.step(steps);
        QTest::qWait(steps % 20 == 0 ? 30 : 0);
    }
    ::alarm(0);
    std::printf("%u steps survived\n", steps);
    return 0;
}

} // namespace

/// Plays random input to the demo for so many seconds, chosen by a seed that it prints or is given.
int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    quietPlatform();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QStandardPaths::setTestModeEnabled(true);
    const QStringList arguments = QApplication::arguments();
    const int seconds = arguments.value(1).toInt();
    if (seconds < 1) {
        std::fprintf(stderr, "usage: quarvo-random-input SECONDS [SEED]\n");
        return exitBadInput;
    }
    const quint32 seed =
        arguments.size() > 2 ? arguments[2].toUInt() : QRandomGenerator::global()->generate();
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    PageEater pages;
    QDesktopServices::setUrlHandler(QStringLiteral("http"), &pages, "take");
    QDesktopServices::setUrlHandler(QStringLiteral("https"), &pages, "take");
    const int status = play(seconds, seed);
    QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    return status;
}

#include "random-input.moc"
