// One mode of the drawing board: what a pointer event, a key and a typed
// reply mean while it is active, and the prompt it shows. The board holds
// one object per mode and hands every event to the active one; a typed
// point is set on the board and then goes through the same press or click
// a pointer pick makes.
#pragma once

#include <cstdint>
#include <string>

namespace BoardState {

class Board;

// Modes by the index of their button on the mode bar.
enum ModeIndex : int16_t {
    NONE = 0,
    DRAW = 2,
    SELECTION = 4,
    DIMENSION = 6,
    EDIT = 8,
    PAN = 10,
    ZOOM = 12,
    CALCULATION = 14,
};

enum class Button { None, Left, Right, Middle };

// The keys of the board: the form's key preview and the command box.
enum class Key { Enter, Escape, Delete, F8, F9 };

// What a pointer release asks the window to do besides repainting.
enum class PopUp { None, Osnap, Selection };

// The command request and whether the command box takes a reply.
struct PromptLine {
    std::string Text;
    bool Replies = false;
};

class BoardMode {
public:
    BoardMode(Board& board, int16_t index, const char* name) : board_(board), index_(index), name_(name) {}
    virtual ~BoardMode() = default;
    BoardMode(const BoardMode&) = delete;
    BoardMode& operator=(const BoardMode&) = delete;

    int16_t Index() const { return index_; }
    // Its words in the mode caption ("DRAW MODE").
    const char* Name() const { return name_; }

    // `again` when the mode was active already.
    virtual void Enter(bool again) = 0;
    virtual void Leave(bool /*again*/) {}

    // Pointer events in board units. Move may pull (x, y) onto a snap point
    // or the ortho axis; the board then takes the pointer from there.
    virtual void Press(Button /*button*/, bool /*shift*/, double /*x*/, double /*y*/) {}
    virtual void Move(Button /*held*/, double& /*x*/, double& /*y*/) {}
    virtual PopUp Release(Button /*button*/, bool /*shift*/, double /*x*/, double /*y*/) { return PopUp::None; }
    // A left click where the press was, or a typed point handed over as one.
    virtual void Click() {}
    virtual void DoubleClick() {}

    // Enter or Esc in the command box, which holds `text`.
    virtual void Reply(Key /*key*/, const std::string& /*text*/) {}
    virtual PromptLine Prompt() const = 0;
    // Ends a command in progress: its rubber band goes and its clicks start again.
    virtual void Cancel() {}
    // A command is under way: a band or a box follows the pointer, or a
    // command waits for its next point. The step it makes is recorded when
    // it ends.
    virtual bool Busy() const { return false; }
    // Undo pressed while the mode is busy: the command in progress is given
    // up, as Esc gives it up.
    virtual void Abandon() { Cancel(); }
    // Esc and Delete from the form's key preview.
    virtual void KeyDown(Key /*key*/) {}

    // The board drawn anew after a Refresh or a change of its size.
    virtual void Redisplay();
    // The working display was zoomed by a zoom button or the fit.
    virtual void Zoomed() {}
    // The load's eccentricity or angle was changed in the load panel.
    virtual void Load_Changed() {}
    // The mode picks lines into the selection: it keeps the selection when
    // entered, and the pointer finds lines with a wider reach.
    virtual bool Selects() const { return false; }
    // False while the board shows the calculation display in place of the
    // working display: Delete All then returns to DRAW, Clear Dimensions
    // repaints nothing.
    virtual bool ShowsWorkingDisplay() const { return true; }

protected:
    Board& board_;

private:
    int16_t index_;
    const char* name_;
};

}  // namespace BoardState
