// The program's own instantaneous center iteration of a weld group: the
// solver's segment records, the division of weld lines into segments, the
// run state a window shares with a run, and the solve itself. Callers reach
// it through weld::Solve (WeldSolve.h), which also holds the element model.
//
// Numbers follow the old solver to the last bit where it matters: pi is the
// truncated 3.14159265358979, a line's segment count comes from its length
// rounded to whole inches, and a statement that fails (division by zero,
// overflow, a power with no real result) is skipped and leaves its target as
// it was. The results of awkward groups depend on that rule.
//
// Everything a window shares with a run (the stop and resume flags, the
// clock of the display) lives in WeldRunState, which the caller owns.
// Waiting window events are served through WeldRunHooks::Yield, and each
// pass is shown through WeldRunHooks::Display.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "shell/core/ElementForce.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Settling.h"
#include "shell/core/Yield.h"
#include "weld/core/WeldGroup.h"

namespace weld {

using shell::kPi;

// One small piece of a weld line as seen from one trial center.
struct WeldSegmentRec {
    double r = 0.0;            // distance from the trial center to the midpoint
    double Phi = 0.0;          // direction of the radius (kept, not used)
    double DeltaM = 0.0;       // deformation at maximum load
    double LineAngle = 0.0;    // Angle of the parent line
    int16_t LineNo = 0;        // parent line, counted from 1 in the prepared table
    double Theta = 0.0;        // force to weld axis angle, 0 .. pi/2
    double SegLength = 0.0;
    double DeltaU = 0.0;       // deformation at ultimate load
    double DeltaUOverR = 0.0;
    double dX = 0.0;           // midpoint x minus trial center x
    double dY = 0.0;           // midpoint y minus trial center y
};

using WeldSegmentTable = std::vector<WeldSegmentRec>;

// The flags shared between a window and the run it starts. The window owns
// one of these and passes it to every call; its handlers, running inside
// Yield, may set IterationStop to end the run after the current pass.
struct WeldRunState {
    using Clock = std::chrono::system_clock;

    bool IterationStop = true;     // stop requested, or no run active
    bool IterationResume = false;  // the next solve starts at ResumeCenterX
    double ResumeCenterX = 0.0;    // x of the trial center when a run was stopped

