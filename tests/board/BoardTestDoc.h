// Small builders for board tests: points, lines and a document holding them.
#pragma once

#include <cmath>
#include <initializer_list>
#include <string>

#include "board/CartesianModule.h"

namespace boardtest {

using PublicVariables::LayoutDocument;
using PublicVariables::LineRec;
using PublicVariables::PointRec;

inline PointRec P(float x, float y) {
    PointRec p;
    p.X = x;
    p.Y = y;
    return p;
}

inline LineRec L(float x1, float y1, float x2, float y2) {
    LineRec l;
    l.StartPt = P(x1, y1);
    l.EndPt = P(x2, y2);
    l.MidPt = P((x1 + x2) / 2, (y1 + y2) / 2);
    l.Exists = -1;
    return l;
}

// A document at the start viewport holding the lines, numbered 1, 2, ... and
// with its crossings built.
inline LayoutDocument DocWith(std::initializer_list<LineRec> lines) {
    LayoutDocument doc;
    if (lines.size() > 0) doc.Lines.clear();
    for (LineRec l : lines) {
        l.LineName = "Line Number " + std::to_string(doc.Lines.size() + 1);
        doc.Lines.push_back(l);
    }
    doc.LineCounter = static_cast<int16_t>(lines.size());
    CartesianModule::Build_Intersections(doc.Lines, doc.Intersections, doc.IntersectionsFound);
    return doc;
}

// How far off the middle of a segment of half-length `half` a point lies
// whose path slack (Find_Line's measure) is `slack`.
inline double OffsetForSlack(double half, double slack) {
    const double k = half + slack / 2.0;
    return std::sqrt(k * k - half * half);
}

}  // namespace boardtest
