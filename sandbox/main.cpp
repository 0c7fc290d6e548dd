#include "sandbox/QVSandbox.h"
#include "sandbox/SandboxBehaviour.h"
#include "sandbox/SandboxSignals.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonDocument>

#include <cstdio>

namespace {

constexpr int usageError = 2;

int failed(const QString &reason)
{
    std::fprintf(stderr, "quarvo-sandbox: %s\n", qUtf8Printable(reason));
    return usageError;
}

void addOptions(QCommandLineParser &parser)
{
    const QString description = QStringLiteral(
        "A complete captcha service on this machine. Prints its addresses as one line of JSON; "
        "a client whose download host is outageDownloadHost always finds an outage.\n\n"
        "Any id is accepted, and the user has to draw, except with these ids:\n%1.");
    parser.setApplicationDescription(description.arg(SandboxBehaviour::ids().join(QStringLiteral(", "))));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("port"), QStringLiteral("Port to serve on; any free one if not given."),
         QStringLiteral("N"), QStringLiteral("0")},
        {QStringLiteral("tls"),
         QStringLiteral("Serve https with this certificate; its key is the argument KEY."),
         QStringLiteral("CERT")},
        {QStringLiteral("seed"), QStringLiteral("Make pictures, challenges and tokens reproducible."),
         QStringLiteral("N")},
        {QStringLiteral("outage-active"),
         QStringLiteral("Let the outage switch say that there is an outage.")},
    });
    parser.addPositionalArgument(QStringLiteral("KEY"), QStringLiteral("Key of the certificate, with --tls."),
                                 QStringLiteral("[KEY]"));
}

// Reads the options. Returns the reason if the command line is wrong, otherwise an empty text.
QString readOptions(const QCommandLineParser &parser, QVSandboxOptions &options)
{
    bool isNumber = false;
    options.port = parser.value(QStringLiteral("port")).toUShort(&isNumber);
    if (!isNumber)
        return QStringLiteral("--port takes a number from 0 to 65535");
    if (parser.isSet(QStringLiteral("seed"))) {
        options.seed = parser.value(QStringLiteral("seed")).toULongLong(&isNumber);
        if (!isNumber)
            return QStringLiteral("--seed takes a number");
    }
    options.outageActive = parser.isSet(QStringLiteral("outage-active"));
    options.certificateFile = parser.value(QStringLiteral("tls"));
    const QStringList rest = parser.positionalArguments();
    if (rest.size() != (options.certificateFile.isEmpty() ? 0 : 1))
        return options.certificateFile.isEmpty() ? QStringLiteral("unexpected argument %1").arg(rest.value(0))
                                                 : QStringLiteral("--tls takes two files, CERT and KEY");
    options.keyFile = rest.value(0);
    return {};
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quarvo-sandbox"));
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(QCoreApplication::arguments()))
        return failed(parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp();
    QVSandboxOptions options;
    if (const QString reason = readOptions(parser, options); !reason.isEmpty())
        return failed(reason);

    QVSandbox sandbox(options);
    if (!sandbox.listen())
        return failed(sandbox.errorString());
    SandboxSignals signalsToStop;
    QObject::connect(&signalsToStop, &SandboxSignals::stopRequested, &application, &QCoreApplication::quit);
    const QByteArray line = QJsonDocument(sandbox.addresses().toJson()).toJson(QJsonDocument::Compact);
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
    return QCoreApplication::exec();
}
