#include "quick/QVQuickClick.h"

#include "quick/QVQuickWindows.h"
#include "settings/QVLanguageNotice.h"

#include <QPointer>
#include <QQuickWindow>

QVQuickClick::QVQuickClick(QObject *parent)
    : QVQuickVerification(parent)
    , QVQuickTeller(static_cast<QVQuickVerification &>(*this))
    , m_flow(presenter(), *this)
{
    connect(&QVLanguageNotice::shared(), &QVLanguageNotice::languageChanged, this, &QVQuickClick::shown);
}

QVQuickClick::~QVQuickClick()
{
    // While this is still what the popup's opener takes it for.
    m_flow.abandon();
}

QVQuickStatus::Status QVQuickClick::status() const
{
    return QVQuickStatus::Status(int(m_flow.clickStatus()));
}

QString QVQuickClick::text() const
{
    return m_flow.statusText().text();
}

void QVQuickClick::press()
{
    if (m_flow.takesInput())
        m_flow.clickButtonTouchDownAction();
}

void QVQuickClick::leave()
{
    if (m_flow.clickStatus() == QVClickStatusTouching)
        m_flow.clickButtonTouchUpOutside();
}

void QVQuickClick::click()
{
    m_flow.clickButtonTouchUpInside();
}

void QVQuickClick::clickByKey(QQuickItem *button)
{
    const QPointer<QQuickItem> self(button);
    press();
    if (self && m_flow.clickStatus() == QVClickStatusTouching)
        self->isEnabled() ? click() : leave();
}

void QVQuickClick::reset()
{
    m_flow.reset();
}

QObject *QVQuickClick::host() const
{
    return QVQuickWindows::of(parent());
}
