#pragma once

#include "draw/DrawService.h"
#include "flow/QVVerifyStyle.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "modes/QVClickManager.h"
#include "modes/QVEmbedManager.h"
#include "modes/QVInvisibleManager.h"
#include "support/QVTestCase.h"

#include <QWidget>

class QVRenderDrawView;
class QVWindow;

/// Tests that run against a service which answers as each test tells it, on a window of a host.
class ModesTestCase : public QVTestCase
{
    Q_OBJECT

protected:
    // What is asked, in the service's words.
    static inline const QString outageSwitch = q("switch");
    static inline const QString config = q("config");
    static inline const QString click = q("click");
    static inline const QString picture = q("picture");
    static inline const QString refresh = q("refresh");
    static inline const QString verify = q("verify");
    static inline const QString outageGet = q("outage get");

    /// "a, b" as a list.
    [[nodiscard]] static QStringList words(const char *text);

    void prepare() override;
    void finish() override;

    [[nodiscard]] DrawService &service() const { return *m_service; }
    void answerCode(const QString &what, const QString &code);
    void passByClick() { answerCode(click, q("0103")); }
    /// Prepares answers with which a button comes to rest in \a status.
    void answerForStatus(int status);
    void delay(const QString &what, std::chrono::milliseconds by) { m_service->delay(what, by); }
    /// Everything asked since it was last forgotten, but for pictures.
    [[nodiscard]] QStringList asked() const { return m_service->asked().mid(m_forgotten); }
    void forgetAsked() { m_forgotten = m_service->asked().size(); }
    /// Runs the event loop until nothing is under way but what waits for its time.
    void settle() const;
    /// Lets \a duration pass with everything that happens in it.
    void pass(std::chrono::milliseconds duration) const;

    /// Made when it is first used, with its button on the host.
    QVClickManager &clickManager();
    /// Made when it is first used, without a badge.
    QVInvisibleManager &invisibleManager();
    /// Made when it is first used, with its panel on the host.
    QVEmbedManager &embedManager();
    /// What the managers say.
    [[nodiscard]] Outcomes &outcomes() const { return *m_outcomes; }
    void start(bool isInvisible);
    /// Starts anew, as the host or its user does.
    void start(QVVerifyStyle style);
    /// Destroys a manager, and its button.
    void destroy(bool isInvisible);

    [[nodiscard]] QWidget &host() const { return *m_host; }
    void replaceHost(std::unique_ptr<QWidget> host);
    void destroyHost() { m_host.reset(); }
    static void showActive(QWidget &window);

    /// The popup on screen, on any window; null where there is none.
    [[nodiscard]] static QVWindow *popup();
    /// How many popups there are, hidden ones included.
    [[nodiscard]] static qsizetype popupCount();
    /// The popup's, else the panel's.
    [[nodiscard]] static QVRenderDrawView *drawView();
    /// A part of what the user draws in; null where there is none.
    [[nodiscard]] static QWidget *part(const char *name);
    void clickPart(const char *name) const;
    [[nodiscard]] static bool waitForPicture();
    /// Draws something that the service could be asked about.
    void strokeOn(QWidget &view) const;
    void stroke() const;
    void strokeAndVerify() const;
    static void pressClose();

private:
    std::unique_ptr<DrawService> m_service;
    std::unique_ptr<QWidget> m_host;
    std::unique_ptr<Outcomes> m_outcomes;
    std::unique_ptr<QVClickManager> m_click;
    std::unique_ptr<QVInvisibleManager> m_invisible;
    std::unique_ptr<QVEmbedManager> m_embed;
    qsizetype m_forgotten = 0;
};
