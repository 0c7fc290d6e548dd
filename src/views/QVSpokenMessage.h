#pragma once

#include "settings/QVText.h"

#include <QWidget>

/// What a control tells screen readers besides its name. A changed name alone is not heard: Qt sends it in
/// a form that they cannot speak, and of a control without the focus they would not speak anyway. A part
/// without size, and hidden until there is something to tell.
class QVSpokenMessage final : public QWidget
{
    Q_OBJECT

public:
    explicit QVSpokenMessage(QWidget *control);

    void tell(const QVText &message);

private:
    QVText m_message;
};
