#include "flow/QVPassText.h"

#include "service/QVVerifyResponseModel.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

// The text of the service may contain anything. If it is not a number, the result is 0.
double leadingNumber(const QString &text)
{
    const QByteArray latin = text.trimmed().toLatin1();
    double number = 0;
    std::from_chars(latin.constBegin(), latin.constEnd(), number);
    return std::isfinite(number) ? number : 0;
}

QString seconds(const QString &milliseconds)
{
    constexpr double perSecond = 1000;
    // Room for the largest finite number. to_chars() does not depend on the locale, unlike the printf family.
    std::array<char, 512> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   leadingNumber(milliseconds) / perSecond, std::chars_format::fixed, 1);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

} // namespace

QString qv_passText(const QVVerifyResponseModel &answer)
{
    if (answer.passline().isEmpty())
        return qv_localizedStringForKey(QVKey::clickPass);
    QString text = qv_localizedStringForKey(QVKey::pass);
    text.replace(QStringLiteral("{time}"), seconds(answer.drawtime()));
    return text.replace(QStringLiteral("{score}"), answer.score());
}
