#pragma once

#include "layers/QVLayerHost.h"
#include "views/QVTouchButton.h"

#include <QMargins>

/// A button that shows a picture, slightly translucent while it is pressed.
class QVCustomActionButton final : public QVTouchButton
{
    Q_OBJECT

public:
    explicit QVCustomActionButton(QWidget *parent = nullptr);

    /// Sets the name of a picture of the bundle, which is read when the button is first shown.
    void setImage(const QString &name) { m_imageName = name; }
    /// The free space around the picture.
    void setImageEdgeInsets(const QMargins &insets);
    /// With 0 the button is hidden and takes no input.
    [[nodiscard]] qreal alpha() const { return m_alpha; }
    void setAlpha(qreal alpha);
    void setHighlighted(bool highlighted) override;
    /// The layer of the whole button, for animations. The picture is a sublayer.
    [[nodiscard]] QVLayer &layer() const { return *m_layer; }

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void placePicture();

    QVLayerHost m_layers;
    std::shared_ptr<QVLayer> m_layer;
    std::shared_ptr<QVLayer> m_picture;
    QString m_imageName;
    QMargins m_insets;
    qreal m_alpha = 1;
};
