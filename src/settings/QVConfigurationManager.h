#pragma once

#include "platform/QuarvoCoreExport.h"
#include "settings/QVAppearance.h"
#include "settings/QVContrast.h"
#include "settings/QVPopupPresentation.h"
#include "settings/QVServiceAddresses.h"

#include <QColor>
#include <QNetworkAccessManager>
#include <QPointer>
#include <QString>

#include <chrono>
#include <memory>

class QVBundle;

/// The settings of the process. They are created on first use, on any thread. Their fields are read and
/// written on the user-interface thread only.
class QUARVO_CORE_EXPORT QVConfigurationManager
{
public:
    QVConfigurationManager(const QVConfigurationManager &) = delete;
    QVConfigurationManager &operator=(const QVConfigurationManager &) = delete;

    /// Throws QVInternalConsistencyError if there is no resource bundle.
    [[nodiscard]] static QVConfigurationManager &sharedManager();

    /// The verification id, sent as "id".
    [[nodiscard]] QString vid() const { return m_vid; }
    void setVid(const QString &vid) { m_vid = vid; }

    [[nodiscard]] QString scene() const { return m_scene; }
    void setScene(const QString &scene) { m_scene = scene; }

    /// The address of the outage server.
    [[nodiscard]] QString outage() const { return m_outage; }
    void setOutage(const QString &outage) { m_outage = outage; }

    /// Whether the outage switch counts as active, whatever the service answers.
    [[nodiscard]] bool isOpenOutage() const { return m_isOpenOutage; }
    void setIsOpenOutage(bool isOpenOutage) { m_isOpenOutage = isOpenOutage; }

    /// The language as it was last set; null if none was.
    [[nodiscard]] QString preferredLanguage() const { return m_preferredLanguage; }
    /// Also chooses the language bundle. A null or empty \a language means the user's language.
    void setPreferredLanguage(const QString &language);

    /// The folder of the chosen language in the resource bundle; null if there is none.
    [[nodiscard]] std::shared_ptr<const QVBundle> languageBundle() const { return m_languageBundle; }

    /// The same folder in the host's own bundle, whose texts are preferred.
    [[nodiscard]] std::shared_ptr<const QVBundle> hostLanguageBundle() const { return m_hostLanguageBundle; }

    [[nodiscard]] QVServiceAddresses serviceAddresses() const { return m_serviceAddresses; }
    void setServiceAddresses(const QVServiceAddresses &addresses) { m_serviceAddresses = addresses; }

    [[nodiscard]] QVPopupPresentation popupPresentation() const { return m_popupPresentation; }
    void setPopupPresentation(QVPopupPresentation presentation) { m_popupPresentation = presentation; }

    /// The host's own network access manager; null if it has set none.
    [[nodiscard]] QNetworkAccessManager *networkAccessManager() const { return m_networkAccessManager; }
    void setNetworkAccessManager(QNetworkAccessManager *manager) { m_networkAccessManager = manager; }

    /// How long an attempt may take; zero means without limit.
    [[nodiscard]] std::chrono::milliseconds attemptTimeout() const { return m_attemptTimeout; }
    void setAttemptTimeout(std::chrono::milliseconds timeout) { m_attemptTimeout = timeout; }

    /// How long a token is valid; zero means that it does not expire.
    [[nodiscard]] std::chrono::milliseconds tokenLifetime() const { return m_tokenLifetime; }
    void setTokenLifetime(std::chrono::milliseconds lifetime) { m_tokenLifetime = lifetime; }

    [[nodiscard]] bool closesOnOutsideClick() const { return m_closesOnOutsideClick; }
    void setClosesOnOutsideClick(bool closes) { m_closesOnOutsideClick = closes; }

    [[nodiscard]] QVContrast contrast() const { return m_contrast; }
    void setContrast(QVContrast contrast) { m_contrast = contrast; }

    [[nodiscard]] QVAppearance appearance() const { return m_appearance; }
    void setAppearance(QVAppearance appearance) { m_appearance = appearance; }

    /// The host's own accent colour; invalid if it has set none.
    [[nodiscard]] QColor accentColor() const { return m_accentColor; }
    void setAccentColor(const QColor &color) { m_accentColor = color; }

    [[nodiscard]] bool isMotionReduced() const { return m_isMotionReduced; }
    void setIsMotionReduced(bool isReduced) { m_isMotionReduced = isReduced; }

    /// The device identifier, looked up in the secure store at each call.
    [[nodiscard]] QString deviceId() const;
    /// Connects to the secure store in the background, since the device identifier will be needed shortly.
    static void prepareDeviceId();

private:
    QVConfigurationManager();

    void chooseLanguage(const QString &language);

    QString m_vid;
    QString m_scene;
    QString m_outage;
    bool m_isOpenOutage = false;
    QString m_preferredLanguage;
    std::shared_ptr<const QVBundle> m_languageBundle;
    std::shared_ptr<const QVBundle> m_hostLanguageBundle;
    QVServiceAddresses m_serviceAddresses;
    QVPopupPresentation m_popupPresentation = QVPopupPresentation::Automatic;
    QPointer<QNetworkAccessManager> m_networkAccessManager;
    std::chrono::milliseconds m_attemptTimeout{0};
    std::chrono::milliseconds m_tokenLifetime{0};
    bool m_closesOnOutsideClick = false;
    QVContrast m_contrast = QVContrast::System;
    QVAppearance m_appearance = QVAppearance::Light;
    QColor m_accentColor;
    bool m_isMotionReduced = false;
};
