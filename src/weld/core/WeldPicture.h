// The picture of a standard weld configuration, as geometry: the weld lines
// of the shape for a base length of 1 and the given k, the dimensions L, kL
// and aL, the centroid, and the load P at its angle. The window paints it;
// tests check it without one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace WeldPicture {

struct Point {
    double x = 0.0;
    double y = 0.0;  // Y up
};

struct Segment {
    Point a;
    Point b;
};

// Which side of the measured points a dimension line stands on.
enum class Side { Left, Right, Below, Above };

struct Dimension {
    Point from;
    Point to;
    Side side = Side::Left;
    std::string text;  // "L", "kL" or "aL"
};

struct Model {
    std::vector<Segment> welds;
    std::vector<Dimension> dims;
    Point centroid;
    Point loadPoint;   // where the load's line of action meets the centroid's height
    Point loadTail;    // the arrow of P runs from here to loadPoint
    double angle = 0;  // degrees from the vertical
    // Bounds of everything above.
    Point min;
    Point max;
};

// The picture of configuration 1 to 9 for kL = k x L and aL = a x L, L = 1.
// Configuration 1 has no kL; configurations 6 to 9 with k = 0 are one line.
// Other configuration numbers give an empty picture.
Model Picture(int16_t config, double k, double a, double angleDegrees);

}  // namespace WeldPicture
