#pragma once

#include "faults/FaultService.h"
#include "flow/QVVerifyStyle.h"
#include "modes/Outcomes.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"

#include <Quarvo/Quarvo.h>

#include <QPointer>
#include <QWidget>

class QVRenderDrawView;

/// Tests of the whole product in one of its modes, on a window of a host, against a service that can
/// be made to misbehave.
class FaultsTestCase : public QVTestCase
{
    Q_OBJECT

protected:
    void prepare() override;
    void finish() override;

    [[nodiscard]] FaultService &faults() const { return *m_faults; }
    [[nodiscard]] DrawService &service() const { return m_faults->service(); }
    [[nodiscard]] QWidget *host() const { return m_host.get(); }
    void destroyHost() { m_host.reset(); }

    /// Puts the mode's front-end on the host's window.
    void openMode(QVVerifyStyle style);
    /// Starts an attempt as the host or its user does.
    void begin();
    void reset();
    void destroyManager() { m_manager.reset(); }
    void destroyWidget();
    void destroyDelegate() { m_outcomes.reset(); }

    /// The panel on screen; null where there is none.
    [[nodiscard]] QVRenderDrawView *panel() const;
    [[nodiscard]] QWidget *part(const char *name) const;
    void clickPart(const char *name);
    void draw();
    [[nodiscard]] bool isReady() const;
    /// What the user is told has gone wrong, null where nothing has.
    [[nodiscard]] QString message() const;
    [[nodiscard]] static bool waitFor(const std::function<bool()> &condition)
    {
        return qv_waitFor(condition);
    }
    [[nodiscard]] bool waitForReady() const;
    /// Moves time until \a condition holds, as fast as the events that it brings are done.
    [[nodiscard]] bool passUntil(const std::function<bool()> &condition) const;
    void settle() const;

    [[nodiscard]] qsizetype begun() const { return m_begun; }
    /// How many attempts the host was told the end of.
    [[nodiscard]] qsizetype ended() const { return m_outcomes ? m_outcomes->ends().size() : 0; }
    [[nodiscard]] qsizetype panelFailures() const { return m_panelFailures; }
    [[nodiscard]] const Outcomes &outcomes() const { return *m_outcomes; }
    [[nodiscard]] static qsizetype popupCount();

private:
    void watchPanel();
    void panelHasFailed(const QVError &error);

    QVVerifyStyle m_style{};
    std::unique_ptr<FaultService> m_faults;
    std::unique_ptr<QWidget> m_host;
    std::unique_ptr<Outcomes> m_outcomes;
    std::unique_ptr<QObject> m_manager;
    QPointer<QWidget> m_widget;
    QString m_lastFailure;
    qsizetype m_begun = 0;
    qsizetype m_panelFailures = 0;
};
