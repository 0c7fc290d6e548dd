#include "net/QVVerifyingTls.h"

#include <QSslSocket>

QSslConfiguration qv_verifyingTls()
{
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    // The only protocol that the component's own connections use.
    tls.setAllowedNextProtocols({QByteArrayLiteral("http/1.1")});
    return tls;
}
