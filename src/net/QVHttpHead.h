#pragma once

#include <QByteArray>

#include <chrono>
#include <optional>

/// What the head of an HTTP/1 answer says about the bytes that follow, read line by line.
class QVHttpHead
{
public:
    /// Both take a line without its end, and return false where it is none that HTTP allows.
    [[nodiscard]] bool readStatusLine(QByteArrayView line);
    [[nodiscard]] bool readField(QByteArrayView line);

    [[nodiscard]] int status() const { return m_status; }
    /// An answer that only precedes the real one.
    [[nodiscard]] bool isInterim() const;
    [[nodiscard]] bool hasBody() const;
    [[nodiscard]] bool isChunked() const { return m_isChunked; }
    [[nodiscard]] bool isCompressed() const { return m_isCompressed; }
    /// The size of the body as it is sent; none where only the connection's end tells it.
    [[nodiscard]] std::optional<qint64> contentLength() const { return m_contentLength; }
    [[nodiscard]] QByteArray location() const { return m_location; }
    /// For how long the connection may be used again; zero where it may not.
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
