#include "sandbox/SandboxSecret.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QtEndian>

namespace {

QByteArray bytesOf(quint64 number)
{
    QByteArray bytes(sizeof number, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray unguessable()
{
    QByteArray bytes;
    for (int i = 0; i < 4; ++i)
        bytes += bytesOf(QRandomGenerator::system()->generate64());
    return bytes;
}

} // namespace

SandboxSecret::SandboxSecret(std::optional<quint64> seed)
    : m_secret(seed ? bytesOf(*seed) : unguessable())
{
}

QString SandboxSecret::nextName()
{
    constexpr qsizetype length = 32;
    return QString::fromLatin1(next().toHex().left(length));
}

quint64 SandboxSecret::nextSeed()
{
    return qFromBigEndian<quint64>(next().constData());
}

QByteArray SandboxSecret::next()
{
    return QCryptographicHash::hash(m_secret + bytesOf(++m_count), QCryptographicHash::Sha256);
}
