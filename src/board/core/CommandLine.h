// The command line under the board: reading typed replies into board points,
// angles and selection kinds, the invalid-reply rule, and the echoes that
// show the pointer in the form that could be typed.
//
// A typed point is handed back in board units; the board then sets
// TypedPoint and calls the same press or click a pointer pick makes, so one
// code path serves both.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "board/core/SelectionCommands.h"

namespace CommandLine {

using Layout::LayoutDocument;
using Layout::PointRec;

// What the box shows after a reply it cannot read, and the colors of its text.
inline constexpr const char* kInvalidReply = "**INVALID REPLY TO COMMAND**";
constexpr int32_t kColorInvalid = 255;  // red
constexpr int32_t kColorNormal = 0;     // black

// CommandBox_Change: red while the box holds the invalid-reply text.
int32_t CommandBox_Color(std::string_view text);

// ---- Point replies (DRAW and the steps of a move) -------------------------------
struct PointReplyState {
    int16_t Click = 0;  // DrawClick, or MoveClick for a move
    PointRec LastPt;    // reference of the relative forms
    double EchoDistanceDeg = 0.0;
    double EchoDistanceRad = 0.0;
};

enum class ReplyStatus {
    Point,    // TypedX, TypedY hold the point: hand it to the click procedure
    Invalid,  // the box shows kInvalidReply, nothing else changes
    Failed,   // a value beyond a single: the reply ends quietly, box cleared
    Done,     // the reply was carried out here (an angle, a selection kind)
    Ignored,  // nothing at all happened; the box keeps its text
};

struct ReplyResult {
    ReplyStatus Status = ReplyStatus::Invalid;
    double TypedX = 0.0;
    double TypedY = 0.0;
    std::string BoxText;  // what the box holds afterwards
};

// Reads 'X,Y' (world, feet-and-inch allowed), 'Distance<Angle' (feet-and-inch
// distance, relative to LastPt, needs a start point) or 'Distance' (a plain
// number along the last echoed direction).
ReplyResult Reply_Draw(const LayoutDocument& doc, std::string_view text, const PointReplyState& st);
// The same reading for the steps of a move; Click is MoveClick, LastPt MoveBase.
ReplyResult Reply_Move(const LayoutDocument& doc, std::string_view text, const PointReplyState& st);

// A pending rotate: with RotateClick 1 the text is the angle in degrees and
// the selection is turned at once (Done); otherwise 'X,Y' in plain numbers is
// the base point (Point).
ReplyResult Reply_Rotate(LayoutDocument& doc, Selection::SelectionState& st, std::string_view text,
                         const Selection::EditHooks& hooks = {});

// 'W', 'C', 'R' or 'A' in any case set the kind ('A' selects everything at
// once); an empty reply is Ignored.
ReplyResult Reply_Select(LayoutDocument& doc, Selection::SelectionState& st, std::string_view text,
                         const Selection::EditHooks& hooks = {});

// ---- Echoes --------------------------------------------------------------------
struct EchoState {
    PointRec LastPt;
    double EchoDistanceDeg = 0.0;
    double EchoDistanceRad = 0.0;
};

struct EchoResult {
    bool SetText = false;  // false: the box is left alone
    std::string Text;
    bool Focus = false;      // focus to the box
    bool SelectAll = false;  // select the whole text so the first key replaces it
};

// DRAW with DrawClick (or a pending move with MoveClick): the pointer as
// 'X,Y' before the first point, as 'Distance<Angle' from the anchor after it.
// Updates LastPt and the echoed direction. Nothing while the box is disabled.
EchoResult Echo_Draw(const LayoutDocument& doc, bool boxEnabled, int16_t click, double pointerX, double pointerY,
                     const PointRec& anchor, EchoState& es);
EchoResult Echo_Move(const LayoutDocument& doc, bool boxEnabled, int16_t moveClick, double pointerX, double pointerY,
                     const PointRec& moveBase, EchoState& es);
// SELECTION with no command pending: the pointer while a box kind is set.
EchoResult Echo_Corner(const LayoutDocument& doc, int16_t selectKind, double pointerX, double pointerY);
// A pending rotate: the pointer until the base point is down, then the typed angle stays.
EchoResult Echo_RotateBase(const LayoutDocument& doc, int16_t rotateClick, double pointerX, double pointerY);

// A number as the echoes write it ("0.0####").
std::string Echo_Number(double v);

}  // namespace CommandLine
