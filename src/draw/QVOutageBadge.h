#pragma once

#include "views/QVPaintedText.h"

#include <QWidget>

/// Says in the picture's top left corner that the outage service is in use.
class QVOutageBadge final : public QWidget
{
    Q_OBJECT

public:
    explicit QVOutageBadge(QWidget *parent);

    /// Takes the size that \a text needs, whatever room the picture has: it may be far from its final size.
    void setText(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVPaintedText m_text{{.pixelSize = 12, .isItalic = true}};
};
