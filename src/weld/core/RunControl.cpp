#include "weld/core/RunControl.h"

#include <cstdlib>

#include "shell/core/GuardedMath.h"
#include "shell/core/Primitives.h"

namespace RunControl {

namespace {
constexpr std::string_view kLineBreak = "\r\n";
constexpr int64_t kClearEverySeconds = 10;
}  // namespace

std::string_view StartCaption(RunWindow window) {
    return window == RunWindow::Capacity ? "ReStart Iteration" : "Start Iteration";
}

void Control::Activate() {
    controls_.StopCaption = kStopCaption;
    controls_.StopEnabled = false;
    controls_.StartEnabled = true;
}

void Control::BeginStart(WeldRunState& run) {
    run.IterationResume = false;
    controls_.ClearEnabled = false;
    controls_.InputsLocked = true;
    controls_.StopEnabled = true;
    controls_.SizesLocked = window_ == RunWindow::Capacity;
    controls_.StopCaption = kStopCaption;
    controls_.StartEnabled = false;
}

void Control::EndStart() {
    controls_.ClearEnabled = true;
    controls_.InputsLocked = false;
    controls_.SizesLocked = false;
    controls_.StartEnabled = true;
}

StopAction Control::StopClick(WeldRunState& run) {
    if (controls_.StopCaption == kResumeCaption) {
        controls_.StopCaption = kStopCaption;
        controls_.StopEnabled = true;
        run.IterationResume = true;
        run.IterationStop = false;
        controls_.ClearEnabled = false;
        controls_.InputsLocked = true;
        controls_.StartEnabled = false;
        return StopAction::Resume;
    }
    controls_.StopCaption = kResumeCaption;
    run.IterationResume = false;
    run.IterationStop = true;
    controls_.ClearEnabled = true;
    controls_.InputsLocked = false;
    controls_.StopEnabled = true;
    return StopAction::Stopped;
}

// The electrode and size boxes are left as they are: a resumed run lets them
// be changed, which then gives up any later resume.
void Control::EndResume() {
    controls_.ClearEnabled = true;
    controls_.InputsLocked = false;
    controls_.StartEnabled = true;
}

void Control::ClearDisplay(WeldRunState& run) {
    run.IterationResume = false;
    controls_.StopCaption = kStopCaption;
    controls_.StopEnabled = false;
}

void Control::SizeChanged() {
    controls_.StopCaption = kStopCaption;
    controls_.StopEnabled = false;
    controls_.StartEnabled = true;
}

void Control::RunEnded(bool converged) { controls_.StopEnabled = !converged; }

std::string ClosingText(bool converged) {
    if (converged)
        return "\r\r ** Instantaneous Center LOCATED !\r\r Reference: AISC Steel Construction\r\n"
               "            Manual, 13th Edition";
    return "\r\r ** Iteration ABORTED !\r\r Reference: AISC Construction Manual\r\n"
           "            13th Edition";
}

std::string SettlingText(double relaxation, bool unsettled) {
    if (!unsettled && relaxation >= 1.0) return {};
    // The factor is a power of one half: name it as 1/2, 1/4 ...
    const std::string step = "1/" + prim::Format(relaxation > 0.0 ? 1.0 / relaxation : 0.0, "0");
    if (unsettled)
        return "\r\r Center kept oscillating with the correction step at " + step +
               ": no convergence. Use the AISC element model.";
    return "\r\r Center oscillated: correction step relaxed to " + step;
}

std::string ElementClosingText(ElementOutcome outcome) {
    switch (outcome) {
        case ElementOutcome::Found:
            return "\r\r ** Equilibrium FOUND by the AISC element model !\r\r Reference: AISC Steel "
                   "Construction\r\n            Manual, 13th Edition";
        case ElementOutcome::NoEquilibrium:
            return "\r\r ** AISC element model: no equilibrium for this load !";
        case ElementOutcome::Refused:
        default:
            return "\r\r ** AISC element model: nothing to solve (no weld, or too many elements) !";
    }
}

RunEnding EndingOf(const weld::SolveResult& r) {
    RunEnding e;
    if (r.Model == shell::SolverModel::AiscElement) {
        const ElementOutcome outcome = r.Refused     ? ElementOutcome::Refused
                                       : r.Converged ? ElementOutcome::Found
                                                     : ElementOutcome::NoEquilibrium;
        e.Text = ElementClosingText(outcome);
        e.Converged = e.ShowsValue = outcome == ElementOutcome::Found;
        return e;
    }
    // A run that gave up swinging ends like a stopped one, but cannot be resumed.
    e.Converged = !r.Stopped && !r.Unsettled;
    e.Text = SettlingText(r.Relaxation, r.Unsettled) + ClosingText(e.Converged);
    e.ShowsValue = true;
    e.Resumable = !e.Converged && !r.Unsettled;
    return e;
}

std::string ResultText(double value, bool converged) {
    const std::string text = prim::Format(value, "0.00000  ");
    return converged ? text : "** " + text;
}

void DisplayBuffer::Clear() {
    Pending.clear();
    ReplaceAll = true;
    HasText = false;
}

void DisplayBuffer::Append(std::string_view text) {
    Pending.append(text);
    if (!HasText && !prim::Trim(text).empty()) HasText = true;
}

void DisplayBuffer::Replace(std::string_view text) {
    Clear();
    Append(text);
}

int64_t WholeSecondsBetween(Clock::time_point from, Clock::time_point to) {
    using std::chrono::floor;
    using std::chrono::seconds;
    return (floor<seconds>(to) - floor<seconds>(from)).count();
}

namespace {

// A coordinate of the display: nine decimals, a blank in front of a value
// that is not negative so that both signs line up.
void AppendCoordinate(std::string& out, double value, double divisor) {
    double shown = 0.0;
    if (!guarded::Divide(value, divisor, shown)) return;
    out += prim::Format(shown, prim::Sgn(shown) != -1 ? " 0.000000000" : "0.000000000");
}

}  // namespace

void Display_Iteration(WeldRunState& run, DisplayBuffer& display, double x, double y,
                       double divisor, bool computed, Clock::time_point now) {
    run.ElapsedSeconds =
        static_cast<double>(std::llabs(WholeSecondsBetween(run.IterationStartTime, now)));
    if (WholeSecondsBetween(run.DisplayClearTime, now) >= kClearEverySeconds) {
        ++run.DisplayClearCount;
        run.DisplayClearTime = now;
        display.Replace("**Previous Iteration DELETED...[" + std::to_string(run.DisplayClearCount) +
                        "]\r\n[Iteration Display is cleared every\r\n10 sec to maintain iteration speed]");
    }
    std::string text;
    if (display.HasText) {
        text += kLineBreak;
        text += kLineBreak;
    }
    text += "Iterating Instantaneous Center:\r\n";
    if (computed) {
        text += " : xRo  = ";
        AppendCoordinate(text, x, divisor);
        text += kLineBreak;
        text += " : yRo  = ";
        AppendCoordinate(text, y, divisor);
    } else {
        text += " : xRo  = [Calculation skipped]\r\n : yRo  = [Calculation skipped]";
    }
    display.Append(text);
    display.ElapsedCaption =
        "Iteration Elapsed Time  \xC2\xBB   " + weld::Format_ElapsedTime(run.ElapsedSeconds);
    display.ElapsedChanged = true;
}

std::string ForWidget(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            out += '\n';
            if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace RunControl
