#include "image/QVPictureDevice.h"

#include <algorithm>

QVPictureDevice::QVPictureDevice(QByteArrayView bytes, std::stop_token stop)
    : m_bytes(bytes)
    , m_stop(std::move(stop))
{
    // Qt's buffer would read large parts at once, and the decoder could not be stopped between them.
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

bool QVPictureDevice::seek(qint64 position)
{
    if (!QIODevice::seek(position))
        return false;
    m_position = position;
    return true;
}

qint64 QVPictureDevice::readData(char *data, qint64 length)
{
    if (isStopped())
        return -1;
    const qint64 count = std::min(length, m_bytes.size() - m_position);
    std::copy_n(m_bytes.begin() + m_position, count, data);
    m_position += count;
    return count;
}
