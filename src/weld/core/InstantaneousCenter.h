// Weld group analysis: the solver's line and segment records, the division of
// weld lines into segments, the instantaneous center solver and the nine
// standard weld configurations of the coefficient calculator.
//
// Numbers follow the old solver to the last bit where it matters: pi is the
// truncated 3.14159265358979, a line's segment count comes from its length
// rounded to whole inches, and a statement that fails (division by zero,
// overflow, a power with no real result) is skipped and leaves its target as
// it was. The results of awkward groups depend on that rule.
//
// Everything a window shares with a run (the stop and resume flags, the
// segment setting, the clock of the display) lives in WeldRunState, which the
// caller owns. Waiting window events are served through WeldRunHooks::Yield,
// and each pass is shown through one of the two display callbacks.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "shell/core/MathUtil.h"
#include "shell/core/Settling.h"
#include "shell/core/Yield.h"

namespace weld {

using shell::kPi;

// One straight weld line as the solver sees it, in inches, Y up. Callers fill
// the four coordinates; Angle and Slope are written by the solver after it has
// rotated its copy of the group.
struct WeldLineRec {
    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
    double Angle = 0.0;  // LineAngle, radians, -pi/2 .. pi/2
    double Slope = 0.0;  // LineSlope of the two end points
};

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

using WeldLineTable = std::vector<WeldLineRec>;
using WeldSegmentTable = std::vector<WeldSegmentRec>;

// Where a pass is shown (WeldRunState::DisplayTarget).
constexpr int32_t kDisplayCapacity = 0;     // the capacity window
constexpr int32_t kDisplayCoefficient = 1;  // the coefficient window

// The flags and settings shared between a window and the run it starts. The
// window owns one of these and passes it to every call; its handlers, running
// inside Yield, may set IterationStop to end the run after the current pass.
struct WeldRunState {
    using Clock = std::chrono::system_clock;

    // Segments per inch of weld: 4, 8, 16, 32 or 64 (WeldStripBox). Starts at
    // the program's default list item, 1/32".
    int16_t SegmentsPerInch = 32;

    int16_t IterationStop = -1;    // true (-1): stop requested or no run active
    int16_t IterationResume = 0;   // true: the next solve starts at ResumeCenterX
    double ResumeCenterX = 0.0;    // x of the trial center when a run was stopped
    int32_t DisplayTarget = kDisplayCapacity;

    // Set at the start of every solve (a resume restarts the clock).
    Clock::time_point IterationStartTime{};
    Clock::time_point DisplayClearTime{};
    int16_t DisplayClearCount = 0;
    // Kept up to date by the display procedures of the windows.
    double ElapsedSeconds = 0.0;

