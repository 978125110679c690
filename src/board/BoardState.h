// The drawing board's editor: its modes, click counters and pointer state,
// and the procedures the window's events lead to. It owns no widget: it
// paints on a DrawSurface and leaves in `Ui` what the window shows (prompt,
// command box, mode caption, pointer, status panels, check marks), which the
// form copies to its controls after each call.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "board/DrawSurface.h"
#include "board/LayoutRender.h"
#include "board/PublicVariables.h"

namespace BoardState {

using PublicVariables::LayoutDocument;
using PublicVariables::PointRec;

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

// Keys the form passes on from its key preview.
enum Key : int { KeyEscape = 27, KeyDelete = 46, KeyF8 = 119, KeyF9 = 120 };

constexpr const char* kDisabledText = " <CommandLine response disabled>";

// What the window shows of the board's state.
struct BoardUi {
    std::string CommandName;
    bool CommandBoxEnabled = true;
    std::string CommandText;
    int CommandTextSerial = 0;  // grows each time CommandText is set anew
    std::string DumLabel = "   Active Mode:  Free Mode";
    board::Pointer MousePointer = board::Pointer::Default;
    int16_t CheckedMode = NONE;  // the mnuMode entry with the check mark
    bool LoadParamBoxVisible = false;
    bool RotateMarksVisible = false;
    bool MarksVisible = false;  // pick, start, end and mid boxes
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

    // Later tools (selection commands, line data, calculation display) plug
    // in here; an empty hook does nothing.
    struct Hooks {
        std::function<void()> Enter_Calculation;    // builds the calculation display
        std::function<void()> Calculation_Click;    // left click in CALCULATION: places the load
        std::function<void()> DeleteButton_Click;   // Delete in SELECTION
        std::function<void()> Delete_Hover;         // Delete in EDIT
        std::function<void()> Escape_Selection;     // Esc in SELECTION
        // A snap search: true with the snapped point in `out`.
        std::function<bool(float x, float y, int mode, PointRec& out, const PointRec& base)> Snap_Point;
    } hooks;

    // ---- State (the window's fields) ---------------------------------------------
    int16_t ActiveMode = NONE;
    int DrawClick = 0;
    int DimClick = 0;
    bool RotatePending = false;
    int RotateClick = 0;
    bool MovePending = false;
    int MoveClick = 0;
    int SelectKind = 0;
    bool CornerPicked = false;
    bool OrthoMode = false;
    bool PolyMode = false;
    int SnapMode = 0;

    PointRec SnapPt, AnchorPt, CurrentPt, LastPt;
    PointRec PanFrom, ZoomCorner, WindowCorner;
    double PointerX = 0.0, PointerY = 0.0;
    bool TypedPoint = false;
    double TypedX = 0.0, TypedY = 0.0;
    PublicVariables::DimensionRec DimRec;  // the dimension under construction
    Button LastButton = Button::None;
    LayoutRender::PanGhost Ghost;
    bool ZoomBoxShown = false;

    BoardUi Ui;

    // ---- Procedures -----------------------------------------------------------------
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

    void DrawingBoard_MouseDown(Button button, bool shift, double x, double y);
    void DrawingBoard_MouseMove(Button button, bool shift, double x, double y);
    PopUp DrawingBoard_MouseUp(Button button, bool shift, double x, double y);

    // The repaint of the working display (lines, crossings, dimensions).
    void Repaint(bool showSelection = true);
    void RefreshButton_Click();
    // Zoom buttons and the fit: cancel the band, zoom, leave CALCULATION.
    void Zoom_Button(float factor);
    void ZoomExtentButton_Click();
    // Returns to the first state after a document was replaced or emptied.
    void Reset_View();

    LayoutDocument& Doc() { return doc_; }
    board::DrawSurface& Surface() { return surface_; }
    shell::YieldFn Yield;

private:
    void Zoom_Done();
    void Set_Pointer(board::Pointer p);
    void Status_Coordinates(double x, double y);
    void Add_Dimension(double x, double y);
    LayoutDocument& doc_;
    board::DrawSurface& surface_;
};

// Ortho constraint: pulls (x, y) onto the horizontal or vertical through base.
PointRec Ortho_Point(const PointRec& base, double x, double y, bool ortho);

}  // namespace BoardState
