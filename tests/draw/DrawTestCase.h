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

/// Tests of the drawing captcha as a user sees it: in a window, by real input, against a service that
/// answers as the test tells it.
class DrawTestCase : public QVTestCase, public QVRenderDrawViewDelegate
{
    Q_OBJECT

public:
    void renderDrawViewHasPassed() override { told.append(q("passed")); }
    void renderDrawViewVerifySuccess(const QString &token) override { told.append(token); }

protected:
    void prepare() override;
    void finish() override;

    /// Shows a view of \a size in a window. Nothing is asked yet.
    void show(QVVerifyStyle style, QSize size = QSize(414, 400));
    /// Starts the shown view as its hosts do.
    void start();
    /// Starts a view and waits for its picture, and for the bars and the shape to come to rest.
    void startWithPicture(QVVerifyStyle style, QSize size = QSize(414, 400));
    void destroyView() { delete std::exchange(m_view, nullptr); }

    [[nodiscard]] DrawService &service() const { return *m_service; }
    /// The view, or null where there is none.
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
    /// Where a part is in the view.
    [[nodiscard]] QRect frame(const QString &name) const;
    /// The bar that is up, or null.
    [[nodiscard]] QVRenderDrawOverlayView *bar() const;

    /// Points of a stroke that is sent, over the middle of the picture or from that of another part.
    [[nodiscard]] QVPointerInput::Points stroke(const QString &part = {}) const;
    void click(const QString &name) const;
    /// Waits until the view has told something so many times.
    [[nodiscard]] bool waitForTold(const char *what, int count = 1) const
    {
        return waitFor([&] { return told.count(q(what)) >= count; });
    }
    /// Runs the event loop until nothing is under way but what waits for its time.
    void settle() const;
    /// Lets \a duration pass in small steps, with all traffic that happens in it.
    void pass(std::chrono::milliseconds duration) const;

    /// What the view has told, by signals and to its delegate.
    QStringList told;

private:
    std::unique_ptr<DrawService> m_service;
    std::unique_ptr<QWidget> m_host;
    QVRenderDrawView *m_view = nullptr;
};
