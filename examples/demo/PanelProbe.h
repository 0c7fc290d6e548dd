#pragma once

#include <Quarvo/QVError.h>

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QVector>
#include <QWidget>

class EventLog;

/// Watches the drawing panel that is on screen, wherever the component put it, as a test of a user
/// interface would: by its widgets.
class PanelProbe : public QObject
{
    Q_OBJECT

public:
    explicit PanelProbe(EventLog &log, QObject *parent = nullptr);

    /// The panel on screen, or null.
    [[nodiscard]] QWidget *panel() const;
    /// A part of the panel on screen by its object name, or null.
    [[nodiscard]] QWidget *part(const QString &name) const;
    /// Points of the picture, in its units (400 wide), as points of the panel; none where there is no
    /// picture.
    [[nodiscard]] QVector<QPointF> onPanel(QVector<QPointF> points) const;
    /// The popup's close button, or null.
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
