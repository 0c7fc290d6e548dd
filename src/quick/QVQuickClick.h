#pragma once

#include "flow/QVClickFlow.h"
#include "quick/QVQuickVerification.h"

#include <QQuickItem>

/// What a VerifyButton does, for the control in QML that looks like it.
class QVQuickClick : public QVQuickVerification, private QVQuickTeller<QVClickSurface>
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoClick)
    Q_PROPERTY(QVQuickStatus::Status status READ status NOTIFY statusChanged)
    Q_PROPERTY(QString text READ text NOTIFY shown)
    Q_PROPERTY(bool takesInput READ takesInput NOTIFY shown)
    Q_PROPERTY(bool isNews READ isNews NOTIFY shown)

public:
    explicit QVQuickClick(QObject *parent = nullptr);
    ~QVQuickClick() override;

    [[nodiscard]] QVQuickStatus::Status status() const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool takesInput() const { return m_flow.takesInput(); }
    [[nodiscard]] bool isNews() const { return m_flow.isNews(); }

    Q_INVOKABLE void press();
    /// The pointer has left the button, or was lifted.
    Q_INVOKABLE void leave();
    Q_INVOKABLE void click();
    /// A key that presses and lifts at once, on a \a button that the host may disable or destroy meanwhile.
    Q_INVOKABLE void clickByKey(QQuickItem *button);
    Q_INVOKABLE void reset();

Q_SIGNALS:
    /// The status or its text is to be shown, maybe once more.
    void shown();
    void statusChanged();

private:
    [[nodiscard]] QVModeFlow &modeFlow() override { return m_flow; }
    void showClickStatus() override { Q_EMIT shown(); }
    void clickStatusHasChanged(QVClickStatus /*status*/) override { Q_EMIT statusChanged(); }
    [[nodiscard]] QObject *host() const override;

    QVClickFlow m_flow;
};
