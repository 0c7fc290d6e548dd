#include "hosts/BenchClock.h"
#include "hosts/HostWindow.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPainter>
#include <QTimer>

#include <memory>
#include <utility>

namespace {

/// Shows only a picture.
class PictureWidget : public QWidget
{
public:
    void setPicture(const QImage &picture)
    {
        m_picture = picture;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!m_picture.isNull())
            QPainter(this).drawImage(rect(), m_picture);
    }

private:
    QImage m_picture;
};

/// Paints the segment of each mouse move, and repaints only its rectangle.
class SegmentWidget : public QWidget
{
protected:
    void mousePressEvent(QMouseEvent *event) override { m_to = event->position(); }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        constexpr double margin = penWidth / 2 + 1;
        m_from = std::exchange(m_to, event->position());
        update(QRectF(m_from, m_to).normalized().adjusted(-margin, -margin, margin, margin).toAlignedRect());
    }
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(65, 141, 251), penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawLine(m_from, m_to);
    }

private:
    static constexpr double penWidth = 5;

    QPointF m_from;
    QPointF m_to;
};

/// Sends the requests that the component would send.
class Requests
{
public:
    using Answered = std::function<void(const QByteArray &)>;

    explicit Requests(const QString &vid)
        : m_service(serviceAddress())
        , m_vid(vid)
    {
    }

    void get(const QString &address, const Answered &answered)
    {
        if (!m_network)
            m_network = std::make_unique<QNetworkAccessManager>();
        QNetworkReply *reply = m_network->get(QNetworkRequest(QUrl(address)));
        QObject::connect(reply, &QNetworkReply::finished, reply, [reply, answered] {
            reply->deleteLater();
            answered(reply->readAll());
        });
    }

    void getJson(const QString &address, const std::function<void(const QJsonObject &)> &answered)
    {
        get(address,
            [answered](const QByteArray &body) { answered(QJsonDocument::fromJson(body).object()); });
    }

    /// Asks for the outage switch, for the configuration, and then for \a last. Calls \a answered with the
    /// last two answers.
    void askThree(const QString &type, const QString &last,
                  const std::function<void(const QJsonObject &config, const QJsonObject &answer)> &answered)
    {
        getJson(m_service + QStringLiteral("/config"), [=, this](const QJsonObject &) {
            const QString query = QStringLiteral("/app/config/v1?id=%1&scene=bench&type=%2&deviceid=bare");
            getJson(m_service + query.arg(m_vid, type), [=, this](const QJsonObject &config) {
                const QString lastQuery =
                    QStringLiteral("?id=%1&challenge=%2&deviceid=bare")
                        .arg(m_vid, config.value(QStringLiteral("challenge")).toString());
                getJson(config.value(QStringLiteral("api_server")).toString() + last + lastQuery,
                        [=](const QJsonObject &answer) { answered(config, answer); });
            });
        });
    }

private:
    QString m_service;
    QString m_vid;
    std::unique_ptr<QNetworkAccessManager> m_network;
};

int runButton()
{
    HostWindow window;
    window.show();
    tellLater({});
    return QApplication::exec();
}

int runPanel(double start)
{
    // The delay of the component before it starts.
    constexpr int startDelay = 100;
    HostWindow window;
    PictureWidget picture;
    Requests requests(QStringLiteral("test-draw"));
    window.place(&picture, HostWindow::panelSize);
    window.show();
    const auto show = [&](const QByteArray &body) {
        const QImage image = QImage::fromData(body);
        if (image.isNull())
            return QCoreApplication::exit(1);
        picture.setPicture(image);
        window.afterPaint([start] { tellLater({{QStringLiteral("painted"), benchNow() - start}}); });
    };
    QTimer::singleShot(startDelay, &window, [&] {
        requests.askThree(
            QStringLiteral("embed"), QStringLiteral("/get/v1"),
            [&](const QJsonObject &config, const QJsonObject &answer) {
                const QString server = config.value(QStringLiteral("cdn_servers")).toArray().at(0).toString();
                requests.get(server + u'/' + answer.value(QStringLiteral("img")).toString(), show);
            });
    });
    return QApplication::exec();
}

int runClick()
{
    constexpr int pause = 300;
    HostWindow window;
    Requests requests(QStringLiteral("test-pass"));
    window.show();
    QJsonObject result;
    const auto ask = [&](const QString &name, const std::function<void()> &then) {
        requests.askThree(
            QStringLiteral("popup"), QStringLiteral("/click/v1"),
            [&result, name, then, start = benchNow()](const QJsonObject &, const QJsonObject &answer) {
                if (answer.value(QStringLiteral("token")).toString().isEmpty())
                    return QCoreApplication::exit(1);
                result.insert(name, benchNow() - start);
                then();
            });
    };
    QTimer::singleShot(pause, &window, [&] {
        ask(QStringLiteral("first"), [&] {
            QTimer::singleShot(pause, &window, [&] { ask(QStringLiteral("again"), [&] { tell(result); }); });
        });
    });
    return QApplication::exec();
}

int runStroke()
{
    HostWindow window;
    SegmentWidget widget;
    window.place(&widget, HostWindow::panelSize);
    window.show();
    constexpr int settle = 300;
    QTimer::singleShot(settle, &window, [&] { tell(strokeCosts(widget)); });
    return QApplication::exec();
}

} // namespace

/// quarvo-bench-bare MODE ADDRESSES
int main(int argc, char *argv[])
{
    const double start = benchNow();
    return runApplication(argc, argv, [start](const QString &mode) {
        if (mode == QLatin1String("button"))
            return runButton();
        if (mode == QLatin1String("stroke"))
            return runStroke();
        return mode == QLatin1String("click") ? runClick() : runPanel(start);
    });
}
