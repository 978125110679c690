#include "board/core/Viewport.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "board/core/Dimensions.h"
#include "shell/core/GuardedMath.h"

namespace Viewport {

using guarded::Divide;
using guarded::DivideNarrow;
using guarded::Narrow;

namespace {

double ViewScale(const LayoutDocument& doc) {
    return static_cast<double>(doc.ZoomScale) * static_cast<double>(doc.ZoomBase);
}

// The mean of two singles, stored as a single.
void SetMean(PointRec& mid, const PointRec& a, const PointRec& b) {
    Narrow((static_cast<double>(a.X) + b.X) / 2.0, mid.X);
    Narrow((static_cast<double>(a.Y) + b.Y) / 2.0, mid.Y);
}

void ShiftPoint(PointRec& p, double dx, double dy) {
    Narrow(p.X + dx, p.X);
    Narrow(p.Y + dy, p.Y);
}

void ScalePoint(PointRec& p, float f) {
    Narrow(static_cast<double>(p.X) * f, p.X);
    Narrow(static_cast<double>(p.Y) * f, p.Y);
}

double Distance(double x1, double y1, double x2, double y2) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    return std::sqrt(dx * dx + dy * dy);
}

// The slope of a line as a single; a vertical line (or any failure) leaves 0.
float SlopeOf(const LineRec& l) {
    float m = 0.0f;
    DivideNarrow(static_cast<double>(l.EndPt.Y) - l.StartPt.Y,
                 static_cast<double>(l.EndPt.X) - l.StartPt.X, m);
    return m;
}

bool Between(float v, float a, float b) { return v >= std::min(a, b) && v <= std::max(a, b); }

template <class Table, class IsOn>
int16_t CountOf(const Table& t, IsOn isOn) {
    if (t.size() == 1 && !isOn(t[0])) return 0;
    return static_cast<int16_t>(t.size());
}

template <class Table, class IsOn>
bool AddSlot(Table& t, IsOn isOn) {
    if (t.size() == 1 && !isOn(t[0])) return true;  // the blank row is taken
    if (t.size() >= Layout::kMaxTableRows) return false;
    t.emplace_back();
    return true;
}

enum class Extreme { MinX, MinY, MaxX, MaxY };

float LineExtreme(const LineTable& t, bool& found, Extreme which) {
    found = false;
    if (Lines_Empty(t)) return 0.0f;
    const bool isX = which == Extreme::MinX || which == Extreme::MaxX;
    const bool isMin = which == Extreme::MinX || which == Extreme::MinY;
    float v = 0.0f;
    for (size_t i = 0; i < t.size(); ++i) {
        const float e = isX ? t[i].EndPt.X : t[i].EndPt.Y;
        const float s = isX ? t[i].StartPt.X : t[i].StartPt.Y;
        const float here = isMin ? std::min(e, s) : std::max(e, s);
        v = i == 0 ? here : (isMin ? std::min(v, here) : std::max(v, here));
    }
    found = true;
    return v;
}

void BoundOf(const LayoutDocument& doc, bool& found, float& value, Extreme which) {
    bool fl = false, fd = false;
    const float l = LineExtreme(doc.Lines, fl, which);
    float d = 0.0f;
    switch (which) {
        case Extreme::MinX: d = Dimensions::Dims_MinX(doc.Dims, fd); break;
        case Extreme::MinY: d = Dimensions::Dims_MinY(doc.Dims, fd); break;
        case Extreme::MaxX: d = Dimensions::Dims_MaxX(doc.Dims, fd); break;
        case Extreme::MaxY: d = Dimensions::Dims_MaxY(doc.Dims, fd); break;
    }
    found = fl || fd;
    if (fl && fd) {
        const bool isMin = which == Extreme::MinX || which == Extreme::MinY;
        value = isMin ? std::min(l, d) : std::max(l, d);
    } else if (fl) {
        value = l;
    } else if (fd) {
        value = d;
    }
}

void Repaint(LayoutDocument& doc, const RepaintHooks& hooks) {
    if (hooks.Draw_Lines) hooks.Draw_Lines();
    if (hooks.FindCrossings) Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound, hooks.Yield);
    if (hooks.Draw_Dims) hooks.Draw_Dims();
}

