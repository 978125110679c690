// Small builders for board tests: points, lines and a document holding them.
#pragma once

#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

#include "board/core/Viewport.h"

namespace boardtest {

using Layout::DimensionRec;
using Layout::LayoutDocument;
using Layout::LineRec;
using Layout::PointRec;

inline PointRec P(float x, float y) { return {x, y, 0}; }

inline LineRec L(float x1, float y1, float x2, float y2) {
    LineRec l;
    l.StartPt = P(x1, y1);
    l.EndPt = P(x2, y2);
    l.MidPt = P((x1 + x2) / 2, (y1 + y2) / 2);
    l.Exists = -1;
    return l;
}

// A finished dimension from p1 to p2 with its line through (px, py).
inline DimensionRec Dim(float x1, float y1, float x2, float y2, float px, float py, bool exists = true) {
    return {P(x1, y1), P(x2, y2), P((x1 + x2) / 2, (y1 + y2) / 2),       P(px, py), 0,
            -1,        0.0,       static_cast<int16_t>(exists ? -1 : 0), 0};
}

// A document drawn as the board draws, from world-inch lines {x1, y1, x2, y2}
// at the start viewport.
inline LayoutDocument Drawn(const std::vector<std::vector<double>>& lines) {
    LayoutDocument doc;
    Viewport::Set_Viewport(doc);
    for (const auto& v : lines)
        Viewport::Add_Drawn_Line(doc, P(Viewport::To_BoardX(doc, v[0]), Viewport::To_BoardY(doc, v[1])),
                                 P(Viewport::To_BoardX(doc, v[2]), Viewport::To_BoardY(doc, v[3])));
    return doc;
}

// A document at the start viewport holding the lines, numbered 1, 2, ... and
// with its crossings built.
inline LayoutDocument DocWith(std::initializer_list<LineRec> lines) {
    LayoutDocument doc;
    if (lines.size() > 0) doc.Lines = lines;
    for (LineRec& l : doc.Lines)
        if (l.Exists != 0) l.LineName = "Line Number " + std::to_string(++doc.LineCounter);
    Viewport::Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound);
    return doc;
}

// How far off the middle of a segment of half-length `half` a point lies
// whose path slack (Find_Line's measure) is `slack`.
inline double OffsetForSlack(double half, double slack) {
    const double k = half + slack / 2.0;
    return std::sqrt(k * k - half * half);
}

}  // namespace boardtest
