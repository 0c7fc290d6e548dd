#include "popup/QVWindow.h"

#include "platform/QVScheduler.h"
#include "popup/QVFocusTrap.h"
#include "popup/QVHostWatch.h"
#include "settings/QVColors.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

constexpr QColor dimColor(0, 0, 0, 102);
/// The border of a card that is a separate window: not every platform draws a shadow around it.
constexpr QColor edgeColor(0, 0, 0, 60);

constexpr Qt::WindowFlags cardFlags = Qt::Dialog | Qt::FramelessWindowHint;
constexpr Qt::WindowFlags screenFlags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;

QVPopupPresentation chosenPresentation()
{
    return QVConfigurationManager::sharedManager().popupPresentation();
}

/// Whether \a modal blocks the input of \a window.
bool blocks(const QWidget *modal, const QWidget *window)
{
    if (modal == window || modal->isAncestorOf(window))
        return false;
    if (modal->windowModality() == Qt::ApplicationModal)
        return true;
    const QWidget *opener = modal->parentWidget();
    while (opener && opener != window)
        opener = opener->parentWidget();
    return opener == window;
}

} // namespace

QVWindow::QVWindow()
    : m_focusTrap(std::make_unique<QVFocusTrap>(this))
    , m_presentation(chosenPresentation())
    , m_geometry(size(), true)
{
    qv_setAccessibleRole(this, QAccessible::Dialog);
    setAttribute(Qt::WA_NoMousePropagation);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_TranslucentBackground);
    setAcceptDrops(true);
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::ClickFocus);
    qv_followLanguage(this, [this] { setAccessibleName(qv_localizedStringForKey(QVKey::accessibleDialog)); });
    setLayoutDirection(Qt::LeftToRight);
}

QVWindow::~QVWindow()
{
    // If the controller is still owned by this, it was not dismissed: the host's window is being destroyed.
    if (const auto controller = takeRootController())
        Q_EMIT destroyedWithHost();
}

void QVWindow::setRootController(std::shared_ptr<void> controller)
{
    m_rootController = std::move(controller);
}

std::shared_ptr<void> QVWindow::takeRootController()
{
    return std::exchange(m_rootController, nullptr);
}

void QVWindow::makeKeyAndVisible(QObject *host)
{
    m_host = host;
    m_isWanted = true;
    m_presentation = chosenPresentation();
    watchHost();
    m_dimming.start(QVPopupGeometry::dimDuration, [this](double part) {
        m_dimmedPart = part;
        update();
    });
    // If this is a separate window, Qt may be activating it at this moment, even if it was just hidden, and
    // would go on using it after its destruction.
    if (isWindow() && windowHandle())
        placeSoon();
    else
        place();
    // The focus is moved last, since the host may destroy this in a focus handler.
    if (m_isWanted)
        m_focusTrap->activate();
}

void QVWindow::resignKeyAndHide()
{
    m_hostWatch.reset();
    m_containerWatch.reset();
    const QPointer<QVWindow> self(this);
    m_isWanted = false;
    // Released before hiding, so that Qt does not move the focus by itself. In a focus handler the host may
    // destroy this or show it again.
    m_focusTrap->release();
    if (self && !m_isWanted)
        hide();
}

void QVWindow::destroySoon()
{
    if (m_focusTrap->isMoving())
        connect(m_focusTrap.get(), &QVFocusTrap::settled, this, &QObject::deleteLater);
    else
        deleteLater();
}

void QVWindow::watchHost()
{
    m_hostWatch.reset();
    if (!m_host)
        return;
    m_hostWatch = follow(m_host);
}

std::unique_ptr<QVHostWatch> QVWindow::follow(QObject *window)
{
    auto watch = std::make_unique<QVHostWatch>(window);
    connect(watch.get(), &QVHostWatch::resized, this, &QVWindow::fitToHost);
    connect(watch.get(), &QVHostWatch::usabilityChanged, this, &QVWindow::placeSoon);
    connect(watch.get(), &QVHostWatch::restacked, this, &QVWindow::stayOnTop);
    return watch;
}

void QVWindow::place()
{
    m_container = container();
    m_containerWatch.reset();
    if (m_container && m_container != m_host) {
        m_containerWatch = follow(m_container);
        connect(m_containerWatch.get(), &QVHostWatch::hiding, this, &QVWindow::containerHides);
    }
    const Place place = QVPopupGeometry::place(surroundings(m_container), m_presentation);
    if (!m_container && m_host)
        standAlone(place, m_host);
    else if (place == Place::Layer)
        lieIn(m_container);
    else
        standAlone(place, m_container);
    layOutScreen();
    // The host may have dismissed this in a focus handler meanwhile.
    if (!m_isWanted)
        return;
    show();
    raise();
    if (isWindow())
        activateWindow();
}

