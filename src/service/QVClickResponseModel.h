#pragma once

#include "service/QVGetRefreshResponseModel.h"

/// The decision on a click: passed, or a picture.
class QVClickResponseModel : public QVGetRefreshResponseModel
{
    Q_GADGET
    Q_PROPERTY(QString token READ token WRITE setToken)

public:
    QVClickResponseModel();

    /// Proof of a click that passed without drawing.
    [[nodiscard]] QString token() const { return m_token; }
    void setToken(QString value) { m_token = std::move(value); }

    /// A click may also be answered with a picture to draw on.
    [[nodiscard]] bool responseSuccess() const override;

private:
    QString m_token;
};
