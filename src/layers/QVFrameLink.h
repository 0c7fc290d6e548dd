#pragma once

#include "layers/QVTicker.h"
#include "platform/QVTimer.h"

#include <QObject>
#include <QPointer>

#include <optional>

class QWidget;

/// Ties a client to the ticker for as long as it moves and its widget can be seen. Out of sight it
/// is called only when what runs ends.
class QVFrameLink final : public QObject
{
public:
    using Time = QVTickerClient::Time;

    /// Without a widget the client always counts as visible.
    QVFrameLink(QVTickerClient &client, QWidget *widget);
    ~QVFrameLink() override;

    /// The client moves from now on; \a end is when it next has something to finish, if ever.
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
    bool m_visible = true;
};
