#include "flow/QVRenderDrawBars.h"

#include "platform/QVScheduler.h"
#include "settings/QVLocalizationKeys.h"

namespace {

constexpr std::chrono::milliseconds errorDuration(800);

} // namespace

QVRenderDrawBars::QVRenderDrawBars(QVOverlaySurface *surface, QVRenderDrawImageViewDelegate *delegate)
    : m_surface(surface)
    , m_delegate(delegate)
{
}

void QVRenderDrawBars::showPrompt(bool isCharVerify)
{
    if (!m_showView || m_showView == Bar::Prompt)
        slideIn(Bar::Prompt, isCharVerify ? QVKey::characterCaptcha : QVKey::drawCaptcha);
}

void QVRenderDrawBars::showError(const QVText &message, bool canClicked)
{
    hiddenPrompt();
    m_errorAcceptsTouches = canClicked;
    slideIn(Bar::Error, message);
    if (canClicked)
        return;
    // Never cancelled: the bar that is shown when the time is up decides what happens.
    QVScheduler::shared().schedule(QVOverlaySurface::slideDuration + errorDuration,
                                   [weak = weak_from_this()] {
                                       if (const auto self = weak.lock())
                                           self->hiddenDelayError();
                                   });
}

void QVRenderDrawBars::hiddenDelayError()
{
    if (m_errorAcceptsTouches)
        return;
    hiddenError();
    if (auto *const delegate = m_delegate.get())
        delegate->renderDrawImageViewHiddenDelayErrorCompleted();
}

void QVRenderDrawBars::showSuccess(const QVText &text)
{
    hiddenPrompt();
    hiddenError();
    slideIn(Bar::Success, text);
}

void QVRenderDrawBars::hiddernAll()
{
    hiddenSuccess();
    hiddenPrompt();
    hiddenError();
}

void QVRenderDrawBars::slideIn(Bar bar, const QVText &text)
{
    m_showView = bar;
    if (auto *const surface = m_surface.get())
        surface->slideIn(bar, text, bar == Bar::Error && m_errorAcceptsTouches);
}

void QVRenderDrawBars::slideOut(Bar bar)
{
    m_showView.reset();
    if (auto *const surface = m_surface.get())
        surface->slideOut(bar);
}
