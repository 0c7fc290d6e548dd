#pragma once

#include <QObject>
#include <QPointer>

class QWidget;
class QWindow;

/// Tells what happens to a window of the host that something of ours lies on.
class QVHostWatch final : public QObject
{
    Q_OBJECT

public:
    explicit QVHostWatch(QWidget *host, QObject *parent = nullptr);
    /// A window that is no widget; nothing can be laid into it, so it is never restacked().
    explicit QVHostWatch(QWindow *host, QObject *parent = nullptr);

    /// The window to show something on: \a preferred if there is one, else the active window, else
    /// any visible one, else none.
    [[nodiscard]] static QWidget *hostWindow(QWidget *preferred = nullptr);
    /// Where hostWindow() finds none: the window of another toolkit (Qt Quick's) that has the focus,
    /// else any visible one, else none.
    [[nodiscard]] static QWindow *foreignWindow();

    /// Makes \a host the parent of \a child without its noticing: a window that takes each new child
    /// into a layout of its own (a splitter does) leaves this one alone.
    static void adopt(QWidget *host, QWidget *child);

Q_SIGNALS:
    /// Its size changed; that of a window that is no widget, or its place.
    void resized();
    /// The host added or raised a child, which may cover ours.
    void restacked();
    /// The window was closed or destroyed. Comes from the event loop, never out of the window's own
    /// destructor, where its owner's slots must not be called any more.
    void ended();

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void watchChild(QObject *child);
    void watchWindow(const QEvent &event);
    void endLater();
    [[nodiscard]] bool hostIsVisible() const;

    QPointer<QWidget> m_host;
    QPointer<QWindow> m_foreignHost;
};
