#pragma once

#include <Quarvo/QVAppearance.h>
#include <Quarvo/QVContrast.h>
#include <Quarvo/QVPopupPresentation.h>
#include <Quarvo/QuarvoExport.h>

#include <QString>

#include <chrono>

class QColor;
class QNetworkAccessManager;
class QVServiceAddresses;

/// The entry point: a host sets its verification id here before it shows any verification.
///
/// The settings apply to the whole process and are not saved. A change takes effect with the next request,
/// not with one under way. Only setOutageOpen() also takes effect while the answer of the outage switch is
/// awaited. Ids are not checked: an empty one is sent as it is.
///
/// Call the functions on the user-interface thread, after the application object was created. Other calls do
/// nothing except log a warning.
///
/// \code
/// QVSDKManager::setQuarvoSDKVid(QStringLiteral("your-id"), QStringLiteral("login"));
/// \endcode
class QUARVO_EXPORT QVSDKManager
{
public:
    QVSDKManager() = delete;

    /// Sets the verification id that the service gave this host. \a scene is a label of the host's choice for
    /// the place of the verification, such as "login".
    static void setQuarvoSDKVid(const QString &vid, const QString &scene);

    /// Sets the language of the texts by a tag. A tag that contains "zh-Hans" or "zh-Hant" selects Chinese,
    /// any other tag English, even "zh" and "zh_CN". Null or empty selects the user's language, as the
    /// desktop reports it at the time of the call. Texts on screen change at once; attempts under way go on.
    static void setPreferredLanguage(const QString &language);

    /// Uses the texts and pictures of the host's own bundle. \a path is a folder, on disk or in the program's
    /// resources (":/brand/QVResource.bundle"). It may contain only what differs; everything else comes from
    /// the component's own bundle. With an empty path only the component's own bundle is used; so it is if \a
    /// path is not a folder, which logs a warning. Texts on screen change at once, pictures when they are
    /// shown next.
    static void setResourceBundle(const QString &path);

    /// Sets the address of the host's own outage server, which takes over when the service is down. Plain
    /// HTTP to another machine works, but logs a warning.
    static void setOutageServer(const QString &address);

    /// With \a open true the outage server is used whatever the service's own outage switch says.
    static void setOutageOpen(bool open);

    /// Replaces the addresses of the service that were chosen when the library was built. Plain HTTP to
    /// another machine works, but logs a warning.
    static void setServiceAddresses(const QVServiceAddresses &addresses);

    /// Sets how much room the next popup takes. The default is QVPopupPresentation::Automatic.
    static void setPopupPresentation(QVPopupPresentation presentation);

    /// With \a closes true a click or tap beside a popup's card closes it, as its close button does. The
    /// default is false, since a stray tap would lose the picture.
    static void setPopupClosesOnOutsideClick(bool closes);

    /// Sends all requests through \a manager, with its proxy, certificates and cache. The host keeps the
    /// ownership. With null, or after \a manager was destroyed, the component uses its own connections.
    /// Requests under way in a manager that is destroyed fail.
    ///
    /// To set only a proxy, QNetworkProxy::setApplicationProxy() is enough.
    static void setNetworkAccessManager(QNetworkAccessManager *manager);

    /// Limits the time of an attempt. An attempt that has not passed \a timeout after its start fails with
    /// the code -1001, and a popup closes. An embedded panel shows the failure in its bar; a tap on that
    /// starts again. Zero, the default, and negative values mean no limit. More than a day counts as a day.
    static void setAttemptTimeout(std::chrono::milliseconds timeout);

    /// Sets how long a token is valid, counted from passed(). When that time is up, the button or manager
    /// emits expired(). A button is then ready for another click, and an embedded panel lets the user start
    /// again. Takes effect for the next token. With zero, the default, and negative values tokens do not
    /// expire. More than a day counts as a day.
    ///
    /// \code
    /// QVSDKManager::setTokenLifetime(std::chrono::minutes(5));
    /// \endcode
    static void setTokenLifetime(std::chrono::milliseconds lifetime);

    /// Sets the contrast of texts. The default is QVContrast::System. Widgets on screen follow when they are
    /// painted next.
    static void setContrast(QVContrast contrast);

    /// Makes the popup's surface, the strip for characters and the captions light or dark. The default is
    /// QVAppearance::Light. Pictures, bars and buttons keep their colours. Call this before the first
    /// verification: an existing field for characters keeps the colour of its text.
    static void setAppearance(QVAppearance appearance);

    /// Replaces the product's blue by \a color in the click button, the stroke, the loading dots, "Done" and
    /// the focus ring. The text on the click button is white, so \a color should be dark. An invalid colour
    /// restores the product's own, RGB 65, 141, 251. A translucent colour is made opaque.
    static void setAccentColor(const QColor &color);

    /// With \a reduced true nothing moves: effects jump to their end. With false, the default, the desktop's
    /// style decides.
    static void setReducedMotion(bool reduced);
};
