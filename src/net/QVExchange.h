#pragma once

#include <QNetworkReply>
#include <QObject>

/// One request and its answer. Destroyed only by deleteLater(), since it may live on another thread, which
/// also ends its connection where it has not finished.
class QVExchange : public QObject
{
    Q_OBJECT

public:
    struct Result
    {
        QByteArray body;
        int httpStatus = 0;
        /// Where the server says that the answer is to be found, as it says it.
        QByteArray location;
        /// An HTTP error status is none.
        QNetworkReply::NetworkError error = QNetworkReply::NoError;
    };

    /// Sends the request. Emits finished() once, unless this is destroyed before.
    virtual void start() = 0;
    /// Meaningful once finished() has been received.
    [[nodiscard]] const Result &result() const { return m_result; }

Q_SIGNALS:
    void finished();

protected:
    Result m_result;
};
