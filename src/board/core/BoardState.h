// The drawing board's editor: the active mode with the pointer state the
// modes share, and the procedures the window's events lead to. It owns no
// widget: it paints on a DrawSurface and leaves in `Ui` what the window
// shows (prompt, command box, mode caption, pointer, status panels, marks,
// check marks), which the window copies to its controls after each call.
//
// Every pointer event, key and typed reply goes to the active mode (see
// modes/BoardMode.h). A typed point is set as TypedX, TypedY with
// TypedPoint true and then handed to the same press or click a pick makes.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "board/core/BoardMessages.h"
#include "board/core/CommandLine.h"
#include "board/core/DrawSurface.h"
#include "board/core/LayoutDocument.h"
#include "board/core/LayoutRender.h"
#include "board/core/SelectionCommands.h"
#include "board/core/UndoHistory.h"
#include "weld/core/WeldSolve.h"
#include "board/core/modes/BoardMode.h"

namespace CalculationView {
struct CalcState;
}

namespace BoardState {

using Layout::LayoutDocument;
using Layout::PointRec;

class SelectionMode;
class CalculationMode;

constexpr const char* kDisabledText = " <CommandLine response disabled>";

// What the window shows of the board's state.
struct BoardUi {
    std::string Prompt;  // the command request
    bool CommandBoxEnabled = true;
    std::string CommandText;
    int CommandTextSerial = 0;      // grows each time CommandText is set anew
    bool CommandFocus = false;      // the box asks for the focus (cleared by the window)
    bool CommandSelectAll = false;  // ... with its whole text selected
    std::string ModeCaption = "   Active Mode:  Free Mode";
    board::Pointer MousePointer = board::Pointer::Default;
    int16_t CheckedMode = NONE;  // the mnuMode entry with the check mark
    bool LoadParamBoxVisible = false;
    board::BoardMarks Marks;
    std::string CoordinateStatus;  // the pointer's world position
    std::string FindingStatus;     // the snap point or the line the pointer found
    bool OrthoBox = false;
    bool PolyBox = false;
};

class Board {
public:
    Board(LayoutDocument& doc, board::DrawSurface& surface);
    ~Board();
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    // What the board asks of its window; an empty hook does nothing.
    struct Hooks {
        // A message box; for a question, true means Yes. Empty: no message, answer No.
        std::function<bool(const BoardMessages::BoardMessage&)> Show_Message;
        // The line data dialog, modal, on the row with this index.
        std::function<void(int16_t index)> Show_LineData;
    } hooks;

    // ---- Modes and keys -------------------------------------------------------------
    const BoardMode& Mode() const { return *active_; }
    void Set_Mode(int16_t index);
    void Show_Prompt();
    void Cancel_Band();
    void Hide_Rotate_Marks();
    void Hide_Marks();
    // True when the key was handled.
    bool Form_KeyDown(Key key);
    void OrthoBox_Click(bool checked);
    void PolyBox_Click(bool checked);
    void SnapButton_Click(int index);

    // ---- The five board events --------------------------------------------------------
    void DrawingBoard_MouseDown(Button button, bool shift, double x, double y);
    void DrawingBoard_MouseMove(Button button, bool shift, double x, double y);
    PopUp DrawingBoard_MouseUp(Button button, bool shift, double x, double y);
    void DrawingBoard_Click();
    void DrawingBoard_DblClick();

    // Enter and Esc in the command box, which holds `text`.
    void CommandBox_KeyDown(Key key, const std::string& text);

    // ---- Edit commands ----------------------------------------------------------------
    void MoveButton_Click();
    void RotateButton_Click();
    void DeleteButton_Click();
    void ClearButton_Click();
    void ClearDimButton_Click();

    // ---- The view ---------------------------------------------------------------------
    // The repaint of the working display (lines, crossings, dimensions).
    void Repaint(bool showSelection = true);
    void RefreshButton_Click();
    // Zoom buttons and the fit: cancel the band, zoom, leave CALCULATION.
    void Zoom_Button(float factor);
    void ZoomExtentButton_Click();
    // The surface took a new size: the document follows it, an empty board
    // keeps world zero on its lower edge, and the board is drawn anew.
    void Surface_Resized();
    // A document was read into the board: DRAW and the working display.
    void Show_Document();
    // Returns to the first state after a document was replaced or emptied.
    void Reset_View();
    // The grips on the ends and the middle of a line (the line data dialog's).
    void Show_Grips(const Layout::LineRec& line);

    // ---- The load panel of CALCULATION --------------------------------------------------
    // The texts the panel's boxes show.
    const CalculationView::CalcState& Load_Inputs() const;
    // A typed eccentricity or angle applied to the load, the symbol drawn
    // anew in CALCULATION. False, with nothing changed, when it is no value.
    bool Apply_Eccentricity(const std::string& text);
    bool Apply_Rotation(const std::string& text);

