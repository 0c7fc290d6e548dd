#pragma once

#include "layers/QVValueAnimation.h"
#include "layout/QVConstraintMaker.h"
#include "layout/QVLayoutItems.h"
#include "layout/QVLayoutSolver.h"
#include "layout/QVLayoutTransition.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <chrono>
#include <functional>
#include <vector>

class QWidget;

/// Places the descendants of a container widget by constraints.
///
/// Changed constraints take effect with the next layout pass. That runs from the event loop, or earlier by
/// layoutNow() or animateLayout(). A pass also runs at once when the container is resized, or when a widget
/// in a constraint is moved or resized. Edges are rounded in the container's coordinates, so that neighbours
/// have no gap.
///
/// Widgets are held weakly: a constraint is ignored once its widget or target is destroyed.
class QVLayout final : public QObject
{
    Q_OBJECT

public:
    using Build = std::function<void(QVConstraintMaker &make)>;
    using Completion = std::function<void()>;

    explicit QVLayout(QWidget *container);
    ~QVLayout() override;

    /// Adds constraints. They replace those that differ from them only in their constants.
    void make(QWidget *widget, const Build &build);
    /// Replaces all constraints of the widget.
    void remake(QWidget *widget, const Build &build);

    void layoutNow();
    /// Moves widgets whose place has changed smoothly from where they are now, slow at both ends.
    /// \a completion is called once, after \a duration, even if another animation has replaced this one
    /// meanwhile. It is not called if the layout or its container is destroyed before. In a hidden container
    /// widgets jump to their places.
    void animateLayout(std::chrono::milliseconds duration, Completion completion = {});

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using ItemId = QVLayoutConstraint::ItemId;
    using Frames = QVLayoutTransition::Frames;

    void requestLayout();
    ItemId watch(QWidget *widget);
    void solve();
    void place(const std::map<ItemId, QRectF> &frames);
    void apply();
    [[nodiscard]] Frames seenFrames() const;
    void startMotion();
    void move();
    void scheduleEnd(std::chrono::milliseconds duration, Completion completion);

    QPointer<QWidget> m_container;
    QVLayoutItems m_items;
    ItemId m_containerId;
    std::vector<QVLayoutConstraint> m_constraints;
    /// The final places of the constrained widgets, in their parents' coordinates.
    Frames m_places;
    QVLayoutTransition m_transition;
    QVValueAnimation m_motion;
    bool m_isApplying = false;
};
