#pragma once

#include "draw/QVRenderDrawView.h"
#include "flow/QVRenderDrawViewDelegate.h"
#include "flow/QVVerifyStyle.h"
#include "platform/QVError.h"
#include "support/DrawServiceTestCase.h"
#include "support/QVPointerInput.h"
#include "support/QVWait.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QWidget>

/// Base of the tests of the drawing captcha as a user sees it: in a window, with real input events and a
/// scripted service.
class DrawTestCase : public DrawServiceTestCase, public QVRenderDrawViewDelegate
{
public:
    void renderDrawViewHasPassed() override { told.append(q("passed")); }
    void renderDrawViewVerifySuccess(const QString &token) override { told.append(token); }

protected:
    void prepare() override
    {
        DrawServiceTestCase::prepare();
        told.clear();
    }

    void finish() override
    {
        m_host.reset();
        DrawServiceTestCase::finish();
    }

    /// Shows a view of \a size in a window and starts it as its hosts do.
    void start(QVVerifyStyle style, QSize size = QSize(414, 400))
    {
        told.clear();
        m_host = std::make_unique<QWidget>();
        m_host->resize(size);
        view = new QVRenderDrawView(style, m_host.get());
        view->setGeometry(m_host->rect());
        view->setDelegate(this);
        connect(view, &QVRenderDrawView::ready, this, [this] { told.append(q("ready")); });
        connect(view, &QVRenderDrawView::wrongAnswer, this, [this] { told.append(q("wrong")); });
        connect(view, &QVRenderDrawView::outageStarted, this, [this] { told.append(q("outage")); });
        connect(view, &QVRenderDrawView::failed, this,
                [this](const QVError &error) { told.append(q("failed %1").arg(error.code())); });
        m_host->show();
        QVERIFY(qv_becomesActive(*m_host));
        if (style == QVVerifyStyleEmbed)
            advance(std::chrono::milliseconds(100));
        else
            view->requestQuarvoConfigAction();
    }

    /// The same, and waits for its picture, and for the bars and the shape to come to rest.
    void startWithPicture(QVVerifyStyle style, QSize size = QSize(414, 400))
    {
        start(style, size);
        QVERIFY(waitForTold("ready"));
        advance(std::chrono::milliseconds(300));
    }

    template<class Part = QWidget>
    [[nodiscard]] Part *part(const QString &name) const
    {
        return m_host->findChild<Part *>(name);
    }
    [[nodiscard]] QVRenderDrawImageView &picture() const
    {
        return *part<QVRenderDrawImageView>(q("imageView"));
    }
    /// The frame of a part in the view's coordinates.
    [[nodiscard]] QRect frame(const QString &name) const
    {
        return {part(name)->mapTo(view, QPoint(0, 0)), part(name)->size()};
    }
    /// The bar on screen; null if there is none.
    [[nodiscard]] QVRenderDrawOverlayView *bar() const
    {
        for (auto *const bar : picture().findChildren<QVRenderDrawOverlayView *>()) {
            if (bar->isOnScreen())
                return bar;
        }
        return nullptr;
    }

    /// Points of a stroke, over the middle of the picture or from that of another part.
    [[nodiscard]] QVPointerInput::Points stroke(const QString &part = {}) const
    {
        const QRect area = frame(q("imageView"));
        const QPoint start =
            part.isEmpty() ? area.topLeft() + QPoint(30, area.height() / 2) : frame(part).center();
        return QVPointerInput::wave(start, 20, start.x() > area.center().x() ? -8 : 8);
    }
    void clickOn(const QString &name) const
    {
        QVPointerInput::click(*part(name), part(name)->rect().center());
    }
    /// Waits until the view has told something.
    [[nodiscard]] bool waitForTold(const char *what) const
    {
        return waitFor([&] { return told.contains(q(what)); });
    }

    QVRenderDrawView *view = nullptr;
    /// What the view has reported by signals and to its delegate.
    QStringList told;

private:
    std::unique_ptr<QWidget> m_host;
};
