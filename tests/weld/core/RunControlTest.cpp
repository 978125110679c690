#include "weld/core/RunControl.h"

#include <gtest/gtest.h>

using namespace RunControl;
using weld::WeldRunState;

namespace {

// One row of the state table: what the widgets show and the stop flag.
struct Expect {
    const char* name;
    std::string_view caption;
    bool stopEnabled, startEnabled, iterationStop;
};

void Check(const Control& c, const WeldRunState& run, const Expect& e) {
    SCOPED_TRACE(e.name);
    EXPECT_EQ(c.State().StopCaption, e.caption);
    EXPECT_EQ(c.State().StopEnabled, e.stopEnabled);
    EXPECT_EQ(c.State().StartEnabled, e.startEnabled);
    EXPECT_EQ(run.IterationStop, e.iterationStop);
}

// Stands in for a run: it clears the flag, a stop click may come in
// "during" it, and it ends by the flag it finds.
void FakeRun(Control& c, WeldRunState& run, bool stopDuringRun) {
    run.IterationStop = false;
    Check(c, run, {"running", kStopCaption, true, false, false});
    if (stopDuringRun) {
        EXPECT_EQ(c.StopClick(run), StopAction::Stopped);
        Check(c, run, {"stopping", kResumeCaption, true, false, true});
    }
    c.RunEnded(!run.IterationStop);
    run.IterationStop = true;
}

}  // namespace

TEST(RunControl, CapacityWindowWalksTheStateTable) {
    Control c(RunWindow::Capacity);
    WeldRunState run;
    c.Activate();
    Check(c, run, {"idle", kStopCaption, false, true, true});
    EXPECT_EQ(StartCaption(RunWindow::Capacity), "ReStart Iteration");

    c.BeginStart(run);
    EXPECT_TRUE(c.State().InputsLocked && c.State().SizesLocked);
    EXPECT_FALSE(c.State().ClearEnabled);
    FakeRun(c, run, true);
    c.EndStart();
    Check(c, run, {"stopped", kResumeCaption, true, true, true});
    EXPECT_TRUE(c.State().ClearEnabled);
    EXPECT_FALSE(c.State().InputsLocked);

    // Resume: the flags ask the solver to start from the saved center.
    EXPECT_EQ(c.StopClick(run), StopAction::Resume);
    EXPECT_TRUE(run.IterationResume);
    EXPECT_TRUE(c.State().InputsLocked);
    EXPECT_FALSE(c.State().SizesLocked) << "a resume leaves electrode and size open";
    FakeRun(c, run, false);
    c.EndResume();
    Check(c, run, {"converged", kStopCaption, false, true, true});

    // The coefficient window differs only in its start caption and locked boxes.
    Control k(RunWindow::Coefficient);
    EXPECT_EQ(StartCaption(RunWindow::Coefficient), "Start Iteration");
    k.BeginStart(run);
    EXPECT_TRUE(k.State().InputsLocked);
    EXPECT_FALSE(k.State().SizesLocked);
}

TEST(RunControl, ClearAndSizeChangeGiveUpTheResume) {
    for (bool clear : {true, false}) {
        Control c(RunWindow::Capacity);
        WeldRunState run;
        c.BeginStart(run);
        FakeRun(c, run, true);
        c.EndStart();
        ASSERT_EQ(c.State().StopCaption, kResumeCaption);
        if (clear)
            c.ClearDisplay(run);
        else
            c.SizeChanged();
        Check(c, run, {clear ? "clear" : "size", kStopCaption, false, true, true});
        EXPECT_FALSE(run.IterationResume);
    }
}