// Steps shared by the window zoom and the fit: scale by f, move the point m
// (already scaled) to the board's center, repaint, and carry the viewport.
void ScaleAndCenter(LayoutDocument& doc, float f, double mx, double my, const RepaintHooks& hooks,
                    bool switchAutoRedraw) {
    bool ok = false;
    Scale_Lines(doc.Lines, f, ok);
    Dimensions::Scale_Dims(doc.Dims, f, ok);
    const double sx = doc.ScaleWidth / 2.0 - mx;
    const double sy = doc.ScaleHeight / 2.0 - my;
    Shift_Lines(doc.Lines, sx, sy, ok);
    Dimensions::Shift_Dims(doc.Dims, sx, sy, ok);

    bool oldAutoRedraw = false;
    if (switchAutoRedraw && hooks.Set_AutoRedraw) oldAutoRedraw = hooks.Set_AutoRedraw(true);
    if (hooks.Clear_Board) hooks.Clear_Board();
    Repaint(doc, hooks);
    if (switchAutoRedraw && hooks.Set_AutoRedraw) hooks.Set_AutoRedraw(oldAutoRedraw);

    Narrow(static_cast<double>(doc.ZoomScale) * f, doc.ZoomScale);
    Narrow(doc.OriginX + sx, doc.OriginX);
    Narrow(doc.OriginY - sy, doc.OriginY);
}

}  // namespace

// ---- Conversions ------------------------------------------------------------------

float To_WorldX(const LayoutDocument& doc, double x) {
    float r = 0.0f;
    DivideNarrow(x - doc.OriginX, ViewScale(doc), r);
    return r;
}

float To_WorldY(const LayoutDocument& doc, double y) {
    float r = 0.0f;
    DivideNarrow(-y - doc.OriginY, ViewScale(doc), r);
    return r;
}

bool World_Fits(const LayoutDocument& doc, const PointRec& p) {
    if (ViewScale(doc) == 0.0) return true;
    float x = 0.0f, y = 0.0f;
    return DivideNarrow(p.X - static_cast<double>(doc.OriginX), ViewScale(doc), x) &&
           DivideNarrow(-static_cast<double>(p.Y) - doc.OriginY, ViewScale(doc), y);
}

float To_BoardX(const LayoutDocument& doc, double x) {
    float r = 0.0f;
    Narrow(static_cast<double>(doc.ZoomBase) * x * doc.ZoomScale + doc.OriginX, r);
    return r;
}

float To_BoardY(const LayoutDocument& doc, double y) {
    float r = 0.0f;
    Narrow(-y * doc.ZoomBase * doc.ZoomScale - doc.OriginY, r);
    return r;
}

// ---- Counts and slots -------------------------------------------------------------

int16_t Line_Count(const LineTable& t) {
    return CountOf(t, [](const LineRec& r) { return r.Exists != 0; });
}

int16_t Line_Count(const DimTable& t) {
    return CountOf(t, [](const Layout::DimensionRec& r) { return r.Exists != 0; });
}

bool Lines_Empty(const LineTable& t) { return Line_Count(t) == 0; }

bool Has_Line(const LineTable& t) { return t.size() <= 1 ? !t.empty() && t[0].Exists != 0 : true; }

bool Has_Dim(const DimTable& t) { return t.size() <= 1 ? !t.empty() && t[0].Exists != 0 : true; }

int16_t Selected_Count(const LineTable& t) {
    if (Lines_Empty(t)) return 0;
    return static_cast<int16_t>(std::count_if(t.begin(), t.end(), [](const LineRec& r) { return r.Selected != 0; }));
}

int16_t Unselected_Count(const LineTable& t) {
    if (Lines_Empty(t)) return 0;
    return static_cast<int16_t>(std::count_if(t.begin(), t.end(), [](const LineRec& r) { return r.Selected == 0; }));
}

bool Add_Line_Slot(LineTable& t) {
    return AddSlot(t, [](const LineRec& r) { return r.Exists != 0; });
}

bool Add_Dim_Slot(DimTable& t) {
    return AddSlot(t, [](const Layout::DimensionRec& r) { return r.Exists != 0; });
}

bool Add_Intersection_Slot(PointTable& t) {
    return AddSlot(t, [](const PointRec& r) { return r.Flag != 0; });
}

void Delete_Line(LineTable& t, int16_t index) {
    if (t.size() <= 1) {
        t = Layout::BlankLines();
        return;
    }
    if (index < 0 || static_cast<size_t>(index) >= t.size()) return;
    t.erase(t.begin() + index);
}