void QVWindow::placeSoon()
{
    // From the event loop: Qt sends events about modal windows while it iterates over the list of windows.
    QVScheduler::shared().schedule({}, [self = QPointer(this)] {
        if (self)
            self->placeAgain();
    });
}

void QVWindow::placeAgain()
{
    if (!m_isWanted || (isVisible() && canStay()))
        return;
    place();
    m_focusTrap->moveInside();
}

bool QVWindow::canStay() const
{
    QWidget *const now = container();
    return now == m_container && !m_isBlocked &&
           (isWindow() || QVPopupGeometry::place(surroundings(now), m_presentation) == Place::Layer);
}

void QVWindow::lieIn(QWidget *container)
{
    if (parentWidget() != container || isWindow()) {
        m_focusTrap->leaveWindow();
        hide();
        setWindowState(Qt::WindowNoState);
        setWindowModality(Qt::NonModal);
        // Not every platform can make a window a child of another one.
        if (windowHandle())
            destroy();
        QVHostWatch::adopt(container, this);
    }
    setGeometry(container->rect());
}

void QVWindow::standAlone(Place place, QObject *over)
{
    const Qt::WindowFlags flags = place == Place::Screen ? screenFlags : cardFlags;
    // No parent: a disabled parent would disable this, too, and its style sheet would apply here.
    if (parentWidget() || windowFlags() != flags) {
        m_focusTrap->leaveWindow();
        hide();
        setParent(nullptr, flags);
        // It may have been disabled together with a host that contained it.
        setEnabled(true);
    }
    // Hidden first, so that it is shown again as the latest modal window, which has the input.
    if (std::exchange(m_isBlocked, false))
        hide();
    setWindowModality(Qt::WindowModal);
    setWindowState(place == Place::Screen ? Qt::WindowFullScreen : Qt::WindowNoState);
    setGeometry(ownFrame());
    create();
    auto *const widget = qobject_cast<QWidget *>(over);
    windowHandle()->setTransientParent(widget ? widget->windowHandle() : qobject_cast<QWindow *>(over));
}

bool QVWindow::fillsScreen() const
{
    return windowFlags() == screenFlags;
}

QRect QVWindow::ownFrame() const
{
    const auto *const foreign = qobject_cast<const QWindow *>(m_host);
    if (foreign && !fillsScreen())
        return foreign->geometry();
    const QScreen *const screen = m_container ? m_container->screen() : QGuiApplication::primaryScreen();
    if (fillsScreen())
        return screen->geometry();
    const QRect around(m_container->mapToGlobal(QPoint()), m_container->size());
    QRect frame(QPoint(), QVPopupGeometry::cardSize().boundedTo(screen->availableSize()));
    frame.moveCenter(around.center());
    // Completely on the screen, even if the host's window is not.
    const QRect room = screen->availableGeometry();
    frame.moveLeft(std::clamp(frame.left(), room.left(), room.right() + 1 - frame.width()));
    frame.moveTop(std::clamp(frame.top(), room.top(), room.bottom() + 1 - frame.height()));
    return frame;
}

void QVWindow::fitToHost()
{
    if (isHidden())
        return;
    if (isWindow() || !m_container)
        setGeometry(ownFrame());
    else if (QVPopupGeometry::place(surroundings(m_container), m_presentation) == Place::Layer)
        setGeometry(m_container->rect());
    else
        placeSoon();
}

void QVWindow::containerHides()
{
    if (isHidden())
        return;
    // A separate window stays on screen, and Qt may be activating it at this moment.
    if (isWindow())
        return placeSoon();
    // It must not be destroyed together with a modal window of the host that contains it.
    place();
    m_focusTrap->moveInside();
}

QWidget *QVWindow::container() const
{
    auto *const host = qobject_cast<QWidget *>(m_host);
    QWidget *const modal = QApplication::activeModalWidget();
    if (!host || !modal)
        return host;
    if (modal == this)
        return m_container && m_container->isVisible() ? m_container.data() : host;
    return modal->isVisible() && !qobject_cast<QVWindow *>(modal) && blocks(modal, host) ? modal : host;
}

