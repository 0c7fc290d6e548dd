#pragma once

#include "flow/QVPenSteering.h"

#include <QWidget>

class QVLabel;
class QVRenderDrawImageView;

/// The mark at the position of the pen, which the keyboard moves while the picture has the focus.
class QVKeyPen final : public QWidget
{
    Q_OBJECT

public:
    /// \a picture is inside \a view, and \a recognizer receives the strokes. All three must outlive this.
    QVKeyPen(QWidget *view, QVRenderDrawImageView *picture, QVPanGestureRecognizer &recognizer);

    /// Sets whether there is a picture to draw on.
    void setReady(bool ready);
    /// Updates the mark: the pen may have been lifted by other code.
    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void followPicture();
    void nameState();
    void translate();
    void refreshHint();

    QVRenderDrawImageView *m_picture;
    QVPenSteering m_steering;
    /// Shows the keys until one of them is used.
    QVLabel *m_hint;
    QString m_help;
    bool m_isDown = false;
};
