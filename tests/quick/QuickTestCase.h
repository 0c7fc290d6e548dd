#pragma once

#include "conversations/DrawingTestCase.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

/// Writes down what the host in QML hears.
class QuickLog : public QObject, public Record
{
    Q_OBJECT

public Q_SLOTS:
    void say(const QString &text) { add(text); }
};

/// Tests on a window in QML, against a service that answers as each test tells it. Its parts are a button, an
/// invisible verification and a panel, each of which a Loader makes when it is first used.
class QuickTestCase : public DrawingTestCase
{
    Q_OBJECT

protected:
    void prepare() override;
    void finish() override;

    [[nodiscard]] Record &outcomes() override { return m_log; }
    [[nodiscard]] const QStringList &said() const { return m_log.said(); }
    void start() override { start(partOfMode()); }
    void reset() override { reset(partOfMode()); }
    void destroy() override { unload(partOfMode()); }
    void destroyAll() override;
    void showBadge() override { part(q("invisible"))->setProperty("animation", true); }
    [[nodiscard]] QString statusText() override { return part(q("button"))->property("text").toString(); }
    [[nodiscard]] qsizetype popupCount() const override { return isOpen() ? 1 : 0; }
    [[nodiscard]] QStringList badges() const override;
    void pressPicture() const override;
    void clickPart(const char *name) const override { clickOn(q(name)); }
    void pressClose() const override { clickOn(q("closeButton")); }
    void changeWindow(const QString &what) override;
    [[nodiscard]] QWindow *drawingWindow() const override { return m_window.get(); }
    [[nodiscard]] QRect frameOf(const QString &name) const override;
    [[nodiscard]] QObject *objectOf(const QString &name) const override { return item(name); }
    [[nodiscard]] QString barText() const override;
    [[nodiscard]] bool isLoading() const override { return item(q("loadingDots")) != nullptr; }
    [[nodiscard]] QImage screenshot() const override { return m_window->grabWindow(); }
    void setPanelEnabled(bool enabled) override { part(q("panel"))->setProperty("enabled", enabled); }
    void resizePanel(QSize size) override { qobject_cast<QQuickItem *>(part(q("panel")))->setSize(size); }
    void offerAlternative() override { part(q("panel"))->setProperty("offersAlternative", true); }
    void focusPicture(bool has) override;

    [[nodiscard]] QQuickWindow &window() const { return *m_window; }
    /// The singleton of the module.
    [[nodiscard]] QObject &settings() const { return *m_window->property("settings").value<QObject *>(); }
    void destroyWindow() { m_window.reset(); }
    [[nodiscard]] bool hasWindow() const { return m_window != nullptr; }
    /// "button", "invisible" or "panel", made when it is first used.
    QObject *part(const QString &name);
    /// Has the Loader of a part destroy it.
    void unload(const QString &part);
    void start(const QString &part);
    void reset(const QString &part);

    /// The item of that name on screen, null where there is none.
    [[nodiscard]] QQuickItem *item(const QString &name) const;
    [[nodiscard]] bool isOpen() const { return item(q("closeButton")) != nullptr; }
    [[nodiscard]] bool waitForPicture() const override;
    [[nodiscard]] static QPoint centreOf(const QQuickItem &item);
    void clickOn(const QString &name) const;
    void stroke() const override { drawWithMouse(waveFrom({})); }

private:
    [[nodiscard]] QQuickItem *loader(const QString &part) const;
    [[nodiscard]] QString partOfMode() const;

    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QuickLog m_log;
};
