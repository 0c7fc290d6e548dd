#include "quick/QVQuickVerification.h"

QVQuickVerification::QVQuickVerification(QObject *parent)
    : QObject(parent)
{
    connect(this, &QVQuickVerification::offersAlternativeChanged, this,
            [this] { modeFlow().alternativeHasChanged(); });
}

void QVQuickVerification::setVid(const QString &vid)
{
    setIdentity({qv_ownText(vid), scene()});
}

void QVQuickVerification::setScene(const QString &scene)
{
    setIdentity({vid(), qv_ownText(scene)});
}

void QVQuickVerification::setIdentity(const QVIdentity &identity)
{
    m_identity = identity;
    modeFlow().setIdentity(identity);
    Q_EMIT identityChanged();
}
