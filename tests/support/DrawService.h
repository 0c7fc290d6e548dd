#pragma once

#include "settings/QVServiceAddresses.h"
#include "support/QVScriptedServer.h"

#include <QJsonObject>
#include <QMap>

/// A captcha service with scripted answers. The constructor sets the component's addresses to it.
///
/// Requests are named: switch, config, get, refresh, click, verify, picture, outage get, outage verify,
/// outage picture.
class DrawService
{
public:
    DrawService();

    /// The addresses that the settings were given.
    [[nodiscard]] QVServiceAddresses addresses() const;
    /// Sets the answer to a request.
    void answer(const QString &name, const QJsonObject &json) { m_answers[name] = json; }
    /// Sets the body of the answer, which need not be JSON.
    void answerBytes(const QString &name, const QByteArray &body) { m_bodies[name] = body; }
    /// Adds members to the answer to a request.
    void extend(const QString &name, const QJsonObject &json);
    /// Delays the answer to a request, in virtual time.
    void delay(const QString &name, std::chrono::milliseconds duration) { m_delays[name] = duration; }
    void breakPictures(bool broken) { m_picturesAreBroken = broken; }
    /// Lets \a fault answer the requests of that name. An empty name ends this.
    void misbehave(const QString &name, const QVScriptedServer::Responder &fault)
    {
        m_faultyName = name;
        m_fault = fault;
    }

    /// Whether nothing is under way except delayed answers.
    [[nodiscard]] bool isQuiet() const;
    /// The names of all requests so far, except those for pictures.
    [[nodiscard]] QStringList asked() const;
    [[nodiscard]] qsizetype count(const QString &name) const;
    /// The latest request of that name.
    [[nodiscard]] QMap<QString, QString> query(const QString &name) const;

private:
    [[nodiscard]] static QString nameOf(const QVReceivedRequest &request);
    [[nodiscard]] QVScript respond(const QString &name);
    [[nodiscard]] QByteArray bodyFor(const QString &name);
    [[nodiscard]] QByteArray nextPicture();

    QVScriptedServer m_server;
    QMap<QString, QJsonObject> m_answers;
    QMap<QString, QByteArray> m_bodies;
    QMap<QString, std::chrono::milliseconds> m_delays;
    QString m_faultyName;
    QVScriptedServer::Responder m_fault;
    bool m_picturesAreBroken = false;
    int m_pictureCount = 0;
};
