#include "net/QVVerifyingTls.h"

#include <QSslSocket>

QSslConfiguration qv_verifyingTls()
{
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    // Nothing else is spoken here.
    tls.setAllowedNextProtocols({QByteArrayLiteral("http/1.1")});
    return tls;
}
