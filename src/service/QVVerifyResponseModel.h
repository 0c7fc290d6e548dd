#pragma once

#include "service/QVResponseModel.h"

/// The judgement on a trace.
class QVVerifyResponseModel : public QVResponseModel
{
    Q_GADGET
    Q_PROPERTY(QString passline READ passline WRITE setPassline)
    Q_PROPERTY(QString score READ score WRITE setScore)
    Q_PROPERTY(QString drawtime READ drawtime WRITE setDrawtime)
    Q_PROPERTY(double frequency READ frequency WRITE setFrequency)
    Q_PROPERTY(QString token READ token WRITE setToken)

public:
    [[nodiscard]] QString passline() const { return m_passline; }
    void setPassline(QString value) { m_passline = std::move(value); }

    [[nodiscard]] QString score() const { return m_score; }
    void setScore(QString value) { m_score = std::move(value); }

    /// The drawing time that the client sent with the trace.
    [[nodiscard]] QString drawtime() const { return m_drawtime; }
    void setDrawtime(QString value) { m_drawtime = std::move(value); }

    [[nodiscard]] double frequency() const { return m_frequency; }
    void setFrequency(double value) { m_frequency = value; }

    /// The token of a passed verification, for the host's own server.
    [[nodiscard]] QString token() const { return m_token; }
    void setToken(QString value) { m_token = std::move(value); }

private:
    QString m_passline;
    QString m_score;
    QString m_drawtime;
    double m_frequency = 0;
    QString m_token;
};
