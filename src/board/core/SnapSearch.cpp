#include "board/core/SnapSearch.h"

#include <array>
#include <cmath>

#include "shell/core/GuardedMath.h"
#include "shell/core/Primitives.h"

namespace Viewport {

namespace {

double DistanceTo(double x, double y, const PointRec& p) {
    const double dx = static_cast<double>(p.X) - x;
    const double dy = static_cast<double>(p.Y) - y;
    return std::sqrt(dx * dx + dy * dy);
}

bool ValidMode(int16_t mode) { return mode >= SnapKind::Free && mode <= SnapKind::Perpendicular; }

// Mode 1 without a line under the pointer: the first end of any row, in
// table order and start before end, within plain reach. The first row
// within reach wins, not the nearest one.
bool NearEnd(const LineTable& t, float x, float y, PointRec& out) {
    for (const LineRec& r : t) {
        if (r.Exists == 0) continue;
        if (DistanceTo(x, y, r.StartPt) <= SnapTolerance::EndPoint) {
            out = r.StartPt;
            return true;
        }
        if (DistanceTo(x, y, r.EndPt) <= SnapTolerance::EndPoint) {
            out = r.EndPt;
            return true;
        }
    }
    return false;
}

}  // namespace

bool Snap_Point(const LayoutDocument& doc, float x, float y, int16_t mode, PointRec& out, const PointRec& base) {
    out.X = x;
    out.Y = y;
    switch (mode) {
        case SnapKind::EndPoint: {
            const HoverRec h = Find_Line(doc.Lines, x, y, SnapTolerance::EndLine);
            if (!h.Found) return NearEnd(doc.Lines, x, y, out);
            const double ds = DistanceTo(x, y, h.Line.StartPt);
            const double de = DistanceTo(x, y, h.Line.EndPt);
            out = ds < de ? h.Line.StartPt : h.Line.EndPt;  // a tie takes the end
            return true;
        }
        case SnapKind::MidPoint: {
            const HoverRec h = Find_Line(doc.Lines, x, y, SnapTolerance::MidPoint);
            if (!h.Found) return false;
            out = h.Line.MidPt;
            return true;
        }
        case SnapKind::Nearest:
            // The pointer stays where it is: only the hit is reported.
            return Find_Line(doc.Lines, x, y, SnapTolerance::Nearest).Found;
        case SnapKind::Intersection:
            return Find_Intersection(doc, x, y, SnapTolerance::Intersection, out);
        case SnapKind::Perpendicular: {
            const HoverRec h = Find_Line(doc.Lines, x, y, SnapTolerance::Perpendicular);
            if (!h.Found) return false;
            PointRec foot = out;
            Perpendicular_Foot(h.Line, base, foot);
            if (!std::isfinite(foot.X) || !std::isfinite(foot.Y)) return false;
            out = foot;
            return true;
        }
        default:
            return false;
    }
}

int16_t Effective_SnapMode(int16_t snapMode, bool haveBase) {
    return snapMode == SnapKind::Perpendicular && !haveBase ? SnapKind::Free : snapMode;
}

void Ortho_Point(const PointRec& base, double x, double y, bool ortho, PointRec& out) {
    if (ortho) {
        if (std::fabs(y - base.Y) < std::fabs(x - base.X)) y = base.Y;
        if (std::fabs(x - base.X) < std::fabs(y - base.Y)) x = base.X;
    }
    PointRec p;
    guarded::Narrow(x, p.X);
    guarded::Narrow(y, p.Y);
    out = p;
}

std::string Snap_Label(int16_t mode) {
    static const std::array<const char*, 6> kWords = {"", "End", "Mid", "Near", "Intersection", "Perpendicular"};
    return ValidMode(mode) ? kWords[static_cast<size_t>(mode)] : "";
}

std::string Snap_ButtonCaption(int16_t mode) {
    // "Perpedicular" is the button's caption as users have always seen it.
    static const std::array<const char*, 6> kCaptions = {"Free Snap", "EndPoint",     "MidPoint",
                                                         "Nearest",   "Intersection", "Perpedicular"};
    return ValidMode(mode) ? kCaptions[static_cast<size_t>(mode)] : "";
}

std::string Snap_MenuCaption(int16_t mode) {
    static const std::array<const char*, 6> kCaptions = {"Free Snap   ", "EndPoint",     "MidPoint",
                                                         "Nearest",      "Intersection", "Perpendicular"};
    return ValidMode(mode) ? kCaptions[static_cast<size_t>(mode)] : "";
}

std::string Snap_Status(bool found, int16_t mode) {
    return found ? "  " + Snap_Label(mode) + " Snap Point found !" : "";
}

std::string Coordinate_Status(const LayoutDocument& doc, double x, double y) {
    return "  X = " + prim::Format(To_WorldX(doc, x), "0.00000") +
           ",   Y = " + prim::Format(To_WorldY(doc, y), "0.00000");
}

}  // namespace Viewport
