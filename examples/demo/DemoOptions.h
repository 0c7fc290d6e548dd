#pragma once

#include "demo/DemoLook.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

/// Which front-end of the component the demo shows.
enum class DemoMode { Embed, Click, Invisible };

/// What the command line asked for.
struct DemoOptions
{
    DemoMode mode = DemoMode::Embed;
    QString vid = QStringLiteral("demo");
    QString scene = QStringLiteral("login");
    QString language;
    bool outageOpen = false;
    bool animation = true;

    /// Null where the sandbox in this process serves.
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
    /// The form, and the panel in it, is as wide where the window has the room.
    int formWidth = 400;
    bool helpWanted = false;

    /// Reads the arguments (the program's name first). On bad input returns nothing and says why in
    /// one line.
    [[nodiscard]] static std::optional<DemoOptions> parse(const QStringList &arguments, QString &problem);
    [[nodiscard]] static QString usage();
};
