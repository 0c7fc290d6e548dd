#pragma once

#include "demo/DemoLook.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

/// Which front-end of the component the demo shows.
enum class DemoMode { Embed, Click, Invisible };

/// The options of the command line.
struct DemoOptions
{
    DemoMode mode = DemoMode::Embed;
    QString vid = QStringLiteral("demo");
    QString scene = QStringLiteral("login");
    QString language;
    bool outageOpen = false;
    bool animation = true;

    /// Null if the sandbox in this process is used.
    QString apiHost;
    QString downloadHost;
    QString imageHost;
    QString cdn;
    QString outageServer;

    QString driveFile;
    QString screenshots;
    std::optional<int> timeoutSeconds;
    QSize size{1080, 720};
    DemoLook look = DemoLook::Light;
    /// The width of the form and of the panel in it, if the window is wide enough.
    int formWidth = 400;
    bool helpWanted = false;

    /// Reads the arguments, of which the first is the program's name. If they are wrong, the result is empty
    /// and \a problem is the reason, in one line.
    [[nodiscard]] static std::optional<DemoOptions> parse(const QStringList &arguments, QString &problem);
    [[nodiscard]] static QString usage();
};
