#pragma once

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

/// Certificates for a server on this machine, made on the spot by the openssl tool.
class QVTestCertificate
{
public:
    enum class Validity { Current, Expired };

    explicit QVTestCertificate(Validity validity);

    /// Whether the tool was there and did its work.
    [[nodiscard]] bool isMade() const { return !m_certificate.isNull() && !m_key.isNull(); }
    [[nodiscard]] QSslCertificate certificate() const { return m_certificate; }
    /// For a server that shows it.
    [[nodiscard]] QSslConfiguration serverConfiguration() const;

private:
    QSslCertificate m_certificate;
    QSslKey m_key;
};
