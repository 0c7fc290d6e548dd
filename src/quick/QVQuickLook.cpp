#include "quick/QVQuickLook.h"

#include "settings/QVConfigurationManager.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVOneLine.h"

#include <QAccessible>
#include <QEvent>
#include <QGuiApplication>
#include <QQuickItem>

QVQuickLookNotice::QVQuickLookNotice()
{
    qGuiApp->installEventFilter(this);
}

QVQuickLookNotice &QVQuickLookNotice::shared()
{
    // Ends with the application object, whose events it watches.
    static QPointer<QVQuickLookNotice> notice;
    if (!notice) {
        notice = new QVQuickLookNotice;
        notice->setParent(qGuiApp);
    }
    return *notice;
}

bool QVQuickLookNotice::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOurs =
        event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::ApplicationFontChange;
    if (isOurs && watched == qGuiApp)
        QMetaObject::invokeMethod(this, &QVQuickLookNotice::changed, Qt::QueuedConnection);
    return false;
}

QVQuickLook::QVQuickLook(QObject *parent)
    : QObject(parent)
{
    connect(&QVQuickLookNotice::shared(), &QVQuickLookNotice::changed, this, &QVQuickLook::changed);
    connect(&QVLanguageNotice::shared(), &QVLanguageNotice::languageChanged, this, [this] {
        ++m_language;
        Q_EMIT changed();
    });
}

bool QVQuickLook::isMotionReduced()
{
    return QVConfigurationManager::sharedManager().isMotionReduced();
}

QString QVQuickLook::text(const QString &key, int /*language*/)
{
    return qv_localizedStringForKey(key);
}

QFont QVQuickLook::font(int pixelSize, double /*textScale*/)
{
    return qv_systemFont(pixelSize);
}

QString QVQuickLook::oneLine(const QString &text)
{
    return qv_oneLine(text).trimmed();
}

QAccessible::Role QVQuickLook::messageRole()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    return QAccessible::AlertMessage;
#else
    // Screen readers of the Linux desktop read a notification that appears, but no alert event.
    return QAccessible::Notification;
#endif
}

void QVQuickLook::announce(QQuickItem *item)
{
    QAccessibleInterface *const message = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    if (!message || !item->isVisible())
        return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(item, message->text(QAccessible::Name));
#else
    QAccessibleEvent event(item, QAccessible::ObjectShow);
#endif
    QAccessible::updateAccessibility(&event);
}
