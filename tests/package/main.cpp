// The host that scripts/check-package builds against an installed Quarvo. It clicks the button, which passes
// at the service in its arguments, and prints what a user would see. The exit code is 0 once it has a token.
#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {

// The number of colours at the left edge of the button, where the logo is on a plain background.
int logoColours(QWidget &button)
{
    const QImage strip = button.grab().toImage().copy(0, 0, button.height(), button.height());
    QList<QRgb> colours;
    for (int y = 0; y < strip.height(); ++y) {
        for (int x = 0; x < strip.width(); ++x) {
            if (!colours.contains(strip.pixel(x, y)))
                colours.append(strip.pixel(x, y));
        }
    }
    return static_cast<int>(colours.size());
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QString service = QApplication::arguments().value(1);
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(service));
    QVSDKManager::setPreferredLanguage(QStringLiteral("en"));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-pass"), QStringLiteral("package"));

    QVClickButton button;
    button.show();
    std::printf("version %s\ntext %s\nlogo %s\n", QUARVO_VERSION_STR, qUtf8Printable(button.statusText()),
                logoColours(button) > 2 ? "yes" : "no");
    QObject::connect(&button, &QVClickButton::passed, [](const QString &token) {
        std::printf("token %s\n", qUtf8Printable(token));
        QApplication::quit();
    });
    QObject::connect(&button, &QVClickButton::failed, [](const QVError &error) {
        std::printf("error %lld\n", static_cast<long long>(error.code()));
        QApplication::exit(1);
    });
    QTimer::singleShot(10000, &application, [] { QApplication::exit(2); });
    button.click();
    return QApplication::exec();
}
