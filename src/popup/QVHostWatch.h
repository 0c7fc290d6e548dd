#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Reports changes of a window of the host, which is a widget or a window of another toolkit.
class QVHostWatch final : public QObject
{
    Q_OBJECT

public:
    explicit QVHostWatch(QObject *host, QObject *parent = nullptr);

    /// Whether \a host is a window on screen, minimised or not.
    [[nodiscard]] static bool isShown(const QObject *host);
    /// Makes \a host the parent of \a child without an event to the host. A window that adds new children to
    /// its layout, such as a splitter, would add this one, too.
    static void adopt(QWidget *host, QWidget *child);

Q_SIGNALS:
    /// The size has changed, or the position of a window that is not a widget.
    void resized();
    /// The host has added or raised a child, which may cover the popup.
    void restacked();
    /// The window was enabled or disabled, or was blocked or unblocked by a modal window.
    void usabilityChanged();
    /// The window is being hidden or closed at this moment, maybe in a destructor.
    void hiding();
    /// The window was hidden, closed or destroyed. Emitted from the event loop, never in the destructor of
    /// the window, when its slots must not be called any more.
    void ended();

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void watchWidget(const QEvent &event);
    void watchWindow(const QEvent &event);
    void watchChild(QObject *child);
    void endLater();

    QPointer<QObject> m_host;
};
