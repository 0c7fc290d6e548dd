#include "demo/DemoTexts.h"

#include <array>

namespace {

struct Row
{
    const char16_t *english;
    const char16_t *simplified;
    const char16_t *traditional;
};

// In the order of the enumeration.
constexpr std::array rows{
    Row{u"Welcome back", u"欢迎回来", u"歡迎回來"},
    Row{u"Sign in to your account", u"登录您的账户", u"登入您的帳戶"},
    Row{u"User name", u"用户名", u"使用者名稱"},
    Row{u"Password", u"密码", u"密碼"},
    Row{u"Sign in", u"登录", u"登入"},
    // A token proves nothing until a server has checked it, and the demo has no server.
    Row{u"Verified. Checking with the server…", u"验证成功，正在与服务器核对…",
        u"驗證成功，正在與伺服器核對…"},
    Row{u"Start again", u"重新开始", u"重新開始"},
    Row{u"Embedded", u"嵌入", u"內嵌"},
    Row{u"Click", u"点击", u"點擊"},
    Row{u"Invisible", u"无感", u"無感"},
    Row{u"Language", u"语言", u"語言"},
    Row{u"Use the backup service", u"使用备用服务", u"使用備用服務"},
    Row{u"Events", u"事件", u"事件"},
};

} // namespace

QString demoText(DemoText text, const QString &languageTag)
{
    const Row &row = rows.at(static_cast<std::size_t>(text));
    if (languageTag.contains(QLatin1String("zh-Hans")))
        return QString::fromUtf16(row.simplified);
    if (languageTag.contains(QLatin1String("zh-Hant")))
        return QString::fromUtf16(row.traditional);
    return QString::fromUtf16(row.english);
}
