#pragma once

#include "service/QVGetRefreshResponseTimeDownManager.h"
#include "service/QVResponseModel.h"

#include <functional>
#include <memory>

/// A picture of the captcha service. A countdown ends just before the service drops it after three minutes.
class QVGetRefreshResponseModel : public QVResponseModel, public QVGetRefreshResponseTimeDownDelegate
{
    Q_GADGET
    Q_PROPERTY(QString img READ img WRITE setImg)
    Q_PROPERTY(QString adlink READ adlink WRITE setAdlink)
    Q_PROPERTY(QString adlinkword READ adlinkword WRITE setAdlinkword)
    Q_PROPERTY(double frequency READ frequency WRITE setFrequency)
    Q_PROPERTY(qint64 verifyCount READ verifyCount WRITE setVerifyCount)

public:
    QVGetRefreshResponseModel();
    QVGetRefreshResponseModel(const QVGetRefreshResponseModel &) = delete;
    QVGetRefreshResponseModel &operator=(const QVGetRefreshResponseModel &) = delete;
    ~QVGetRefreshResponseModel() override;

    /// Path of the picture, relative to the base address of the pictures.
    [[nodiscard]] QString img() const { return m_img; }
    void setImg(QString value) { m_img = std::move(value); }

    /// Page that the advertisement leads to.
    [[nodiscard]] QString adlink() const { return m_adlink; }
    void setAdlink(QString value) { m_adlink = std::move(value); }

    /// Caption of the advertisement.
    [[nodiscard]] QString adlinkword() const { return m_adlinkword; }
    void setAdlinkword(QString value) { m_adlinkword = std::move(value); }

    [[nodiscard]] double frequency() const { return m_frequency; }
    void setFrequency(double value) { m_frequency = value; }

    /// The number of attempts on this picture.
    [[nodiscard]] qint64 verifyCount() const { return m_verifyCount; }
    void setVerifyCount(qint64 value) { m_verifyCount = value; }

    /// Called at the end of the countdown.
    [[nodiscard]] const std::function<void()> &fireTimeDown() const { return m_fireTimeDown; }
    void setFireTimeDown(std::function<void()> action) { m_fireTimeDown = std::move(action); }
    /// Starts or restarts the countdown. While it runs, it keeps the record alive.
    void startTimeDown();
    void endTimeDown();
    /// Called by the countdown when the time is up.
    void getRefreshResponseTimeDownHandle() override;
    [[nodiscard]] const QVGetRefreshResponseTimeDownManager &handler() const { return m_handler; }

protected:
    /// \a type names the record in the log.
    explicit QVGetRefreshResponseModel(const QMetaObject &type);

private:
    QString m_img;
    QString m_adlink;
    QString m_adlinkword;
    double m_frequency = 0;
    qint64 m_verifyCount = 0;
    std::function<void()> m_fireTimeDown;
    QVGetRefreshResponseTimeDownManager m_handler;
    const char *m_className;
};
