#include "layers/QVFrameLink.h"

#include <QEvent>
#include <QWidget>

QVFrameLink::QVFrameLink(QVTickerClient &client, QWidget &widget)
    : m_client(client)
    , m_widget(&widget)
    , m_visible(widget.isVisible() && !widget.window()->isMinimized())
{
    widget.installEventFilter(this);
    watchWindow();
}

QVFrameLink::~QVFrameLink()
{
    QVTicker::shared().stop(&m_client);
}

void QVFrameLink::run(std::optional<Time> end)
{
    m_running = true;
    m_end = end;
    update();
}

void QVFrameLink::stop()
{
    m_running = false;
    update();
}

bool QVFrameLink::eventFilter(QObject *watched, QEvent *event)
{
    const bool ofWidget = watched == m_widget;
    if (ofWidget && event->type() == QEvent::Show) {
        watchWindow();
        setVisible(!m_window->isMinimized());
    } else if (ofWidget && event->type() == QEvent::Hide) {
        // The widgets of a window that is minimised are hidden before isMinimized() is true.
        setVisible(false);
    } else if (watched == m_window && event->type() == QEvent::WindowStateChange) {
        setVisible(m_widget->isVisible() && !m_window->isMinimized());
    }
    return false;
}

void QVFrameLink::watchWindow()
{
    if (m_window == m_widget->window())
        return;
    if (m_window && m_window != m_widget)
        m_window->removeEventFilter(this);
    m_window = m_widget->window();
    m_window->installEventFilter(this);
}

void QVFrameLink::setVisible(bool visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    if (visible && m_running)
        m_client.appear(QVTicker::shared().time());
    update();
}

void QVFrameLink::update()
{
    m_endTimer.stop();
    if (m_running && m_visible) {
        QVTicker::shared().start(&m_client);
        return;
    }
    QVTicker::shared().stop(&m_client);
    if (!m_running || !m_end)
        return;
    m_endTimer.start(*m_end - QVScheduler::shared().now(),
                     [this] { m_client.tick(QVScheduler::shared().now()); });
}
