#include "weld/core/RunControl.h"

#include <gtest/gtest.h>

using namespace RunControl;
using weld::WeldRunState;

namespace {

// One row of the state table: what the widgets show and the stop flag.
struct Expect {
    const char* name;
    std::string_view caption;
    bool stopEnabled;
    bool startEnabled;
    int16_t iterationStop;
};

void Check(const Control& c, const WeldRunState& run, const Expect& e) {
    SCOPED_TRACE(e.name);
    EXPECT_EQ(c.State().StopCaption, e.caption);
    EXPECT_EQ(c.State().StopEnabled, e.stopEnabled);
    EXPECT_EQ(c.State().StartEnabled, e.startEnabled);
    EXPECT_EQ(run.IterationStop, e.iterationStop);
}

// Stands in for Run_CapacityIteration: the run sets the flag, a stop click
// may come in "during" it, and it ends by the flag it finds.
void FakeRun(Control& c, WeldRunState& run, bool stopDuringRun, const Expect* stopping = nullptr) {
    run.IterationStop = 0;
    Check(c, run, {"running", kStopCaption, true, false, 0});
    if (stopDuringRun) {
        EXPECT_EQ(c.StopClick(run), StopAction::Stopped);
        if (stopping) Check(c, run, *stopping);
    }
    c.RunEnded(run.IterationStop == 0);
    run.IterationStop = -1;
}

}  // namespace

TEST(RunControl, CapacityWindowWalksTheStateTable) {
    Control c(RunWindow::Capacity);
    WeldRunState run;
    c.Form_Activate();
    Check(c, run, {"idle", kStopCaption, false, true, -1});

    c.BeginStart(run);
    EXPECT_TRUE(c.State().InputsLocked);
    EXPECT_TRUE(c.State().SizesLocked);
    EXPECT_FALSE(c.State().ClearEnabled);
    const Expect stopping{"stopping", kResumeCaption, true, false, -1};
    FakeRun(c, run, true, &stopping);
    c.EndStart();
    Check(c, run, {"stopped", kResumeCaption, true, true, -1});
    EXPECT_TRUE(c.State().ClearEnabled);
    EXPECT_FALSE(c.State().InputsLocked);

    // Resume: the flags ask the solver to start from the saved center.
    EXPECT_EQ(c.StopClick(run), StopAction::Resume);
    EXPECT_EQ(run.IterationResume, -1);
    EXPECT_TRUE(c.State().InputsLocked);
    EXPECT_FALSE(c.State().SizesLocked) << "a resume leaves electrode and size open";
    FakeRun(c, run, false);
    c.EndResume();
    Check(c, run, {"converged", kStopCaption, false, true, -1});
}

TEST(RunControl, ClearAndSizeChangeGiveUpTheResume) {
    for (int way = 0; way < 2; ++way) {
        Control c(RunWindow::Capacity);
        WeldRunState run;
        c.BeginStart(run);
        FakeRun(c, run, true);
        c.EndStart();
        ASSERT_EQ(c.State().StopCaption, kResumeCaption);
        if (way == 0)
            c.ClearDisplay(run);
        else
            c.SizeChanged();
        Check(c, run, {way == 0 ? "clear" : "size", kStopCaption, false, true, -1});
        EXPECT_EQ(run.IterationResume, 0);
    }
}

TEST(RunControl, WindowsDifferOnlyInStartCaptionAndLockedBoxes) {
    EXPECT_EQ(StartCaption(RunWindow::Capacity), "ReStart Iteration");
    EXPECT_EQ(StartCaption(RunWindow::Coefficient), "Start Iteration");
    Control c(RunWindow::Coefficient);
    WeldRunState run;
    c.BeginStart(run);
    EXPECT_TRUE(c.State().InputsLocked);
    EXPECT_FALSE(c.State().SizesLocked);
}

TEST(RunControl, ClosingWordsAndResultText) {
    EXPECT_EQ(ClosingText(true),
              "\r\r ** Instantaneous Center LOCATED !\r\r Reference: AISC Steel Construction\r\n"
              "            Manual, 13th Edition");
    EXPECT_EQ(ClosingText(false),
              "\r\r ** Iteration ABORTED !\r\r Reference: AISC Construction Manual\r\n            13th Edition");
    EXPECT_EQ(ResultText(50.401567, true), "50.40157  ");
    EXPECT_EQ(ResultText(1.5, false), "** 1.50000  ");
    EXPECT_NE(ElementClosingText(ElementOutcome::Found).find("AISC element model"), std::string::npos);
    EXPECT_EQ(ForWidget("a\r\rb\r\nc"), "a\n\nb\nc");
    // How a run settled, before the closing words.
    EXPECT_EQ(SettlingText(1.0, false), "");
    EXPECT_EQ(SettlingText(0.25, false), "\r\r Center oscillated: correction step relaxed to 1/4");
    EXPECT_EQ(SettlingText(1.0 / 1024, true),
              "\r\r Center kept oscillating with the correction step at 1/1024: no convergence. Use the AISC element "
              "model.");
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
