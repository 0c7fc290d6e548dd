#pragma once

#include "settings/QVServiceAddresses.h"
#include "support/QVScriptedServer.h"

#include <QJsonObject>
#include <QMap>

/// A captcha service that answers as a test tells it, and the settings that lead to it.
///
/// Requests are named: switch, config, get, refresh, click, verify, picture, outage get, outage verify,
/// outage picture.
class DrawService
{
public:
    DrawService();

    /// Where it is, as the settings were told.
    [[nodiscard]] QVServiceAddresses addresses() const;
    /// What a request is answered from now on.
    void answer(const QString &name, const QJsonObject &json) { m_answers[name] = json; }
    /// The same with a body that need not be JSON.
    void answerBytes(const QString &name, const QByteArray &body) { m_bodies[name] = body; }
    /// Adds to what a request is answered.
    void extend(const QString &name, const QJsonObject &json);
    /// How long, in the scheduler's time, an answer takes from now on.
    void delay(const QString &name, std::chrono::milliseconds duration) { m_delays[name] = duration; }
    void breakPictures(bool broken) { m_picturesAreBroken = broken; }

    /// Whether nothing is under way but what waits for its time.
    [[nodiscard]] bool isQuiet() const;
    /// The names of all requests so far, but for the pictures.
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
    bool m_picturesAreBroken = false;
    int m_pictureCount = 0;
};
