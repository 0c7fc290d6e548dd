#pragma once

#include "draw/DrawService.h"
#include "draw/QVRenderDrawView.h"
#include "flow/QVRenderDrawViewDelegate.h"
#include "flow/QVVerifyStyle.h"
#include "platform/QVError.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "views/QVRenderDrawImageView.h"

#include <QWidget>

class QVRenderDrawOverlayView;

/// Tests of the drawing captcha as a user sees it: in a window, by real input, against a service that
/// answers as the test tells it.
class DrawTestCase : public QVTestCase
{
    Q_OBJECT

protected:
    struct Listener : QVRenderDrawViewDelegate
    {
        void renderDrawViewVerifySuccess(const QString &token) override { tokens.append(token); }

        QStringList tokens;
    };

    void prepare() override;
    void finish() override;

    /// Shows a view of \a size in a window. Nothing is asked yet.
    void show(QVVerifyStyle style, QSize size = QSize(414, 400));
    /// Starts the view as its hosts do, and waits for the picture.
    void start(QVVerifyStyle style, QSize size = QSize(414, 400));
    /// Ends the view's life.
    void destroyView() { delete std::exchange(m_view, nullptr); }

    [[nodiscard]] DrawService &service() const { return *m_service; }
    [[nodiscard]] QVRenderDrawView &view() const { return *m_view; }
    template<class Part = QWidget>
    [[nodiscard]] Part *part(const char *name) const
    {
        return m_host->findChild<Part *>(QLatin1String(name));
    }
    [[nodiscard]] QVRenderDrawImageView &picture() const { return *part<QVRenderDrawImageView>("imageView"); }
    [[nodiscard]] bool isShown(const char *name) const { return part(name) && part(name)->isVisible(); }
    /// Where a part is in the view.
    [[nodiscard]] QRect frame(const char *name) const;
    /// The bar that is up: "promptOverlayView", "errorOverlayView" …, or nothing.
    [[nodiscard]] QString bar() const;
    [[nodiscard]] QString barText() const;
    [[nodiscard]] QVRenderDrawOverlayView *shownBar() const;

    /// Draws a stroke that is sent, over the middle of the picture, 20 ms a position.
    void draw();
    void click(const char *name) const;
    /// Wait until the view has told so many of each since the test began.
    [[nodiscard]] bool waitForReady(int count = 1) const
    {
        return waitFor([&] { return readyCount >= count; });
    }
    [[nodiscard]] bool waitForWrongAnswer(int count = 1) const
    {
        return waitFor([&] { return wrongCount >= count; });
    }
    [[nodiscard]] bool waitForFailure() const
    {
        return waitFor([&] { return !failures.isEmpty(); });
    }
    /// Lets \a duration pass in small steps, with all traffic that happens in it.
    void pass(std::chrono::milliseconds duration) const;

    Listener listener;
    int readyCount = 0;
    int wrongCount = 0;
    QList<QVError> failures;

private:
    std::unique_ptr<DrawService> m_service;
    std::unique_ptr<QWidget> m_host;
    QVRenderDrawView *m_view = nullptr;
};
