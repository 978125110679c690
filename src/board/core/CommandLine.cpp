#include "board/core/CommandLine.h"

#include <cmath>

#include "shell/core/GuardedMath.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "units/core/ImperialText.h"

namespace CommandLine {

using Selection::EditHooks;
using Selection::SelectionState;

namespace {

ReplyResult Invalid() { return {ReplyStatus::Invalid, 0.0, 0.0, kInvalidReply}; }
ReplyResult Failed() { return {ReplyStatus::Failed, 0.0, 0.0, ""}; }
ReplyResult Done() { return {ReplyStatus::Done, 0.0, 0.0, ""}; }

// The value of a text that passed IsNumeric; thousands commas are allowed
// there, so they are dropped before reading.
double NumberOf(std::string_view text) { return prim::Val(prim::Replace(text, ",", "")); }

// A length in feet-and-inch notation, in inches; false when it does not read.
bool InchesOf(std::string_view text, double& inches) {
    const prim::Variant v = Imperial::Imperial_Value(text, "IN");
    if (!v.IsNumber()) return false;
    inches = v.number;
    return true;
}

// A board position must hold in a single, as the click procedures take
// singles; a larger one ends the reply without a message.
bool FitsSingle(double v) {
    float f = 0.0f;
    return guarded::Narrow(v, f);
}

ReplyResult PointAt(double x, double y) {
    if (!FitsSingle(x) || !FitsSingle(y)) return Failed();
    return {ReplyStatus::Point, x, y, ""};
}

// World X and Y to the board, through the same conversion the board uses.
ReplyResult BoardPointOf(const LayoutDocument& doc, double wx, double wy) {
    const double scale = static_cast<double>(doc.ZoomBase) * doc.ZoomScale;
    if (!FitsSingle(wx * scale + doc.OriginX) || !FitsSingle(-wy * scale - doc.OriginY)) return Failed();
    return PointAt(Viewport::To_BoardX(doc, wx), Viewport::To_BoardY(doc, wy));
}

// Splits "a<sep>b" at the first separator; false when it opens or ends the text.
bool SplitAt(const std::string& t, size_t pos, std::string& left, std::string& right) {
    if (pos == 1 || pos == t.size()) return false;
    left = prim::Trim(prim::Left(t, pos - 1));
    right = prim::Trim(prim::Mid(t, pos + 1));
    return true;
}

ReplyResult ReadPoint(const LayoutDocument& doc, std::string_view text, const PointReplyState& st) {
    const std::string t = prim::Trim(text);
    const double px = st.LastPt.X;
    const double py = st.LastPt.Y;
    const double s = doc.ZoomScale;  // this path leaves ZoomBase out
    const size_t a = prim::InStr(t, "<");
    const size_t c = prim::InStr(t, ",");
    std::string left, right;

    if (st.Click != 0 && a > 0) {
        // Distance<Angle, relative to the last point.
        if (!SplitAt(t, a, left, right)) return Invalid();
        double d = 0.0;
        if (!InchesOf(left, d) || !prim::IsNumeric(right)) return Invalid();
        const double r = -NumberOf(right) * shell::kPi / 180.0;
        return PointAt(std::cos(r) * d * s + px, std::sin(r) * d * s + py);
    }
    if (c == 0) {
        // Distance, a plain number along the rubber band.
        if (!prim::IsNumeric(t)) return Invalid();
        const double d = NumberOf(t);
        if (!(d > 0.0)) return Invalid();
        const double q = -st.EchoDistanceDeg;
        // The axis directions go without trigonometry, so they stay exact.
        if (q == 0.0 || q == 360.0) return PointAt(px + s * d, py);
        if (q == 180.0 || q == -180.0) return PointAt(px - s * d, py);
        if (q == 90.0 || q == -270.0) return PointAt(px, py + s * d);
        if (q == -90.0 || q == 270.0) return PointAt(px, py - s * d);
        return PointAt(std::cos(-st.EchoDistanceRad) * d * s + px, std::sin(-st.EchoDistanceRad) * d * s + py);
    }
    // X,Y in world coordinates.
    if (!SplitAt(t, c, left, right)) return Invalid();
    double wx = 0.0, wy = 0.0;
    if (!InchesOf(left, wx) || !InchesOf(right, wy)) return Invalid();
    return BoardPointOf(doc, wx, wy);
}

// 'X,Y' in world coordinates with no direction, as the pointer echoes it.
std::string WorldPointText(const LayoutDocument& doc, double x, double y) {
    return Echo_Number(Viewport::To_WorldX(doc, x)) + "," + Echo_Number(Viewport::To_WorldY(doc, y));
}

EchoResult Shown(std::string text) { return {true, std::move(text), true, true}; }

// Direction from (ax, ay) to (wx, wy) in degrees, 0 up to 360, by quadrant.
double DirectionDeg(double dx, double dy) {
    if (dx == 0.0) return dy > 0.0 ? 90.0 : 270.0;
    if (dy == 0.0) return dx > 0.0 ? 0.0 : 180.0;
    const double b = std::fabs(std::atan(dy / dx)) * 180.0 / shell::kPi;
    if (dx > 0.0 && dy > 0.0) return b;
    if (dx < 0.0 && dy > 0.0) return 180.0 - b;
    if (dx > 0.0 && dy < 0.0) return 360.0 - b;
    return 180.0 + b;
}

}  // namespace

int32_t CommandBox_Color(std::string_view text) { return text == kInvalidReply ? kColorInvalid : kColorNormal; }

ReplyResult Reply_Draw(const LayoutDocument& doc, std::string_view text, const PointReplyState& st) {
    return ReadPoint(doc, text, st);
}

ReplyResult Reply_Move(const LayoutDocument& doc, std::string_view text, const PointReplyState& st) {
    return ReadPoint(doc, text, st);
}

ReplyResult Reply_Rotate(LayoutDocument& doc, SelectionState& st, std::string_view text, const EditHooks& hooks) {
    const std::string t = prim::UCase(prim::Trim(text));
    if (st.RotateClick == 1) {
        if (!prim::IsNumeric(t)) return Invalid();
        const double angle = -NumberOf(t) * shell::kPi / 180.0;
        if (!std::isfinite(angle)) return Failed();
        Selection::Finish_Rotate(doc, st, angle, hooks);
        return Done();
    }
    const size_t c = prim::InStr(t, ",");
    if (c == 0) return Invalid();
    // The base point takes plain numbers only, no feet-and-inch notation.
    std::string left, right;
    if (!SplitAt(t, c, left, right) || !prim::IsNumeric(left) || !prim::IsNumeric(right)) return Invalid();
    return BoardPointOf(doc, NumberOf(left), NumberOf(right));
}

ReplyResult Reply_Select(LayoutDocument& doc, SelectionState& st, std::string_view text, const EditHooks& hooks) {
    const std::string t = prim::UCase(prim::Trim(text));
    if (t.empty()) return {ReplyStatus::Ignored, 0.0, 0.0, std::string(text)};
    if (t == "A") {
        Selection::Select_All(doc, st, hooks);
        return Done();
    }
    int16_t kind = -1;
    if (t == "W") kind = Selection::Kind::Window;
    if (t == "C") kind = Selection::Kind::Crossing;
    if (t == "R") kind = Selection::Kind::Remove;
    if (kind < 0) return Invalid();
    st.SelectKind = kind;
    if (hooks.Show_Prompt) hooks.Show_Prompt();
    return Done();
}

// ---- Echoes --------------------------------------------------------------------

std::string Echo_Number(double v) { return prim::Format(v, "0.0####"); }

EchoResult Echo_Draw(const LayoutDocument& doc, bool boxEnabled, int16_t click, double pointerX, double pointerY,
                     const PointRec& anchor, EchoState& es) {
    if (!boxEnabled) return {};
    es.LastPt = anchor;
    if (click == 0) return Shown(WorldPointText(doc, pointerX, pointerY));
    if (click != 1) return Shown("");
    const double wx = Viewport::To_WorldX(doc, pointerX);
    const double wy = Viewport::To_WorldY(doc, pointerY);
    const double ax = Viewport::To_WorldX(doc, anchor.X);
    const double ay = Viewport::To_WorldY(doc, anchor.Y);
    if (wx == ax && wy == ay) return {true, "", false, false};
    const double dx = wx - ax;
    const double dy = wy - ay;
    const double distance = std::sqrt(dx * dx + dy * dy);
    es.EchoDistanceDeg = DirectionDeg(dx, dy);
    es.EchoDistanceRad = es.EchoDistanceDeg * shell::kPi / 180.0;
    return Shown(Echo_Number(distance) + "<" + Echo_Number(es.EchoDistanceDeg));
}

EchoResult Echo_Move(const LayoutDocument& doc, bool boxEnabled, int16_t moveClick, double pointerX, double pointerY,
                     const PointRec& moveBase, EchoState& es) {
    return Echo_Draw(doc, boxEnabled, moveClick, pointerX, pointerY, moveBase, es);
}

EchoResult Echo_Corner(const LayoutDocument& doc, int16_t selectKind, double pointerX, double pointerY) {
    if (selectKind < Selection::Kind::Window || selectKind > Selection::Kind::Remove) return {};
    EchoResult e = Shown(WorldPointText(doc, pointerX, pointerY));
    e.SelectAll = false;
    return e;
}

EchoResult Echo_RotateBase(const LayoutDocument& doc, int16_t rotateClick, double pointerX, double pointerY) {
    if (rotateClick == 1) return {false, "", true, false};  // the typed angle stays
    EchoResult e = Shown(WorldPointText(doc, pointerX, pointerY));
    e.SelectAll = false;
    return e;
}

}  // namespace CommandLine
