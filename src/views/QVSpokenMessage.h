#pragma once

#include "settings/QVText.h"

#include <QWidget>

/// A message of a control to screen readers, besides its name. They do not read a changed name: Qt sends it
/// in a form that they cannot use, and they read nothing of a control without the focus. This is a child of
/// the control, without size, and hidden until the first message.
class QVSpokenMessage final : public QWidget
{
    Q_OBJECT

public:
    explicit QVSpokenMessage(QWidget *control);

    void tell(const QVText &message);

private:
    QVText m_message;
};
