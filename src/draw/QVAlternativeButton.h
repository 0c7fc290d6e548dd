#pragma once

#include "paint/QVPaintedText.h"
#include "views/QVTouchButton.h"

/// The text button below the picture, for users who cannot do what it asks.
class QVAlternativeButton final : public QVTouchButton
{
public:
    explicit QVAlternativeButton(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVPaintedText m_text{{.pixelSize = 13}};
};
