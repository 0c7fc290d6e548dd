#include "quick/QVQuickPopup.h"

#include "quick/QVQuickSurface.h"
#include "quick/QVQuickValues.h"
#include "service/QVClickResponseModel.h"
#include "service/QVConfigResponseModel.h"

#include <QLoggingCategory>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(quickLog, "quarvo.quick")

} // namespace

void QVQuickPopup::show(QQmlEngine &engine, QVVerifyStyle style, const QVPopupPresenter::Config &config,
                        const QVPopupPresenter::Click &click, QVViewControllerDelegate *delegate)
{
    const std::shared_ptr<QVQuickPopup> popup(new QVQuickPopup(delegate));
    if (!popup->create(engine))
        return popup->windowWasDestroyed();
    popup->m_self = popup;
    popup->m_surface->begin(style, delegate->qv_controllerIdentity(), popup.get());
    popup->connectParts();
    popup->m_surface->flow()->handleConfigResponseFromQuarvoServer(config, click);
    popup->displayWindow();
}

QVQuickPopup::~QVQuickPopup() = default;

bool QVQuickPopup::create(QQmlEngine &engine)
{
    QQmlComponent component(&engine, qv_moduleFile(QStringLiteral("PopupCard.qml")));
    m_object = component.create();
    m_surface = m_object ? m_object->property("surface").value<QVQuickSurface *>() : nullptr;
    if (!m_surface) {
        qCCritical(quickLog, "The popup cannot be made: %s", qUtf8Printable(component.errorString()));
        delete m_object;
        return false;
    }
    return true;
}

void QVQuickPopup::connectParts()
{
    QObject::connect(m_object, &QObject::destroyed, &m_context, [this] { objectDestroyed(); });
    QObject::connect(m_surface, &QVQuickSurface::outageStarted, &m_context, [this] { outageHasStarted(); });
    QObject::connect(m_surface, &QVQuickSurface::failed, &m_context,
                     [this](const QVQuickError &failure) { somethingHasFailed(failure.error()); });
    QObject::connect(m_surface, &QVQuickSurface::alternativeRequested, &m_context,
                     [this] { alternativeIsWanted(); });
    QObject::connect(m_surface, &QVQuickSurface::closeRequested, &m_context, [this] {
        if (m_isShown)
            closeButtonDidClickedAction();
    });
}

void QVQuickPopup::makeKeyAndVisible(QObject *host)
{
    auto *const window = qobject_cast<QQuickWindow *>(host);
    if (!m_object || !window)
        return;
    moveTo(*window);
    if (!std::exchange(m_isShown, true)) {
        m_focusBefore = window->activeFocusItem();
        m_showedFocus = m_focusBefore && m_focusBefore->property("visualFocus").toBool();
    }
    QMetaObject::invokeMethod(m_object, "display");
}

void QVQuickPopup::moveTo(QQuickWindow &window)
{
    m_window = &window;
    m_object->setParent(&window);
    m_object->setProperty("parent", QVariant::fromValue(window.contentItem()));
}

void QVQuickPopup::setOffersAlternative(bool offers)
{
    if (m_object)
        m_object->setProperty("offersAlternative", offers);
}

void QVQuickPopup::hiddenWindow()
{
    if (!m_object || !std::exchange(m_isShown, false))
        return;
    const auto self = shared_from_this();
    QMetaObject::invokeMethod(m_object, "close");
    giveFocusBack();
}

void QVQuickPopup::giveFocusBack()
{
    // Unless the host has moved it elsewhere, or shown this again, in answer.
    if (m_isShown || !m_window || !m_focusBefore || m_focusBefore->window() != m_window)
        return;
    const QQuickItem *const now = m_window->activeFocusItem();
    if (!now || now == m_window->contentItem())
        m_focusBefore->forceActiveFocus(m_showedFocus ? Qt::TabFocusReason : Qt::PopupFocusReason);
}

void QVQuickPopup::dismissWindow()
{
    const auto self = std::exchange(m_self, nullptr);
    hiddenWindow();
    if (const QPointer<QObject> object = std::exchange(m_object, nullptr))
        object->deleteLater();
}

bool QVQuickPopup::canDirectlyShow() const
{
    return m_object && m_surface && m_surface->flow()->canDirectlyShow();
}

void QVQuickPopup::objectDestroyed()
{
    const auto self = std::exchange(m_self, nullptr);
    if (std::exchange(m_isShown, false))
        windowWasDestroyed();
}
