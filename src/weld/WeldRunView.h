// What the two weld windows share around a run: the state a run touches
// (owned jointly by the window and the run on the stack, so that a window
// deleted during a run leaves the run something valid to finish its pass on),
// the hooks that buffer each pass, and copying the run control and the
// buffered text to the widgets.
#pragma once

#include <memory>

#include "shell/RunPump.h"
#include "weld/RunControl.h"
#include "weld/WeldFunctions.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QWidget;

struct WeldRunContext {
    explicit WeldRunContext(QWidget* window) : guard(window) {}
    WeldFunctions::WeldRunState run;
    RunControl::DisplayBuffer display;
    shell::ThrottledPump pump;
    bool windowGone = false;
    // Handlers of the window on the stack; a close waits for them.
    shell::RunGuard guard;
};

// The run's hooks: events served through the context's pump, each pass
// written to the context's display buffer.
WeldFunctions::WeldRunHooks WeldRunHooksOf(WeldRunContext& ctx);

// Ends what a window does for its run when it is deleted: the run stops
// after its pass and shows nothing more.
void WeldRunWindowGone(WeldRunContext& ctx);

// Moves the buffered text to the display and the elapsed caption to its label.
void FlushDisplay(RunControl::DisplayBuffer& display, QPlainTextEdit* box, QLabel* elapsed);

// Captions and enabled states of the three buttons.
void ApplyRunButtons(const RunControl::Controls& c, QPushButton* start, QPushButton* stop, QPushButton* clear);

// The result box: black, or red for a stopped run.
void SetResultBox(QLineEdit* box, const QString& text, bool red);

// The display of the passes, read-only, in a fixed-pitch font.
QPlainTextEdit* NewIterationDisplay(QWidget* parent);
