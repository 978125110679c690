// The force on one element of a group (a weld segment or a bolt) at the
// end of a solve, for pictures of a result.
#pragma once

namespace shell {

struct ElementForce {
    double X = 0.0, Y = 0.0;        // midpoint of the element, from the centroid, group axes
    double Force = 0.0;             // kips (weld) or a fraction of one bolt's strength (bolts)
    double DirX = 0.0, DirY = 0.0;  // unit direction of the force on the element
};

}  // namespace shell
