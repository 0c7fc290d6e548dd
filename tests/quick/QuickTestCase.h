#pragma once

#include "support/DrawService.h"
#include "support/QVTestCase.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

/// Writes down what the host in QML hears, in the words of the other front-end's tests.
class QuickLog : public QObject
{
    Q_OBJECT

public:
    using Reaction = std::function<void(const QString &said)>;

    Q_INVOKABLE void say(const QString &text)
    {
        said.append(text);
        if (reaction)
            reaction(text);
    }

    QStringList said;
    /// What the host does in each of its handlers.
    Reaction reaction;
};

/// Tests on a window in QML, against a service that answers as each test tells it. Its parts are a button, an
/// invisible verification and a panel, each of which a Loader makes when it is first used.
class QuickTestCase : public QVTestCase
{
    Q_OBJECT

protected:
    using Points = std::vector<QPointF>;

    // What is asked, in the service's words.
    static inline const QString outageSwitch = q("switch");
    static inline const QString config = q("config");
    static inline const QString click = q("click");
    static inline const QString picture = q("picture");
    static inline const QString verify = q("verify");

    void prepare() override;
    void finish() override;

    [[nodiscard]] DrawService &service() const { return *m_service; }
    [[nodiscard]] QStringList &said() { return m_log.said; }
    [[nodiscard]] QuickLog &log() { return m_log; }
    void passByClick() { service().extend(click, {{q("code"), q("0103")}}); }
    [[nodiscard]] QStringList asked() const { return service().asked().mid(m_forgotten); }
    void forgetAsked() { m_forgotten = service().asked().size(); }
    /// Runs the event loop until nothing is under way but what waits for its time.
    void settle() const;
    void pass(std::chrono::milliseconds duration) const;

    [[nodiscard]] QQuickWindow &window() const { return *m_window; }
    /// The singleton of the module.
    [[nodiscard]] QObject &settings() const { return *m_window->property("settings").value<QObject *>(); }
    void destroyWindow() { m_window.reset(); }
    [[nodiscard]] bool hasWindow() const { return m_window != nullptr; }
    /// "button", "invisible" or "panel", made when it is first used.
    QObject *part(const QString &mode);
    /// Has the Loader of a part destroy it.
    void unload(const QString &mode);
    void start(const QString &mode);
    void reset(const QString &mode);

    /// The item of that name on screen, null where there is none.
    [[nodiscard]] QQuickItem *item(const QString &name) const;
    [[nodiscard]] bool isOpen() const { return item(q("closeButton")) != nullptr; }
    [[nodiscard]] bool waitForPicture() const;
    [[nodiscard]] static QPoint centreOf(const QQuickItem &item);
    void clickOn(const QString &name) const;
    /// A wave over the picture, in the window's coordinates.
    [[nodiscard]] Points wave(int count = 14) const;
    void strokeWithMouse(const Points &points) const;
    void strokeWithFinger(const Points &points) const;
    void stroke() const { strokeWithMouse(wave()); }

private:
    [[nodiscard]] QPointF inWindow(QPointF point) const;
    [[nodiscard]] QQuickItem *loader(const QString &mode) const;

    std::unique_ptr<DrawService> m_service;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QuickLog m_log;
    qsizetype m_forgotten = 0;
};
