// The drawing board's editor: its modes, click counters and pointer state,
// and the procedures the window's events lead to. It owns no widget: it
// paints on a DrawSurface and leaves in `Ui` what the window shows (prompt,
// command box, mode caption, pointer, status panels, marks, check marks),
// which the form copies to its controls after each call.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "board/core/BoardMessages.h"
#include "board/core/CommandLine.h"
#include "board/core/DrawSurface.h"
#include "board/core/LayoutRender.h"
#include "board/core/LayoutDocument.h"
#include "board/core/SelectionCommands.h"

namespace BoardState {

using Layout::LayoutDocument;
using Layout::PointRec;

// Modes by the index of their button on the mode bar.
enum Mode : int16_t {
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

// Keys the form passes on from its key preview and from the command box.
enum Key : int { KeyEnter = 13, KeyEscape = 27, KeyDelete = 46, KeyF8 = 119, KeyF9 = 120 };

constexpr const char* kDisabledText = " <CommandLine response disabled>";

// What the window shows of the board's state.
struct BoardUi {
    std::string CommandName;
    bool CommandBoxEnabled = true;
    std::string CommandText;
    int CommandTextSerial = 0;      // grows each time CommandText is set anew
    bool CommandFocus = false;      // the box asks for the focus (cleared by the window)
    bool CommandSelectAll = false;  // ... with its whole text selected
    std::string DumLabel = "   Active Mode:  Free Mode";
    board::Pointer MousePointer = board::Pointer::Default;
    int16_t CheckedMode = NONE;  // the mnuMode entry with the check mark
    bool LoadParamBoxVisible = false;
    board::BoardMarks Marks;
    std::string StatusPanel1;
    std::string StatusPanel2;
    bool OrthoBox = false;
    bool PolyBox = false;
};

// What a pointer release asks the window to do besides repainting.
enum class PopUp { None, Osnap, Selection };

class Board {
public:
    Board(LayoutDocument& doc, board::DrawSurface& surface);

    // What the board asks of its window; an empty hook does nothing.
    struct Hooks {
        std::function<void()> Enter_Calculation;  // builds the calculation display
        std::function<void()> Calculation_Click;  // left click in CALCULATION: places the load
        // A message box; for a question, true means Yes. Empty: no message, answer No.
        std::function<bool(const BoardMessages::BoardMessage&)> Show_Message;
        // The line data dialog, modal, on the row with this index.
        std::function<void(int16_t index)> Show_LineData;
    } hooks;

    // ---- State (the window's fields) ---------------------------------------------
    int16_t ActiveMode = NONE;
    int DrawClick = 0;
    int DimClick = 0;
    // SelectKind, CornerPicked, the pending rotate and move with their points.
    Selection::SelectionState Sel;
    bool OrthoMode = false;
    bool PolyMode = false;
    int SnapMode = 0;

    PointRec SnapPt, AnchorPt, CurrentPt;
    PointRec PanFrom, ZoomCorner;
    double PointerX = 0.0, PointerY = 0.0;
    bool TypedPoint = false;
    double TypedX = 0.0, TypedY = 0.0;
    CommandLine::EchoState Echo;  // LastPt and the echoed direction
    Layout::HoverRec HoverLine, PrevHover;
    int16_t HoverDrawn = 0;
    Layout::DimensionRec DimRec;  // the dimension under construction
    Button LastButton = Button::None;
    LayoutRender::PanGhost Ghost;
    bool ZoomBoxShown = false;
    bool SelectBoxShown = false;  // a selection box stands on the picture
    bool MoveBandShown = false;   // the band of a pending move stands on the picture

    BoardUi Ui;

    // ---- Modes and keys -------------------------------------------------------------
    void Set_Mode(int16_t index);
    void Show_Prompt();
    void Cancel_Band();
    void Hide_Rotate_Marks();
    void Hide_Marks();
    // True when the key was handled.
    bool Form_KeyDown(int key);
    void OrthoBox_Click(bool checked);
    void PolyBox_Click(bool checked);
    void SnapButton_Click(int index);

    // ---- The five board events --------------------------------------------------------
    void DrawingBoard_MouseDown(Button button, bool shift, double x, double y);
    void DrawingBoard_MouseMove(Button button, bool shift, double x, double y);
    PopUp DrawingBoard_MouseUp(Button button, bool shift, double x, double y);
    void DrawingBoard_Click();
    void DrawingBoard_DblClick();

    // ---- Command line ---------------------------------------------------------------
    // Enter and Esc in the command box, which holds `text`.
    void CommandBox_KeyDown(int key, const std::string& text);

    // ---- Edit commands ----------------------------------------------------------------
    void MoveButton_Click();
    void RotateButton_Click();
    void DeleteButton_Click();
    void ClearButton_Click();
    void ClearDimButton_Click();

    // The repaint of the working display (lines, crossings, dimensions).
    void Repaint(bool showSelection = true);
    void RefreshButton_Click();
    // Zoom buttons and the fit: cancel the band, zoom, leave CALCULATION.
    void Zoom_Button(float factor);
    void ZoomExtentButton_Click();
    // Returns to the first state after a document was replaced or emptied.
    void Reset_View();
    // The grips on the ends and the middle of a line (the line data dialog's).
    void Show_Grips(const Layout::LineRec& line);

    LayoutDocument& Doc() { return doc_; }
    board::DrawSurface& Surface() { return surface_; }
    // Lets window events run inside a long crossing search (the one loop of
    // the board that can grow with the square of the lines); a change of the
    // drawing that comes in starts a search of its own and ends that one.
    shell::YieldFn Yield;

private:
    void Zoom_Done();
    void Set_Pointer(board::Pointer p);
    void Renew_Pointer();
    void Status_Coordinates(double x, double y);
    void Add_Dimension(double x, double y);
    void Selection_Click();
    void Set_CommandText(const std::string& text);
    void Show_Echo(const CommandLine::EchoResult& e);
    bool Snap(int mode, const PointRec& base, double& x, double& y);
    void Snap_Feedback(bool found, double x, double y);
    void Hover_Feedback();
    void Drop_Pointer_Feedback();
    void Draw_Move_Band();
    void Erase_Move_Band();
    void Erase_Select_Box();
    // Hands a typed point to a click procedure; shows the outcome of a reply.
    void Apply_Reply(const CommandLine::ReplyResult& r, const std::function<void()>& click);
    void Reply_Draw(const std::string& text);
    void Reply_Move(const std::string& text);
    void Reply_Rotate(const std::string& text);
    void Reply_Select(const std::string& text);
    Selection::EditHooks Edit_Hooks();
    LayoutDocument& doc_;
    board::DrawSurface& surface_;
};

}  // namespace BoardState
