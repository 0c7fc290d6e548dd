#pragma once

#include <QNetworkReply>
#include <QObject>

/// One request and its answer. Destroying it aborts a request that has not finished. In a slot of finished()
/// it must be destroyed with deleteLater().
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
        /// The transport error. An HTTP error status is not one.
        QNetworkReply::NetworkError error = QNetworkReply::NoError;
    };

    using QObject::QObject;

    /// Sends the request. Emits finished() once, unless this is destroyed before.
    virtual void start() = 0;
    /// The result, once finished() has been emitted.
    [[nodiscard]] const Result &result() const { return m_result; }

Q_SIGNALS:
    void finished();

protected:
    Result m_result;
};
