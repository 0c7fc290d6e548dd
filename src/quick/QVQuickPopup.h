#pragma once

#include "flow/QVPopup.h"
#include "flow/QVPopupPresenter.h"

#include <QPointer>

class QQmlEngine;
class QQuickItem;
class QQuickWindow;
class QVQuickSurface;

/// A popup in the overlay of a window. It lives with its object in QML, which is destroyed by dismissWindow()
/// or with the window.
class QVQuickPopup final : public QVPopup
{
public:
    static void show(QQmlEngine &engine, QVVerifyStyle style, const QVPopupPresenter::Config &config,
                     const QVPopupPresenter::Click &click, QVViewControllerDelegate *delegate);
    ~QVQuickPopup() override;

    void hiddenWindow() override;
    void dismissWindow() override;
    [[nodiscard]] bool canDirectlyShow() const override;

private:
    using QVPopup::QVPopup;

    [[nodiscard]] bool create(QQmlEngine &engine);
    void connectParts();
    void makeKeyAndVisible(QObject *host) override;
    void setOffersAlternative(bool offers) override;
    void moveTo(QQuickWindow &window);
    void objectDestroyed();
    void giveFocusBack();

    QPointer<QObject> m_object;
    QPointer<QVQuickSurface> m_surface;
    QPointer<QQuickWindow> m_window;
    /// What had the keyboard before.
    QPointer<QQuickItem> m_focusBefore;
    /// Whether that item showed the user that it had the focus.
    bool m_showedFocus = false;
    /// Openers hold it weakly, so that it holds itself until its object has gone.
    std::shared_ptr<QVPopup> m_self;
    bool m_isShown = false;
    /// Ends the connections with this.
    QObject m_context;
};
