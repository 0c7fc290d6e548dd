#include "draw/QVKeyPen.h"

#include "flow/QVPanGestureRecognizer.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVColors.h"
#include "views/QVFocusRing.h"
#include "views/QVLabel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace {

constexpr int markSide = 21;
constexpr QSize hintPadding(20, 12);
// With these steps a stroke across the picture and back fits into the points that a trace may have.
constexpr double stepsAcross = 40;
constexpr double fineStepsAcross = 160;

QPointF direction(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

bool isArrow(int key)
{
    return !direction(key).isNull();
}

} // namespace

QVKeyPen::QVKeyPen(QWidget *view, QWidget *picture, QVPanGestureRecognizer &recognizer)
    : QWidget(view)
    , m_picture(picture)
    , m_recognizer(recognizer)
    , m_hint(new QVLabel({.pixelSize = 13, .mostLines = 4}, QVColors::white, QAccessible::NoRole, view))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::Notification);
    setObjectName(QStringLiteral("keyPen"));
    m_hint->setObjectName(QStringLiteral("penHint"));
    m_hint->setGround(QVColors::badge, hintPadding);
    m_hint->hide();
    resize(markSide, markSide);
    hide();
    picture->installEventFilter(this);
    qv_followLanguage(this, [this] { translate(); });
}

void QVKeyPen::translate()
{
    const QString old = std::exchange(m_help, qv_localizedStringForKey(QVKey::accessiblePen));
    if (!old.isEmpty() && m_picture->accessibleDescription() == old)
        m_picture->setAccessibleDescription(m_help);
    m_hint->setText(m_help);
    if (m_hint->isVisible())
        placeHint();
    nameState();
}

void QVKeyPen::setReady(bool ready)
{
    m_isReady = ready;
    // The picture keeps the focus while an answer is being checked.
    m_picture->setFocusPolicy(ready || m_picture->hasFocus() ? Qt::TabFocus : Qt::NoFocus);
    if (ready)
        m_picture->setAccessibleDescription(m_help);
    else if (m_picture->accessibleDescription() == m_help)
        m_picture->setAccessibleDescription(QString());
    refresh();
}

void QVKeyPen::refresh()
{
    const bool isDown = isSteering();
    if (std::exchange(m_isDown, isDown) != isDown) {
        nameState();
        qv_readOut(this);
    }
    const QPointF centre = location();
    move(qFloor(centre.x()) - markSide / 2, qFloor(centre.y()) - markSide / 2);
    setVisible(m_isReady && m_picture->hasFocus());
    raise();
    update();
}

void QVKeyPen::nameState()
{
    setAccessibleName(qv_localizedStringForKey(m_isDown ? QVKey::accessiblePenDown : QVKey::accessiblePenUp));
}

void QVKeyPen::showHint()
{
    if (!m_isReady || !qv_showsFocusRing(*m_picture))
        return;
    placeHint();
    m_hint->show();
    m_hint->raise();
}

void QVKeyPen::placeHint()
{
    const QRect picture(m_picture->mapTo(parentWidget(), QPoint(0, 0)), m_picture->size());
    QRect box(QPoint(), m_hint->sizeFor(picture.width() - 2 * hintPadding.width()));
    // Below the pen and above the bars.
    constexpr double part = 0.7;
    box.moveCenter({picture.center().x(), picture.top() + qRound(part * picture.height())});
    m_hint->setGeometry(box);
}

bool QVKeyPen::eventFilter(QObject * /*watched*/, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (isPenKey(*static_cast<QKeyEvent *>(event)))
            event->accept();
        return event->isAccepted();
    case QEvent::KeyPress:
        return pressKey(*static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        releaseKey(*static_cast<QKeyEvent *>(event));
        return false;
    case QEvent::FocusOut:
        leave();
        return false;
    case QEvent::FocusIn:
        showHint();
        refresh();
        return false;
    case QEvent::Resize:
    case QEvent::Move:
        refresh();
        return false;
    default:
        return false;
    }
}

bool QVKeyPen::isPenKey(const QKeyEvent &event) const
{
    if (!m_isReady || (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    if (event.key() == Qt::Key_Escape)
        return isSteering();
    return isArrow(event.key()) || event.key() == Qt::Key_Space;
}

bool QVKeyPen::pressKey(const QKeyEvent &event)
{
    if (!isPenKey(event))
        return false;
    m_hint->hide();
    if (isArrow(event.key())) {
        m_heldArrows.insert(event.key());
        movePen(event.modifiers() & Qt::ShiftModifier);
    } else if (event.key() == Qt::Key_Escape) {
        m_recognizer.cancel();
    } else if (!event.isAutoRepeat()) {
        lowerOrLift();
    }
    refresh();
    return true;
}

void QVKeyPen::releaseKey(const QKeyEvent &event)
{
    if (!event.isAutoRepeat())
        m_heldArrows.remove(event.key());
}

void QVKeyPen::movePen(bool finely)
{
    const QSizeF size = m_picture->size();
    if (size.isEmpty())
        return;
    const double step = size.width() / (finely ? fineStepsAcross : stepsAcross);
    QPointF way;
    // Two arrow keys at once move the pen diagonally.
    for (const int key : std::as_const(m_heldArrows))
        way += direction(key) * step;
    m_place.setX(std::clamp(m_place.x() + way.x() / size.width(), 0.0, 1.0));
    m_place.setY(std::clamp(m_place.y() + way.y() / size.height(), 0.0, 1.0));
    m_recognizer.move(QVPanGestureRecognizer::Pointer::Keys, location());
}

bool QVKeyPen::isSteering() const
{
    return m_recognizer.pointer() == QVPanGestureRecognizer::Pointer::Keys;
}

void QVKeyPen::lowerOrLift()
{
    if (isSteering())
        m_recognizer.release(QVPanGestureRecognizer::Pointer::Keys, location());
    else
        m_recognizer.press(QVPanGestureRecognizer::Pointer::Keys, location());
}

void QVKeyPen::leave()
{
    m_heldArrows.clear();
    m_hint->hide();
    if (isSteering())
        m_recognizer.cancel();
    refresh();
}

QPointF QVKeyPen::location() const
{
    // At least half a pixel inside, since the right and bottom edges do not belong to the picture.
    const double x =
        std::clamp(m_place.x() * m_picture->width(), 0.5, std::max(0.5, m_picture->width() - 0.5));
    const double y =
        std::clamp(m_place.y() * m_picture->height(), 0.5, std::max(0.5, m_picture->height() - 0.5));
    return QPointF(m_picture->mapTo(parentWidget(), QPoint(0, 0))) + QPointF(x, y);
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
