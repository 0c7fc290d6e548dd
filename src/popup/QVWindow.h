#pragma once

#include "flow/QVPopupGeometry.h"
#include "layers/QVValueAnimation.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class QVFocusTrap;
class QVHostWatch;

/// The surface of a popup, which blocks all input to the widgets below. It is a layer in the host's window,
/// or a separate window. This is decided each time it is shown, and when the host is disabled, blocked,
/// hidden or becomes too small.
class QVWindow final : public QWidget
{
    Q_OBJECT

public:
    QVWindow();
    ~QVWindow() override;

    /// Owns \a controller until takeRootController() or the destruction of this window.
    void setRootController(std::shared_ptr<void> controller);
    [[nodiscard]] std::shared_ptr<void> takeRootController();

    /// The area for the popup's elements, in this window's coordinates.
    [[nodiscard]] QRect popupScreen() const { return m_geometry.screen(); }

    /// Shows this over \a host, a QWidget or a QWindow, or over the main screen if that is null. Moves the
    /// focus: in a focus handler the host may destroy this.
    void makeKeyAndVisible(QObject *host);
    void resignKeyAndHide();
    /// Destroys this from the event loop; while the focus is being moved, after that.
    void destroySoon();

Q_SIGNALS:
    void popupScreenChanged();
    /// The user has pressed Escape or Back, has closed the window by the platform's means, or has clicked
    /// beside the card if the host wants that.
    void closeRequested();
    /// This is being destroyed together with a window of the host that contains it.
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
    /// Whether the popup can be used at its current place.
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

    // A member, so that it is destroyed before the children, which lose the focus when they are destroyed.
    std::unique_ptr<QVFocusTrap> m_focusTrap;
    std::shared_ptr<void> m_rootController;
    QPointer<QObject> m_host;
    /// The window that contains this or is below it: the host, or a modal window over the host.
    QPointer<QWidget> m_container;
    std::unique_ptr<QVHostWatch> m_hostWatch;
    std::unique_ptr<QVHostWatch> m_containerWatch;
    QVValueAnimation m_dimming{*this};
    double m_dimmedPart = 1;
    QVPopupPresentation m_presentation;
    QVPopupGeometry m_geometry;
    bool m_isWanted = false;
    /// Whether a modal window of the host blocks the input of this one.
    bool m_isBlocked = false;
    bool m_pressedBesideCard = false;
};
