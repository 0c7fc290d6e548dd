#pragma once

#include <QLatin1String>

/// The keys of the texts shown to users. The strings table of each language contains exactly these. The
/// spelling of some is wrong, but stays for hosts that ship their own tables.
namespace QVKey {

inline constexpr QLatin1String accessDenied("AccessDenied");
inline constexpr QLatin1String refreshTooFast("RefreshTooFast");
inline constexpr QLatin1String refreshMany("refreshMany");
inline constexpr QLatin1String requestToMouch("RequestToMouch");
inline constexpr QLatin1String expired("expired");
/// Holds the placeholder "{domain}".
inline constexpr QLatin1String systemError("systemError");
inline constexpr QLatin1String otherRequestError("otherRequestError");
inline constexpr QLatin1String timedOut("-1001");
inline constexpr QLatin1String connectionLost("-1005");

inline constexpr QLatin1String touchCaptcha("touchCaptcha");
inline constexpr QLatin1String inVerify("inVerify");
inline constexpr QLatin1String drawCaptcha("drawCaptcha");
inline constexpr QLatin1String clickPass("clickPass");
/// Holds the placeholders "{time}" (seconds) and "{score}" (per cent).
inline constexpr QLatin1String pass("pass");
inline constexpr QLatin1String characterCaptcha("characterCaptcha");
inline constexpr QLatin1String characterCaptchaHolder("characterCaptchaHolder");
inline constexpr QLatin1String done("done");
inline constexpr QLatin1String fail("fail");
inline constexpr QLatin1String loadFaild("loadFaild");
inline constexpr QLatin1String support("support");
inline constexpr QLatin1String outage("outage");
inline constexpr QLatin1String alternative("alternative");

// Read out to users who do not see the control.
inline constexpr QLatin1String accessibleHelp("accessibleHelp");
inline constexpr QLatin1String accessibleRefresh("accessibleRefresh");
inline constexpr QLatin1String accessibleClose("accessibleClose");
inline constexpr QLatin1String accessiblePicture("accessiblePicture");
inline constexpr QLatin1String accessibleAnswer("accessibleAnswer");
inline constexpr QLatin1String accessibleAdvertisement("accessibleAdvertisement");
inline constexpr QLatin1String accessibleDialog("accessibleDialog");
inline constexpr QLatin1String accessibleLoading("accessibleLoading");
inline constexpr QLatin1String accessiblePen("accessiblePen");
inline constexpr QLatin1String accessiblePenDown("accessiblePenDown");
inline constexpr QLatin1String accessiblePenUp("accessiblePenUp");
inline constexpr QLatin1String accessibleExpired("accessibleExpired");

/// All of the above.
inline constexpr QLatin1String all[] = {
    accessDenied,
    refreshTooFast,
    refreshMany,
    requestToMouch,
    expired,
    systemError,
    otherRequestError,
    timedOut,
    connectionLost,
    touchCaptcha,
    inVerify,
    drawCaptcha,
    clickPass,
    pass,
    characterCaptcha,
    characterCaptchaHolder,
    done,
    fail,
    loadFaild,
    support,
    outage,
    alternative,
    accessibleHelp,
    accessibleRefresh,
    accessibleClose,
    accessiblePicture,
    accessibleAnswer,
    accessibleAdvertisement,
    accessibleDialog,
    accessibleLoading,
    accessiblePen,
    accessiblePenDown,
    accessiblePenUp,
    accessibleExpired,
};

} // namespace QVKey
