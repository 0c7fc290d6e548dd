#include "support/QVTestCertificate.h"

#include <QFile>
#include <QProcess>
#include <QSslKey>
#include <QTemporaryDir>

namespace {

bool runTool(const QString &folder, const QStringList &arguments)
{
    QProcess tool;
    tool.setWorkingDirectory(folder);
    tool.start(QStringLiteral("openssl"), arguments);
    return tool.waitForFinished() && tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeExtensions(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) &&
           file.write("subjectAltName=IP:127.0.0.1\nbasicConstraints=critical,CA:TRUE\n") > 0;
}

bool makeFiles(const QString &folder, const QString &days)
{
    const QString request = QStringLiteral(
        "req -new -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -keyout key -out request "
        "-subj /CN=127.0.0.1");
    const QString signing =
        QStringLiteral("x509 -req -in request -signkey key -extfile extensions -out certificate -days ");
    return writeExtensions(folder + QStringLiteral("/extensions")) && runTool(folder, request.split(u' ')) &&
           runTool(folder, (signing + days).split(u' '));
}

} // namespace

QVTestCertificate::QVTestCertificate(Validity validity)
{
    const QTemporaryDir folder;
    const QString days = validity == Validity::Current ? QStringLiteral("2") : QStringLiteral("-1");
    if (!makeFiles(folder.path(), days))
        return;
    m_certificate = QSslCertificate(contents(folder.filePath(QStringLiteral("certificate"))));
    m_key = QSslKey(contents(folder.filePath(QStringLiteral("key"))), QSsl::Ec);
}

QSslConfiguration QVTestCertificate::serverConfiguration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(m_certificate);
    configuration.setPrivateKey(m_key);
    return configuration;
}
