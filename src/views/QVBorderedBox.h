#pragma once

#include <QWidget>

/// A white box with round corners and a thin border.
class QVBorderedBox final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *event) override;
};
