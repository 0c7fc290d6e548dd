#pragma once

#include "layers/QVTicker.h"
#include "platform/QVTimer.h"

#include <QObject>
#include <QPointer>

#include <optional>

class QWidget;

/// Connects a client to the ticker while it runs and its widget is visible. While the widget is not visible,
/// the client is called only when an animation ends.
class QVFrameLink final : public QObject
{
public:
    using Time = QVTickerClient::Time;

    QVFrameLink(QVTickerClient &client, QWidget &widget);
    ~QVFrameLink() override;

    /// Starts the ticks. \a end is the time of the next end of an animation; empty if there is none.
    void run(std::optional<Time> end);
    void stop();
    [[nodiscard]] bool isRunning() const { return m_running; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watchWindow();
    void setVisible(bool visible);
    void update();

    QVTickerClient &m_client;
    QPointer<QWidget> m_widget;
    QPointer<QWidget> m_window;
    QVTimer m_endTimer;
    std::optional<Time> m_end;
    bool m_running = false;
    bool m_visible;
};
