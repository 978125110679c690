// The program's own iteration: line geometry, segments and run control.
// What both models share goes through weld::Solve in WeldSolveTest.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "weld/core/InstantaneousCenter.h"

using namespace weld;

namespace {

WeldLineRec Line(double x1, double y1, double x2, double y2) { return WeldLineRec{x1, y1, x2, y2}; }

// A line prepared as the solver leaves it: Angle and Slope set.
WeldLineRec Prepared(double x1, double y1, double x2, double y2) {
    WeldLineRec r = Line(x1, y1, x2, y2);
    r.Angle = LineAngle(r);
    r.Slope = LineSlope(x1, y1, x2, y2);
    return r;
}

WeldSegmentTable Segments(const WeldLineTable& lines, double xo, double yo, double D = 1.0) {
    WeldSegmentTable segs;
    Build_Segments(lines, xo, yo, segs, D, 4, {});
    return segs;
}

// A run with a pass limit standing in for the stop button.
struct Trial {
    SolveOptions options;
    WeldRunState state;
    WeldRunHooks hooks;
    IterationReport report;
    std::vector<PassShown> shown;
    long maxPasses = 20000;

    Trial() {
        state.IterationStop = false;
        hooks.Display = [this](const PassShown& p) {
            shown.push_back(p);
            if (p.Passes >= maxPasses) state.IterationStop = true;
        };
    }
    double Solve(const WeldLineTable& lines, double ex, double angle) {
        return Locate_InstantaneousCenter({lines, ex, angle}, options, state, hooks, &report);
    }
};

const double kHalfPi = kPi / 2;

}  // namespace

TEST(WeldGeometry, PrepareSortsEndsAndDropsShortLines) {
    WeldLineTable lines = {
        Line(5, 1, 0, 1),     // horizontal, right to left: swapped
        Line(2, 9, 2, 3),     // vertical, top to bottom: swapped by y
        Line(0, 0, 0.25, 0),  // exactly one segment long: dropped
        Line(3, 3, 3, 3),     // zero length: dropped
        Line(0, 0, 0.3, 0),   // longer than a segment but under 0.5 in: kept
        Line(4, 0, 0, 3),     // inclined, swapped
    };
    int yields = 0;
    WeldRunHooks hooks;
    hooks.Yield = [&] { ++yields; };
    Prepare_WeldLines(lines, 4, hooks);
    EXPECT_EQ(yields, 6);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].x1, 0);
    EXPECT_EQ(lines[1].y1, 3);
    EXPECT_EQ(lines[2].x2, 0.3);
    EXPECT_EQ(lines[3].y1, 3);
    EXPECT_DOUBLE_EQ(Total_WeldLength(lines), 5 + 6 + 0.3 + 5);

    // When nothing survives the old table stays, with its ends sorted.
    WeldLineTable tiny = {Line(0.2, 0, 0, 0), Line(0, 0.1, 0, 0)};
    Prepare_WeldLines(tiny, 4, {});
    ASSERT_EQ(tiny.size(), 2u);
    EXPECT_EQ(tiny[0].x1, 0);
    EXPECT_EQ(tiny[1].y1, 0);
}

TEST(WeldSegments, CountComesFromTheRoundedLengthSpacingFromTheTrueOne) {
    // Vertical lines far from the center; count = round-half-even(length) x 4.
    const std::pair<double, size_t> cases[] = {{0.5, 0}, {0.6, 4}, {1.5, 8}, {2.5, 8}, {2.6, 12}, {3.5, 16}};
    for (const auto& [length, count] : cases) {
        const WeldSegmentTable segs = Segments({Prepared(10, 0, 10, length)}, 0, 0);
        // No segment at all leaves one all-zero row.
        ASSERT_EQ(segs.size(), std::max<size_t>(count, 1)) << length;
        EXPECT_EQ(segs[0].SegLength, count == 0 ? 0.0 : 0.25) << length;
        EXPECT_EQ(segs[0].LineNo, count == 0 ? 0 : 1) << length;
    }
    // 2.6 in at 1/4": 12 segments of 0.25 spaced 2.6/12 apart, midpoints from half a step.
    const WeldSegmentTable segs = Segments({Prepared(0, 0, 2.6, 0), Prepared(0, 1, 0, 2)}, 0, -1);
    ASSERT_EQ(segs.size(), 16u);
    for (size_t j = 0; j < 12; ++j) {
        EXPECT_NEAR(segs[j].dX, (j + 0.5) * 2.6 / 12, 1e-12);
        EXPECT_EQ(segs[j].dY, 1.0);
    }
    EXPECT_EQ(segs[12].LineNo, 2);
    EXPECT_DOUBLE_EQ(segs[12].dY, 2.125);
    // A midpoint on the trial center takes no part in the pass.
    EXPECT_EQ(Segments({Prepared(0, 0, 0, 1)}, 0, 0.125).size(), 3u);
}

