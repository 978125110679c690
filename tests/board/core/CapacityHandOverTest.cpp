#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/BoardTestDoc.h"
#include "board/core/LayoutFile.h"
#include "board/core/CapacityHandOver.h"

using namespace Layout;
using namespace weld;

namespace {

// A layout drawn from world-inch lines with its load placed.
LayoutDocument Drawn(const std::vector<std::vector<double>>& lines, int16_t side, double angle, double eccFeet) {
    LayoutDocument doc = boardtest::Drawn(lines);
    doc.Load.LoadSide = side;
    doc.Load.LoadAngle = angle;
    doc.Load.LoadEccentricity = eccFeet;
    doc.Load.LoadPlaced = -1;
    return doc;
}

// A run at Fexx = D = 1. Some groups never settle (the solver can swing
// between two centers); a pass limit stops those the way the stop button
// would, so a test never hangs.
double Unit(const LayoutDocument& doc, bool* converged = nullptr) {
    WeldRunState state;
    state.IterationStop = false;
    WeldRunHooks hooks;
    hooks.Display = [&](const PassShown& p) {
        if (p.Passes >= 5000) state.IterationStop = true;
    };
    const SolveResult r = Solve_Layout(doc, SolveOptions{}, state, hooks);
    if (converged != nullptr) *converged = r.Converged;
    return r.Value;
}

SolveResult ByElements(const LayoutDocument& doc) {
    SolveOptions options;
    options.Model = shell::SolverModel::AiscElement;
    return Solve(Layout_Group(doc), options);
}

std::vector<std::vector<double>> Mirrored(const std::vector<std::vector<double>>& lines, double axis) {
    std::vector<std::vector<double>> out;
    for (const auto& v : lines) out.push_back({axis - v[0], v[1], axis - v[2], v[3]});
    return out;
}

}  // namespace

TEST(HandOver, LinesMinRoundsTheRunningValueToSingle) {
    WeldLineTable t(3);
    t[0] = {0.30000000000000004, 5.0, 0.7, 0.1, 0, 0};
    t[1] = {2.0, 0.2, 1.0, 3.0, 0, 0};
    t[2] = {0.1, -1.0, 4.0, 2.0, 0, 0};
    bool ok = false;
    int yields = 0;
    WeldRunHooks hooks;
    hooks.Yield = [&] { ++yields; };
    EXPECT_EQ(Lines_MinX(t, ok, hooks), 0.1f);
    EXPECT_TRUE(ok);
    EXPECT_EQ(yields, 3);
    ok = false;
    EXPECT_EQ(Lines_MinY(t, ok), -1.0f);
    EXPECT_TRUE(ok);
    t.resize(1);
    EXPECT_EQ(Lines_MinX(t, ok), static_cast<float>(0.30000000000000004));
}

TEST(HandOver, BlankDocumentReachesTheSolverAndGivesZero) {
    LayoutDocument doc;
    EXPECT_EQ(Unit(doc), 0.0);
    doc.Load.LoadSide = 0;
    doc.Load.LoadEccentricity = 1.0;
    EXPECT_EQ(Unit(doc), 0.0);
    // The element model refuses it.
    Viewport::Set_Viewport(doc);
    const SolveResult rep = ByElements(doc);
    EXPECT_TRUE(rep.Refused);
    EXPECT_FALSE(rep.Converged);
    EXPECT_EQ(rep.Value, 0.0);
}

TEST(HandOver, MirroredLayoutGivesTheSameCapacity) {
    const std::vector<std::vector<double>> angle = {{1, 1, 1, 9}, {1, 1, 6, 1}};
    for (double deg : {0.0, 30.0, 75.0}) {
        bool converged = false;
        const double left = Unit(Drawn(angle, 0, deg, 0.5), &converged);
        EXPECT_TRUE(converged) << deg;
        const double right = Unit(Drawn(Mirrored(angle, 7), 1, deg, 0.5));
        EXPECT_GT(left, 0.0);
        EXPECT_DOUBLE_EQ(left, right) << deg;
        // The side decides: the same drawing with the load on the other side differs.
        EXPECT_NE(left, Unit(Drawn(angle, 1, deg, 0.5))) << deg;
    }
    // Any side but 0 is the right side.
    EXPECT_EQ(Unit(Drawn(angle, 1, 0, 0.5)), Unit(Drawn(angle, 2, 0, 0.5)));
    EXPECT_EQ(Unit(Drawn(angle, 1, 0, 0.5)), Unit(Drawn(angle, -1, 0, 0.5)));
}

TEST(HandOver, PositionOnTheBoardAndViewportDoNotMatter) {
    const std::vector<std::vector<double>> c = {{0, 0, 0, 10}, {0, 0, 4, 0}, {0, 10, 4, 10}};
    LayoutDocument doc = Drawn(c, 1, 0, 0.75);
    const double here = Unit(doc);
    Viewport::Pan_Board(doc, 1.5, -2.25);
    EXPECT_NEAR(Unit(doc), here, 1e-4 * here);
    Viewport::Zoom_Factor(doc, 0.95f);
    EXPECT_NEAR(Unit(doc), here, 1e-4 * here);
    // The solve works on a copy: the board is untouched.
    const std::string before = LayoutFile::Layout_Bytes(doc);
    Unit(doc);
    EXPECT_EQ(LayoutFile::Layout_Bytes(doc), before);
}

TEST(WeldElementCapacity, BoardGroupGoesThroughTheSameHandOver) {
    // An angle drawn on the board with the load on its right, and the same
    // angle with the load on the left: mirrored, the two are one group.
    const std::vector<std::vector<double>> angle = {{1, 1, 1, 9}, {1, 9, 5, 9}};
    const std::vector<std::vector<double>> mirrored = {{5, 1, 5, 9}, {5, 9, 1, 9}};
    const SolveResult right = ByElements(Drawn(angle, 1, 15, 0.5));
    const SolveResult left = ByElements(Drawn(mirrored, 0, 15, 0.5));
    ASSERT_TRUE(right.Converged && left.Converged);
    EXPECT_NEAR(left.Value, right.Value, 1e-6 * right.Value);

    // The hand-over gives the element model the lines it gives the system's solver.
    const LayoutDocument doc = Drawn(angle, 1, 15, 0.5);
    SolveOptions options;
    options.Model = shell::SolverModel::AiscElement;
    EXPECT_EQ(Solve({Board_WeldLines(doc, {}), 6.0, 15}, options).Value, right.Value);
}
