#include "quick/QVQuickVerification.h"

#include <utility>

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

void QVQuickVerification::setOffersAlternative(bool offers)
{
    if (std::exchange(m_offersAlternative, offers) == offers)
        return;
    modeFlow().alternativeHasChanged();
    Q_EMIT offersAlternativeChanged();
}