    // How the last solve settled (see Locate_InstantaneousCenter): the
    // factor its center correction ended with (1 where the run never swung)
    // and whether it gave up swinging at the smallest factor.
    double Relaxation = 1.0;
    bool Unsettled = false;
};

// Callbacks of a run. Empty functions are not called.
struct WeldRunHooks {
    // Lets waiting window events run.
    shell::YieldFn Yield;
    // One pass in the capacity window: load angle (degrees), the trial center
    // relative to the centroid in the group's own axes, the display divisor,
    // and whether the coordinates were computed (false on the concentric path).
    std::function<void(double angle, double x, double y, double divisor, bool computed)>
        DisplayCapacity;
    // The same for the coefficient window, which has no "skipped" variant.
    std::function<void(double angle, double x, double y, double divisor)> DisplayCoefficient;
};

// What a solve did, for callers that want more than the capacity (the command
// line, tests, benchmarks). Not needed by the windows.
struct SolveReport {
    int64_t Passes = 0;         // passes run to their end
    bool Converged = false;     // left the loop by the convergence test
    bool Concentric = false;    // zero arm: no iteration at all
    bool Refused = false;       // more than 32,767 lines or segments: not solved, result 0
    double CenterX = 0.0;       // center of the last pass, from the centroid, group axes
    double CenterY = 0.0;       //   (not divided by the display divisor)
    int32_t Segments = 0;       // rows of the segment table in the last pass
    double Relaxation = 1.0;    // factor of the center correction at the end (1: never relaxed)
    bool Unsettled = false;     // still swinging at the smallest factor: ended without converging
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
void Prepare_WeldLines(WeldLineTable& lines, const WeldRunState& state, const WeldRunHooks& hooks);

// Sum of the exact line lengths.
double Total_WeldLength(const WeldLineTable& lines);

// Rebuilds `segments` for the trial center (xo, yo). Each line gives
// round(length) x SegmentsPerInch segments of length 1/SegmentsPerInch, spaced
// along its true length. The table's storage is reused from call to call. A
// group with no segment gets one all-zero row.
void Build_Segments(const WeldLineTable& lines, double xo, double yo, WeldSegmentTable& segments,
                    double D, const WeldRunState& state, const WeldRunHooks& hooks);

// Capacity when the load passes through the centroid: the plain sum of the
// line strengths, using each line's Angle as the solver has set it.
double ConcentricCapacity(const WeldLineTable& lines, double Fexx, double D);

// The whole solve by the instantaneous center of rotation.
//   lines     the group, inches, Y up (the function works on a copy)
//   ex        eccentricity of the load, inches, on the +x side of the group
//   angle     load angle in degrees (0: load along +y)
//   Fexx, D   electrode strength (ksi) and weld size (in); the capacity is
//             proportional to both, so callers usually solve at 1 and scale
//   divisor   divides only the coordinates shown by the display callbacks
// Returns the capacity in kips: the mean of the moment and force estimates
// of the last pass.
//
// Run control: the loop runs until two residuals are within 1e-5, until
// state.IterationStop is true at the head of a pass (a pass that has begun
// always finishes), or until a run that keeps swinging about its center
// gives up at the smallest correction factor (kWeldSettling); the last two
// save state.ResumeCenterX. state.Relaxation and state.Unsettled say how the
// run settled: a run that converges without ever swinging into a cycle
// takes exactly the passes and gives exactly the bits it always has. On a stop, state.ResumeCenterX keeps x of the trial center;
// a later call with state.IterationResume true starts there (with y = 0).
// The caller sets IterationStop false before a run; the solver never resets
// it, so after the call a false IterationStop means the run converged (or,
// with state.Unsettled, gave up) and a true one that it was stopped. DisplayTarget picks the display callback
// (0 capacity, 1 coefficient, other values none); it is called once per pass
// and once more after the loop with the center of the last pass. A load
// through the centroid (zero arm, exactly) is not iterated: the result is
// ConcentricCapacity and the display is called once with (0, 0) and
// computed = false.
//
// A group whose segments could exceed the 16-bit table (32,767 rows) is not
// solved: the result is 0, nothing is displayed, report->Refused is set.
//
// Typical use by a window (the handlers run inside hooks.Yield):
//     state.SegmentsPerInch = ...;          // from WeldStripBox
//     state.IterationStop = 0;              // a run is active
//     state.DisplayTarget = kDisplayCapacity;
//     double unit = Locate_InstantaneousCenter(lines, ex, angle, 1.0, 1.0, 1.0, state, hooks);
//     bool converged = state.IterationStop == 0;
//     state.IterationStop = -1;             // no run active
double Locate_InstantaneousCenter(const WeldLineTable& lines, double ex, double angle,
                                  double Fexx, double D, double divisor, WeldRunState& state,
                                  const WeldRunHooks& hooks, SolveReport* report = nullptr);

// Elapsed seconds as "00h:00m:00s " (each part by the picture "00").
std::string Format_ElapsedTime(double seconds);

// ---- Standard weld configurations -----------------------------------------
//
// Each takes the base length L, the second length kL, the eccentricity aL (as
// a length; its sign is dropped), the load angle in degrees and a selector:
// 0 gives the coefficient C (a solve at Fexx = 70, D = 1/16, shown through the
// hooks), 1 the centroid distance xL, 2 the centroid distance yL, anything
// else 0. The shape is scaled so that its shortest given length is at least
// one inch; C is per inch of scaled base length per sixteenth of weld in E70XX,
// and xL, yL are returned in the units of the given L.

constexpr int16_t kSelectC = 0;
constexpr int16_t kSelectXL = 1;
constexpr int16_t kSelectYL = 2;

// Configuration 1 is Config_TwoVertical with kL = 0 (two coincident lines).
double Config_TwoVertical(double L, double kL, double aL, double Angle, int16_t Selector,
                          WeldRunState& state, const WeldRunHooks& hooks,
                          SolveReport* report = nullptr);
double Config_TwoHorizontal(double L, double kL, double aL, double Angle, int16_t Selector,
                            WeldRunState& state, const WeldRunHooks& hooks,
                            SolveReport* report = nullptr);
double Config_BoxTall(double L, double kL, double aL, double Angle, int16_t Selector,
                      WeldRunState& state, const WeldRunHooks& hooks,
                      SolveReport* report = nullptr);
double Config_BoxWide(double L, double kL, double aL, double Angle, int16_t Selector,
                      WeldRunState& state, const WeldRunHooks& hooks,
                      SolveReport* report = nullptr);
double Config_ChannelLeft(double L, double kL, double aL, double Angle, int16_t Selector,
                          WeldRunState& state, const WeldRunHooks& hooks,
                          SolveReport* report = nullptr);
double Config_ChannelRight(double L, double kL, double aL, double Angle, int16_t Selector,
                           WeldRunState& state, const WeldRunHooks& hooks,
                           SolveReport* report = nullptr);
double Config_AngleLeft(double L, double kL, double aL, double Angle, int16_t Selector,
                        WeldRunState& state, const WeldRunHooks& hooks,
                        SolveReport* report = nullptr);
double Config_AngleRight(double L, double kL, double aL, double Angle, int16_t Selector,
                         WeldRunState& state, const WeldRunHooks& hooks,
                         SolveReport* report = nullptr);

// Configuration 1 to 9 by number, as the coefficient window calls them
// (configuration 1 always with kL = 0). Other numbers give 0 and call nothing.
double Config_ByNumber(int16_t config, double L, double kL, double aL, double Angle,
                       int16_t Selector, WeldRunState& state, const WeldRunHooks& hooks,
                       SolveReport* report = nullptr);

// The line table of configuration 1 to 9 for already scaled lengths (empty
// for other numbers). Used by the procedures above; handy for pictures.
WeldLineTable Config_Lines(int16_t config, double L, double kL);

// Scale of a configuration: its lengths are multiplied by this so that the
// shortest given length is at least one inch (0 when L and kL are both 0).
double Config_Scale(double L, double kL);

// Centroid of a line table by exact line lengths (0 for a table of no length).
double Centroid_X(const WeldLineTable& lines);
double Centroid_Y(const WeldLineTable& lines);
// Height of the table (largest y less smallest y, the smallest starting at 0)
// less the y of its centroid: the centroid measured down from the top.
double Centroid_FromTop(const WeldLineTable& lines);

// Whether the coefficient window shows the word Midpoint in place of xL or yL
// for a configuration (1 to 5 both, 6 and 7 only yL).
bool Centroid_IsMidpointX(int16_t config);
bool Centroid_IsMidpointY(int16_t config);

}  // namespace weld
