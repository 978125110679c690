#include "board/core/Dimensions.h"

#include <algorithm>

#include "shell/core/GuardedMath.h"

namespace Dimensions {

using guarded::Narrow;
using Layout::DimensionRec;
using Layout::PointRec;

namespace {

template <class Fn>
void ForEachPoint(DimensionRec& d, Fn fn) {
    fn(d.DimP1);
    fn(d.DimP2);
    fn(d.DimMid);
    fn(d.DimPos);
}

float Extreme(const DimTable& t, bool& found, bool isX, bool isMin) {
    found = false;
    if (Dims_Empty(t)) return 0.0f;
    float v = 0.0f;
    bool first = true;
    for (const DimensionRec& d : t) {
        if (d.Exists == 0) continue;
        for (const PointRec* p : {&d.DimPos, &d.DimMid, &d.DimP1, &d.DimP2}) {
            const float c = isX ? p->X : p->Y;
            if (first) {
                v = c;
                first = false;
            } else {
                v = isMin ? std::min(v, c) : std::max(v, c);
            }
        }
    }
    found = !first;
    return v;
}

}  // namespace

void Shift_Dims(DimTable& t, double dx, double dy, bool& ok, const YieldFn& yield) {
    for (DimensionRec& d : t) {
        if (d.Exists != 0) {
            ForEachPoint(d, [&](PointRec& p) {
                Narrow(p.X + dx, p.X);
                Narrow(p.Y + dy, p.Y);
            });
        }
        if (yield) yield();
    }
    ok = true;
}

void Scale_Dims(DimTable& t, float f, bool& ok) {
    for (DimensionRec& d : t) {
        if (d.Exists == 0) continue;
        ForEachPoint(d, [&](PointRec& p) {
            Narrow(static_cast<double>(p.X) * f, p.X);
            Narrow(static_cast<double>(p.Y) * f, p.Y);
        });
    }
    ok = true;
}

float Dims_MinX(const DimTable& t, bool& found) { return Extreme(t, found, true, true); }
float Dims_MinY(const DimTable& t, bool& found) { return Extreme(t, found, false, true); }
float Dims_MaxX(const DimTable& t, bool& found) { return Extreme(t, found, true, false); }
float Dims_MaxY(const DimTable& t, bool& found) { return Extreme(t, found, false, false); }

bool Dims_Empty(const DimTable& t) { return t.size() == 1 && t[0].Exists == 0; }

}  // namespace Dimensions
