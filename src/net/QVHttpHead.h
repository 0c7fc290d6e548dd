#pragma once

#include <QByteArray>

#include <chrono>
#include <optional>

/// The head of an HTTP/1 answer, read line by line.
class QVHttpHead
{
public:
    /// Both take a line without its line end. They return false if HTTP does not allow the line.
    [[nodiscard]] bool readStatusLine(QByteArrayView line);
    [[nodiscard]] bool readField(QByteArrayView line);

    [[nodiscard]] int status() const { return m_status; }
    /// Whether the status is 1xx: the real answer follows.
    [[nodiscard]] bool isInterim() const;
    [[nodiscard]] bool hasBody() const;
    [[nodiscard]] bool isChunked() const { return m_isChunked; }
    [[nodiscard]] bool isCompressed() const { return m_isCompressed; }
    /// The size of the body in bytes, as it is sent; empty if the server has not announced it.
    [[nodiscard]] std::optional<qint64> contentLength() const { return m_contentLength; }
    [[nodiscard]] QByteArray location() const { return m_location; }
    /// How long the connection may be kept to be used again; zero if it may not be used again.
    [[nodiscard]] std::chrono::seconds keepAlive() const { return m_keepAlive; }

private:
    [[nodiscard]] bool readLength(QByteArrayView value);
    [[nodiscard]] bool readEncoding(QByteArrayView value);
    void readKeepAlive(QByteArrayView value);

    int m_status = 0;
    bool m_isChunked = false;
    bool m_isCompressed = false;
    std::optional<qint64> m_contentLength;
    QByteArray m_location;
    std::chrono::seconds m_keepAlive{0};
};
