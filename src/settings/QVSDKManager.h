#pragma once

#include <Quarvo/QVPopupPresentation.h>
#include <Quarvo/QuarvoExport.h>

#include <QString>

class QVServiceAddresses;

/// The entry point: a host says here who it is, before it shows any verification.
///
/// What is set holds for the whole process and ends with it. A change takes effect for the next
/// request or text, never for one already under way. Nothing is checked: an empty id is sent as it is.
/// Call from the user-interface thread, once the application object exists.
class QUARVO_EXPORT QVSDKManager
{
public:
    QVSDKManager() = delete;

    /// Sets the verification id that the service gave this host, and a label of the host's own choice
    /// for the place where it verifies.
    static void setQuarvoSDKVid(const QString &vid, const QString &scene);

    /// Chooses the language of the texts by a tag: one that contains "zh-Hans" or "zh-Hant" gives
    /// Chinese, every other one English. Null or empty follows the user's language.
    static void setPreferredLanguage(const QString &language);

    /// Sets the address of the host's own outage server, which takes over when the service is down.
    static void setOutageServer(const QString &address);

    /// Goes to the outage server whatever the service's own outage switch says.
    static void setOutageOpen(bool open);

    /// Names another place where the service lives than the one chosen when the library was built.
    static void setServiceAddresses(const QVServiceAddresses &addresses);

    /// Chooses how much room the next popup takes; QVPopupPresentation::Automatic at first.
    static void setPopupPresentation(QVPopupPresentation presentation);
};
