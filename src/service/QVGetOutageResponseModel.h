#pragma once

#include "service/QVResponseModel.h"

/// A picture of the outage service.
class QVGetOutageResponseModel : public QVResponseModel
{
    Q_GADGET
    Q_PROPERTY(QString imgid READ imgid WRITE setImgid)
    Q_PROPERTY(QString challenge READ challenge WRITE setChallenge)
    Q_PROPERTY(qint64 verifyCount READ verifyCount WRITE setVerifyCount)

public:
    [[nodiscard]] QString imgid() const { return m_imgid; }
    void setImgid(QString value) { m_imgid = std::move(value); }

    [[nodiscard]] QString challenge() const { return m_challenge; }
    void setChallenge(QString value) { m_challenge = std::move(value); }

    /// The number of attempts on this picture.
    [[nodiscard]] qint64 verifyCount() const { return m_verifyCount; }
    void setVerifyCount(qint64 value) { m_verifyCount = value; }

    /// The address of the picture.
    [[nodiscard]] QString imgUrlString() const;

private:
    QString m_imgid;
    QString m_challenge;
    qint64 m_verifyCount = 0;
};
