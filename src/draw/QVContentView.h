#pragma once

#include <QWidget>

/// Contains the picture and the strip for its characters. From a width of 400 on there is a gap between the
/// two, which is painted like the strip.
///
/// A subclass also prevents that a host's style sheet paints a background here: with a rule for QWidget, Qt
/// paints it only on widgets of exactly that class.
class QVContentView final : public QWidget
{
    Q_OBJECT

public:
    explicit QVContentView(QWidget *parent);

    /// Both are children of this view.
    void setGap(const QWidget *picture, const QWidget *strip);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const QWidget *m_picture = nullptr;
    const QWidget *m_strip = nullptr;
};
