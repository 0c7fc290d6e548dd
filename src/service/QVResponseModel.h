#pragma once

#include <QObject>
#include <QString>

#include <utility>

/// What every answer of the captcha service has. Properties carry the names of the JSON members.
class QVResponseModel
{
    Q_GADGET
    Q_PROPERTY(QString code READ code WRITE setCode)

public:
    /// The code of an answer to a request that succeeded.
    static constexpr QLatin1String successCode{"0103"};

    virtual ~QVResponseModel();

    /// The service's result, four digits as text. Compared as text only.
    [[nodiscard]] QString code() const { return m_code; }
    void setCode(QString value) { m_code = std::move(value); }

    /// Whether the service did what was asked.
    [[nodiscard]] virtual bool responseSuccess() const;

private:
    QString m_code;
};
