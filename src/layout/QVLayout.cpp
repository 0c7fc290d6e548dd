#include "layout/QVLayout.h"

#include "layers/QVMotion.h"
#include "layers/QVTicker.h"
#include "platform/QVScheduler.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <cmath>
#include <utility>

namespace {

// Sums of fractions such as thirds are not exact: an edge that is short of a half by a thousandth is rounded
// up.
int roundedEdge(double edge)
{
    constexpr double tolerance = 0.001;
    return static_cast<int>(
        std::floor(qBound<double>(-QWIDGETSIZE_MAX, edge, QWIDGETSIZE_MAX) + 0.5 + tolerance));
}

QRect rounded(const QRectF &frame)
{
    const QPoint topLeft(roundedEdge(frame.left()), roundedEdge(frame.top()));
    return {topLeft,
            QSize(roundedEdge(frame.right()) - topLeft.x(), roundedEdge(frame.bottom()) - topLeft.y())};
}

} // namespace

QVLayout::QVLayout(QWidget *container)
    : m_container(container)
    , m_containerId(watch(container))
    , m_motion(*container)
{
}

QVLayout::~QVLayout() = default;

void QVLayout::make(QWidget *widget, const Build &build)
{
    QVConstraintMaker maker(widget);
    build(maker);
    const ItemId item = watch(widget);
    for (const QVConstraintDraft &draft : maker.drafts()) {
        const ItemId target = draft.target ? watch(draft.target) : 0;
        const QVLayoutConstraint made{
            item, draft.attribute, target, draft.targetAttribute, draft.multiplier, draft.offset};
        std::erase_if(m_constraints, [&](const QVLayoutConstraint &each) { return each.hasFormOf(made); });
        m_constraints.push_back(made);
    }
    requestLayout();
}

void QVLayout::remake(QWidget *widget, const Build &build)
{
    const ItemId item = m_items.find(widget);
    std::erase_if(m_constraints, [item](const QVLayoutConstraint &each) { return each.item == item; });
    make(widget, build);
}

void QVLayout::requestLayout()
{
    // The event loop merges requests that wait for the same widget.
    if (m_container)
        QCoreApplication::postEvent(m_container, new QEvent(QEvent::LayoutRequest));
}

QVLayout::ItemId QVLayout::watch(QWidget *widget)
{
    bool isNew = false;
    const ItemId id = m_items.add(widget, isNew);
    if (!isNew)
        return id;
    widget->installEventFilter(this);
    // The widgets between this one and the container are watched, too, since this one moves with them.
    if (m_container && widget != m_container && m_container->isAncestorOf(widget))
        watch(widget->parentWidget());
    return id;
}

void QVLayout::layoutNow()
{
    if (!m_container)
        return;
    solve();
    apply();
}

void QVLayout::solve()
{
    QVLayoutSolver solver(m_containerId, QSizeF(m_container->size()));
    m_items.describeTo(solver, m_container);
    place(solver.solve(m_constraints));
}

void QVLayout::place(const std::map<ItemId, QRectF> &frames)
{
    m_places.clear();
    for (const QVLayoutConstraint &constraint : m_constraints) {
        const auto frame = frames.find(constraint.item);
        if (frame == frames.end() || constraint.item == m_containerId)
            continue;
        const ItemId parent = m_items.find(m_items.widget(constraint.item)->parentWidget());
        const QPoint origin = rounded(frames.at(parent)).topLeft();
        m_places[constraint.item] = rounded(frame->second).translated(-origin);
    }
}

void QVLayout::apply()
{
    // Collected first: resizing a widget may run code of its owner, which may destroy any of them.
    std::vector<std::pair<QPointer<QWidget>, QRect>> moves;
    for (const auto &[item, place] : m_places)
        moves.emplace_back(m_items.widget(item), m_transition.seen(item, place));
    const QPointer<QVLayout> self(this);
    m_isApplying = true;
    for (const auto &[widget, frame] : moves) {
        if (widget)
            widget->setGeometry(frame);
    }
    if (self)
        m_isApplying = false;
}

QVLayout::Frames QVLayout::seenFrames() const
{
    Frames frames;
    for (const auto &[item, place] : m_places) {
        if (const QWidget *widget = m_items.widget(item))
            frames.emplace(item, widget->geometry());
    }
    return frames;
}

void QVLayout::animateLayout(std::chrono::milliseconds duration, Completion completion)
{
    if (!m_container)
        return;
    const Frames seen = seenFrames();
    const Frames formerPlaces = m_places;
    solve();
    m_transition.advanceTo(QVTicker::shared().time());
    if (m_container->isVisible() && !QVMotion::isReduced() && duration.count() > 0)
        m_transition.start(seen, formerPlaces, m_places, duration);
    else
        m_transition.stop();
    apply();
    startMotion();
    scheduleEnd(duration, std::move(completion));
}

void QVLayout::startMotion()
{
    if (!m_transition.isRunning())
        return;
    m_motion.start(m_transition.remaining(), [this](double) { move(); });
}

void QVLayout::move()
{
    m_transition.advanceTo(QVTicker::shared().time());
    if (!m_transition.isRunning())
        m_motion.stop();
    apply();
}

void QVLayout::scheduleEnd(std::chrono::milliseconds duration, Completion completion)
{
    QVScheduler::shared().schedule(duration, [self = QPointer(this), completion = std::move(completion)] {
        // The last tick may come a little later, so the widgets are moved to their places now.
        if (self)
            self->move();
        if (self && self->m_container && completion)
            completion();
    });
}

bool QVLayout::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool matters = type == QEvent::Resize || type == QEvent::Move || type == QEvent::LayoutRequest;
    if (watched == m_container) {
        if (type == QEvent::Show || (matters && type != QEvent::Move))
            m_isApplying ? requestLayout() : layoutNow();
    } else if (matters && !m_isApplying) {
        layoutNow();
    }
    return false;
}
