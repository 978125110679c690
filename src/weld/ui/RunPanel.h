// The window side of run control, shared by the two weld windows: the three
// run buttons with their handlers, the display of the passes, the elapsed
// caption and the result box, and the state a run touches. A window owns one
// WeldRunPanel and only supplies what differs: the run itself and how its own
// inputs follow the run state.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "shell/ui/RunPump.h"
#include "weld/core/RunControl.h"
#include "weld/core/WeldSolve.h"

class QCloseEvent;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QWidget;
namespace shell {
class ModelCheckLine;
}

// What a run touches, owned jointly by the window and the run on the stack,
// so that a window deleted during a run leaves the run something valid to
// finish its pass on.
struct WeldRunContext {
    explicit WeldRunContext(QWidget* window) : guard(window) {}
    weld::WeldRunState run;
    RunControl::DisplayBuffer display;
    shell::ThrottledPump pump;
    bool windowGone = false;
    // Handlers of the window on the stack; a close waits for them.
    shell::RunGuard guard;
};

namespace weldview {
// One of the core's text constants as window text.
inline QString FromView(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<int>(s.size())); }
// A caption label in the bold of the weld windows.
QLabel* BoldCaption(const QString& text, QWidget* parent);
}  // namespace weldview

// The result box: black, or red for a stopped run.
void SetResultBox(QLineEdit* box, const QString& text, bool red);

class WeldRunPanel {
public:
    // What the window adds: Run carries out one run (a start or a resume),
    // ApplyControls copies the run state to all of the window's controls
    // (it calls ApplyButtons for the three run buttons).
    struct Hooks {
        std::function<void()> Run;
        std::function<void()> ApplyControls;
    };

    // `clearEmptiesElapsed`: Clear Display also empties the elapsed caption.
    WeldRunPanel(QWidget* window, RunControl::RunWindow kind, bool clearEmptiesElapsed);
    // A run still on the stack ends after its pass and shows nothing more.
    ~WeldRunPanel();
    WeldRunPanel(const WeldRunPanel&) = delete;
    WeldRunPanel& operator=(const WeldRunPanel&) = delete;

    // Creates the buttons, the display, the elapsed label and the result box
    // (in this order, which is their tab order) as children of the window, and
    // connects the buttons. The result font is the window's, bold and scaled;
    // the box is wide enough for `widestResult`.
    void BuildControls(Hooks hooks, qreal resultScale, const QString& widestResult);

    QPushButton* StartButton() const { return start_; }
    QPushButton* StopButton() const { return stop_; }
    QPushButton* ClearButton() const { return clear_; }
    QPlainTextEdit* DisplayBox() const { return display_; }
    QLabel* Elapsed() const { return elapsed_; }
    QLineEdit* Result() const { return result_; }
    // The element model's value for the same case, under the result.
    shell::ModelCheckLine* Check() const { return check_; }

    RunControl::Control& Control() { return control_; }
    bool Active() const { return RunControl::Control::Active(ctx_->run); }

    // Captions and enabled states of the three buttons.
    void ApplyButtons();

    // The button handlers.
    void StartClick();
    void StopClick();
    void ClearClick();

    // Empties the display and its buffer.
    void ClearDisplay();
    // Moves the buffered text to the display and the elapsed caption to its label.
    void Flush();

    // Marks the run active and empties the display, the result and the
    // elapsed caption.
    void BeginRun();

    // Runs `solve` with the display flushed whenever events are served.
    // Returns nothing when the window went during the run (nothing may then
    // be touched); otherwise the window closes the run with EndRun.
    using SolveFn = std::function<weld::SolveResult(weld::WeldRunState&, const weld::WeldRunHooks&)>;
    std::optional<weld::SolveResult> Run(const SolveFn& solve);
    // The end of a run: its closing words, the result `shown` and the run
    // state. Returns how it ended (the window cross-checks a converged value).
    RunControl::RunEnding EndRun(const weld::SolveResult& result, double shown);

    // The closing question while a run is active: false keeps the window
    // open; true stops the run (it ends after its pass).
    bool ConfirmClose();
    // For closeEvent: true while a handler is on the stack (the window goes
    // once it has returned).
    bool DeferClose(QCloseEvent* event);

private:
    QWidget* window_;
    bool clearEmptiesElapsed_;
    Hooks hooks_;
    std::shared_ptr<WeldRunContext> ctx_;
    RunControl::Control control_;

    QPushButton* start_ = nullptr;
    QPushButton* stop_ = nullptr;
    QPushButton* clear_ = nullptr;
    QPlainTextEdit* display_ = nullptr;
    QLabel* elapsed_ = nullptr;
    QLineEdit* result_ = nullptr;
    shell::ModelCheckLine* check_ = nullptr;
};
