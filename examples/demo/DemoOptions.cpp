#include "demo/DemoOptions.h"

#include "demo/WindowSize.h"

#include <QCommandLineParser>
#include <QUrl>

#include <utility>

namespace {

constexpr int longestTimeoutSeconds = 3600;

void describe(QCommandLineParser &parser)
{
    const auto text = [](const char *literal) {
        return QString::fromLatin1(literal);
    };
    parser.addOptions({
        {text("mode"), text("Front-end to show: embed, click or invisible."), text("MODE"), text("embed")},
        {text("vid"), text("Verification id; the sandbox's test ids begin with test-."), text("ID"),
         text("demo")},
        {text("scene"), text("Scene label."), text("S"), text("login")},
        {text("language"), text("Language tag, such as en or zh-Hans; the system's by default."),
         text("TAG")},
        {text("outage-open"), text("Force outage handling.")},
        {text("no-animation"), text("Run the invisible mode without its badge.")},
        {text("api-host"), text("Captcha service to use instead of the sandbox."), text("URL")},
        {text("download-host"), text("Host of the outage switch."), text("URL")},
        {text("image-host"), text("Host of outage pictures."), text("URL")},
        {text("cdn"), text("Default base address of pictures."), text("URL")},
        {text("outage-server"), text("Address of the outage service."), text("URL")},
        {text("drive"), text("Perform the actions of a file."), text("FILE")},
        {text("screenshots"), text("Folder for the pictures that the drive file takes."), text("DIR")},
        {text("timeout"), text("Give up after so many seconds."), text("SECONDS")},
        {text("size"), text("Size of the window."), text("WxH"), text("1080x720")},
        {text("look"), text("Look of the host: light, dark, loud or right-to-left."), text("LOOK"),
         text("light")},
        {text("form-width"), text("Width of the form, and of the panel in it."), text("W"), text("400")},
    });
    parser.addHelpOption();
}

constexpr std::pair<const char *, DemoMode> modes[] = {
    {"embed", DemoMode::Embed},
    {"click", DemoMode::Click},
    {"invisible", DemoMode::Invisible},
};

constexpr std::pair<const char *, DemoLook> looks[] = {
    {"light", DemoLook::Light},
    {"dark", DemoLook::Dark},
    {"loud", DemoLook::Loud},
    {"right-to-left", DemoLook::RightToLeft},
};

template<class Choice, std::size_t count>
std::optional<Choice> choiceFrom(const QString &text, const std::pair<const char *, Choice> (&choices)[count])
{
    for (const auto &[name, choice] : choices) {
        if (text == QLatin1String(name))
            return choice;
    }
    return std::nullopt;
}

bool isWebAddress(const QString &text)
{
    const QUrl url(text);
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

/// Reads the addresses. Returns the name of an option whose value is not an address, otherwise a null text.
QString readAddresses(const QCommandLineParser &parser, DemoOptions &options)
{
    const std::pair<const char *, QString *> targets[] = {
        {"api-host", &options.apiHost},           {"download-host", &options.downloadHost},
        {"image-host", &options.imageHost},       {"cdn", &options.cdn},
        {"outage-server", &options.outageServer},
    };
    for (const auto &[name, target] : targets) {
        const QString option = QString::fromLatin1(name);
        if (!parser.isSet(option))
            continue;
        if (!isWebAddress(parser.value(option)))
            return option;
        *target = parser.value(option);
    }
    return {};
}

QString readTimeout(const QCommandLineParser &parser, DemoOptions &options)
{
    const QString name = QStringLiteral("timeout");
    if (!parser.isSet(name))
        return {};
    bool isNumber = false;
    const int seconds = parser.value(name).toInt(&isNumber);
    if (!isNumber || seconds < 1 || seconds > longestTimeoutSeconds)
        return QStringLiteral("--timeout takes 1 to %1 seconds").arg(longestTimeoutSeconds);
    options.timeoutSeconds = seconds;
    return {};
}

QString readLook(const QCommandLineParser &parser, DemoOptions &options)
{
    const auto mode = choiceFrom(parser.value(QStringLiteral("mode")), modes);
    if (!mode)
        return QStringLiteral("--mode takes embed, click or invisible");
    const auto size = windowSizeFrom(parser.value(QStringLiteral("size")));
    if (!size)
        return QStringLiteral("--size takes WIDTHxHEIGHT, each %1 to %2").arg(smallestSide).arg(largestSide);
    const auto look = choiceFrom(parser.value(QStringLiteral("look")), looks);
    if (!look)
        return QStringLiteral("--look takes light, dark, loud or right-to-left");
    const int formWidth = parser.value(QStringLiteral("form-width")).toInt();
    if (formWidth < smallestSide || formWidth > largestSide)
        return QStringLiteral("--form-width takes %1 to %2").arg(smallestSide).arg(largestSide);
    options.mode = *mode;
    options.size = *size;
    options.look = *look;
    options.formWidth = formWidth;
    return {};
}

QString readAll(const QCommandLineParser &parser, DemoOptions &options)
{
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().constFirst());
    if (const QString problem = readLook(parser, options); !problem.isEmpty())
        return problem;
    if (const QString problem = readTimeout(parser, options); !problem.isEmpty())
        return problem;
    if (const QString option = readAddresses(parser, options); !option.isEmpty())
        return QStringLiteral("--%1 takes an http or https address").arg(option);
    options.vid = parser.value(QStringLiteral("vid"));
    options.scene = parser.value(QStringLiteral("scene"));
    options.language = parser.value(QStringLiteral("language"));
    options.outageOpen = parser.isSet(QStringLiteral("outage-open"));
    options.animation = !parser.isSet(QStringLiteral("no-animation"));
    options.driveFile = parser.value(QStringLiteral("drive"));
    options.screenshots = parser.value(QStringLiteral("screenshots"));
    options.helpWanted = parser.isSet(QStringLiteral("help"));
    return {};
}

} // namespace

std::optional<DemoOptions> DemoOptions::parse(const QStringList &arguments, QString &problem)
{
    QCommandLineParser parser;
    describe(parser);
    DemoOptions options;
    problem = parser.parse(arguments) ? readAll(parser, options) : parser.errorText();
    if (!problem.isEmpty())
        return std::nullopt;
    return options;
}

QString DemoOptions::usage()
{
    QCommandLineParser parser;
    describe(parser);
    // There is no application object yet, so the parser does not know the program's name.
    return parser.helpText().replace(QLatin1String("<executable_name>"), QLatin1String("quarvo-demo"));
}
