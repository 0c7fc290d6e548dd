#pragma once

#include "draw/DrawService.h"
#include "draw/QVRenderDrawView.h"
#include "flow/QVRenderDrawViewDelegate.h"
#include "flow/QVVerifyStyle.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "views/QVRenderDrawImageView.h"

#include <QWidget>

class QVRenderDrawOverlayView;

/// Base of the tests of the drawing captcha as a user sees it: in a window, with real input events and a
/// scripted service.
class DrawTestCase : public QVTestCase, public QVRenderDrawViewDelegate
{
    Q_OBJECT

public:
    void renderDrawViewHasPassed() override { told.append(q("passed")); }
    void renderDrawViewVerifySuccess(const QString &token) override { told.append(token); }

protected:
    void prepare() override;
    void finish() override;

    /// Shows a view of \a size in a window. It sends no request yet.
    void show(QVVerifyStyle style, QSize size = QSize(414, 400));
    /// Starts the shown view as its hosts do.
    void start();
    /// Starts a view and waits for its picture, and until the bars and the layout do not move any more.
    void startWithPicture(QVVerifyStyle style, QSize size = QSize(414, 400));
    void destroyView() { delete std::exchange(m_view, nullptr); }

    [[nodiscard]] DrawService &service() const { return *m_service; }
    /// The view; null if there is none.
    [[nodiscard]] QVRenderDrawView *view() const { return m_view; }
    template<class Part = QWidget>
    [[nodiscard]] Part *part(const QString &name) const
    {
        return m_host->findChild<Part *>(name);
    }
    [[nodiscard]] QVRenderDrawImageView &picture() const
    {
        return *part<QVRenderDrawImageView>(q("imageView"));
    }
    [[nodiscard]] bool isShown(const QString &name) const { return part(name) && part(name)->isVisible(); }
    /// The frame of a part in the view's coordinates.
    [[nodiscard]] QRect frame(const QString &name) const;
    /// The bar on screen; null if there is none.
    [[nodiscard]] QVRenderDrawOverlayView *bar() const;

    /// The points of a valid stroke. It begins in the middle of the picture, or of another part.
    [[nodiscard]] QVPointerInput::Points stroke(const QString &part = {}) const;
    void click(const QString &name) const;
    /// Waits until \a told contains \a what at least \a count times.
    [[nodiscard]] bool waitForTold(const char *what, int count = 1) const
    {
        return waitFor([&] { return told.count(q(what)) >= count; });
    }
    /// Runs the event loop until nothing is under way except what waits for a time.
    void settle() const;
    /// Advances the virtual time by \a duration in small steps, and waits for all traffic in between.
    void pass(std::chrono::milliseconds duration) const;

    /// What the view has reported by signals and to its delegate.
    QStringList told;

private:
    std::unique_ptr<DrawService> m_service;
    std::unique_ptr<QWidget> m_host;
    QVRenderDrawView *m_view = nullptr;
};
