#include "views/QVCharVerifyInputViewDoneButton.h"

#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVActivitySpinner.h"
#include "views/QVColors.h"
#include "views/QVFocusRing.h"
#include "views/QVReadable.h"
#include "views/QVSystemFont.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int titleFontSize = 15;
constexpr float pressedAlpha = 0.8F;

QColor titleColor(bool isPressed)
{
    QColor color = QVColors::accent;
    color.setAlphaF(isPressed ? pressedAlpha : 1);
    return color;
}

} // namespace

QVCharVerifyInputViewDoneButton::QVCharVerifyInputViewDoneButton(QWidget *parent)
    : QVTouchButton(parent)
    , m_indicatorView(new QVActivitySpinner(this))
    , m_layout(this)
{
    qv_setAccessibleRole(this, QAccessible::Button);
    m_indicatorView->setObjectName(QStringLiteral("indicatorView"));
    setAccessibleName(qv_localizedStringForKey(QVKey::done));
    m_layout.make(m_indicatorView, [this](QVConstraintMaker &make) {
        make.center().equalTo(this);
        make.size().equalTo(QVActivitySpinner::defaultSide);
    });
    setButtonStauts(normalStauts);
}

void QVCharVerifyInputViewDoneButton::setButtonStauts(int status)
{
    m_buttonStauts = status;
    if (status == loadingStauts) {
        m_title = QString();
        m_indicatorView->startAnimating();
    } else {
        m_indicatorView->stopAnimating();
    }
    if (status == normalStauts)
        m_title = qv_localizedStringForKey(QVKey::done);
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
    painter.setFont(qv_systemFont(titleFontSize, m_title, size()));
    painter.setPen(titleColor(isDown()));
    const QString line = painter.fontMetrics().elidedText(m_title, Qt::ElideRight, width());
    QVReadable::drawText(painter, rect(), Qt::AlignHCenter, line, QVColors::strip);
    qv_paintFocusRing(painter, *this, QVColors::accent);
}
