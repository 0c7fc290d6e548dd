#pragma once

#include "flow/QVVerifyStyle.h"
#include "layout/QVLayout.h"

/// Where the parts of the draw view are.
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

    /// Places everything for a drawing captcha. \a contentWidth counts in the popup styles only; embedded,
    /// the content is as wide as the view, or as fits into a flatter one.
    void initRenders(double contentWidth);
    /// Moves to the shape for characters or for drawing.
    void setIsCharVerify(bool isCharVerify, double contentWidth);
    void setContentWidth(double contentWidth);
    /// How much narrower than an embedded view its content has to be to fit.
    [[nodiscard]] double excessWidth() const;
    /// Leaves that much room below the content. A popup has it anyway.
    void setAlternativeHeight(int height, double contentWidth);
    [[nodiscard]] int alternativeHeight() const { return m_alternativeHeight; }
    /// A help button that is not shown takes no width.
    void setHelpShown(bool shown);
    void layoutNow() { m_layout.layoutNow(); }

private:
    [[nodiscard]] QVLayout::Build contentBuild(double contentWidth) const;
    void buildWidth(QVConstraintMaker &make, double contentWidth) const;
    void placePicture();
    void placeControls();

    QVVerifyStyle m_style;
    Parts m_parts;
    /// Height of the content by its width.
    double m_aspect;
    int m_alternativeHeight = 0;
    QVLayout m_layout;
};
