#pragma once

#include "support/DrawServiceTestCase.h"
#include "support/Record.h"

#include <map>

/// Base of the tests of a front-end: its three modes are driven by steps that have the same names in all
/// front-ends.
class ConversationTestCase : public DrawServiceTestCase
{
    Q_OBJECT

protected:
    void prepare() override;
    void finish() override;

    /// Carries out steps of a conversation, separated by commas.
    void go(const QString &steps);
    void addStep(const char *name, const std::function<void(const QString &rest)> &action);
    /// The mode in which the steps act: "click", "invisible" or "embed".
    [[nodiscard]] const QString &modeName() const { return m_modeName; }
    virtual void setMode(const QString &name) { m_modeName = name; }

    /// Carries out the current row of a table, see Conversations.h, and compares the record. Then destroys
    /// everything: nothing more is heard or asked, and nothing is left.
    void converse();

    /// What the host has heard.
    [[nodiscard]] virtual Record &outcomes() = 0;
    /// Starts an attempt in the current mode. A panel that is there already is reset.
    virtual void start() = 0;
    virtual void reset() = 0;
    /// Destroys what the host has for the current mode.
    virtual void destroy() = 0;
    virtual void destroyAll() = 0;
    virtual void showBadge() = 0;
    /// Whether the host's objects are called besides their signals, which the record holds as "(token)".
    [[nodiscard]] virtual bool hasDelegates() const { return false; }
    virtual void checkDelegates(const QStringList & /*expected*/) {}
    /// The text on the button.
    [[nodiscard]] virtual QString statusText() = 0;
    [[nodiscard]] virtual qsizetype popupCount() const = 0;
    /// What a screen reader reads of each badge.
    [[nodiscard]] virtual QStringList badges() const = 0;
    [[nodiscard]] virtual bool waitForPicture() const = 0;
    /// Draws a stroke that is long enough to be sent.
    virtual void stroke() const = 0;
    /// Begins a stroke.
    virtual void pressPicture() const = 0;
    virtual void clickPart(const char *name) const = 0;
    virtual void pressClose() const = 0;
    virtual void changeWindow(const QString &what) = 0;

private:
    void defineHost();
    void defineService();
    void defineUser();
    void defineReports();
    void react(const QString &event);

    QString m_modeName;
    std::map<QString, std::function<void(const QString &)>> m_steps;
    /// Steps to carry out once, by the beginning of the outcome that triggers them.
    std::map<QString, QString> m_reactions;
};