    // ---- Undo and redo --------------------------------------------------------------------
    // Every event that may change the layout runs inside a step; the step is
    // recorded when no command is under way any more, under the name the
    // command gave it (or, for a draw or a dimension, of the mode).
    Undo::History History;
    // Undo: a command under way is given up and nothing else happens;
    // otherwise the last step is taken back, the selection cleared and the
    // board drawn anew. Redo makes the step again. True when the layout changed.
    bool Undo_Step();
    bool Redo_Step();
    // Names the step under way: `verb` alone, or with `countLines` followed by
    // the number of lines it touched ("Move 3 Lines").
    void Name_Step(const std::string& verb, bool countLines);
    // The window changed the layout outside the board (a document read in, an
    // import); `Begin_Change` and `End_Change` bracket it as one step.
    void Begin_Change();
    void End_Change(const std::string& name, bool countLines = false);
    // ---- The results of the last capacity run ----------------------------------------------
    // Keeps a run of the board's group under its load (weld::Layout_Group)
    // and draws it over the calculation display; "Show Results" turns that off.
    void Show_Results(const weld::SolveResult& run, const weld::LoadedGroup& group);
    void Set_Show_Results(bool on);
    // The kept run's record (capacity and forces in kips) while the layout
    // and load are still the run's; null otherwise.
    const weld::SolveResult* Layout_Results() const;

    LayoutDocument& Doc() { return doc_; }
    board::DrawSurface& Surface() { return surface_; }
    // Lets window events run inside a long crossing search (the one loop of
    // the board that can grow with the square of the lines); a change of the
    // drawing that comes in starts a search of its own and ends that one.
    shell::YieldFn Yield;

    // ---- State the modes share ---------------------------------------------------------
    // The selection commands: box kind, corner, the pending rotate and move
    // with their points. A pending command lives on across modes.
    Selection::SelectionState Sel;
    bool OrthoMode = false;
    bool PolyMode = false;
    int SnapMode = 0;

    PointRec SnapPt;     // the pointer after the last snap search
    PointRec CurrentPt;  // the moving end of a band or box
    double PointerX = 0.0, PointerY = 0.0;
    bool TypedPoint = false;  // true only while a typed point is handed to a press or click
    double TypedX = 0.0, TypedY = 0.0;
    CommandLine::EchoState Echo;  // LastPt and the echoed direction
    Layout::HoverRec HoverLine, PrevHover;
    bool HoverShown = false;  // the hovered line is painted lit
    Button LastButton = Button::None;
    bool SelectBoxShown = false;  // a selection box stands on the picture
    bool MoveBandShown = false;   // the band of a pending move stands on the picture

    BoardUi Ui;

    // ---- What the modes use -------------------------------------------------------------
    void Set_Pointer(board::Pointer p);
    void Set_CommandText(const std::string& text);
    void Show_Echo(const CommandLine::EchoResult& e);
    // One snap search at the pointer; on a hit (x, y) move to the snapped point.
    bool Snap(int mode, const PointRec& base, double& x, double& y);
    void Snap_Feedback(bool found, double x, double y);
    void Draw_Move_Band();
    void Erase_Move_Band();
    void Erase_Select_Box();
    // Shows the outcome of a reply; a typed point is set and handed to
    // `pick`, the press or click a pointer pick makes.
    void Apply_Reply(const CommandLine::ReplyResult& r, void (Board::*pick)());
    void Press_Typed();  // the left press a typed point stands for
    // The hooks of the selection commands, built once.
    const Selection::EditHooks& Edit_Hooks() const { return editHooks_; }

private:
    friend class StepScope;
    friend class ViewScope;
    bool Views_Only() const;
    void Open_Step();
    void Close_Step(bool force);
    void After_History();

    void Status_Coordinates(double x, double y);
    void Drop_Pointer_Feedback();
    void Build_Edit_Hooks();
    void Zoom_Done();

    LayoutDocument& doc_;
    board::DrawSurface& surface_;
    Selection::EditHooks editHooks_;
    std::unique_ptr<BoardMode> free_;  // before the first mode is set
    std::array<std::unique_ptr<BoardMode>, 7> modes_;
    SelectionMode* selection_ = nullptr;
    CalculationMode* calculation_ = nullptr;
    BoardMode* active_ = nullptr;
    int stepDepth_ = 0;  // events nested in the one that opened the step
    std::string stepVerb_;
    bool stepCountLines_ = false;
    bool stepNamed_ = false;
};

}  // namespace BoardState
