#pragma once

#include <QNetworkReply>
#include <QObject>

/// One request and its answer. Destroying it ends a connection that has not finished. In a slot of finished()
/// it is destroyed by deleteLater() only.
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

    using QObject::QObject;

    /// Sends the request. Emits finished() once, unless this is destroyed before.
    virtual void start() = 0;
    /// Meaningful once finished() has been received.
    [[nodiscard]] const Result &result() const { return m_result; }

Q_SIGNALS:
    void finished();

protected:
    Result m_result;
};
