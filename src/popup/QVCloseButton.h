#pragma once

#include "views/QVTouchButton.h"

#include <QPixmap>

/// The popup's close control: a cross on a black disc.
class QVCloseButton final : public QVTouchButton
{
    Q_OBJECT

public:
    explicit QVCloseButton(QWidget *parent = nullptr);

    [[nodiscard]] static QSize defaultSize() { return {32, 32}; }
    [[nodiscard]] QSize sizeHint() const override { return defaultSize(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_cross;
};
