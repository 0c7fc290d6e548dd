#pragma once

#include <QWidget>

/// Holds the picture and the strip for its characters. From a width of 400 on there is a gap between the
/// two, which belongs to the strip and is painted like it.
///
/// It has a class of its own also because a host's style sheet that gives QWidget a background paints it on
/// widgets of exactly that class.
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
