#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Tells what happens to a window of the host: a widget, or a window of another toolkit.
class QVHostWatch final : public QObject
{
    Q_OBJECT

public:
    explicit QVHostWatch(QObject *host, QObject *parent = nullptr);

    /// Whether \a host is a window on screen, minimised or not.
    [[nodiscard]] static bool isShown(const QObject *host);
    /// Makes \a host the parent of \a child without its noticing: a window that takes each new child
    /// into a layout of its own (a splitter does) leaves this one alone.
    static void adopt(QWidget *host, QWidget *child);

Q_SIGNALS:
    /// Its size changed; that of a window that is no widget, or its place.
    void resized();
    /// The host added or raised a child, which may cover ours.
    void restacked();
    /// It was enabled or disabled, or a modal window blocks it or no longer does.
    void usabilityChanged();
    /// It is being hidden or closed, at this moment. Its owner may be in a destructor.
    void hiding();
    /// It was hidden, closed or destroyed. Comes from the event loop, never out of the window's own
    /// destructor, where its owner's slots must not be called any more.
    void ended();

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void watchWidget(const QEvent &event);
    void watchWindow(const QEvent &event);
    void watchChild(QObject *child);
    void endLater();

    QPointer<QObject> m_host;
};
