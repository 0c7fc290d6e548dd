#pragma once

#include "flow/QVPopupGeometry.h"
#include "layers/QVValueAnimation.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class QVFocusTrap;
class QVHostWatch;

/// The surface that a popup lives on, which keeps all input from what lies below it. Where it lies is
/// decided anew at each display, and when its host is disabled, blocked, hidden or too small meanwhile:
/// as a layer in the host's window, or in a window of its own.
class QVWindow final : public QWidget
{
    Q_OBJECT

public:
    QVWindow();
    ~QVWindow() override;

    /// Keeps \a controller alive until it is taken out again or this window ends.
    void setRootController(std::shared_ptr<void> controller);
    [[nodiscard]] std::shared_ptr<void> takeRootController();

    /// Where the popup's elements go, in this window's coordinates.
    [[nodiscard]] QRect popupScreen() const { return m_geometry.screen(); }

    /// Shows it over \a host, a QWidget or a QWindow; over the main screen where that is null. Moves the
    /// focus, in answer to which this may be destroyed.
    void makeKeyAndVisible(QObject *host);
    void resignKeyAndHide();
    /// Destroys it from the event loop. While the focus is being moved, that waits until it has been.
    void destroySoon();

Q_SIGNALS:
    void popupScreenChanged();
    /// Escape or Back, the platform's own way of closing a window, or a click beside the card where
    /// the host wants that.
    void closeRequested();
    /// It is being destroyed by somebody else: together with a window that it lay in.
    void destroyedWithHost();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    using Place = QVPopupGeometry::Place;

    void watchHost();
    [[nodiscard]] std::unique_ptr<QVHostWatch> follow(QObject *window);
    void place();
    void placeSoon();
    void placeAgain();
    /// Whether the popup can be used where it lies now.
    [[nodiscard]] bool canStay() const;
    void lieIn(QWidget *container);
    void standAlone(Place place, QObject *over);
    void fitToHost();
    void layOutScreen();
    void containerHides();
    [[nodiscard]] QWidget *container() const;
    [[nodiscard]] std::optional<QVPopupGeometry::Host> surroundings(const QWidget *container) const;
    /// Whether the popup is a window that covers the whole screen.
    [[nodiscard]] bool fillsScreen() const;
    [[nodiscard]] QRect ownFrame() const;
    void stayOnTop();
    void blockedChanges(bool isBlocked);
    /// Enables the popup and all parts of it after the host has disabled them one by one. A button that rests
    /// while an answer is checked is enabled early by this.
    void enableParts();
    [[nodiscard]] bool isBesideCard(const QMouseEvent &event) const;

    // Ends before the children, whose focus goes with them.
    std::unique_ptr<QVFocusTrap> m_focusTrap;
    std::shared_ptr<void> m_rootController;
    QPointer<QObject> m_host;
    /// The window that this one lies in or stands over: the host, or a modal one over it.
    QPointer<QWidget> m_container;
    std::unique_ptr<QVHostWatch> m_hostWatch;
    std::unique_ptr<QVHostWatch> m_containerWatch;
    QVValueAnimation m_dimming{this};
    double m_dimmedPart = 1;
    QVPopupPresentation m_presentation;
    QVPopupGeometry m_geometry;
    bool m_isWanted = false;
    /// Whether a modal window of the host keeps input from this one.
    bool m_isBlocked = false;
    bool m_pressedBesideCard = false;
};