void Delete_Selected(LineTable& t) {
    const int16_t keep = Unselected_Count(t);
    if (keep <= 0) {
        // No row would be left: the table becomes blank.
        t = Layout::BlankLines();
        return;
    }
    LineTable rest;
    rest.reserve(static_cast<size_t>(keep));
    for (const LineRec& r : t)
        if (r.Selected == 0) rest.push_back(r);
    t = std::move(rest);
}

bool Add_Drawn_Line(LayoutDocument& doc, const PointRec& anchor, const PointRec& current) {
    if (doc.LineCounter == INT16_MAX || !Add_Line_Slot(doc.Lines)) return false;
    LineRec& r = doc.Lines.back();
    r = LineRec{};
    r.StartPt = anchor;
    r.EndPt = current;
    SetMean(r.MidPt, r.StartPt, r.EndPt);
    r.Exists = -1;
    r.LineName = "Line Number " + std::to_string(doc.LineCounter + 1);
    r.Length = Distance(To_WorldX(doc, r.StartPt.X), To_WorldY(doc, r.StartPt.Y), To_WorldX(doc, r.EndPt.X),
                        To_WorldY(doc, r.EndPt.Y));
    doc.LineCounter = static_cast<int16_t>(doc.LineCounter + 1);
    return true;
}

// ---- Whole-drawing operations -------------------------------------------------------

void Shift_Lines(LineTable& t, double dx, double dy, bool& ok, const YieldFn& yield) {
    for (LineRec& r : t) {
        ShiftPoint(r.EndPt, dx, dy);
        ShiftPoint(r.StartPt, dx, dy);
        SetMean(r.MidPt, r.StartPt, r.EndPt);
        if (yield) yield();
    }
    ok = true;
}

void Scale_Lines(LineTable& t, float f, bool& ok) {
    for (LineRec& r : t) {
        ScalePoint(r.EndPt, f);
        ScalePoint(r.StartPt, f);
        SetMean(r.MidPt, r.StartPt, r.EndPt);
    }
    ok = true;
}

// ---- Bounds and measures ---------------------------------------------------------------

float Min_X(const LineTable& t, bool& found) { return LineExtreme(t, found, Extreme::MinX); }
float Min_Y(const LineTable& t, bool& found) { return LineExtreme(t, found, Extreme::MinY); }
float Max_X(const LineTable& t, bool& found) { return LineExtreme(t, found, Extreme::MaxX); }
float Max_Y(const LineTable& t, bool& found) { return LineExtreme(t, found, Extreme::MaxY); }

void Bound_MinX(const LayoutDocument& doc, bool& found, float& value) { BoundOf(doc, found, value, Extreme::MinX); }
void Bound_MinY(const LayoutDocument& doc, bool& found, float& value) { BoundOf(doc, found, value, Extreme::MinY); }
void Bound_MaxX(const LayoutDocument& doc, bool& found, float& value) { BoundOf(doc, found, value, Extreme::MaxX); }
void Bound_MaxY(const LayoutDocument& doc, bool& found, float& value) { BoundOf(doc, found, value, Extreme::MaxY); }

double Line_Total(const LayoutDocument& doc, const LineTable& t) {
    double total = 0.0;
    for (const LineRec& r : t) {
        total += Distance(To_WorldX(doc, r.StartPt.X), To_WorldY(doc, r.StartPt.Y),
                          To_WorldX(doc, r.EndPt.X), To_WorldY(doc, r.EndPt.Y));
    }
    return total;
}

namespace {
double CentroidOf(const LineTable& t, bool isX) {
    double moment = 0.0;
    double weight = 0.0;
    for (const LineRec& r : t) {
        const double w = Distance(r.StartPt.X, r.StartPt.Y, r.EndPt.X, r.EndPt.Y);
        const double arm = isX ? (static_cast<double>(r.StartPt.X) + r.EndPt.X) / 2.0
                               : (static_cast<double>(r.StartPt.Y) + r.EndPt.Y) / 2.0;
        moment += arm * w;
        weight += w;
    }
    double c = 0.0;
    Divide(moment, weight, c);
    return c;
}
}  // namespace

double Centroid_X(const LineTable& t) { return CentroidOf(t, true); }
double Centroid_Y(const LineTable& t) { return CentroidOf(t, false); }

// ---- Point tests ---------------------------------------------------------------------

