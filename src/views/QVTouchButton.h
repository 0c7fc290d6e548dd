#pragma once

#include <QAbstractButton>

class QTouchEvent;

/// A button without a look, which works by mouse, touch and keyboard.
///
/// It handles touches itself. If a parent accepted them, the platform would not make mouse events for the
/// button of them.
class QVTouchButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit QVTouchButton(QWidget *parent = nullptr);

    /// Shows the button as pressed or not. Called whenever that changes.
    virtual void setHighlighted(bool highlighted);

protected:
    static constexpr qreal pressedOpacity = 0.8;

    /// Whether the pointer is on the button and a click would press it.
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
