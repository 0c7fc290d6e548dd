#include "draw/QVKeyPen.h"

#include "flow/QVDrawGeometry.h"
#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVFocusRing.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QtMath>

#include <utility>

namespace {

constexpr int markSide = 21;
constexpr QSize hintPadding(20, 12);

} // namespace

QVKeyPen::QVKeyPen(QWidget *view, QVRenderDrawImageView *picture, QVPanGestureRecognizer &recognizer)
    : QWidget(view)
    , m_picture(picture)
    , m_steering(recognizer)
    , m_hint(new QVLabel({.pixelSize = 13, .mostLines = 4}, QVColors::white, QAccessible::NoRole, view))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::Notification);
    setObjectName(QStringLiteral("keyPen"));
    m_hint->setObjectName(QStringLiteral("penHint"));
    m_hint->setGround(QVColors::badge, hintPadding);
    resize(markSide, markSide);
    hide();
    picture->installEventFilter(this);
    // The picture moves together with what contains it.
    picture->parentWidget()->installEventFilter(this);
    qv_followLanguage(this, [this] { translate(); });
}

void QVKeyPen::translate()
{
    const QString old = std::exchange(m_help, qv_localizedStringForKey(QVKey::accessiblePen));
    if (!old.isEmpty() && m_picture->accessibleDescription() == old)
        m_picture->setAccessibleDescription(m_help);
    m_hint->setText(m_help);
    refreshHint();
    nameState();
}

void QVKeyPen::setReady(bool ready)
{
    m_steering.setReady(ready);
    // The picture keeps the focus while an answer is being checked.
    m_picture->setFocusPolicy(ready || m_picture->hasFocus() ? Qt::TabFocus : Qt::NoFocus);
    if (ready)
        m_picture->setAccessibleDescription(m_help);
    else if (m_picture->accessibleDescription() == m_help)
        m_picture->setAccessibleDescription(QString());
    refresh();
}

void QVKeyPen::followPicture()
{
    m_steering.setFrame(QRectF(m_picture->mapTo(parentWidget(), QPoint(0, 0)), m_picture->size()));
}

void QVKeyPen::refresh()
{
    followPicture();
    const bool isDown = m_steering.isSteering();
    if (std::exchange(m_isDown, isDown) != isDown) {
        nameState();
        qv_readOut(this);
    }
    const QPointF centre = m_steering.location();
    move(qFloor(centre.x()) - markSide / 2, qFloor(centre.y()) - markSide / 2);
    setVisible(m_steering.isReady() && m_picture->hasFocus());
    refreshHint();
    raise();
    update();
}

void QVKeyPen::nameState()
{
    setAccessibleName(qv_localizedStringForKey(m_isDown ? QVKey::accessiblePenDown : QVKey::accessiblePenUp));
}

void QVKeyPen::refreshHint()
{
    m_hint->setVisible(m_steering.isReady() && qv_showsFocusRing(*m_picture) && !m_steering.isUsed());
    if (m_hint->isHidden())
        return;
    m_hint->raise();
    const QRect picture(m_picture->mapTo(parentWidget(), QPoint(0, 0)), m_picture->size());
    constexpr int margin = QVDrawGeometry::penHintMargin;
    QRect box(QPoint(), m_hint->sizeFor(picture.width() - 2 * margin));
    box.moveLeft(picture.left() + (picture.width() - box.width()) / 2);
    box.moveBottom(picture.bottom() - m_picture->promptOverlayView()->heightFor(picture.width()) - margin);
    // A text that is too high for the picture becomes smaller.
    m_hint->setGeometry(box.intersected(picture));
}

bool QVKeyPen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_picture) {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            refresh();
        return false;
    }
    const bool isTaken = m_steering.takeEvent(*event);
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::FocusOut:
    case QEvent::FocusIn:
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::FontChange:
        refresh();
        break;
    default:
        break;
    }
    return isTaken;
}

void QVKeyPen::paintEvent(QPaintEvent * /*event*/)
{
    constexpr double radius = 6.5;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = QRectF(rect()).center();
    // A light ring inside a dark one is visible on any picture.
    painter.setPen(QPen(Qt::black, 5));
    painter.setBrush(m_isDown ? QBrush(QVColors::accent()) : QBrush(Qt::NoBrush));
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(QPen(Qt::white, 2));
    painter.drawEllipse(centre, radius, radius);
}
