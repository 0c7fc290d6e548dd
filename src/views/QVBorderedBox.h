#pragma once

#include <QWidget>

/// A white box with round corners and a thin border.
class QVBorderedBox final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// A box that is typed in has the border that says so.
    void setIsEdited(bool isEdited);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isEdited = false;
};
