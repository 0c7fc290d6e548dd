#include "popup/QVWindow.h"

#include "popup/QVFocusTrap.h"
#include "popup/QVHostWatch.h"
#include "popup/QVViewController.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace {

constexpr QColor cardColor(255, 255, 255, 242);
constexpr QColor dimColor(0, 0, 0, 102);
// That of the close button's disc, which nests in the top right corner.
constexpr qreal cardRadius = 16;
} // namespace

QVWindow::QVWindow(QWidget *host)
    : m_focusTrap(std::make_unique<QVFocusTrap>(this))
    , m_presentation(QVConfigurationManager::sharedManager().popupPresentation())
    , m_geometry(size(), m_presentation)
{
    qv_setAccessibleRole(this, QAccessible::Dialog);
    setAttribute(Qt::WA_NoMousePropagation);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAcceptDrops(true);
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(qv_localizedStringForKey(QVKey::accessibleDialog));
    setLayoutDirection(Qt::LeftToRight);
    QWindow *const foreign = host ? nullptr : QVHostWatch::foreignWindow();
    if (m_presentation == QVPopupPresentation::WholeScreen || (!host && !foreign))
        coverScreen(host);
    else if (host)
        coverHost(host);
    if (foreign)
        coverWindow(foreign);
    if (!host)
        return;
    auto *const watch = new QVHostWatch(host, this);
    connect(watch, &QVHostWatch::ended, this, &QVWindow::hostEnded);
    if (isWindow())
        return;
    connect(watch, &QVHostWatch::resized, this, [this, host] { setGeometry(host->rect()); });
    connect(watch, &QVHostWatch::restacked, this, &QVWindow::stayOnTop);
}

QVWindow::~QVWindow()
{
    // Still there when the host was destroyed and took its children along.
    if (const auto controller = takeRootController())
        controller->windowDestroyed();
}

const QWidget *QVWindow::topmostIn(const QWidget *host)
{
    const QWidget *topmost = nullptr;
    for (const QObject *child : host->children()) {
        const auto *const window = qobject_cast<const QVWindow *>(child);
        if (window && window->isVisible() && !window->isWindow())
            topmost = window;
    }
    return topmost;
}

void QVWindow::setRootController(std::shared_ptr<QVViewController> controller)
{
    m_rootController = std::move(controller);
}

std::shared_ptr<QVViewController> QVWindow::takeRootController()
{
    return std::exchange(m_rootController, nullptr);
}

void QVWindow::makeKeyAndVisible()
{
    show();
    if (isWindow())
        activateWindow();
    else
        raise();
    m_focusTrap->activate();
}

void QVWindow::resignKeyAndHide()
{
    // First, so that Qt does not look for a new place for the focus by itself.
    m_focusTrap->release();
    hide();
}

bool QVWindow::event(QEvent *event)
{
    // A key that is pressed here is no shortcut of the host.
    if (event->type() != QEvent::ShortcutOverride)
        return QWidget::event(event);
    event->accept();
    return true;
}

void QVWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!m_geometry.isCard()) {
        painter.fillRect(rect(), cardColor);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath card;
    card.addRoundedRect(popupScreen(), cardRadius, cardRadius);
    QPainterPath surroundings = card;
    surroundings.addRect(rect());
    painter.fillPath(surroundings, dimColor);
    painter.fillPath(card, cardColor);
}

void QVWindow::resizeEvent(QResizeEvent *)
{
    m_geometry = QVPopupGeometry(size(), m_presentation);
    Q_EMIT popupScreenChanged();
}

void QVWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    Q_EMIT closeRequested();
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

void QVWindow::coverHost(QWidget *host)
{
    QVHostWatch::adopt(host, this);
    setGeometry(host->rect());
}

void QVWindow::coverWindow(QWindow *host)
{
    auto *const watch = new QVHostWatch(host, this);
    connect(watch, &QVHostWatch::ended, this, &QVWindow::hostEnded);
    if (m_presentation != QVPopupPresentation::WholeScreen) {
        setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
        setWindowModality(Qt::WindowModal);
        setAttribute(Qt::WA_TranslucentBackground);
        setGeometry(host->geometry());
        connect(watch, &QVHostWatch::resized, this, [this, host] { setGeometry(host->geometry()); });
    }
    create();
    windowHandle()->setTransientParent(host);
}

void QVWindow::coverScreen(QWidget *host)
{
    const QScreen *const screen = host ? host->screen() : QGuiApplication::primaryScreen();
    setParent(host, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setWindowModality(Qt::WindowModal);
    setWindowState(Qt::WindowFullScreen);
    setAttribute(Qt::WA_TranslucentBackground);
    setGeometry(screen->geometry());
    connect(screen, &QScreen::geometryChanged, this,
            [this](const QRect &geometry) { setGeometry(geometry); });
}

void QVWindow::stayOnTop()
{
    if (topmostIn(parentWidget()) == this)
        raise();
}
