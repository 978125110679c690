// Run control of the weld windows (the capacity window and the coefficient
// window): which buttons are enabled, the caption of the stop button, which
// inputs are locked, what Start, Stop/Resume and Clear Display do to the run
// flags, the text of each pass and the closing words of a run.
//
// The windows copy Controls to their widgets after every step; the run itself
// lives on the stack of the handler that started it, and the only signal into
// it is WeldRunState::IterationStop, read at the head of a pass.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "weld/core/WeldSolve.h"

namespace RunControl {

using weld::WeldRunState;

constexpr std::string_view kStopCaption = "Stop Iteration";
constexpr std::string_view kResumeCaption = "Resume Iteration";
constexpr std::string_view kClearCaption = "Clear Display";
constexpr std::string_view kActiveRunQuestion =
    "Iteration is Active. Do you wish to Terminate the process? ";

// The two windows differ in the start button's caption, in whether the
// window starts a run when it is activated and in the inputs it locks.
enum class RunWindow { Capacity, Coefficient };

// Start button caption of a window: "ReStart Iteration" or "Start Iteration".
std::string_view StartCaption(RunWindow window);

// What the widgets show. InputsLocked covers WeldStripBox (and, in the
// coefficient window, WeldFlex and WeldView); SizesLocked covers ElectrodeBox
// and SizeBox of the capacity window.
struct Controls {
    std::string StopCaption{kStopCaption};
    bool StopEnabled = false;
    bool StartEnabled = true;
    bool ClearEnabled = true;
    bool InputsLocked = false;
    bool SizesLocked = false;
};

// What a click on the stop button asks the window to do next.
enum class StopAction { Stopped, Resume };

// The state of one window: its controls and the flags it shares with the run.
class Control {
public:
    explicit Control(RunWindow window) : window_(window) {}

    RunWindow Window() const { return window_; }
    const Controls& State() const { return controls_; }

    // Reset on activation: stop button "Stop Iteration" and disabled, start
    // enabled. The capacity window then calls BeginStart and runs.
    void Activate();

    // StartIterationButton_Click, around the run: BeginStart before it,
    // EndStart after it has returned.
    void BeginStart(WeldRunState& run);
    void EndStart();

    // StopIterationButton_Click. With the caption "Resume Iteration" the
    // flags are set for a resume and Resume is returned: the window then runs
    // and calls EndResume. Otherwise the run is asked to stop (it ends after
    // its current pass) and Stopped is returned.
    StopAction StopClick(WeldRunState& run);
    void EndResume();

    // ClearDisplayButton_Click: gives up the resume.
    void ClearDisplay(WeldRunState& run);

    // Electrode or size changed: the value is rescaled and a stopped run can
    // no longer be resumed.
    void SizeChanged();

    // The end of a run: a converged run disables the stop button, a stopped
    // one leaves it enabled so that it can be resumed.
    void RunEnded(bool converged);

    // Whether a run is active (closing the window must ask first).
    static bool Active(const WeldRunState& run) { return !run.IterationStop; }

private:
    RunWindow window_;
    Controls controls_;
};

// ---- Texts of a run -----------------------------------------------------

// Words appended to the display when a run ends, and the text of CBox (the
// value with five decimals and two blanks, "** " before it when stopped).
std::string ClosingText(bool converged);
std::string ResultText(double value, bool converged);

// The line a run of passes shows before its closing words when it had to
// relax its center correction, or gave up at the smallest step: empty for
// a run that never swung about its center.
std::string SettlingText(double relaxation, bool unsettled);

// Closing words of a run by the AISC element model, which always ends by
// itself: an equilibrium found, none found for this load, or nothing to
// solve. The model is named so that the result is never taken for the
// program's own iteration.
enum class ElementOutcome { Found, NoEquilibrium, Refused };
std::string ElementClosingText(ElementOutcome outcome);

// How a window ends a run, from the record of its solve.
struct RunEnding {
    std::string Text;         // appended to the display: how it settled and the closing words
    bool Converged = false;   // the value holds (the iteration neither stopped nor gave up)
    bool ShowsValue = false;  // the result box shows the value (red and starred unless converged)
    bool Resumable = false;   // the stop button stays enabled to resume the run
};
RunEnding EndingOf(const weld::SolveResult& result);

// The display of a run, buffered: every pass appends to Pending, and the
// window moves Pending to its widget when it serves events (Flush). After a
// periodic clearing, ReplaceAll says that the widget's text goes first.
struct DisplayBuffer {
    std::string Pending;
    bool ReplaceAll = false;
    // Whether the display holds anything but blanks (widget and Pending).
    bool HasText = false;
    std::string ElapsedCaption;  // caption of ElapsedIndicator
    bool ElapsedChanged = false;

    void Clear();
    void Append(std::string_view text);
    void Replace(std::string_view text);
};

using Clock = WeldRunState::Clock;

// Whole seconds between two times, as a count of second boundaries crossed.
int64_t WholeSecondsBetween(Clock::time_point from, Clock::time_point to);

// One pass of text (Display_IterationCapacity, and the coefficient window's
// display with computed = true): elapsed time, the clearing every 10 s, the
// heading and the two coordinates divided by the divisor.
void Display_Iteration(WeldRunState& run, DisplayBuffer& display, double x, double y,
                       double divisor, bool computed, Clock::time_point now);

// The display text as the widget shows it: a carriage return with or
// without a line feed is one line break.
std::string ForWidget(std::string_view text);

}  // namespace RunControl
