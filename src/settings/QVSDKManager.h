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

/// The entry point: a host says here who it is, before it shows any verification.
///
/// What is set holds for the whole process and ends with it. A change takes effect for the next
/// request, not for one already under way; only setOutageOpen() also takes effect
/// while the outage switch is being asked. Nothing is checked: an empty id is sent as it is.
/// Call from the user-interface thread, once the application object exists; other calls do nothing, and are
/// warned of in the log.
class QUARVO_EXPORT QVSDKManager
{
public:
    QVSDKManager() = delete;

    /// Sets the verification id that the service gave this host, and a label of the host's own choice
    /// for the place where it verifies.
    static void setQuarvoSDKVid(const QString &vid, const QString &scene);

    /// Chooses the language of the texts by a tag: one that contains "zh-Hans" or "zh-Hant" gives
    /// Chinese, every other one English. Null or empty stands for the user's language, as the desktop names
    /// it at the time of the call. Everything on screen changes at once; what is under way goes on.
    static void setPreferredLanguage(const QString &language);

    /// Takes texts and pictures from a bundle of the host's own, the folder \a path, which may also be one
    /// of the program's resources (":/brand/QVResource.bundle"). It may hold only what differs: what it lacks
    /// comes from the component's own. Null, or what is no folder, which is warned of in the log, goes
    /// back to those alone. Texts that are on screen change at once, pictures when they are shown next.
    static void setResourceBundle(const QString &path);

    /// Sets the address of the host's own outage server, which takes over when the service is down. Plain
    /// HTTP to another machine works, and is warned of in the log.
    static void setOutageServer(const QString &address);

    /// Goes to the outage server whatever the service's own outage switch says.
    static void setOutageOpen(bool open);

    /// Names another place where the service lives than the one chosen when the library was built. Plain
    /// HTTP to another machine works, and is warned of in the log.
    static void setServiceAddresses(const QVServiceAddresses &addresses);

    /// Chooses how much room the next popup takes; QVPopupPresentation::Automatic at first.
    static void setPopupPresentation(QVPopupPresentation presentation);

    /// Closes a popup's card when the user clicks or taps beside it, as its close button does; off at
    /// first, since a stray tap would lose the picture.
    static void setPopupClosesOnOutsideClick(bool closes);

    /// Sends all requests through \a manager, with its proxy, its certificates and its cache. It stays
    /// the host's own and is held weakly: once it has gone, or with null, the component uses its own
    /// again. Requests under way in a manager that goes end as failed.
    ///
    /// For a proxy alone, QNetworkProxy::setApplicationProxy() is enough.
    static void setNetworkAccessManager(QNetworkAccessManager *manager);

    /// Ends an attempt that has not passed after \a timeout, counted from its start, as failed with the
    /// code -1001; a popup closes. An embedded panel shows the failure, and a tap on it starts anew.
    /// Zero, as at first, and less let the user take all the time there is; more than a day counts as a
    /// day.
    static void setAttemptTimeout(std::chrono::milliseconds timeout);

    /// Names how long a token of the host's service is good, counted from passed(). When a token's time is
    /// up, its button or manager emits expired(); a button is ready for another click then, and an embedded
    /// panel lets the user start anew. Takes effect for the next token. Zero, as at first, and less: none
    /// expires. More than a day counts as a day.
    ///
    /// \code
    /// QVSDKManager::setTokenLifetime(std::chrono::minutes(5));
    /// \endcode
    static void setTokenLifetime(std::chrono::milliseconds lifetime);

    /// Chooses how far texts stand out from their ground; QVContrast::System at first. What is on screen
    /// follows when it is painted next.
    static void setContrast(QVContrast contrast);

    /// Makes the popup's surface, the strip for characters and the captions light or dark;
    /// QVAppearance::Light at first. Pictures, bars and buttons keep their colours. Call before the first
    /// verification: a field for characters that exists already keeps the colour of its text.
    static void setAppearance(QVAppearance appearance);

    /// Paints with \a color what is blue at first: click button, stroke, loading dots, "Done" and focus.
    /// White text lies on the click button, so \a color is to be a dark one. An invalid colour stands for the
    /// product's own, 65, 141, 251; a translucent one counts as opaque.
    static void setAccentColor(const QColor &color);

    /// Lets nothing move, as where the desktop's style animates nothing: effects jump to their end. False, as
    /// at first, leaves it to the style.
    static void setReducedMotion(bool reduced);
};
