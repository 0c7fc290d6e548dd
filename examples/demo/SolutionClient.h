#pragma once

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointF>
#include <QUrl>
#include <QVector>

/// Asks sandboxes for the answer to the picture that they have served last.
class SolutionClient : public QObject
{
    Q_OBJECT

public:
    /// \a services are the addresses of the sandboxes in use, the most likely one first.
    explicit SolutionClient(const QVector<QUrl> &services, QObject *parent = nullptr);

    void ask();

Q_SIGNALS:
    /// The curve, in units of the picture (400 wide).
    void curve(const QVector<QPointF> &points);
    void characters(const QString &text);
    void failed(const QString &reason);

private:
    void askService(qsizetype index);
    [[nodiscard]] bool read(const QByteArray &answer);

    QVector<QUrl> m_addresses;
    QNetworkAccessManager m_network;
};
