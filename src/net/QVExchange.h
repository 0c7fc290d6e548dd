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
        /// The address that the server redirects to, as it was sent.
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