    // Set at the start of every solve (a resume restarts the clock).
    Clock::time_point IterationStartTime{};
    Clock::time_point DisplayClearTime{};
    int16_t DisplayClearCount = 0;
    // Kept up to date by the display procedures of the windows.
    double ElapsedSeconds = 0.0;
};

// One pass as the display hook sees it.
struct PassShown {
    int64_t Passes = 0;    // passes run to their end so far
    double X = 0.0;        // the trial center relative to the centroid, in the
    double Y = 0.0;        //   group's own axes (not divided by Divisor)
    double Divisor = 1.0;  // the display divides the coordinates by this
    double Angle = 0.0;    // load angle, degrees
    bool Computed = true;  // false on the concentric path: no center was computed
    // The force on every segment of this pass, about its center; set only
    // when the options ask WithForces, and good only during the call.
    std::function<std::vector<shell::ElementForce>()> Forces;
};

// Callbacks of a run. Empty functions are not called.
struct WeldRunHooks {
    // Lets waiting window events run.
    shell::YieldFn Yield;
    // Called once per pass and once more after the loop.
    std::function<void(const PassShown&)> Display;
};

// What a run of the iteration did; weld::Solve turns it into its result record.
struct IterationReport {
    int64_t Passes = 0;         // passes run to their end
    bool Converged = false;     // left the loop by the convergence test
    bool Concentric = false;    // zero arm: no iteration at all
    bool Refused = false;       // more than 32,767 lines or segments: not solved, result 0
    double CenterX = 0.0;       // center of the last pass, from the centroid, group axes
    double CenterY = 0.0;       //   (not divided by the display divisor)
    int32_t Segments = 0;       // rows of the segment table in the last pass
    double Relaxation = 1.0;    // factor of the center correction at the end (1: never relaxed)
    bool Unsettled = false;     // still swinging at the smallest factor: ended without converging
    // The force on every segment of the last pass, about its center (only
    // when the options ask WithForces).
    std::vector<shell::ElementForce> Forces;
};

// How the solve settles a run that swings about its center: the correction
// is halved at once on an exact cycle, and at a block check (after 80,000
// passes, then every 1,000) while the residuals still change sign; below
// 1/1024 the run ends unsettled. An irregular swing sometimes lands on its
// center by itself after tens of thousands of passes (74,878 is the most
// seen over ordinary groups): the first block lies beyond that, so such runs
// keep the passes and bits they always had, and a run that swings for ever
// still ends within the command line's default 100,000 passes.
inline constexpr shell::SettlingRule kWeldSettling{1e-5, 80000, 1000, 100, true, 1.0 / 1024};

using shell::Degrees;
using shell::MaxOf;
using shell::MinOf;
using shell::Radians;

// Angle of a line in radians: pi/2 for x1 = x2, 0 for y1 = y2 (exact tests),
// otherwise the arctangent of its slope taken from left to right.
double LineAngle(const WeldLineRec& line);
// Slope from the point with the lower x to the other one; 0 for a vertical line.
double LineSlope(double x1, double y1, double x2, double y2);

// Sorts the end points of every line in place (left to right; bottom to top
// for a vertical line) and drops lines not longer than one segment. When no
// line survives, the table keeps its (sorted) lines.
void Prepare_WeldLines(WeldLineTable& lines, int16_t segmentsPerInch, const WeldRunHooks& hooks);

// Sum of the exact line lengths.
double Total_WeldLength(const WeldLineTable& lines);

// Rebuilds `segments` for the trial center (xo, yo). Each line gives
// round(length) x segmentsPerInch segments of length 1/segmentsPerInch,
// spaced along its true length. The table's storage is reused from call to
// call. A group with no segment gets one all-zero row.
void Build_Segments(const WeldLineTable& lines, double xo, double yo, WeldSegmentTable& segments, double D,
                    int16_t segmentsPerInch, const WeldRunHooks& hooks);

// Capacity when the load passes through the centroid: the plain sum of the
// line strengths, using each line's Angle as the solver has set it.
double ConcentricCapacity(const WeldLineTable& lines, double Fexx, double D);

// The whole solve by the instantaneous center of rotation, with the strip,
// Fexx, D and display divisor of `options` (its model is not read). Returns
// the capacity in kips: the mean of the moment and force estimates of the
// last pass.
//
// Run control: the loop runs until two residuals are within 1e-5, until
// state.IterationStop is true at the head of a pass (a pass that has begun
// always finishes), or until a run that keeps swinging about its center
// gives up at the smallest correction factor (kWeldSettling); the last two
// save state.ResumeCenterX. report->Relaxation and report->Unsettled say how
// the run settled: a run that converges without ever swinging into a cycle
// takes exactly the passes and gives exactly the bits it always has. A later
// call with state.IterationResume true starts at (ResumeCenterX, 0). The
// caller sets IterationStop false before a run; the solver never resets it,
// so after the call a true IterationStop means the run was stopped. The
// display hook is called once per pass and once more after the loop with
// the center of the last pass. A load through the centroid (zero arm,
// exactly) is not iterated: the result is ConcentricCapacity and the display
// is called once with (0, 0) and Computed false.
//
// A group whose segments could exceed the 16-bit table (32,767 rows) is not
// solved: the result is 0, nothing is displayed, report->Refused is set.
double Locate_InstantaneousCenter(const LoadedGroup& group, const SolveOptions& options, WeldRunState& state,
                                  const WeldRunHooks& hooks, IterationReport* report = nullptr);

// Elapsed seconds as "00h:00m:00s " (each part by the picture "00").
std::string Format_ElapsedTime(double seconds);

}  // namespace weld
