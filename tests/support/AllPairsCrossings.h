// The crossings of a line table as the board first found them: every pair of
// rows in order, the bounding boxes compared first. The reference the pruned
// search is held to, in its test and in its benchmark.
#pragma once

#include <algorithm>

#include "board/core/Viewport.h"

namespace reference {

using Layout::LineRec;
using Layout::LineTable;
using Layout::PointRec;
using Layout::PointTable;

inline bool BoxesMeet(const LineRec& a, const LineRec& b) {
    return std::max(a.StartPt.X, a.EndPt.X) >= std::min(b.StartPt.X, b.EndPt.X) &&
           std::max(b.StartPt.X, b.EndPt.X) >= std::min(a.StartPt.X, a.EndPt.X) &&
           std::max(a.StartPt.Y, a.EndPt.Y) >= std::min(b.StartPt.Y, b.EndPt.Y) &&
           std::max(b.StartPt.Y, b.EndPt.Y) >= std::min(a.StartPt.Y, a.EndPt.Y);
}

inline void AllPairsCrossings(const LineTable& t, PointTable& result, bool& flag) {
    PointTable found = Layout::BlankPoints();
    for (size_t i = 0; i < t.size(); ++i) {
        for (size_t j = i + 1; j < t.size(); ++j) {
            PointRec p;
            if (BoxesMeet(t[i], t[j]) && Viewport::Lines_Cross(t[i], t[j], p) &&
                Viewport::Add_Intersection_Slot(found)) {
                p.Flag = -1;
                found.back() = p;
                flag = true;
            }
        }
    }
    result = std::move(found);
}

}  // namespace reference
