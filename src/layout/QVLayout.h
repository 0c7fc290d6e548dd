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

/// Places the widgets of a container's tree by constraints.
///
/// A change of the constraints takes effect with the next layout pass, which comes by itself with
/// the next events, or earlier through layoutNow() or animateLayout(). The container's own size
/// changes, and those of anything that the constraints mention, are followed at once. Results are
/// rounded on their edges in the container's coordinates, so neighbours never leave a gap.
///
/// Widgets are held weakly: a constraint ends with its widget or target. A constraint that cannot be
/// used is reported once under quarvo.layout and left out.
class QVLayout final : public QObject
{
    Q_OBJECT

public:
    using Build = std::function<void(QVConstraintMaker &make)>;
    using Completion = std::function<void()>;

    explicit QVLayout(QWidget *container);
    ~QVLayout() override;

    /// Adds constraints. An equal one that is there already moves to the end instead.
    void make(QWidget *widget, const Build &build);
    /// Replaces all constraints of the widget.
    void remake(QWidget *widget, const Build &build);
    /// Changes the constants of the constraints that have the same form, and adds the others.
    void update(QWidget *widget, const Build &build);

    void layoutNow();
    /// Moves what belongs elsewhere now from where it is seen, slow at both ends. \a completion
    /// comes once, after \a duration, even if another animation has taken over meanwhile; only the end
    /// of the layout or its container prevents it. A hidden container jumps to its new geometry.
    void animateLayout(std::chrono::milliseconds duration, Completion completion = {});

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using ItemId = QVLayoutConstraint::ItemId;
    using Frames = QVLayoutTransition::Frames;
    using Merge = void (QVLayout::*)(const QVLayoutConstraint &);

    void build(QWidget *widget, const Build &build, Merge merge);
    void append(const QVLayoutConstraint &constraint);
    void replace(const QVLayoutConstraint &constraint);
    void requestLayout();
    ItemId watch(QWidget *widget);
    void forgetDeadWidgets();
    void solve();
    void place(const QVLayoutSolution &solution);
    void report(const std::vector<QVLayoutProblem> &problems);
    void apply();
    [[nodiscard]] Frames seenFrames() const;
    void startMotion();
    void move();
    void scheduleEnd(std::chrono::milliseconds duration, Completion completion);

    QPointer<QWidget> m_container;
    QVLayoutItems m_items;
    ItemId m_containerId;
    std::vector<QVLayoutConstraint> m_constraints;
    QStringList m_reported;
    /// Where the constrained widgets belong, in their parents' coordinates.
    Frames m_places;
    QVLayoutTransition m_transition;
    QVValueAnimation m_motion;
    bool m_isApplying = false;
};
