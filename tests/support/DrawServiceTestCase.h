#pragma once

#include "support/DrawService.h"
#include "support/QVTestCase.h"

/// Base of the tests that talk to a captcha service with scripted answers.
class DrawServiceTestCase : public QVTestCase
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

    [[nodiscard]] DrawService &service() const { return *m_service; }
    void answerCode(const QString &what, const QString &code);
    void passByClick() { answerCode(click, q("0103")); }
    void delay(const QString &what, std::chrono::milliseconds by) { m_service->delay(what, by); }
    /// Prepares the answers after which the button stays in \a status.
    void answerForStatus(int status);
    /// The names of the requests since forgetAsked(), without those for pictures.
    [[nodiscard]] QStringList asked() const { return m_service->asked().mid(m_forgotten); }
    void forgetAsked() { m_forgotten = m_service->asked().size(); }
    /// Runs the event loop until only delayed answers are under way.
    void settle() const;
    /// Moves virtual time on in small steps, with all traffic.
    void pass(std::chrono::milliseconds duration) const;

private:
    std::unique_ptr<DrawService> m_service;
    qsizetype m_forgotten = 0;
};