TEST(WeldSegments, ForceAnglesAndTheirSkippedStatements) {
    // Horizontal line, center straight below the first midpoint: the force
    // runs along the weld (Theta 0) and Du is capped at 0.17 D.
    WeldSegmentTable segs = Segments({Prepared(0, 2, 1, 2)}, 0.125, 0);
    EXPECT_EQ(segs[0].Phi, kHalfPi);
    EXPECT_EQ(segs[0].Theta, 0.0);
    EXPECT_DOUBLE_EQ(segs[0].DeltaUOverR, 0.17 / 2);
    // Vertical line level with a midpoint: Theta 0 too; a center on the
    // weld's axis far below gives forces across the weld.
    EXPECT_EQ(Segments({Prepared(3, 0, 3, 1)}, 0, 0.125)[0].Theta, 0.0);
    EXPECT_EQ(Segments({Prepared(3, 10, 3, 11)}, 3, 0)[0].Theta, kHalfPi);
    // Inclined line with the center on its extension: the force is exactly
    // square to the weld, the angle formula divides by zero and Theta keeps
    // its value from the start of the call (0); slightly off it is nearly square.
    segs = Segments({Prepared(1, 1, 2, 2)}, 0, 0);
    EXPECT_EQ(segs[0].Theta, 0.0);
    EXPECT_DOUBLE_EQ(segs[0].Phi, std::atan(1.0));
    EXPECT_NEAR(Segments({Prepared(1, 1, 2, 2)}, 0, 0.001)[0].Theta, kHalfPi, 0.01);
    // A segment level with the center (dY = 0) on an inclined line keeps the
    // previous segment's Theta.
    segs = Segments({Prepared(0, 0, 1, 1)}, -1, 0.375);
    ASSERT_EQ(segs.size(), 4u);
    EXPECT_EQ(segs[1].dY, 0.0);
    EXPECT_EQ(segs[1].Theta, segs[0].Theta);
    EXPECT_NE(segs[2].Theta, segs[0].Theta);
}

// The concentric sums, the tiny arm at 90 degrees and the segments of a falling
// slope on a parallel below the line are weld-unit's golden cases.
TEST(WeldIteration, ShowsEveryPassOnceAndYieldsAtEveryNamedPoint) {
    Trial run;
    run.options.DisplayDivisor = 0.5;
    const auto before = WeldRunState::Clock::now();
    run.state.DisplayClearCount = 7;
    run.Solve({Line(0, 0, 0, 4), Line(2, 0, 2, 4)}, 2.0, 0.0);
    ASSERT_TRUE(run.report.Converged);
    // Each pass and once more after the loop, with the last pass's center.
    ASSERT_EQ(run.shown.size(), static_cast<size_t>(run.report.Passes) + 1);
    EXPECT_EQ(run.shown[2].Passes, 3);
    EXPECT_EQ(run.shown.back().X, run.report.CenterX);
    EXPECT_EQ(run.shown.back().Divisor, 0.5);
    // The display clock restarts with every solve.
    EXPECT_EQ(run.state.DisplayClearCount, 0);
    EXPECT_GE(run.state.IterationStartTime, before);
    EXPECT_EQ(run.state.DisplayClearTime, run.state.IterationStartTime);

    // One 1 in line at 1/4": 4 segments. Stopping during the first pass:
    // prepare 1 + centroid 1 + translate 1 + rotate 1, then in the pass
    // 4 segments + 1 line while building, 4 in the extremes, 4 in the sums,
    // and 1 after the pass.
    Trial one;
    one.options.SegmentsPerInch = 4;
    one.maxPasses = 1;
    int yields = 0;
    one.hooks.Yield = [&] { ++yields; };
    one.Solve({Line(0, 0, 0, 1)}, 3.0, 0.0);
    EXPECT_EQ(one.report.Passes, 1);
    EXPECT_FALSE(one.report.Converged);
    EXPECT_EQ(yields, 4 + 5 + 4 + 4 + 1);
}

