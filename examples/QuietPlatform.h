#pragma once

#include <QLatin1String>
#include <QtGlobal>

#include <algorithm>

/// Suppresses the messages that a platform without a desktop prints about itself. Call this before the
/// application object is created.
inline void quietPlatform()
{
    static QtMessageHandler printer = nullptr;
    printer =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            constexpr QLatin1String remarks[] = {QLatin1String("This plugin does not support "),
                                                 QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set")};
            const auto begins = [&message](QLatin1String remark) {
                return message.startsWith(remark);
            };
            if (std::ranges::none_of(remarks, begins))
                printer(type, context, message);
        });
}
