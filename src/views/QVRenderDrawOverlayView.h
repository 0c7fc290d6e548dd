#pragma once

#include "layout/QVLayout.h"
#include "settings/QVText.h"
#include "views/QVColors.h"
#include "views/QVTouchButton.h"

class QVLabel;

/// A bar over the picture: an icon followed by a line of text.
class QVRenderDrawOverlayView final : public QVTouchButton
{
    Q_OBJECT

public:
    /// 30, more where the platform's text is larger than usual.
    [[nodiscard]] static int defaultHeight();

    QVRenderDrawOverlayView(const QColor &background, QVColors::Source text, QWidget *parent = nullptr);

    [[nodiscard]] QVLabel *overlayLabel() const { return m_overlayLabel; }
    /// Without a picture, or with a null text, the other one stands alone.
    void setOverlayImage(const QPixmap &image, const QVText &text);
    /// Shows the text in the language in force.
    void translate();
    /// The bar's height where it is \a width wide: the default one, more where the text takes two lines.
    [[nodiscard]] int heightFor(int width) const;

    /// Keeps the line above what lies over the bar's lowest \a height.
    void setCoveredHeight(int height);

    /// Whether the bar can be tapped while it is on screen. Otherwise it lets everything through to
    /// what lies below.
    [[nodiscard]] bool acceptsTouches() const { return m_acceptsTouches; }
    void setAcceptsTouches(bool accepts);
    [[nodiscard]] bool isOnScreen() const { return m_isOnScreen; }
    /// A bar on its way out takes no more taps and no focus.
    void setOnScreen(bool onScreen);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void updateInput();
    [[nodiscard]] int rightInset() const;
    /// Where the mark is that says that a tap tries again.
    [[nodiscard]] QRect retryFrame() const;

    QVLabel *m_overlayLabel;
    QPixmap m_image;
    QVText m_text;
    QVLayout m_layout;
    QColor m_background;
    bool m_acceptsTouches = false;
    bool m_isOnScreen = false;
};
