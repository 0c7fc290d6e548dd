#include "draw/DrawTestCase.h"

#include "platform/QVError.h"
#include "settings/QVSDKManager.h"
#include "support/QVWait.h"
#include "views/QVRenderDrawOverlayView.h"

using namespace std::chrono_literals;

void DrawTestCase::prepare()
{
    QVSDKManager::setPreferredLanguage(q("en"));
    m_service = std::make_unique<DrawService>();
    told.clear();
}

void DrawTestCase::finish()
{
    m_host.reset();
    m_view = nullptr;
    m_service.reset();
}

void DrawTestCase::show(QVVerifyStyle style, QSize size)
{
    told.clear();
    m_host = std::make_unique<QWidget>();
    m_host->resize(size);
    m_view = new QVRenderDrawView(style, m_host.get());
    m_view->setGeometry(m_host->rect());
    m_view->setDelegate(this);
    connect(m_view, &QVRenderDrawView::ready, this, [this] { told.append(q("ready")); });
    connect(m_view, &QVRenderDrawView::wrongAnswer, this, [this] { told.append(q("wrong")); });
    connect(m_view, &QVRenderDrawView::outageStarted, this, [this] { told.append(q("outage")); });
    connect(m_view, &QVRenderDrawView::failed, this,
            [this](const QVError &error) { told.append(q("failed %1").arg(error.code())); });
    m_host->show();
    QVERIFY(qv_becomesActive(*m_host));
}

void DrawTestCase::start()
{
    if (m_view->verifyStyle() == QVVerifyStyleEmbed)
        advance(100ms);
    else
        m_view->requestQuarvoConfigAction();
}

void DrawTestCase::startWithPicture(QVVerifyStyle style, QSize size)
{
    show(style, size);
    start();
    QVERIFY(waitForTold("ready"));
    advance(300ms);
}

QRect DrawTestCase::frame(const QString &name) const
{
    const QWidget *widget = part(name);
    return QRect(widget->mapTo(m_view, QPoint(0, 0)), widget->size());
}

QVRenderDrawOverlayView *DrawTestCase::bar() const
{
    const auto bars = picture().findChildren<QVRenderDrawOverlayView *>();
    const auto shown = std::ranges::find_if(bars, &QVRenderDrawOverlayView::isOnScreen);
    return shown == bars.end() ? nullptr : *shown;
}

QVPointerInput::Points DrawTestCase::stroke(const QString &part) const
{
    const QRect area = frame(q("imageView"));
    const QPoint start =
        part.isEmpty() ? area.topLeft() + QPoint(30, area.height() / 2) : frame(part).center();
    return QVPointerInput::wave(start, 20, start.x() > area.center().x() ? -8 : 8);
}

void DrawTestCase::click(const QString &name) const
{
    QWidget *widget = part(name);
    QVPointerInput::click(*widget, widget->rect().center());
}

void DrawTestCase::settle() const
{
    QVERIFY(waitFor([this] {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_service->isQuiet();
    }));
}

void DrawTestCase::pass(std::chrono::milliseconds duration) const
{
    const auto stretch = std::max(100ms, duration / 10);
    for (auto left = duration; left > 0ms; left -= stretch) {
        settle();
        advance(std::min(left, stretch));
    }
    settle();
}
