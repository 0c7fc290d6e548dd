#pragma once

#include <QDeadlineTimer>
#include <QIODevice>

#include <stop_token>

/// The bytes of a picture, for a decoder, which finds them at their end once it is told to stop or its
/// time is up. That is the one way to stop Qt's decoders, which read again and again while they work.
class QVPictureDevice final : public QIODevice
{
public:
    /// The most time that decoding takes. A usual picture takes a hundredth of it.
    static constexpr std::chrono::milliseconds limit{1000};

    /// \a bytes must outlive the device.
    QVPictureDevice(QByteArrayView bytes, std::stop_token stop);

    [[nodiscard]] bool isStopped() const { return m_stop.stop_requested() || m_deadline.hasExpired(); }
    [[nodiscard]] qint64 size() const override { return m_bytes.size(); }
    bool seek(qint64 position) override;

protected:
    qint64 readData(char *data, qint64 length) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArrayView m_bytes;
    std::stop_token m_stop;
    qint64 m_position = 0;
    QDeadlineTimer m_deadline{limit};
};
