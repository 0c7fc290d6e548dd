#include "parts/PartTools.h"

#include <QApplication>
#include <QJsonDocument>

#include <array>
#include <cstdio>

namespace {

struct Part
{
    QLatin1String name;
    void (*run)(const PartOptions &);
};

constexpr std::array parts{
    Part{QLatin1String("animation"), runAnimationPart}, Part{QLatin1String("artwork"), runArtworkPart},
    Part{QLatin1String("count"), runCountPart},         Part{QLatin1String("idle-button"), runIdleButton},
    Part{QLatin1String("idle-panel"), runIdlePanel},    Part{QLatin1String("idle-popup"), runIdlePopup},
    Part{QLatin1String("keychain"), runKeychainPart},   Part{QLatin1String("mapping"), runMappingPart},
    Part{QLatin1String("picture"), runPicturePart},     Part{QLatin1String("stroke"), runStrokePart},
    Part{QLatin1String("trace"), runTracePart},         Part{QLatin1String("transport"), runTransportPart},
};

} // namespace

/// quarvo-bench-parts PART ADDRESSES short|whole KEYRING-PROCESS
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const PartOptions options{QJsonDocument::fromJson(arguments.value(2).toUtf8()).object(),
                              arguments.value(3) == QLatin1String("short"), arguments.value(4).toLongLong()};
    for (const Part &part : parts) {
        if (part.name == arguments.value(1)) {
            part.run(options);
            return 0;
        }
    }
    std::fprintf(stderr, "no such part\n");
    return 1;
}
