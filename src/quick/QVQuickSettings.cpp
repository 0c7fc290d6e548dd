#include "quick/QVQuickSettings.h"

#include "quick/QVQuickLook.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVSDKManager.h"

#include <limits>

namespace {

int countOf(std::chrono::milliseconds duration)
{
    return static_cast<int>(std::min<qint64>(duration.count(), std::numeric_limits<int>::max()));
}

} // namespace

QVQuickSettings::QVQuickSettings(QObject *parent)
    : QObject(parent)
{
    connect(&QVLanguageNotice::shared(), &QVLanguageNotice::languageChanged, this, &QVQuickSettings::changed);
    connect(this, &QVQuickSettings::changed, &QVQuickLookNotice::shared(), &QVQuickLookNotice::changed);
}

void QVQuickSettings::setVid(const QString &vid)
{
    QVSDKManager::setQuarvoSDKVid(vid, scene());
    Q_EMIT changed();
}

void QVQuickSettings::setScene(const QString &scene)
{
    QVSDKManager::setQuarvoSDKVid(vid(), scene);
    Q_EMIT changed();
}

void QVQuickSettings::setLanguage(const QString &language)
{
    QVSDKManager::setPreferredLanguage(language);
}

QVQuickAddresses QVQuickSettings::addresses() const
{
    return QVQuickAddresses(settings().serviceAddresses());
}

void QVQuickSettings::setAddresses(const QVQuickAddresses &addresses)
{
    QVSDKManager::setServiceAddresses(addresses);
    Q_EMIT changed();
}

void QVQuickSettings::setOutageServer(const QString &address)
{
    QVSDKManager::setOutageServer(address);
    Q_EMIT changed();
}

void QVQuickSettings::setOutageOpen(bool open)
{
    QVSDKManager::setOutageOpen(open);
    Q_EMIT changed();
}

int QVQuickSettings::attemptTimeout() const
{
    return countOf(settings().attemptTimeout());
}

void QVQuickSettings::setAttemptTimeout(int milliseconds)
{
    QVSDKManager::setAttemptTimeout(std::chrono::milliseconds(milliseconds));
    Q_EMIT changed();
}

int QVQuickSettings::tokenLifetime() const
{
    return countOf(settings().tokenLifetime());
}

void QVQuickSettings::setTokenLifetime(int milliseconds)
{
    QVSDKManager::setTokenLifetime(std::chrono::milliseconds(milliseconds));
    Q_EMIT changed();
}

QVQuickSettings::Presentation QVQuickSettings::popupPresentation() const
{
    return settings().popupPresentation() == QVPopupPresentation::Automatic ? Presentation::Automatic
                                                                            : Presentation::WholeWindow;
}

void QVQuickSettings::setPopupPresentation(Presentation presentation)
{
    QVSDKManager::setPopupPresentation(QVPopupPresentation(int(presentation)));
    Q_EMIT changed();
}

void QVQuickSettings::setPopupClosesOnOutsideClick(bool closes)
{
    QVSDKManager::setPopupClosesOnOutsideClick(closes);
    Q_EMIT changed();
}

QVQuickSettings::Appearance QVQuickSettings::appearance() const
{
    return Appearance(int(settings().appearance()));
}

void QVQuickSettings::setAppearance(Appearance appearance)
{
    QVSDKManager::setAppearance(QVAppearance(int(appearance)));
    Q_EMIT changed();
}

QVQuickSettings::Contrast QVQuickSettings::contrast() const
{
    return Contrast(int(settings().contrast()));
}

void QVQuickSettings::setContrast(Contrast contrast)
{
    QVSDKManager::setContrast(QVContrast(int(contrast)));
    Q_EMIT changed();
}

void QVQuickSettings::setAccent(const QColor &color)
{
    QVSDKManager::setAccentColor(color);
    Q_EMIT changed();
}

void QVQuickSettings::setReducedMotion(bool reduced)
{
    QVSDKManager::setReducedMotion(reduced);
    Q_EMIT changed();
}

QVQuickAddresses QVQuickSettings::serviceAt(const QString &host)
{
    return QVQuickAddresses(QVServiceAddresses::at(host));
}
