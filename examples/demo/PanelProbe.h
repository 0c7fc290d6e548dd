#pragma once

#include <Quarvo/QVError.h>

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QVector>
#include <QWidget>

class EventLog;

/// Watches the drawing panel on screen, in the window or in a popup. It finds the panel by its widgets, as a
/// test of a user interface does.
class PanelProbe : public QObject
{
    Q_OBJECT

public:
    explicit PanelProbe(EventLog &log, QObject *parent = nullptr);

    /// The panel on screen; null if there is none.
    [[nodiscard]] QWidget *panel() const;
    /// The part of the panel on screen with this object name; null if there is none.
    [[nodiscard]] QWidget *part(const QString &name) const;
    /// Converts points of the picture, in picture units (400 wide), to points of the panel. Empty if there is
    /// no picture.
    [[nodiscard]] QVector<QPointF> onPanel(QVector<QPointF> points) const;
    /// The popup's close button; null if there is none.
    [[nodiscard]] static QWidget *closeButton();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void onReady();
    void onWrongAnswer();
    void onFailed(const QVError &error);

private:
    void watch(QWidget *panel);

    EventLog &m_log;
    QPointer<QWidget> m_panel;
};
