#pragma once

#include "support/QVText.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

/// What a server for 127.0.0.1 shows: the certificate "local", "expired" or "stranger". None of them is
/// trusted by anybody; all have one key.
inline QSslConfiguration qv_serverTls(const QString &name)
{
    const QString folder = q(QUARVO_TEST_CERTIFICATES);
    QFile key(folder + q("/local.key"));
    if (!key.open(QIODevice::ReadOnly))
        qFatal("the certificates of the tests are missing");
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(q("%1/%2.crt").arg(folder, name)));
    configuration.setPrivateKey(QSslKey(&key, QSsl::Ec));
    return configuration;
}
