#include "views/QVSpokenMessage.h"

#include "views/QVAccessibleRole.h"
#include "views/QVOneLine.h"

QVSpokenMessage::QVSpokenMessage(QWidget *control)
    : QWidget(control)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::Notification);
    resize(0, 0);
    hide();
}

void QVSpokenMessage::tell(const QString &message)
{
    setAccessibleName(qv_oneLine(message));
    qv_readOut(this);
    show();
}
