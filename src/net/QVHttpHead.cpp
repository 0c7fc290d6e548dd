#include "net/QVHttpHead.h"

#include <algorithm>
#include <cctype>

using namespace std::chrono_literals;

namespace {

// Common servers close a connection after five idle seconds, many without announcing it.
constexpr std::chrono::seconds usualKeepAlive = 4s;
constexpr std::chrono::seconds longestKeepAlive = 60s;

constexpr int switchingProtocols = 101;
constexpr int firstFinalStatus = 200;
constexpr int noContent = 204;
constexpr int notModified = 304;

bool isDigits(QByteArrayView text)
{
    return !text.isEmpty() && std::ranges::all_of(text, [](quint8 c) { return std::isdigit(c); });
}

bool isWord(QByteArrayView text, QByteArrayView word)
{
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

} // namespace

bool QVHttpHead::readStatusLine(QByteArrayView line)
{
    constexpr QByteArrayView protocol("HTTP/1.");
    constexpr qsizetype statusAt = 9;
    constexpr qsizetype statusLength = 3;
    constexpr qsizetype minorAt = statusAt - 2;
    if (!line.startsWith(protocol) || line.size() < statusAt + statusLength || line[statusAt - 1] != ' ')
        return false;
    const QByteArrayView status = line.sliced(statusAt, statusLength);
    const QByteArrayView reason = line.sliced(statusAt + statusLength);
    if (!isDigits(status) || !(reason.isEmpty() || reason.startsWith(' ')))
        return false;
    m_status = status.toInt();
    m_keepAlive = line[minorAt] == '0' ? 0s : usualKeepAlive;
    return m_status >= 100 && m_status != switchingProtocols;
}

bool QVHttpHead::readField(QByteArrayView line)
{
    const qsizetype colon = line.indexOf(':');
    // A line that begins with a space would continue the one before it, which HTTP no longer allows.
    if (colon <= 0 || line.startsWith(' ') || line.startsWith('\t'))
        return false;
    const QByteArrayView name = line.first(colon);
    const QByteArrayView value = line.sliced(colon + 1).trimmed();
    if (isWord(name, "Content-Length"))
        return readLength(value);
    if (isWord(name, "Content-Encoding"))
        return readEncoding(value);
    if (isWord(name, "Transfer-Encoding")) {
        m_isChunked = isWord(value, "chunked");
        return m_isChunked;
    }
    if (isWord(name, "Location"))
        m_location = value.toByteArray();
    else if (isWord(name, "Connection") && value.toByteArray().toLower().contains("close"))
        m_keepAlive = 0s;
    else if (isWord(name, "Keep-Alive"))
        readKeepAlive(value);
    return true;
}

bool QVHttpHead::readLength(QByteArrayView value)
{
    bool isNumber = false;
    const qint64 length = value.toLongLong(&isNumber);
    // An answer with two different lengths is refused.
    if (!isDigits(value) || !isNumber || m_contentLength.value_or(length) != length)
        return false;
    m_contentLength = length;
    return true;
}

bool QVHttpHead::readEncoding(QByteArrayView value)
{
    m_isCompressed = isWord(value, "gzip") || isWord(value, "x-gzip") || isWord(value, "deflate");
    return m_isCompressed || value.isEmpty() || isWord(value, "identity");
}

void QVHttpHead::readKeepAlive(QByteArrayView value)
{
    constexpr QByteArrayView key("timeout=");
    const qsizetype at = value.indexOf(key);
    if (at < 0 || m_keepAlive == 0s)
        return;
    const QByteArrayView rest = value.sliced(at + key.size());
    const auto end = std::ranges::find_if_not(rest, [](quint8 c) { return std::isdigit(c); });
    const std::chrono::seconds announced(rest.first(end - rest.begin()).toInt());
    // One second less, so that no request is sent while the server is closing the connection.
    m_keepAlive = std::clamp(announced - 1s, 0s, longestKeepAlive);
}

bool QVHttpHead::isInterim() const
{
    return m_status < firstFinalStatus;
}

bool QVHttpHead::hasBody() const
{
    return m_status != noContent && m_status != notModified;
}
