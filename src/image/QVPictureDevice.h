#pragma once

#include "platform/QVProcessorTime.h"

#include <QIODevice>

#include <stop_token>

/// The bytes of a picture, for a decoder. Once a stop is requested or the time is up, reads report the end of
/// the bytes. That is the only way to stop Qt's decoders, which read in small steps. Create it on the thread
/// that decodes.
class QVPictureDevice final : public QIODevice
{
public:
    /// The processor time after which the decoder is stopped. A usual picture takes a hundredth of it.
    static constexpr std::chrono::milliseconds limit{1000};

    /// \a bytes must outlive the device.
    QVPictureDevice(QByteArrayView bytes, std::stop_token stop);

    [[nodiscard]] bool isStopped() const { return m_stop.stop_requested() || qv_processorTime() > m_end; }
    [[nodiscard]] qint64 size() const override { return m_bytes.size(); }
    bool seek(qint64 position) override;

protected:
    qint64 readData(char *data, qint64 length) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArrayView m_bytes;
    std::stop_token m_stop;
    qint64 m_position = 0;
    std::chrono::nanoseconds m_end = qv_processorTime() + limit;
};
