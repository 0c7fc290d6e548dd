#pragma once

#include "support/DrawService.h"
#include "flow/QVVerifyStyle.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVInvisibleManager.h"
#include "support/QVTestCase.h"

#include <QWidget>
#include <QWindow>

#include <map>

class QVRenderDrawView;
class QVWindow;

/// Base of the tests of the modes. It owns a service with scripted answers, the window of a host, and the
/// managers.
class ModesTestCase : public QVTestCase
{
    Q_OBJECT

protected:
    // Names of requests, see DrawService.
    static inline const QString outageSwitch = q("switch");
    static inline const QString config = q("config");
    static inline const QString click = q("click");
    static inline const QString picture = q("picture");
    static inline const QString refresh = q("refresh");
    static inline const QString verify = q("verify");
    static inline const QString outageGet = q("outage get");

    /// "a, b" as a list.
    [[nodiscard]] static QStringList words(const QString &text);
    [[nodiscard]] static QStringList words(const char *text) { return words(q(text)); }

    void prepare() override;
    void finish() override;

    /// Carries out steps of a conversation, separated by commas. defineSteps() and defineHostSteps() define
    /// them.
    void go(const QString &steps);
    void addStep(const char *name, const std::function<void(const QString &rest)> &action);
    /// Sets the mode in which the steps act: "click", "invisible" or "embed".
    void setMode(const QString &name);
    [[nodiscard]] QVVerifyStyle mode() const { return m_mode; }

    [[nodiscard]] DrawService &service() const { return *m_service; }
    void answerCode(const QString &what, const QString &code);
    void passByClick() { answerCode(click, q("0103")); }
    /// Prepares the answers after which the button stays in \a status.
    void answerForStatus(int status);
    void delay(const QString &what, std::chrono::milliseconds by) { m_service->delay(what, by); }
    /// The names of the requests since forgetAsked(), without those for pictures.
    [[nodiscard]] QStringList asked() const { return m_service->asked().mid(m_forgotten); }
    void forgetAsked() { m_forgotten = m_service->asked().size(); }
    /// Runs the event loop until only delayed answers are under way.
    void settle() const;
    /// Moves virtual time on in small steps, with all traffic.
    void pass(std::chrono::milliseconds duration) const;

    /// Created at the first call, with the button on the host.
    QVClickManager &clickManager();
    /// Created at the first call, without a badge.
    QVInvisibleManager &invisibleManager();
    /// Created at the first call, with the panel on the host.
    QVEmbedManager &embedManager();
    /// Calls \a action with the manager of the current mode.
    template<class Action>
    void withManager(const Action &action)
    {
        if (m_mode == QVVerifyStyleEmbed)
            action(embedManager());
        else if (m_mode == QVVerifyStylePopup)
            action(clickManager());
        else
            action(invisibleManager());
    }
    /// The signals and delegate calls of the managers.
    [[nodiscard]] Outcomes &outcomes() const { return *m_outcomes; }
    /// Starts an attempt in the current mode. A panel that is there already is reset.
    void start();
    /// Sets the current mode and starts.
    void start(QVVerifyStyle style);
    void reset();
    /// Destroys the manager of the current mode, and its button or panel.
    void destroy();
    void destroyManagers();

    [[nodiscard]] QWidget &host() const { return *m_host; }
    void replaceHost(std::unique_ptr<QWidget> host);
    void destroyHost() { m_host.reset(); }
    static void showActive(QWidget &window);

    /// The visible popup, on any window. Null if there is none.
    [[nodiscard]] static QVWindow *popup();
    /// The number of popups, with hidden ones.
    [[nodiscard]] static qsizetype popupCount();
    [[nodiscard]] static qsizetype badgeCount();
    /// The drawing view of the popup. If there is no popup, that of the panel.
    [[nodiscard]] static QVRenderDrawView *drawView();
    /// A child of the drawing view by its object name. Null if there is no drawing view.
    [[nodiscard]] static QWidget *part(const char *name);
    void clickPart(const char *name) const;
    [[nodiscard]] static bool waitForPicture();
    /// Draws a stroke that is long enough to be sent.
    void strokeOn(QWidget &view) const;
    void stroke() const;
    void strokeAndVerify() const;
    static void pressClose();

private:
    void defineSteps();
    void defineHostSteps();
    void setAnswer(const QString &what, const QString &answer);
    void react(const QString &event);
    void changeWindow(const QString &what);
    void showForeignHost();
    void changeHost();

    QVVerifyStyle m_mode = QVVerifyStylePopup;
    std::map<QString, std::function<void(const QString &)>> m_steps;
    /// Steps to carry out once, by the beginning of the outcome that triggers them.
    std::map<QString, QString> m_reactions;
    std::unique_ptr<DrawService> m_service;
    std::unique_ptr<QWidget> m_host;
    std::unique_ptr<QWidget> m_otherHost;
    /// A window that is no widget, like those of Qt Quick.
    std::unique_ptr<QWindow> m_foreignHost;
    std::unique_ptr<Outcomes> m_outcomes;
    std::unique_ptr<QWidget> m_dialog;
    std::unique_ptr<QVClickManager> m_click;
    std::unique_ptr<QVInvisibleManager> m_invisible;
    std::unique_ptr<QVEmbedManager> m_embed;
    qsizetype m_forgotten = 0;
};
