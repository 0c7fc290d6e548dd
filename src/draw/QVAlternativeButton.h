#pragma once

#include "views/QVPaintedText.h"
#include "views/QVTouchButton.h"

/// The strip below the picture for who cannot do what it asks.
class QVAlternativeButton final : public QVTouchButton
{
public:
    static constexpr int defaultHeight = 30;

    explicit QVAlternativeButton(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVPaintedText m_text{{.pixelSize = 13}};
};
