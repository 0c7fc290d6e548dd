#pragma once

#include <QWidget>

/// A white box with round corners and a thin border.
class QVBorderedBox final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Highlights the border while the user types in the box.
    void setIsEdited(bool isEdited);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isEdited = false;
};
