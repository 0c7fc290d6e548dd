#include "soak/SoakRun.h"

#include "draw/QVRenderDrawView.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"
#include "views/QVRenderDrawImageView.h"

#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QTest>

using namespace std::chrono_literals;

namespace {

/// How the user goes about it.
struct Course
{
    const char *id = "test-draw";
    bool isOutage = false;
    int wrongs = 0;
    bool refreshes = false;
    bool failsAtFirst = false;
};
constexpr Course courses[] = {{},
                              {.wrongs = 1},
                              {.wrongs = 2},
                              {.refreshes = true},
                              {.id = "test-broken-picture", .failsAtFirst = true},
                              {.id = "test-character"},
                              {.isOutage = true}};
constexpr int styleCount = 3;

QVSandboxOptions sandboxOptions()
{
    QVSandboxOptions options;
    options.seed = 1;
    options.clock = [] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(QVScheduler::shared().now());
    };
    return options;
}

} // namespace

SoakRun::SoakRun()
    : m_sandbox(sandboxOptions())
{
    if (!m_sandbox.listen())
        qFatal("cannot listen on this machine");
    configure();
}

void SoakRun::configure()
{
    const QVSandboxAddresses where = m_sandbox.addresses();
    QVServiceAddresses addresses;
    addresses.setApiHost(where.apiHost);
    addresses.setDownloadHost(where.downloadHost);
    addresses.setImageHost(where.imageHost);
    addresses.setCdn(where.cdn);
    QVSDKManager::setServiceAddresses(addresses);
    QVSDKManager::setOutageServer(where.outageServer);
    QVSDKManager::setPreferredLanguage(QStringLiteral("en"));
}

bool SoakRun::verify(int number, QString &problem)
{
    const auto style = QVVerifyStyle(number % styleCount);
    const int index = number / styleCount % int(std::size(courses));
    const Course &course = courses[index];
    m_tokens.clear();
    m_readyCount = m_wrongCount = m_failureCount = 0;
    m_sandbox.clearLog();
    m_sandbox.setOutageActive(course.isOutage);
    setId(course.id);
    open(style);
    bool isFine = course.failsAtFirst ? retryAfterFailure() : waitForReady();
    for (int wrong = 0; isFine && wrong < course.wrongs; ++wrong) {
        drawWrong();
        isFine = qv_waitFor([&] { return m_wrongCount > wrong; });
    }
    if (isFine && course.refreshes)
        clickPart("refreshButton");
    // Two wrong answers bring another picture, too.
    if (isFine && (course.refreshes || course.wrongs == 2))
        isFine = qv_waitFor([this] { return m_readyCount > 1; });
    if (isFine)
        solve();
    // Time stands still until the service has judged, or a request of a busy machine would time out.
    const bool isPassed =
        isFine && qv_waitFor([] { return !panel()->canDirectlyShow(); }) && qv_waitFor([this] {
            m_time.advance(50ms);
            return !m_tokens.isEmpty();
        });
    if (!isPassed)
        problem = QStringLiteral("verification %1 (mode %2, course %3) gave no token")
                      .arg(number)
                      .arg(style)
                      .arg(index);
    m_manager.reset();
    m_host.reset();
    m_time.advance(200s);
    return isPassed;
}

void SoakRun::setId(const char *id)
{
    QVSDKManager::setQuarvoSDKVid(QLatin1String(id), QStringLiteral("soak"));
}

bool SoakRun::retryAfterFailure()
{
    if (!qv_waitFor([this] { return m_failureCount > 0; }))
        return false;
    setId("test-draw");
    clickPart("errorOverlayView");
    return waitForReady();
}

void SoakRun::open(QVVerifyStyle style)
{
    m_host = std::make_unique<QWidget>();
    m_host->resize(700, 600);
    m_host->show();
    m_host->activateWindow();
    qv_waitFor([this] { return m_host->isActiveWindow(); });
    const auto watch = [this] {
        QObject::connect(panel(), &QVRenderDrawView::ready, m_host.get(), [this] { ++m_readyCount; });
        QObject::connect(panel(), &QVRenderDrawView::failed, m_host.get(), [this] { ++m_failureCount; });
        QObject::connect(panel(), &QVRenderDrawView::wrongAnswer, m_host.get(), [this] { ++m_wrongCount; });
    };
    if (style == QVVerifyStyleEmbed) {
        QVEmbedManager &manager = take<QVEmbedManager>();
        manager.embedView()->setParent(m_host.get());
        manager.embedView()->setGeometry(0, 0, 414, 300);
        manager.embedView()->show();
        watch();
        m_time.advance(100ms);
    } else if (style == QVVerifyStylePopup) {
        QVClickManager &manager = take<QVClickManager>();
        QObject::connect(&manager, &QVClickManager::popupOpened, m_host.get(), watch);
        manager.button()->setParent(m_host.get());
        manager.button()->show();
        QVPointerInput::click(*manager.button(), QPoint(20, 20));
    } else {
        QVInvisibleManager &manager = take<QVInvisibleManager>();
        QObject::connect(&manager, &QVInvisibleManager::popupOpened, m_host.get(), watch);
        manager.startInsivible();
    }
}

template<class Manager>
Manager &SoakRun::take()
{
    auto manager = std::make_unique<Manager>();
    QObject::connect(manager.get(), &Manager::passed, manager.get(),
                     [this](const QString &token) { m_tokens.append(token); });
    Manager &taken = *manager;
    m_manager = std::move(manager);
    return taken;
}

void SoakRun::solve()
{
    m_time.advance(500ms);
    const auto solution = m_sandbox.solution(QString());
    if (!solution)
        return;
    if (!solution->characters.isEmpty())
        return typeCharacters(solution->characters);
    const QWidget &picture = *part("imageView");
    std::vector<QPoint> points;
    for (const QPointF point : solution->points)
        points.push_back(picture.mapTo(panel(), (point * picture.width() / 400).toPoint()));
    drawThrough(points);
}

void SoakRun::drawWrong()
{
    m_time.advance(500ms);
    const QWidget &picture = *part("imageView");
    // Up and down at the edge, where no curve runs.
    constexpr int count = 30;
    std::vector<QPoint> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.push_back(picture.mapTo(panel(), QPoint(8, 10 + 6 * i)));
    drawThrough(points);
}

void SoakRun::drawThrough(const std::vector<QPoint> &points)
{
    QVPointerInput::strokeWithMouse(*panel(), points, [this] { m_time.advance(25ms); });
}

void SoakRun::typeCharacters(const QString &characters)
{
    clickPart("inputTF");
    QTest::keyClicks(part("inputTF"), characters);
    clickPart("doneButton");
}

void SoakRun::clickPart(const char *name)
{
    // What slides or fades in has come to rest.
    m_time.advance(500ms);
    QVPointerInput::click(*part(name), part(name)->rect().center());
}

bool SoakRun::waitForReady()
{
    return qv_waitFor([this] { return m_readyCount > 0; });
}

QVRenderDrawView *SoakRun::panel()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *const view = qobject_cast<QVRenderDrawView *>(widget);
        if (view && view->isVisible())
            return view;
    }
    return nullptr;
}

QWidget *SoakRun::part(const char *name)
{
    return panel()->findChild<QWidget *>(QLatin1String(name));
}
