#pragma once

#include <QObject>
#include <QString>

#include <utility>

/// The answer of the outage switch. It has no result code.
class QVDownTimeResponseModel
{
    Q_GADGET
    Q_PROPERTY(bool active READ active WRITE setActive)
    Q_PROPERTY(QString key READ key WRITE setKey)

public:
    /// Whether the outage service is to be used.
    [[nodiscard]] bool active() const { return m_active; }
    void setActive(bool value) { m_active = value; }

    [[nodiscard]] QString key() const { return m_key; }
    void setKey(QString value) { m_key = std::move(value); }

private:
    bool m_active = false;
    QString m_key;
};
