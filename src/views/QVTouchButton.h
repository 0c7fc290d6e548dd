#pragma once

#include <QAbstractButton>

class QTouchEvent;

/// A button that paints nothing of its own and works alike by mouse, touch and keyboard.
///
/// It takes touches itself, since a parent that takes them would leave it without the mouse events
/// that the platform makes of them.
class QVTouchButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit QVTouchButton(QWidget *parent = nullptr);

    /// Shows the button pressed or not; called whenever that changes.
    virtual void setHighlighted(bool highlighted);

protected:
    static constexpr qreal pressedOpacity = 0.8;
    /// Laid over a button that the pointer is on.
    static constexpr QColor hoverTint{255, 255, 255, 45};

    /// Whether the pointer is on it and would press it.
    [[nodiscard]] bool isHovered() const { return underMouse() && isEnabled() && !isDown(); }

    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    bool takeTouch(QTouchEvent &event);
    void touchMoved(bool isInside);
    void touchEnded();

    bool m_isTouched = false;
};
