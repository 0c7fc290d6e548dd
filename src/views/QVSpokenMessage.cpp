#include "views/QVSpokenMessage.h"

#include "settings/QVLanguageNotice.h"
#include "settings/QVOneLine.h"
#include "views/QVAccessibleRole.h"

QVSpokenMessage::QVSpokenMessage(QWidget *control)
    : QWidget(control)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::Notification);
    resize(0, 0);
    hide();
    qv_followLanguage(this, [this] { setAccessibleName(qv_oneLine(m_message.text())); });
}

void QVSpokenMessage::tell(const QVText &message)
{
    m_message = message;
    setAccessibleName(qv_oneLine(message.text()));
    qv_readOut(this);
    show();
}
