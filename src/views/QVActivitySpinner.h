#pragma once

#include "layers/QVLayerHost.h"

#include <QWidget>

/// A small grey ring with a gap that turns while something is under way. Hidden while it does not turn.
class QVActivitySpinner final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int defaultSide = 20;

    explicit QVActivitySpinner(QWidget *parent = nullptr);

    void startAnimating();
    void stopAnimating();
    [[nodiscard]] QSize sizeHint() const override { return {defaultSide, defaultSide}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVLayerHost m_layers;
    std::shared_ptr<QVLayer> m_ring;
};
