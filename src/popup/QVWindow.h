#pragma once

#include "flow/QVPopupGeometry.h"

#include <QWidget>

#include <memory>

class QVFocusTrap;
class QVViewController;

/// The surface that a popup lives on: it covers the host's whole window, or a screen where there is
/// none, and keeps all input from what lies below. It is a part of the host's window where that is a
/// widget, else a window of its own.
class QVWindow final : public QWidget
{
    Q_OBJECT

public:
    explicit QVWindow(QWidget *host);
    ~QVWindow() override;

    /// The topmost visible window of this kind on \a host.
    [[nodiscard]] static const QWidget *topmostIn(const QWidget *host);

    /// Keeps \a controller alive until it is taken out again or this window ends.
    void setRootController(std::shared_ptr<QVViewController> controller);
    [[nodiscard]] std::shared_ptr<QVViewController> takeRootController();

    /// Where the popup's elements go, in this window's coordinates.
    [[nodiscard]] QRect popupScreen() const { return m_geometry.screen(); }

    void makeKeyAndVisible();
    void resignKeyAndHide();

Q_SIGNALS:
    void popupScreenChanged();
    /// Escape or Back, the platform's own way of closing a window, or a click beside the card where
    /// the host wants that.
    void closeRequested();
    void hostEnded();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void coverHost(QWidget *host);
    void coverWindow(QWindow *host);
    void coverScreen(QWidget *host);
    void stayOnTop();
    [[nodiscard]] bool isBesideCard(const QMouseEvent &event) const;

    // Ends before the children, whose focus goes with them.
    std::unique_ptr<QVFocusTrap> m_focusTrap;
    std::shared_ptr<QVViewController> m_rootController;
    const QVPopupPresentation m_presentation;
    QVPopupGeometry m_geometry;
    bool m_pressedBesideCard = false;
};
