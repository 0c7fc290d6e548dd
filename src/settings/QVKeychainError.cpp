#include "settings/QVKeychainError.h"

#include "settings/QVBundle.h"
#include "settings/QVLanguage.h"
#include "settings/QVMainBundle.h"

namespace {

std::shared_ptr<const QVBundle> languageFolder()
{
    const auto bundle = QVMainBundle::shared().bundle(QStringLiteral("QVKeychain"));
    return bundle ? bundle->bundle(qv_languageFolderName(qv_deviceLanguage()), QStringLiteral("lproj"))
                  : nullptr;
}

QString description(QVSecureStatus status)
{
    // Looked for only once, even if it is missing, since each request may cause an error.
    static const std::shared_ptr<const QVBundle> texts = languageFolder();
    if (!texts)
        return {};
    return texts->localizedString(qv_keychainErrorKey(status), QString(), QStringLiteral("QVKeychain"));
}

} // namespace

std::optional<QVError> qv_keychainError(QVSecureStatus status)
{
    if (status == QVSecureStatus::Success)
        return std::nullopt;
    QVariantMap userInfo;
    const QString text = description(status);
    if (!text.isNull())
        userInfo.insert(QStringLiteral("localizedDescription"), text);
    return QVError(QStringLiteral("com.quarvo.qvkeychain"), static_cast<qint64>(status), userInfo);
}

QString qv_keychainErrorKey(QVSecureStatus status)
{
    switch (status) {
    case QVSecureStatus::Decode:
        return QStringLiteral("errSecDecode");
    case QVSecureStatus::InteractionNotAllowed:
        return QStringLiteral("errSecInteractionNotAllowed");
    case QVSecureStatus::ItemNotFound:
        return QStringLiteral("errSecItemNotFound");
    case QVSecureStatus::DuplicateItem:
        return QStringLiteral("errSecDuplicateItem");
    case QVSecureStatus::AuthFailed:
        return QStringLiteral("errSecAuthFailed");
    case QVSecureStatus::NotAvailable:
        return QStringLiteral("errSecNotAvailable");
    case QVSecureStatus::BadArguments:
        return QStringLiteral("QVKeychainErrorBadArguments");
    case QVSecureStatus::Allocate:
        return QStringLiteral("errSecAllocate");
    case QVSecureStatus::Param:
        return QStringLiteral("errSecParam");
    case QVSecureStatus::Unimplemented:
        return QStringLiteral("errSecUnimplemented");
    case QVSecureStatus::Success:
        break;
    }
    return QStringLiteral("errSecDefault");
}
