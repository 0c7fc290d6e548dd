#pragma once

#include "service/QVResponseModel.h"

#include <QStringList>

/// Which captcha to show, and where its requests go.
class QVConfigResponseModel : public QVResponseModel
{
    Q_GADGET
    // source_server and isCharVerify are no properties: the setters of cdn_servers and type set them.
    Q_PROPERTY(QString key READ key WRITE setKey)
    Q_PROPERTY(QString type READ type WRITE setType)
    Q_PROPERTY(QString challenge READ challenge WRITE setChallenge)
    Q_PROPERTY(QString api_server READ api_server WRITE setApi_server)
    Q_PROPERTY(QStringList cdn_servers READ cdn_servers WRITE setCdn_servers)
    Q_PROPERTY(bool guide READ guide WRITE setGuide)
    Q_PROPERTY(double configTimeInterval READ configTimeInterval WRITE setConfigTimeInterval)
    Q_PROPERTY(qint64 getRefreshCount READ getRefreshCount WRITE setGetRefreshCount)

public:
    [[nodiscard]] QString key() const { return m_key; }
    void setKey(QString value) { m_key = std::move(value); }

    /// The kind of captcha; "character" asks for typed characters.
    [[nodiscard]] QString type() const { return m_type; }
    /// "character" also sets isCharVerify; no other kind clears it.
    void setType(QString value);

    /// Identifies this captcha in all later requests.
    [[nodiscard]] QString challenge() const { return m_challenge; }
    void setChallenge(QString value) { m_challenge = std::move(value); }

    /// Base address of the later requests.
    [[nodiscard]] QString api_server() const { return m_api_server; }
    /// Null and empty text is ignored. An address without a scheme gets https.
    void setApi_server(const QString &value);

    [[nodiscard]] QStringList cdn_servers() const { return m_cdn_servers; }
    /// Also sets source_server: to the first entry, or to the default if there is none.
    void setCdn_servers(QStringList value);

    /// Base address of the pictures.
    [[nodiscard]] QString source_server() const { return m_source_server; }

    /// Whether to offer help.
    [[nodiscard]] bool guide() const { return m_guide; }
    void setGuide(bool value) { m_guide = value; }

    [[nodiscard]] bool isCharVerify() const { return m_isCharVerify; }

    [[nodiscard]] double configTimeInterval() const { return m_configTimeInterval; }
    void setConfigTimeInterval(double value) { m_configTimeInterval = value; }

    /// How many pictures were shown with this configuration.
    [[nodiscard]] qint64 getRefreshCount() const { return m_getRefreshCount; }
    void setGetRefreshCount(qint64 value) { m_getRefreshCount = value; }

private:
    QString m_key;
    QString m_type;
    QString m_challenge;
    QString m_api_server;
    QStringList m_cdn_servers;
    QString m_source_server;
    bool m_guide = false;
    bool m_isCharVerify = false;
    double m_configTimeInterval = 0;
    qint64 m_getRefreshCount = 0;
};
