#include "layout/QVLayoutSolver.h"
#include "support/QVTestCase.h"

#include <limits>

using Attribute = QVLayoutAttribute;
using Constraint = QVLayoutConstraint;
using Kind = QVLayoutProblem::Kind;

namespace {

constexpr Constraint::ItemId container = 1;
constexpr Constraint::ItemId first = 2;
constexpr Constraint::ItemId second = 3;
constexpr Constraint::ItemId nested = 4;
constexpr Constraint::ItemId stranger = 9;

Constraint fixed(Constraint::ItemId item, Attribute attribute, double value)
{
    return {item, attribute, 0, attribute, 1, value};
}

} // namespace

class TestLayoutSolver : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void placesAnItem()
    {
        const Constraint left{first, Attribute::Left, container, Attribute::Left, 1, 7};
        const Constraint right{first, Attribute::Right, container, Attribute::Right, 1, -3};
        const Constraint ownHeight{first, Attribute::Height, first, Attribute::Width, 0.5, 0};

        const QVCases<std::vector<Constraint>, QRectF> cases{
            {{}, {10, 20, 30, 40}},
            {{left}, {7, 20, 50, 60}},
            {{left, right}, {7, 20, 390, 60}},
            {{left, right, ownHeight}, {7, 20, 390, 195}},
            {{{first, Attribute::Width, container, Attribute::Width, 0.25, -1}}, {10, 20, 99, 60}},
            {{{first, Attribute::Top, container, Attribute::Bottom, 0.5, 4}}, {10, 154, 50, 60}},
            {{left, right, fixed(first, Attribute::Width, 40)}, {357, 20, 40, 60}},
            {{fixed(first, Attribute::Left, 90), fixed(first, Attribute::Right, 20)}, {90, 20, 0, 60}}};
        for (const auto &[constraints, expected] : cases) {
            const QVLayoutSolution solution = solver().solve(constraints);
            QCOMPARE(solution.frames.at(first), expected);
            QVERIFY(solution.problems.empty());
        }
    }

    void reportsWhatItCannotUse()
    {
        const QVCases<Constraint, Kind> cases{
            {{first, Attribute::Width, first, Attribute::Right}, Kind::Cycle},
            {{second, Attribute::Left, nested, Attribute::Left}, Kind::Cycle},
            {{first, Attribute::Left, stranger, Attribute::Left}, Kind::UnknownItem},
            {{container, Attribute::Left, first, Attribute::Left}, Kind::UnknownItem},
            {fixed(first, Attribute::Left, std::numeric_limits<double>::quiet_NaN()), Kind::NotFinite}};
        const Constraint good{first, Attribute::Top, container, Attribute::Top, 1, 33};
        for (const auto &[bad, kind] : cases) {
            const auto solution = solver().solve({good, bad});
            QCOMPARE(solution.problems.size(), 1U);
            QCOMPARE(solution.problems.front().kind, kind);
            // The rest holds.
            QCOMPARE(solution.frames.at(first), QRectF(10, 33, 50, 60));
        }
    }

private:
    /// A container of 400 x 300; "first" at (10, 20) of 30 x 40 with an intrinsic size of 50 x 60.
    static QVLayoutSolver solver()
    {
        QVLayoutSolver solver(container, QSizeF(400, 300));
        solver.addItem(first, container, QRectF(10, 20, 30, 40), QSizeF(50, 60));
        solver.addItem(second, container, QRectF(100, 50, 200, 100));
        solver.addItem(nested, second, QRectF(5, 5, 10, 10));
        return solver;
    }
};

QV_TEST(TestLayoutSolver)
#include "TestLayoutSolver.moc"