TEST(RunControl, HowARunEndsFollowsItsRecord) {
    const std::string located = ClosingText(true), aborted = ClosingText(false);
    EXPECT_EQ(located,
              "\r\r ** Instantaneous Center LOCATED !\r\r Reference: AISC Steel Construction\r\n"
              "            Manual, 13th Edition");
    EXPECT_EQ(aborted,
              "\r\r ** Iteration ABORTED !\r\r Reference: AISC Construction Manual\r\n            13th Edition");
    // A record of the iteration (stopped, gave up, relaxation) or of the
    // element model (converged, refused), and how its run ends: the text,
    // whether the value holds, is shown, and the run can be resumed.
    struct Case {
        bool element, converged, stopped, unsettled, refused;
        double relaxation;
        std::string text;
        bool holds, shows, resumable;
    };
    const Case cases[] = {
        {false, true, false, false, false, 0.25, "\r\r Center oscillated: correction step relaxed to 1/4" + located,
         true, true, false},
        {false, false, true, false, false, 1.0, aborted, false, true, true},
        {false, false, false, true, false, 1.0 / 1024,
         "\r\r Center kept oscillating with the correction step at 1/1024: no convergence. Use the AISC element "
         "model." +
             aborted,
         false, true, false},
        {true, true, false, false, false, 1.0, ElementClosingText(ElementOutcome::Found), true, true, false},
        {true, false, false, false, false, 1.0, "\r\r ** AISC element model: no equilibrium for this load !", false,
         false, false},
        {true, false, false, false, true, 1.0, ElementClosingText(ElementOutcome::Refused), false, false, false},
    };
    for (const Case& c : cases) {
        weld::SolveResult r;
        r.Model = c.element ? shell::SolverModel::AiscElement : shell::SolverModel::Iterative;
        r.Converged = c.converged;
        r.Stopped = c.stopped;
        r.Unsettled = c.unsettled;
        r.Refused = c.refused;
        r.Relaxation = c.relaxation;
        const RunEnding e = EndingOf(r);
        EXPECT_EQ(e.Text, c.text);
        EXPECT_EQ(std::tuple(e.Converged, e.ShowsValue, e.Resumable), std::tuple(c.holds, c.shows, c.resumable))
            << c.text;
    }
    EXPECT_NE(ElementClosingText(ElementOutcome::Found).find("AISC element model"), std::string::npos);
    EXPECT_EQ(ResultText(50.401567, true), "50.40157  ");
    EXPECT_EQ(ResultText(1.5, false), "** 1.50000  ");
    EXPECT_EQ(ForWidget("a\r\rb\r\nc"), "a\n\nb\nc");
}

TEST(RunControl, PassTextAlignsSignsAndShowsSkippedCenters) {
    WeldRunState run;
    const auto t0 = Clock::now();
    run.IterationStartTime = run.DisplayClearTime = t0;
    DisplayBuffer d;
    Display_Iteration(run, d, 1.5, -0.25, 0.5, true, t0);
    EXPECT_EQ(d.Pending, "Iterating Instantaneous Center:\r\n : xRo  =  3.000000000\r\n : yRo  = -0.500000000");
    Display_Iteration(run, d, 0, 0, 1, false, t0);
    EXPECT_NE(d.Pending.find("\r\n\r\nIterating Instantaneous Center:\r\n : xRo  = [Calculation skipped]\r\n"
                             " : yRo  = [Calculation skipped]"),
              std::string::npos);
    EXPECT_EQ(d.ElapsedCaption, "Iteration Elapsed Time  \xC2\xBB   00h:00m:00s ");
}

TEST(RunControl, DisplayIsReplacedEveryTenWholeSeconds) {
    using std::chrono::milliseconds;
    WeldRunState run;
    const auto t0 = std::chrono::floor<std::chrono::seconds>(Clock::now()) + milliseconds(900);
    run.IterationStartTime = run.DisplayClearTime = t0;
    DisplayBuffer d;
    // 9.2 s later, but ten second boundaries crossed: cleared.
    Display_Iteration(run, d, 0, 0, 1, true, t0 + milliseconds(9200));
    EXPECT_TRUE(d.ReplaceAll);
    EXPECT_EQ(run.DisplayClearCount, 1);
    EXPECT_EQ(d.Pending.rfind("**Previous Iteration DELETED...[1]\r\n[Iteration Display is cleared every\r\n"
                              "10 sec to maintain iteration speed]\r\n\r\nIterating",
                              0),
              0u);
    EXPECT_EQ(run.ElapsedSeconds, 10);
    d.Pending.clear();
    d.ReplaceAll = false;
    Display_Iteration(run, d, 0, 0, 1, true, t0 + milliseconds(18000));
    EXPECT_FALSE(d.ReplaceAll);
    EXPECT_EQ(run.DisplayClearCount, 1);
    EXPECT_EQ(WholeSecondsBetween(t0, t0 + std::chrono::seconds(3725)), 3725);
}