TEST(WeldIteration, RunsThatEndAtOnce) {
    // Lines longer than one segment, so they survive, but under half an inch: no segment.
    Trial empty;
    EXPECT_EQ(empty.Solve({Line(0, 0, 0, 0.4), Line(1, 0, 1, 0.4)}, 2.0, 0.0), 0.0);
    EXPECT_TRUE(empty.report.Converged);
    EXPECT_EQ(empty.report.Passes, 1);
    EXPECT_EQ(empty.report.Segments, 1);

    // 600 in at 1/64" would need 38,400 segments; the table counts to 32,767.
    Trial big;
    big.options.SegmentsPerInch = 64;
    EXPECT_EQ(big.Solve({Line(0, 0, 0, 600)}, 5.0, 0.0), 0.0);
    EXPECT_TRUE(big.report.Refused);
    EXPECT_TRUE(big.shown.empty());
    // The same line at 1/32" fits (19,200 segments).
    Trial fits;
    fits.maxPasses = 1;
    EXPECT_GT(fits.Solve({Line(0, 0, 0, 600)}, 5.0, 0.0), 0.0);
    EXPECT_EQ(fits.report.Segments, 19200);

    // Stopped before the first pass: 0, and the resume point is cleared.
    Trial stopped;
    stopped.state.IterationStop = true;
    stopped.state.ResumeCenterX = 9;
    EXPECT_EQ(stopped.Solve({Line(0, 0, 0, 4)}, 2.0, 0.0), 0.0);
    EXPECT_EQ(stopped.report.Passes, 0);
    EXPECT_EQ(stopped.state.ResumeCenterX, 0.0);
    ASSERT_EQ(stopped.shown.size(), 1u);
    EXPECT_TRUE(stopped.shown[0].Computed);
}

TEST(WeldIteration, StopFromAYieldFinishesThePassAndResumeKeepsOnlyX) {
    // An inclined load so that the center moves off the x axis; a "click"
    // arrives inside the third pass, in the middle of its segments.
    const WeldLineTable group = {Line(0, 0, 0, 6), Line(0, 0, 3, 0)};
    Trial stopped;
    int yields = 0;
    stopped.hooks.Yield = [&] {
        if (stopped.report.Passes == 2 && ++yields == 50) stopped.state.IterationStop = true;
    };
    stopped.Solve(group, 3.0, 30.0);
    EXPECT_FALSE(stopped.report.Converged);
    EXPECT_EQ(stopped.report.Passes, 3);  // the begun pass was finished
    const double resumeX = stopped.state.ResumeCenterX;
    EXPECT_NE(resumeX, 0.0);
    // Resume: a new solve from (ResumeCenterX, 0) that converges to the
    // uninterrupted run's capacity within the run's tolerance.
    Trial resumed;
    resumed.state.IterationResume = true;
    resumed.state.ResumeCenterX = resumeX;
    const double cap = resumed.Solve(group, 3.0, 30.0), expected = Trial().Solve(group, 3.0, 30.0);
    EXPECT_TRUE(resumed.report.Converged);
    EXPECT_NEAR(cap, expected, 1e-4 * expected);
    const double a = Radians(30.0);
    EXPECT_DOUBLE_EQ(resumed.shown.at(0).X, resumeX * std::cos(-a));
    EXPECT_DOUBLE_EQ(resumed.shown.at(0).Y, resumeX * std::sin(-a));
}

TEST(WeldRunText, ElapsedTime) {
    const std::pair<double, const char*> cases[] = {
        {0, "00h:00m:00s "},  {3725, "01h:02m:05s "}, {29, "00h:00m:29s "},
        {59, "00h:01m:59s "},  // minutes are rounded by their picture, not truncated
        {61, "00h:01m:01s "}, {3599, "00h:60m:59s "}, {36000, "10h:00m:00s "},
    };
    for (const auto& [s, text] : cases) EXPECT_EQ(Format_ElapsedTime(s), text) << s;
}
