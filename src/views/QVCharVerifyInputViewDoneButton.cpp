#include "views/QVCharVerifyInputViewDoneButton.h"

#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVActivitySpinner.h"
#include "views/QVFocusRing.h"

#include <QKeyEvent>
#include <QPainter>

QVCharVerifyInputViewDoneButton::QVCharVerifyInputViewDoneButton(QWidget *parent)
    : QVTouchButton(parent)
    , m_indicatorView(new QVActivitySpinner(this))
    , m_layout(this)
{
    qv_setAccessibleRole(this, QAccessible::Button);
    m_indicatorView->setObjectName(QStringLiteral("indicatorView"));
    m_layout.make(m_indicatorView, [this](QVConstraintMaker &make) {
        make.center().equalTo(this);
        make.size().equalTo(QVActivitySpinner::defaultSide);
    });
    qv_followLanguage(this, [this] {
        setAccessibleName(qv_localizedStringForKey(QVKey::done));
        if (!m_title.text().isEmpty())
            m_title.setText(accessibleName());
        update();
    });
    setButtonStauts(normalStauts);
}

void QVCharVerifyInputViewDoneButton::setButtonStauts(int status)
{
    m_buttonStauts = status;
    if (status == loadingStauts) {
        m_title.setText({});
        m_indicatorView->startAnimating();
    } else {
        m_indicatorView->stopAnimating();
    }
    if (status == normalStauts)
        m_title.setText(accessibleName());
    qv_setAccessibleBusy(this, status == loadingStauts);
    setCursor(status == loadingStauts ? Qt::ArrowCursor : Qt::PointingHandCursor);
    update();
}

bool QVCharVerifyInputViewDoneButton::hitButton(const QPoint &point) const
{
    return m_buttonStauts != loadingStauts && QVTouchButton::hitButton(point);
}

void QVCharVerifyInputViewDoneButton::keyPressEvent(QKeyEvent *event)
{
    if (m_buttonStauts == loadingStauts)
        event->ignore();
    else
        QVTouchButton::keyPressEvent(event);
}

void QVCharVerifyInputViewDoneButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (isHovered() && m_buttonStauts != loadingStauts)
        painter.fillRect(rect(), QVColors::stripHover());
    painter.setOpacity(isDown() ? pressedOpacity : 1);
    m_title.paint(painter, rect(), QVColors::doneTitle());
    painter.setOpacity(1);
    qv_paintFocusRing(painter, *this);
}
