#pragma once

#include "layout/QVLayout.h"
#include "settings/QVColors.h"
#include "settings/QVText.h"
#include "views/QVTouchButton.h"

class QVLabel;

/// A bar over the picture: an icon followed by a line of text.
class QVRenderDrawOverlayView final : public QVTouchButton
{
    Q_OBJECT

public:
    /// 30 logical pixels; more if the platform's text is larger than usual.
    [[nodiscard]] static int defaultHeight();

    QVRenderDrawOverlayView(const QColor &background, QVColors::Source text, QWidget *parent = nullptr);

    [[nodiscard]] QVLabel *overlayLabel() const { return m_overlayLabel; }
    /// Either may be null.
    void setOverlayImage(const QPixmap &image, const QVText &text);
    /// Shows the text in the current language.
    void translate();
    /// The height of a bar of this \a width: the default height, or more if the text needs two lines.
    [[nodiscard]] int heightFor(int width) const;

    /// Keeps the text above the lowest \a height pixels, which another widget covers.
    void setCoveredHeight(int height);

    /// Whether the bar can be tapped while it is on screen. Otherwise all input goes to the widget below.
    [[nodiscard]] bool acceptsTouches() const { return m_acceptsTouches; }
    void setAcceptsTouches(bool accepts);
    [[nodiscard]] bool isOnScreen() const { return m_isOnScreen; }
    /// A bar that slides out takes neither taps nor focus.
    void setOnScreen(bool onScreen);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void updateInput();
    [[nodiscard]] int rightInset() const;
    /// The frame of the symbol that invites to tap and try again.
    [[nodiscard]] QRect retryFrame() const;

    QVLabel *m_overlayLabel;
    QPixmap m_image;
    QVText m_text;
    QVLayout m_layout;
    QColor m_background;
    bool m_acceptsTouches = false;
    bool m_isOnScreen = false;
};