std::optional<QVPopupGeometry::Host> QVWindow::surroundings(const QWidget *container) const
{
    if (!m_host)
        return std::nullopt;
    if (!container)
        return QVPopupGeometry::Host{qobject_cast<const QWindow *>(m_host)->size(), false, {}};
    return QVPopupGeometry::Host{container->size(), container->isVisible() && container->isEnabled(),
                                 container->screen()->availableSize()};
}

bool QVWindow::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Keys that are pressed here must not trigger shortcuts of the host.
        event->accept();
        return true;
    case QEvent::WindowBlocked:
    case QEvent::WindowUnblocked:
        blockedChanges(event->type() == QEvent::WindowBlocked);
        break;
    case QEvent::EnabledChange:
        if (m_isWanted && testAttribute(Qt::WA_ForceDisabled))
            QMetaObject::invokeMethod(this, &QVWindow::enableParts, Qt::QueuedConnection);
        break;
    case QEvent::FontChange:
        // Texts have another size.
        Q_EMIT popupScreenChanged();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void QVWindow::blockedChanges(bool isBlocked)
{
    // Not if another popup blocks this one: two popups must not compete for the front.
    m_isBlocked = isBlocked && isWindow() && !qobject_cast<QVWindow *>(QApplication::activeModalWidget());
    if (m_isBlocked)
        placeSoon();
}

void QVWindow::enableParts()
{
    setEnabled(true);
    for (QWidget *const part : findChildren<QWidget *>()) {
        if (part->testAttribute(Qt::WA_ForceDisabled))
            part->setEnabled(true);
    }
}

void QVWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!m_geometry.isCard() && isWindow() && !fillsScreen() && m_container) {
        painter.fillRect(rect(), QColor(QVColors::surface().rgb()));
        painter.setPen(edgeColor);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        return;
    }
    QColor dim = dimColor;
    dim.setAlphaF(dim.alphaF() * static_cast<float>(m_dimmedPart));
    painter.fillRect(rect(), dim);
    if (!m_geometry.isCard()) {
        painter.fillRect(rect(), QVColors::surface());
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath card;
    card.addRoundedRect(popupScreen(), QVPopupGeometry::cardRadius, QVPopupGeometry::cardRadius);
    painter.fillPath(card, QVColors::surface());
}

void QVWindow::resizeEvent(QResizeEvent *)
{
    layOutScreen();
}

void QVWindow::layOutScreen()
{
    m_geometry = QVPopupGeometry(size(), m_presentation != QVPopupPresentation::WholeWindow);
    Q_EMIT popupScreenChanged();
}

void QVWindow::closeEvent(QCloseEvent *event)
{
    const QPointer<QVWindow> self(this);
    Q_EMIT closeRequested();
    // The close is accepted, so that the application can quit, unless the host has shown this again in a
    // slot.
    if (self && m_isWanted)
        event->ignore();
}

void QVWindow::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous() || !m_isWanted)
        return;
    // Either the host has hidden this, or it is moved to another window and shown there at once.
    QVScheduler::shared().schedule({}, [self = QPointer(this)] {
        if (self && self->m_isWanted && self->isHidden())
            Q_EMIT self->closeRequested();
    });
}

void QVWindow::mousePressEvent(QMouseEvent *event)
{
    m_pressedBesideCard = isBesideCard(*event);
}

void QVWindow::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isTap = std::exchange(m_pressedBesideCard, false) && isBesideCard(*event);
    if (isTap && QVConfigurationManager::sharedManager().closesOnOutsideClick())
        Q_EMIT closeRequested();
}

bool QVWindow::isBesideCard(const QMouseEvent &event) const
{
    return event.button() == Qt::LeftButton && m_geometry.isCard() &&
           !popupScreen().contains(event.position().toPoint());
}

void QVWindow::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    const bool leaves = event->key() == Qt::Key_Escape || event->key() == Qt::Key_Back;
    if (leaves && !event->isAutoRepeat())
        Q_EMIT closeRequested();
}

void QVWindow::keyReleaseEvent(QKeyEvent *event)
{
    event->accept();
}

bool QVWindow::focusNextPrevChild(bool next)
{
    if (!m_focusTrap->isActive())
        return QWidget::focusNextPrevChild(next);
    m_focusTrap->moveFocus(next);
    return true;
}

void QVWindow::stayOnTop()
{
    if (!isWindow() && m_focusTrap->isOnTop())
        raise();
}
