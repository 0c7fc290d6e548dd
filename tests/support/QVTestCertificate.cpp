#include "support/QVTestCertificate.h"

#include "support/QVText.h"

#include <QFile>
#include <QProcess>
#include <QSslKey>
#include <QTemporaryDir>

namespace {

bool runTool(const QString &folder, const QStringList &arguments)
{
    QProcess tool;
    tool.setWorkingDirectory(folder);
    tool.start(q("openssl"), arguments);
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
    const QString request =
        q("req -new -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -keyout key -out request "
          "-subj /CN=127.0.0.1");
    const QString signing =
        q("x509 -req -in request -signkey key -extfile extensions -out certificate -days ");
    return writeExtensions(folder + q("/extensions")) && runTool(folder, request.split(u' ')) &&
           runTool(folder, (signing + days).split(u' '));
}

} // namespace

QVTestCertificate::QVTestCertificate(Validity validity)
{
    const QTemporaryDir folder;
    const QString days = validity == Validity::Current ? q("2") : q("-1");
    if (!makeFiles(folder.path(), days))
        return;
    m_certificate = QSslCertificate(contents(folder.filePath(q("certificate"))));
    m_key = QSslKey(contents(folder.filePath(q("key"))), QSsl::Ec);
}

QSslConfiguration QVTestCertificate::serverConfiguration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(m_certificate);
    configuration.setPrivateKey(m_key);
    return configuration;
}
