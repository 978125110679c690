// Selection of lines and the edit commands of the board: pick toggling, box
// selection by window, crossing and removal, select all, Move, Rotate, Delete
// Selection, Delete All, Clear Dimensions and the Delete key in EDIT.
//
// The procedures change the document and the small command state below; what
// they show (painting, prompt, pointer, marks, message boxes) goes through
// EditHooks, which the board fills. A hook left empty does nothing, and an
// empty question hook answers No.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "board/core/BoardMessages.h"
#include "board/core/Viewport.h"

namespace Selection {

using Viewport::RepaintHooks;
using Layout::HoverRec;
using Layout::LayoutDocument;
using Layout::LineRec;
using Layout::LineTable;
using Layout::PointRec;

// Colors of the standard 16-color table used for lines.
constexpr int16_t kColorUnselected = 5;
constexpr int16_t kColorSelected = 13;

// SelectKind values.
namespace Kind {
constexpr int16_t Pick = 0;
constexpr int16_t Window = 1;
constexpr int16_t Crossing = 2;
constexpr int16_t Remove = 3;
constexpr int16_t All = 4;
}  // namespace Kind

// Hover reach: SELECTION picks with a wider zone than the other modes.
constexpr float kHoverToleranceSelection = 0.0025f;
constexpr float kHoverTolerance = 0.001f;

// The command state of SELECTION. The board's state holds one of these.
struct SelectionState {
    int16_t SelectKind = Kind::Pick;
    bool CornerPicked = false;  // the first corner of a box is down
    bool RotatePending = false;
    int16_t RotateClick = 0;  // 0 waiting for the base point, 1 for the angle
    bool MovePending = false;
    int16_t MoveClick = 0;  // 0 waiting for the base point, 1 for the destination
    PointRec RotateBase;
    PointRec MoveBase;
    PointRec MoveDest;
    PointRec WindowCorner;
};

struct EditHooks {
    // Draw_Lines (selection shown) and Draw_Dims around Build_Intersections;
    // Clear_Board for Delete All.
    RepaintHooks Repaint;
    std::function<void(const LineRec&, int16_t color)> Paint_Line;
    std::function<void(int16_t selectedColor, int16_t otherColor)> Paint_Selection;
    std::function<void()> Renew_Pointer;  // the SELECTION pointer that fits SelectKind
    std::function<void()> Cross_Pointer;  // the cross pointer of a pending move
    std::function<void()> Show_Prompt;
    std::function<void(const PointRec&)> Show_Rotate_Marks;
    std::function<void()> Hide_Rotate_Marks;
    std::function<void()> Erase_Move_Band;
    std::function<void()> Cancel_Band;
    std::function<void()> Focus_CommandBox;  // focus to CommandBox if it is enabled
    std::function<void()> Set_DrawMode;      // Set_Mode(2)
    // Shows a message box; for a question, true means Yes.
    std::function<bool(const BoardMessages::BoardMessage&)> Show_Message;
};

// ---- Selection ------------------------------------------------------------------
// Flips one row and repaints it alone, in the selected or the plain color.
void Toggle_Line(LineTable& t, int16_t index, const EditHooks& hooks = {});
// Box selection from two corners in any order; `value` is written into
// Selected (false for removal). Window takes lines wholly inside; crossing
// and removal also lines that cross a side. SelectKind returns to 0.
void Select_Window(LayoutDocument& doc, SelectionState& st, const PointRec& a, const PointRec& b, bool value,
                   const EditHooks& hooks = {});
// The reply 'A': every row selected, one at a time, the selection painted
// after each; SelectKind returns to 0.
void Select_All(LayoutDocument& doc, SelectionState& st, const EditHooks& hooks = {});
void Clear_Selection(LineTable& t);
// Esc in SELECTION: everything unselected; a pending rotate or move goes back
// to its first step and stays pending.
void Selection_Escape(LayoutDocument& doc, SelectionState& st, const EditHooks& hooks = {});

// The hover test of a pointer move: the first line within reach.
HoverRec Hover_Line(const LayoutDocument& doc, float x, float y, bool selectionMode);
// The status bar panel and the board's tool tip for a line found in EDIT.
std::string Hover_Status(const HoverRec& hover);
std::string Hover_ToolTip(const HoverRec& hover);

// ---- Move and rotate ---------------------------------------------------------
// Adds (to - from) to the ends of each selected row; MidPt follows, Length does not.
void Move_Selected(const PointRec& from, const PointRec& to, LineTable& t);
// Turns each selected row's ends about base by `angle` radians (board axes).
void Rotate_Selected(const PointRec& base, LineTable& t, double angle);

// The buttons. False, with the message shown, when nothing is selected.
bool MoveButton_Click(const LayoutDocument& doc, SelectionState& st, const EditHooks& hooks = {});
bool RotateButton_Click(const LayoutDocument& doc, SelectionState& st, const EditHooks& hooks = {});
// A left click (or typed point) of a pending move: the base point, then the
// destination, which moves the selection and ends the command.
void Move_Click(LayoutDocument& doc, SelectionState& st, const PointRec& point, const EditHooks& hooks = {});
// A left click (or typed point) of a pending rotate at its first step.
void Rotate_Click(SelectionState& st, const PointRec& point, const EditHooks& hooks = {});
// The typed angle, in radians (board axes): turns the selection, ends the command.
void Finish_Rotate(LayoutDocument& doc, SelectionState& st, double angle, const EditHooks& hooks = {});

// ---- Deleting ---------------------------------------------------------------------
// Delete Selection; with every line selected and no dimensions it becomes Delete All.
void DeleteButton_Click(LayoutDocument& doc, bool inCalculation, const EditHooks& hooks = {});
// Delete All, after the question. True when the drawing was emptied.
bool ClearButton_Click(LayoutDocument& doc, bool inCalculation, const EditHooks& hooks = {});
// Clear Dimensions, with no question.
void ClearDimButton_Click(LayoutDocument& doc, bool inCalculation, const EditHooks& hooks = {});
// Deletes the hovered line in EDIT; the found flags of both hover records are
// cleared. False when no line is under the pointer.
bool Delete_Hover(LayoutDocument& doc, HoverRec& hover, HoverRec& prevHover, bool& hoverShown,
                  const EditHooks& hooks = {});
// The Delete key in EDIT: Delete_Hover, and the numbering starts again once
// the table is empty. The caller hides the grip boxes.
void Edit_DeleteKey(LayoutDocument& doc, HoverRec& hover, HoverRec& prevHover, bool& hoverShown,
                    const EditHooks& hooks = {});

}  // namespace Selection
