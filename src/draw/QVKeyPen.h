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
/// This widget is the mark at the pen's position. The strokes go through the recogniser, like all others.
class QVKeyPen final : public QWidget
{
    Q_OBJECT

public:
    /// \a picture is inside \a view, and \a recognizer receives the strokes. All three must outlive this.
    QVKeyPen(QWidget *view, QWidget *picture, QVPanGestureRecognizer &recognizer);

    /// Sets whether there is a picture to draw on.
    void setReady(bool ready);
    /// Updates the mark: the pen may have been lifted by other code.
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
    /// The position of the pen in the view's coordinates.
    [[nodiscard]] QPointF location() const;

    QWidget *m_picture;
    QVPanGestureRecognizer &m_recognizer;
    /// The position as fractions of the picture's size, so that it stays in place when that is resized.
    QPointF m_place{0.1, 0.5};
    QSet<int> m_heldArrows;
    /// Shows the keys until one of them is used.
    QVLabel *m_hint;
    QString m_help;
    bool m_isReady = false;
    bool m_isDown = false;
};
