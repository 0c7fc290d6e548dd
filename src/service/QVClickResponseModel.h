#pragma once

#include "service/QVGetRefreshResponseModel.h"

/// The service's decision on a click: passed, or a picture to draw on.
class QVClickResponseModel : public QVGetRefreshResponseModel
{
    Q_GADGET
    Q_PROPERTY(QString token READ token WRITE setToken)

public:
    QVClickResponseModel();

    /// The token of a click that has passed without drawing.
    [[nodiscard]] QString token() const { return m_token; }
    void setToken(QString value) { m_token = std::move(value); }

    /// Also true for an answer with a picture to draw on.
    [[nodiscard]] bool responseSuccess() const override;

private:
    QString m_token;
};
