#include "board/core/LineData.h"

#include <cmath>

#include "shell/core/GuardedMath.h"
#include "shell/core/KeyFilters.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "units/core/ImperialText.h"

namespace LineData {

using Viewport::To_WorldX;
using Viewport::To_WorldY;
using guarded::Narrow;
using Layout::LineRec;

namespace {

LineRec* RowOf(LayoutDocument& doc, int16_t index) {
    if (index < 0 || static_cast<size_t>(index) >= doc.Lines.size()) return nullptr;
    LineRec& r = doc.Lines[static_cast<size_t>(index)];
    return r.Exists != 0 ? &r : nullptr;
}

double BoardLength(const LineRec& r) {
    const double dx = static_cast<double>(r.StartPt.X) - r.EndPt.X;
    const double dy = static_cast<double>(r.StartPt.Y) - r.EndPt.Y;
    return std::sqrt(dx * dx + dy * dy);
}

// base + (p - base) * k, or base + (dx, dy): both ends are worked out before
// either is stored, and nothing is stored unless both fit a single.
bool PointAt(double x, double y, PointRec& out) {
    PointRec p = out;
    if (!Narrow(x, p.X) || !Narrow(y, p.Y)) return false;
    out = p;
    return true;
}

bool StoreEnds(LineRec& r, double sx, double sy, double ex, double ey) {
    PointRec s = r.StartPt, e = r.EndPt;
    if (!PointAt(sx, sy, s) || !PointAt(ex, ey, e)) return false;
    r.StartPt = s;
    r.EndPt = e;
    Narrow((static_cast<double>(s.X) + e.X) / 2.0, r.MidPt.X);
    Narrow((static_cast<double>(s.Y) + e.Y) / 2.0, r.MidPt.Y);
    return true;
}

std::string LengthText(double inches, bool architectural, const char* picture) {
    return architectural ? Imperial::Imperial_Text(inches / 12.0, 16, 0, 0) : prim::Format(inches, picture);
}

}  // namespace

LineDataTexts Refresh_LineData(const LayoutDocument& doc, const std::string& lineName, const PointRec& selStart,
                               const PointRec& selEnd, bool architectural) {
    const double sx = To_WorldX(doc, selStart.X), sy = To_WorldY(doc, selStart.Y);
    const double ex = To_WorldX(doc, selEnd.X), ey = To_WorldY(doc, selEnd.Y);
    const double len = std::sqrt((sx - ex) * (sx - ex) + (sy - ey) * (sy - ey));

    // The angle is read on the board and folded into 0 to 90: the quadrant
    // of the line is not shown.
    const float dx = selStart.X - selEnd.X;
    const float dy = selStart.Y - selEnd.Y;
    double theta = 0.0;
    if (dx == 0.0f) {
        theta = 90.0;
    } else if (dy != 0.0f) {
        theta = std::atan(static_cast<double>(dy) / dx) * 180.0 / shell::kPi;
    }
    theta = std::fabs(theta);

    LineDataTexts t;
    t.LineNameBox = lineName;
    t.StartPTx = "    X =  " + LengthText(sx, architectural, "0.00000");
    t.StartPTy = "    Y =  " + LengthText(sy, architectural, "0.00000");
    t.EndPTx = "    X =  " + LengthText(ex, architectural, "0.00000");
    t.EndPTy = "    Y =  " + LengthText(ey, architectural, "0.00000");
    t.SegLen = "    L =  " + LengthText(len, architectural, "0.000");
    t.RotAng = "   \xC3\x98 =  " + prim::Format(theta, "0.0####") + "\xC2\xB0";
    t.xRotAng = "   \xC3\x98 =  " + prim::Format(360.0 - theta, "0.0####") + "\xC2\xB0";
    return t;
}

bool Apply_Length(LayoutDocument& doc, int16_t index, double inches, int16_t basePoint) {
    LineRec* row = RowOf(doc, index);
    if (row == nullptr) return false;
    LineRec& r = *row;
    r.Selected = -1;
    double k = 0.0;
    // A line of length 0 has no direction to stretch along: it stays.
    if (!guarded::Divide(inches, BoardLength(r), k) || !guarded::Let(k, k * doc.ZoomScale)) return false;
    const PointRec s = r.StartPt, e = r.EndPt, m = r.MidPt;
    switch (basePoint) {
        case BasePoint::Start:
            return StoreEnds(r, s.X, s.Y, s.X + (static_cast<double>(e.X) - s.X) * k,
                             s.Y + (static_cast<double>(e.Y) - s.Y) * k);
        case BasePoint::Mid:
            return StoreEnds(r, m.X + (static_cast<double>(s.X) - m.X) * k, m.Y + (static_cast<double>(s.Y) - m.Y) * k,
                             m.X + (static_cast<double>(e.X) - m.X) * k, m.Y + (static_cast<double>(e.Y) - m.Y) * k);
        case BasePoint::End:
            return StoreEnds(r, e.X + (static_cast<double>(s.X) - e.X) * k, e.Y + (static_cast<double>(s.Y) - e.Y) * k,
                             e.X, e.Y);
        default:
            return false;
    }
}

bool Apply_Angle(LayoutDocument& doc, int16_t index, double degrees, int16_t basePoint) {
    LineRec* row = RowOf(doc, index);
    if (row == nullptr) return false;
    LineRec& r = *row;
    r.Selected = -1;
    // Board Y grows downwards, hence the minus: a positive angle turns
    // counterclockwise on the screen.
    const double a = -degrees * shell::kPi / 180.0;
    if (!std::isfinite(a)) return false;
    const double len = BoardLength(r);
    const double c = std::cos(a) * len;
    const double s = std::sin(a) * len;
    const PointRec st = r.StartPt, en = r.EndPt, m = r.MidPt;
    switch (basePoint) {
        case BasePoint::Start:
            return StoreEnds(r, st.X, st.Y, st.X + c, st.Y + s);
        case BasePoint::Mid:
            return StoreEnds(r, m.X - c / 2.0, m.Y - s / 2.0, m.X + c / 2.0, m.Y + s / 2.0);
        case BasePoint::End:
            return StoreEnds(r, en.X + c, en.Y + s, en.X, en.Y);
        default:
            return false;
    }
}

ApplyResult Apply_LineData(LayoutDocument& doc, int16_t index, std::string_view lenText, std::string_view rotText,
                           int16_t basePoint) {
    ApplyResult res;
    res.LenBoxText = std::string(lenText);
    res.RotBoxText = std::string(rotText);

    const std::string len = prim::Trim(lenText);
    if (!len.empty()) {
        if (!Imperial::Imperial_InputOk(len)) {
            res.Refused = true;
            return res;
        }
        // The box is rewritten in feet and inches, whatever was typed; a bare
        // number is still taken as the inches it said.
        const prim::Variant feet = Imperial::Imperial_Value(len, "FT");
        if (feet.IsNumber()) res.LenBoxText = Imperial::Imperial_Text(feet.number, 16, 0, 0);
        double inches = 0.0;
        bool haveLength = false;
        if (prim::IsNumeric(len)) {
            inches = prim::Val(prim::Replace(len, ",", ""));
            haveLength = true;
        } else {
            const prim::Variant v = Imperial::Imperial_Value(res.LenBoxText, "IN");
            haveLength = v.IsNumber();
            if (haveLength) inches = v.number;
        }
        if (haveLength && Apply_Length(doc, index, inches, basePoint)) res.Changed = true;
    }

    const std::string rot = prim::Trim(rotText);
    if (!rot.empty()) {
        const double degrees = KeyFilters::Normalize_Angle(prim::Val(rot));
        if (std::isfinite(degrees)) {
            res.RotBoxText = prim::PlainText(degrees);
            if (Apply_Angle(doc, index, prim::Val(res.RotBoxText), basePoint)) res.Changed = true;
        }
    }

    if (res.Changed) Viewport::Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound);
    return res;
}

}  // namespace LineData
