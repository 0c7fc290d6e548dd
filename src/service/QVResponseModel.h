#pragma once

#include <QObject>
#include <QString>

#include <utility>

/// The base of all answers of the captcha service. Properties have the names of the JSON members.
class QVResponseModel
{
    Q_GADGET
    Q_PROPERTY(QString code READ code WRITE setCode)

public:
    /// The code of a successful answer.
    static constexpr QLatin1String successCode{"0103"};

    virtual ~QVResponseModel();

    /// The service's result, four digits as text. Compared as text only.
    [[nodiscard]] QString code() const { return m_code; }
    void setCode(QString value) { m_code = std::move(value); }

    /// Whether the request was successful.
    [[nodiscard]] virtual bool responseSuccess() const;

private:
    QString m_code;
};