HoverRec Find_Line(const LineTable& t, float x, float y, float tol) {
    HoverRec h;
    for (size_t i = 0; i < t.size(); ++i) {
        const LineRec& r = t[i];
        if (r.Exists == 0) continue;
        // Path slack through the point rather than a perpendicular distance:
        // the hit zone is an ellipse around the segment.
        const double d1 = Distance(x, y, r.EndPt.X, r.EndPt.Y);
        const double d2 = Distance(x, y, r.StartPt.X, r.StartPt.Y);
        const double len = Distance(r.StartPt.X, r.StartPt.Y, r.EndPt.X, r.EndPt.Y);
        float slack = 0.0f;
        if (!Narrow(std::fabs(len - (d1 + d2)), slack)) continue;
        if (slack <= tol) {
            h.Line = r;
            h.Index = static_cast<int16_t>(i);
            h.Found = true;
            return h;
        }
    }
    return h;
}

bool Find_Intersection(const LayoutDocument& doc, float x, float y, float tol, PointRec& out) {
    for (const PointRec& p : doc.Intersections) {
        if (p.Flag == 0) continue;
        if (Distance(x, y, p.X, p.Y) <= tol) {
            out = p;
            return true;
        }
    }
    return false;
}

int16_t Line_Kind(const LineRec& line) {
    if (line.StartPt.X == line.EndPt.X) return 1;
    if (line.StartPt.Y == line.EndPt.Y) return 2;
    return 4;
}

bool Perpendicular_Foot(const LineRec& line, const PointRec& p, PointRec& out) {
    const PointRec& s = line.StartPt;
    switch (Line_Kind(line)) {
        case 1:
            out.X = s.X;
            out.Y = p.Y;
            break;
        case 2:
            out.X = p.X;
            out.Y = s.Y;
            break;
        default: {
            const float m = SlopeOf(line);
            float n = 0.0f;
            DivideNarrow(-1.0, m, n);
            float x = 0.0f;
            DivideNarrow(static_cast<double>(m) * s.X - static_cast<double>(n) * p.X + p.Y - s.Y,
                         static_cast<double>(m) - n, x);
            float y = 0.0f;
            Narrow((static_cast<double>(x) - s.X) * m + s.Y, y);
            out.X = x;
            out.Y = y;
            break;
        }
    }
    return true;
}

bool Lines_Cross(const LineRec& a, const LineRec& b, PointRec& out) {
    const float m1 = SlopeOf(a);
    const float m2 = SlopeOf(b);
    const int16_t ka = Line_Kind(a);
    const int16_t kb = Line_Kind(b);
    const PointRec& as = a.StartPt;
    const PointRec& bs = b.StartPt;
    float x = 0.0f;
    float y = 0.0f;

    if ((ka == 1 && kb == 1) || (ka == 2 && kb == 2)) return false;  // parallel axis lines

    if (ka == 1 && kb == 2) {
        x = as.X;
        y = bs.Y;
    } else if (ka == 2 && kb == 1) {
        x = bs.X;
        y = as.Y;
    } else if (ka == 1) {  // b sloped
        x = as.X;
        Narrow((static_cast<double>(x) - bs.X) * m2 + bs.Y, y);
    } else if (kb == 1) {  // a sloped
        x = bs.X;
        Narrow((static_cast<double>(x) - as.X) * m1 + as.Y, y);
    } else if (ka == 2) {  // b sloped
        y = as.Y;
        double q = 0.0;
        if (Divide(static_cast<double>(y) - bs.Y, m2, q)) Narrow(q + bs.X, x);
    } else if (kb == 2) {  // a sloped
        y = bs.Y;
        double q = 0.0;
        if (Divide(static_cast<double>(y) - as.Y, m1, q)) Narrow(q + as.X, x);
    } else {
        // Both sloped. Parallel lines divide by zero: x stays 0 and the test
        // below runs on a's point at x = 0.
        DivideNarrow(static_cast<double>(m1) * as.X - static_cast<double>(m2) * bs.X + bs.Y - as.Y,
                     static_cast<double>(m1) - m2, x);
        Narrow((static_cast<double>(x) - as.X) * m1 + as.Y, y);
    }

    out.X = x;
    out.Y = y;
    return Between(x, a.StartPt.X, a.EndPt.X) && Between(y, a.StartPt.Y, a.EndPt.Y) &&
           Between(x, b.StartPt.X, b.EndPt.X) && Between(y, b.StartPt.Y, b.EndPt.Y);
}

