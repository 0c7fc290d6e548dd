#pragma once

#include "quick/QVQuickValues.h"
#include "settings/QVColors.h"
#include "settings/QVConfigurationManager.h"

#include <QObject>

/// The settings of the process as the singleton `Quarvo`. Each property is the setting of the same name of
/// QVSDKManager, so that a host in C++ and its QML share them.
///
/// \code
/// Component.onCompleted: {
///     Quarvo.vid = "test-draw"
///     Quarvo.addresses = Quarvo.serviceAt("http://127.0.0.1:8300")
/// }
/// \endcode
class QVQuickSettings : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Quarvo)
    QML_SINGLETON
    Q_PROPERTY(QString vid READ vid WRITE setVid NOTIFY changed)
    Q_PROPERTY(QString scene READ scene WRITE setScene NOTIFY changed)
    Q_PROPERTY(QString language READ language WRITE setLanguage NOTIFY changed)
    Q_PROPERTY(QVQuickAddresses addresses READ addresses WRITE setAddresses NOTIFY changed)
    Q_PROPERTY(QString outageServer READ outageServer WRITE setOutageServer NOTIFY changed)
    Q_PROPERTY(bool outageOpen READ outageOpen WRITE setOutageOpen NOTIFY changed)
    /// In milliseconds; 0 for as long as the user likes.
    Q_PROPERTY(int attemptTimeout READ attemptTimeout WRITE setAttemptTimeout NOTIFY changed)
    /// In milliseconds; 0 where no token expires.
    Q_PROPERTY(int tokenLifetime READ tokenLifetime WRITE setTokenLifetime NOTIFY changed)
    Q_PROPERTY(
        Presentation popupPresentation READ popupPresentation WRITE setPopupPresentation NOTIFY changed)
    Q_PROPERTY(bool popupClosesOnOutsideClick READ popupClosesOnOutsideClick WRITE
                   setPopupClosesOnOutsideClick NOTIFY changed)
    Q_PROPERTY(Appearance appearance READ appearance WRITE setAppearance NOTIFY changed)
    Q_PROPERTY(Contrast contrast READ contrast WRITE setContrast NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent WRITE setAccent NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY changed)

public:
    /// See QVAppearance.
    enum class Appearance {
        Light = int(QVAppearance::Light),
        Dark = int(QVAppearance::Dark),
        System = int(QVAppearance::System),
    };
    Q_ENUM(Appearance)
    /// See QVContrast; its System is FromPlatform here, since the names of all enumerations are in one scope.
    enum class Contrast {
        FromPlatform = int(QVContrast::System),
        Standard = int(QVContrast::Standard),
        High = int(QVContrast::High),
    };
    Q_ENUM(Contrast)
    /// See QVPopupPresentation. A popup of Qt Quick never leaves the host's window, so the whole screen is
    /// not among them.
    enum class Presentation {
        Automatic = int(QVPopupPresentation::Automatic),
        WholeWindow = int(QVPopupPresentation::WholeWindow),
    };
    Q_ENUM(Presentation)

    explicit QVQuickSettings(QObject *parent = nullptr);

    [[nodiscard]] static QString vid() { return settings().vid(); }
    void setVid(const QString &vid);
    [[nodiscard]] static QString scene() { return settings().scene(); }
    void setScene(const QString &scene);
    [[nodiscard]] static QString language() { return settings().preferredLanguage(); }
    void setLanguage(const QString &language);
    [[nodiscard]] QVQuickAddresses addresses() const;
    void setAddresses(const QVQuickAddresses &addresses);
    [[nodiscard]] static QString outageServer() { return settings().outage(); }
    void setOutageServer(const QString &address);
    [[nodiscard]] static bool outageOpen() { return settings().isOpenOutage(); }
    void setOutageOpen(bool open);
    [[nodiscard]] int attemptTimeout() const;
    void setAttemptTimeout(int milliseconds);
    [[nodiscard]] int tokenLifetime() const;
    void setTokenLifetime(int milliseconds);
    [[nodiscard]] Presentation popupPresentation() const;
    void setPopupPresentation(Presentation presentation);
    [[nodiscard]] static bool popupClosesOnOutsideClick() { return settings().closesOnOutsideClick(); }
    void setPopupClosesOnOutsideClick(bool closes);
    [[nodiscard]] Appearance appearance() const;
    void setAppearance(Appearance appearance);
    [[nodiscard]] Contrast contrast() const;
    void setContrast(Contrast contrast);
    [[nodiscard]] static QColor accent() { return QVColors::accent(); }
    void setAccent(const QColor &color);
    [[nodiscard]] static bool reducedMotion() { return settings().isMotionReduced(); }
    void setReducedMotion(bool reduced);

    /// A service on one host, as the local one is.
    [[nodiscard]] Q_INVOKABLE static QVQuickAddresses serviceAt(const QString &host);

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] static QVConfigurationManager &settings()
    {
        return QVConfigurationManager::sharedManager();
    }
};
