#include "QuietPlatform.h"
#include "demo/DemoOptions.h"
#include "demo/DemoServices.h"
#include "demo/DemoWindow.h"
#include "demo/Driver.h"
#include "demo/EventLog.h"
#include "demo/PanelProbe.h"

#include <QApplication>
#include <QFileInfo>

#include <cstdio>

namespace {

constexpr int exitFailed = 1;
constexpr int exitBadInput = 2;
constexpr int driveTimeoutSeconds = 60;

int complain(const QString &problem)
{
    std::fprintf(stderr, "quarvo-demo: %s\n", qUtf8Printable(problem.simplified()));
    return exitBadInput;
}

QStringList argumentList(int argc, char *argv[])
{
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    return arguments;
}

/// Reads the drive file, if there is one. Returns false if it is wrong; \a problem is the reason.
bool readScript(const DemoOptions &options, std::optional<DriveScript> &script, QString &problem)
{
    if (options.driveFile.isEmpty())
        return true;
    script = DriveScript::read(options.driveFile, problem);
    if (!script)
        return false;
    if (!script->takesPictures())
        return true;
    const QString folder = options.screenshots.isEmpty() ? QStringLiteral(".") : options.screenshots;
    if (QDir().mkpath(folder) && QFileInfo(folder).isWritable())
        return true;
    problem = QStringLiteral("cannot write pictures to %1").arg(folder);
    return false;
}

void configureComponent(const DemoOptions &options)
{
    QVSDKManager::setQuarvoSDKVid(options.vid, options.scene);
    QVSDKManager::setPreferredLanguage(options.language);
    QVSDKManager::setOutageOpen(options.outageOpen);
    if (options.look == DemoLook::Dark)
        QVSDKManager::setAppearance(QVAppearance::Dark);
}

int run(const DemoOptions &options, std::optional<DriveScript> script)
{
    DemoServices services;
    if (QString problem; !services.start(options, problem))
        return complain(problem);
    configureComponent(options);

    EventLog log;
    PanelProbe probe(log);
    DemoWindow window(options, log);
    window.show();
    // Without a window manager nothing else activates the window.
    window.activateWindow();

    std::optional<Driver> driver;
    if (script) {
        driver.emplace(Driver::Stage{window, log, probe}, std::move(*script), services.solutionServices(),
                       options.screenshots);
        QObject::connect(&*driver, &Driver::finished, qApp,
                         [](bool success) { QApplication::exit(success ? 0 : exitFailed); });
        driver->start();
    }
    if (script || options.timeoutSeconds) {
        const std::chrono::seconds timeout(options.timeoutSeconds.value_or(driveTimeoutSeconds));
        const bool isDriven = driver.has_value();
        QTimer::singleShot(timeout, qApp, [&log, isDriven] {
            std::fprintf(stderr, "quarvo-demo: out of time\n");
            QApplication::exit(!isDriven && log.hasToken() ? 0 : exitFailed);
        });
    }
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    // Before the application object is created, so that wrong options are reported even without a display.
    QString problem;
    const auto options = DemoOptions::parse(argumentList(argc, argv), problem);
    if (!options)
        return complain(problem);
    if (options->helpWanted) {
        std::printf("%s", qUtf8Printable(DemoOptions::usage()));
        return 0;
    }
    std::optional<DriveScript> script;
    if (!readScript(*options, script, problem))
        return complain(problem);

    const bool hasDisplay =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!hasDisplay && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    quietPlatform();
    QApplication application(argc, argv);
    QApplication::setOrganizationDomain(QStringLiteral("quarvo.example"));
    QApplication::setApplicationName(QStringLiteral("quarvo-demo"));
    return run(*options, std::move(script));
}