// ---- Viewport, zoom and pan ----------------------------------------------------------

void Set_Viewport(LayoutDocument& doc) {
    doc.ZoomBase = 1.0f;
    doc.ZoomScale = 1.0f;
    doc.OriginY = -doc.ScaleHeight;
    doc.OriginX = 0.0f;
}

void Zoom_Factor(LayoutDocument& doc, float f, const RepaintHooks& hooks) {
    bool ok = false;
    Scale_Lines(doc.Lines, f, ok);
    Dimensions::Scale_Dims(doc.Dims, f, ok);
    const double cx = doc.ScaleWidth / 2.0;
    const double cy = doc.ScaleHeight / 2.0;
    const double dx = cx - cx * f;
    const double dy = cy - cy * f;
    Shift_Lines(doc.Lines, dx, dy, ok);
    Dimensions::Shift_Dims(doc.Dims, dx, dy, ok);
    Repaint(doc, hooks);
    // The old origin is carried, not scaled: lengths stay right, absolute
    // world positions move with each zoom.
    Narrow(static_cast<double>(doc.ZoomScale) * f, doc.ZoomScale);
    Narrow(doc.OriginX + dx, doc.OriginX);
    Narrow(doc.OriginY - dy, doc.OriginY);
}

void Zoom_Window(LayoutDocument& doc, const PointRec& a, const PointRec& b, const RepaintHooks& hooks) {
    const double w = std::fabs(static_cast<double>(a.X) - b.X);
    const double h = std::fabs(static_cast<double>(a.Y) - b.Y);
    if (w == 0.0 && h == 0.0) return;
    float f = 0.0f;
    if (w == 0.0) {
        DivideNarrow(doc.ScaleHeight, h, f);
    } else if (h == 0.0) {
        DivideNarrow(doc.ScaleWidth, w, f);
    } else {
        double fw = 0.0, fh = 0.0;
        if (Divide(doc.ScaleWidth, w, fw) && Divide(doc.ScaleHeight, h, fh)) Narrow(std::min(fw, fh), f);
    }
    const double mx = (static_cast<double>(a.X) + b.X) / 2.0 * f;
    const double my = (static_cast<double>(a.Y) + b.Y) / 2.0 * f;
    ScaleAndCenter(doc, f, mx, my, hooks, true);
}

bool Zoom_Fit(LayoutDocument& doc, float k, const RepaintHooks& hooks) {
    bool f1 = false, f2 = false, f3 = false, f4 = false;
    float minX = 0.0f, maxX = 0.0f, minY = 0.0f, maxY = 0.0f;
    Bound_MinX(doc, f1, minX);
    Bound_MaxX(doc, f2, maxX);
    Bound_MinY(doc, f3, minY);
    Bound_MaxY(doc, f4, maxY);
    if (!(f1 && f2 && f3 && f4)) return false;

    const double w = std::fabs(static_cast<double>(maxX) - minX);
    const double h = std::fabs(static_cast<double>(maxY) - minY);
    // A lone point (w = h = 0) fails its division and keeps f = 0: everything
    // collapses onto the center, with no message.
    float f = 0.0f;
    if (w != 0.0 && h == 0.0) {
        DivideNarrow(doc.ScaleWidth, w, f);
    } else if (w != 0.0 && h != 0.0) {
        double fw = 0.0, fh = 0.0;
        if (Divide(doc.ScaleWidth, w, fw) && Divide(doc.ScaleHeight, h, fh)) Narrow(std::min(fw, fh), f);
    } else {
        DivideNarrow(doc.ScaleHeight, h, f);
    }
    Narrow(static_cast<double>(f) * k, f);

    const double mx = (static_cast<double>(minX) + maxX) / 2.0 * f;
    const double my = (static_cast<double>(minY) + maxY) / 2.0 * f;
    ScaleAndCenter(doc, f, mx, my, hooks, false);
    return true;
}

void Pan_Board(LayoutDocument& doc, double dx, double dy, const YieldFn& yield) {
    bool ok = false;
    Shift_Lines(doc.Lines, dx, dy, ok, yield);
    Dimensions::Shift_Dims(doc.Dims, dx, dy, ok, yield);
    Narrow(doc.OriginX + dx, doc.OriginX);
    Narrow(doc.OriginY - dy, doc.OriginY);
}

}  // namespace Viewport
