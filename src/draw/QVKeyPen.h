#pragma once

#include <QPointF>
#include <QSet>
#include <QWidget>

class QKeyEvent;
class QVLabel;
class QVPanGestureRecognizer;

/// Drawing with the keyboard: while the picture has the focus, the arrow keys move a pen over it,
/// Space lowers and lifts it, and Escape discards what was drawn. Shift makes the steps small.
///
/// This is the mark that shows where the pen is; its strokes go the way of all others.
class QVKeyPen final : public QWidget
{
    Q_OBJECT

public:
    /// \a picture lies in \a view, and \a recognizer takes the strokes. All three must outlive this.
    QVKeyPen(QWidget *view, QWidget *picture, QVPanGestureRecognizer &recognizer);

    /// Whether there is something to draw on.
    void setReady(bool ready);
    /// Shows whether the pen is down, which others may have changed.
    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void nameState();
    void translate();
    void showHint();
    void placeHint();
    [[nodiscard]] bool isPenKey(const QKeyEvent &event) const;
    bool pressKey(const QKeyEvent &event);
    void releaseKey(const QKeyEvent &event);
    void movePen(bool finely);
    [[nodiscard]] bool isSteering() const;
    void lowerOrLift();
    void leave();
    /// In the view's coordinates.
    [[nodiscard]] QPointF location() const;

    QWidget *m_picture;
    QVPanGestureRecognizer &m_recognizer;
    /// In parts of the picture, so that it stays in place when that is resized.
    QPointF m_place{0.1, 0.5};
    QSet<int> m_heldArrows;
    /// Says which keys there are, until one is used.
    QVLabel *m_hint;
    QString m_help;
    bool m_isReady = false;
    bool m_isDown = false;
};
