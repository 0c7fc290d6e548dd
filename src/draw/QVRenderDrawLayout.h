#pragma once

#include "flow/QVVerifyStyle.h"
#include "layout/QVLayout.h"

/// The places of the draw view's parts.
class QVRenderDrawLayout final
{
public:
    struct Parts
    {
        QWidget *view = nullptr;
        QWidget *contentView = nullptr;
        QWidget *imageView = nullptr;
        QWidget *charInputView = nullptr;
        QWidget *captchaLabel = nullptr;
        QWidget *helpButton = nullptr;
        QWidget *refreshButton = nullptr;
        QWidget *alternativeButton = nullptr;
    };

    QVRenderDrawLayout(QVVerifyStyle style, const Parts &parts);

    /// Places everything for a drawing captcha. \a contentWidth is used only in the popup styles. In an
    /// embedded view the content is as wide as the view, or as fits into its height.
    void initRenders(double contentWidth);
    /// Changes to the layout for characters or for drawing.
    void setIsCharVerify(bool isCharVerify, double contentWidth);
    void setContentWidth(double contentWidth);
    /// How much narrower than an embedded view the content must be to fit into its height.
    [[nodiscard]] double excessWidth() const;
    /// Leaves \a height below the content. A popup has that room anyway.
    void setAlternativeHeight(int height, double contentWidth);
    [[nodiscard]] int alternativeHeight() const { return m_belowContent; }
    /// Gives the help button its width only if it is shown.
    void setHelpShown(bool shown);
    void layoutNow() { m_layout.layoutNow(); }

private:
    [[nodiscard]] QVLayout::Build contentBuild(double contentWidth) const;
    void buildWidth(QVConstraintMaker &make, double contentWidth) const;
    void placePicture();
    void placeControls();

    QVVerifyStyle m_style;
    Parts m_parts;
    bool m_isCharVerify = false;
    int m_belowContent = 0;
    QVLayout m_layout;
};
