#include "popup/QVViewController.h"

#include "draw/QVRenderDrawView.h"
#include "flow/QVPopupGeometry.h"
#include "layers/QVValueAnimation.h"
#include "paint/QVEasing.h"
#include "popup/QVCloseButton.h"
#include "popup/QVUnfoldEffect.h"
#include "popup/QVWindow.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"
#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVLabel.h"

#include <utility>

namespace {

constexpr int supportFontSize = 12;
constexpr QPoint supportOffset = QVPopupGeometry::supportOffset;

} // namespace

std::shared_ptr<QVViewController> QVViewController::showQvWithVerifyStyle(QVVerifyStyle style,
                                                                          const Config &config,
                                                                          const Click &click,
                                                                          QVViewControllerDelegate *delegate)
{
    const std::shared_ptr<QVViewController> controller(new QVViewController(delegate));
    controller->m_verifyStyle = style;
    controller->m_config = config;
    controller->m_clickResp = click;
    // Deleted by dismissWindow(), or together with a window that contains it.
    controller->showIn(new QVWindow);
    return controller;
}

QVViewController::~QVViewController() = default;

void QVViewController::showIn(QVWindow *window)
{
    m_showWindow = window;
    window->setRootController(shared_from_this());
    QObject::connect(window, &QVWindow::popupScreenChanged, &m_context, [this] { layoutSubviews(); });
    QObject::connect(window, &QVWindow::closeRequested, &m_context,
                     [this] { closeButtonDidClickedAction(); });
    QObject::connect(window, &QVWindow::destroyedWithHost, &m_context, [this] { windowDestroyed(); });
    setupSubviews();
    displayWindow();
}

void QVViewController::setupSubviews()
{
    m_renderView = new QVRenderDrawView(m_verifyStyle, m_showWindow);
    m_renderView->setDelegate(this);
    if (const auto *const opener = delegate())
        m_renderView->setIdentity(opener->qv_controllerIdentity());
    QObject::connect(m_renderView, &QVRenderDrawView::outageStarted, &m_context,
                     [this] { outageHasStarted(); });
    QObject::connect(m_renderView, &QVRenderDrawView::failed, &m_context,
                     [this](const QVError &error) { somethingHasFailed(error); });
    QObject::connect(m_renderView, &QVRenderDrawView::alternativeRequested, &m_context,
                     [this] { alternativeIsWanted(); });
    m_closeButton = new QVCloseButton(m_showWindow);
    QObject::connect(m_closeButton, &QVCloseButton::clicked, &m_context,
                     [this] { closeButtonDidClickedAction(); });
    m_supportLabel = new QVLabel({.pixelSize = supportFontSize, .alignment = Qt::AlignRight},
                                 QVColors::supportText, QAccessible::StaticText, m_showWindow);
    m_supportLabel->setObjectName(QStringLiteral("supportLabel"));
    qv_followLanguage(&m_context, [this] {
        if (m_supportLabel)
            m_supportLabel->setText(qv_localizedStringForKey(QVKey::support));
        layoutSubviews();
    });
    m_renderView->handleConfigResponseFromQuarvoServer(m_config, m_clickResp);
}

void QVViewController::layoutSubviews()
{
    if (!m_showWindow)
        return;
    const QRect screen = m_showWindow->popupScreen();
    m_renderView->setGeometry(screen);
    // Directly in the corner: there is no status bar to avoid.
    m_closeButton->move(screen.right() + 1 - m_closeButton->width(), screen.top());
    m_supportLabel->resize(m_supportLabel->sizeFor(screen.width() - 2 * supportOffset.x()));
    const QPoint corner = screen.bottomRight() + QPoint(1, 1) - supportOffset;
    m_supportLabel->move(corner - QPoint(m_supportLabel->width(), m_supportLabel->height()));
}

void QVViewController::makeKeyAndVisible(QObject *host)
{
    if (m_showWindow)
        m_showWindow->makeKeyAndVisible(host);
    showRenderViewAnimation();
}

void QVViewController::setOffersAlternative(bool offers)
{
    if (m_renderView)
        m_renderView->setOffersAlternative(offers);
}

void QVViewController::hiddenWindow()
{
    if (m_showWindow)
        m_showWindow->resignKeyAndHide();
}

void QVViewController::dismissWindow()
{
    // Without an application object nothing is on screen, and widgets cannot be hidden.
    if (!m_showWindow || !QCoreApplication::instance())
        return;
    const QPointer<QVWindow> window = std::exchange(m_showWindow, nullptr);
    // Keeps this alive until the end of the call; usually there is no other owner.
    const auto self = window->takeRootController();
    window->resignKeyAndHide();
    if (window)
        window->destroySoon();
}

bool QVViewController::canDirectlyShow() const
{
    return m_renderView && m_renderView->canDirectlyShow();
}

void QVViewController::showRenderViewAnimation()
{
    if (!m_renderView)
        return;
    m_renderView->setGraphicsEffect(nullptr);
    m_unfold = new QVUnfoldEffect(m_renderView);
    m_renderView->setGraphicsEffect(m_unfold);
    if (!m_unfoldAnimation)
        m_unfoldAnimation = std::make_unique<QVValueAnimation>(*m_renderView);
    // The usual curve; with a more dynamic one the picture seems to wobble.
    m_unfoldAnimation->setTimingCurve(QVEasing::usual());
    m_unfoldAnimation->start(
        QVPopupGeometry::unfoldDuration,
        [unfold = m_unfold](double scale) {
            if (unfold)
                unfold->setScale(scale);
        },
        [view = m_renderView] {
            if (view)
                view->setGraphicsEffect(nullptr);
        });
}

void QVViewController::windowDestroyed()
{
    const bool shown = m_showWindow && !m_showWindow->isHidden();
    m_showWindow = nullptr;
    if (shown)
        windowWasDestroyed();
}
