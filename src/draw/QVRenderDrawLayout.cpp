#include "draw/QVRenderDrawLayout.h"

#include "flow/QVDrawGeometry.h"

#include <QWidget>

QVRenderDrawLayout::QVRenderDrawLayout(QVVerifyStyle style, const Parts &parts)
    : m_style(style)
    , m_parts(parts)
    , m_layout(parts.view)
{
}

void QVRenderDrawLayout::initRenders(double contentWidth)
{
    m_layout.make(m_parts.contentView, contentBuild(contentWidth));
    placePicture();
    placeControls();
    m_layout.layoutNow();
}

void QVRenderDrawLayout::setIsCharVerify(bool isCharVerify, double contentWidth)
{
    m_isCharVerify = isCharVerify;
    const QVLayout::Build build = contentBuild(contentWidth);
    if (m_style == QVVerifyStyleEmbed)
        m_layout.make(m_parts.contentView, build);
    else
        m_layout.remake(m_parts.contentView, build);
    m_layout.animateLayout(QVDrawGeometry::changeDuration);
}

void QVRenderDrawLayout::setContentWidth(double contentWidth)
{
    m_layout.make(m_parts.contentView,
                  [this, contentWidth](QVConstraintMaker &make) { buildWidth(make, contentWidth); });
}

void QVRenderDrawLayout::setAlternativeHeight(int height, double contentWidth)
{
    m_belowContent = height;
    m_layout.remake(m_parts.contentView, contentBuild(contentWidth));
    m_layout.make(m_parts.alternativeButton,
                  [height](QVConstraintMaker &make) { make.height().equalTo(height); });
    m_layout.layoutNow();
}

void QVRenderDrawLayout::setHelpShown(bool shown)
{
    m_layout.make(m_parts.helpButton, [shown](QVConstraintMaker &make) {
        make.width().equalTo(shown ? QVDrawGeometry::controlSide : 0);
    });
    m_layout.layoutNow();
}

double QVRenderDrawLayout::excessWidth() const
{
    if (m_style != QVVerifyStyleEmbed)
        return 0;
    return m_parts.view->width() -
           QVDrawGeometry::embeddedWidth(m_parts.view->size(), m_isCharVerify, m_belowContent);
}

QVLayout::Build QVRenderDrawLayout::contentBuild(double contentWidth) const
{
    return [this, contentWidth](QVConstraintMaker &make) {
        make.centerX().equalTo(m_parts.view);
        make.centerY().equalTo(m_parts.view).offset(-QVDrawGeometry::contentLift(m_style, m_belowContent));
        buildWidth(make, contentWidth);
        make.height().equalTo(make.width()).multipliedBy(QVDrawGeometry::contentAspect(m_isCharVerify));
    };
}

void QVRenderDrawLayout::buildWidth(QVConstraintMaker &make, double contentWidth) const
{
    if (m_style == QVVerifyStyleEmbed)
        make.width().equalTo(m_parts.view).offset(-excessWidth());
    else
        make.width().equalTo(contentWidth);
}

void QVRenderDrawLayout::placePicture()
{
    m_layout.make(m_parts.imageView, [this](QVConstraintMaker &make) {
        make.top().equalTo(m_parts.contentView);
        make.centerX().equalTo(m_parts.contentView);
        make.width().equalTo(m_parts.contentView);
        make.height().equalTo(make.width()).multipliedBy(QVDrawGeometry::pictureAspect);
    });
    m_layout.make(m_parts.charInputView, [this](QVConstraintMaker &make) {
        make.left().equalTo(m_parts.contentView);
        make.bottom().equalTo(m_parts.contentView);
        make.right().equalTo(m_parts.contentView);
        make.height().equalTo(QVDrawGeometry::inputHeight);
    });
}

void QVRenderDrawLayout::placeControls()
{
    m_layout.make(m_parts.captchaLabel, [this](QVConstraintMaker &make) {
        make.bottom().equalTo(m_parts.imageView, QVLayoutAttribute::Top).offset(-QVDrawGeometry::captionGap);
        make.centerX().equalTo(m_parts.view);
    });
    m_layout.make(m_parts.helpButton, [this](QVConstraintMaker &make) {
        make.size().equalTo(QSizeF(0, QVDrawGeometry::controlSide));
        make.top().equalTo(m_parts.imageView);
        make.right().equalTo(m_parts.imageView);
    });
    m_layout.make(m_parts.refreshButton, [this](QVConstraintMaker &make) {
        make.size().equalTo(QSizeF(QVDrawGeometry::controlSide, QVDrawGeometry::controlSide));
        make.top().equalTo(m_parts.imageView);
        make.right().equalTo(m_parts.helpButton, QVLayoutAttribute::Left);
    });
    m_layout.make(m_parts.alternativeButton, [this](QVConstraintMaker &make) {
        make.left().equalTo(m_parts.contentView);
        make.right().equalTo(m_parts.contentView);
        make.top().equalTo(m_parts.contentView, QVLayoutAttribute::Bottom);
        make.height().equalTo(0);
    });
}
