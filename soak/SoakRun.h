#pragma once

#include "flow/QVVerifyStyle.h"
#include "sandbox/QVSandbox.h"
#include "support/QVVirtualScheduler.h"

#include <QPoint>
#include <QStringList>
#include <QWidget>

#include <vector>

class QVRenderDrawView;

/// Verifies as a user does, over and over, against the local service and in virtual time.
class SoakRun
{
public:
    SoakRun();

    /// One whole verification; false, with the reason, where it does not end as it must. \a number
    /// chooses the mode and how the user goes about it.
    [[nodiscard]] bool verify(int number, QString &problem);

private:
    void configure();
    static void setId(const char *id);
    void open(QVVerifyStyle style);
    template<class Manager>
    Manager &take();
    void solve();
    void drawWrong();
    void drawThrough(const std::vector<QPoint> &points);
    void typeCharacters(const QString &characters);
    void clickPart(const char *name);
    [[nodiscard]] bool retryAfterFailure();
    [[nodiscard]] bool waitForReady();
    [[nodiscard]] static QVRenderDrawView *panel();
    [[nodiscard]] static QWidget *part(const char *name);

    QVVirtualScheduler m_time;
    QVSandbox m_sandbox;
    std::unique_ptr<QWidget> m_host;
    std::unique_ptr<QObject> m_manager;
    QStringList m_tokens;
    int m_readyCount = 0;
    int m_wrongCount = 0;
    int m_failureCount = 0;
};
