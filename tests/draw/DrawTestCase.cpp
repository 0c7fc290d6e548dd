#include "draw/DrawTestCase.h"

#include "settings/QVSDKManager.h"
#include "support/QVWait.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawOverlayView.h"

using namespace std::chrono_literals;

void DrawTestCase::prepare()
{
    QVSDKManager::setPreferredLanguage(q("en"));
    m_service = std::make_unique<DrawService>();
    listener.tokens.clear();
    readyCount = 0;
    wrongCount = 0;
    failures.clear();
}

void DrawTestCase::finish()
{
    m_host.reset();
    m_service.reset();
}

void DrawTestCase::show(QVVerifyStyle style, QSize size)
{
    readyCount = 0;
    m_host = std::make_unique<QWidget>();
    m_host->resize(size);
    m_view = new QVRenderDrawView(style, m_host.get());
    m_view->setGeometry(m_host->rect());
    m_view->setDelegate(&listener);
    connect(m_view, &QVRenderDrawView::ready, this, [this] { ++readyCount; });
    connect(m_view, &QVRenderDrawView::wrongAnswer, this, [this] { ++wrongCount; });
    connect(m_view, &QVRenderDrawView::failed, this,
            [this](const QVError &error) { failures.append(error); });
    m_host->show();
    QVERIFY(qv_becomesActive(*m_host));
}

void DrawTestCase::start(QVVerifyStyle style, QSize size)
{
    show(style, size);
    if (style == QVVerifyStyleEmbed)
        advance(100ms);
    else
        m_view->requestQuarvoConfigAction();
    QVERIFY(waitForReady());
    // The bars and the shape have come to rest.
    advance(300ms);
}

QRect DrawTestCase::frame(const char *name) const
{
    const QWidget *widget = part(name);
    return QRect(widget->mapTo(m_view, QPoint(0, 0)), widget->size());
}

QVRenderDrawOverlayView *DrawTestCase::shownBar() const
{
    const auto bars = picture().findChildren<QVRenderDrawOverlayView *>();
    const auto shown = std::ranges::find_if(bars, &QVRenderDrawOverlayView::isOnScreen);
    return shown == bars.end() ? nullptr : *shown;
}

QString DrawTestCase::bar() const
{
    const QVRenderDrawOverlayView *shown = shownBar();
    return shown ? shown->objectName() : QString();
}

QString DrawTestCase::barText() const
{
    const QVRenderDrawOverlayView *shown = shownBar();
    return shown ? shown->overlayLabel()->text().trimmed() : QString();
}

void DrawTestCase::draw()
{
    const QRect area = frame("imageView");
    const auto points = QVPointerInput::wave(area.topLeft() + QPoint(30, area.height() / 2), 20, 8);
    QVPointerInput::strokeWithMouse(*m_view, points, [this] { advance(20ms); });
}

void DrawTestCase::click(const char *name) const
{
    QWidget *widget = part(name);
    QVPointerInput::click(*widget, widget->rect().center());
}

void DrawTestCase::pass(std::chrono::milliseconds duration) const
{
    constexpr auto step = 100ms;
    for (auto passed = 0ms; passed < duration; passed += step) {
        advance(std::min(step, duration - passed));
        QTest::qWait(5);
    }
}
