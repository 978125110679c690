// The force on one element of a group (a weld segment or a bolt) at the
// end of a solve, for pictures of a result. The forces of a converged solve
// carry the load: their sum is the load (of the size of the result, along
// the load's direction) and their moment about the instantaneous center,
// taken at (ArmX, ArmY), is the load's.
#pragma once

#include <cstdint>

namespace shell {

struct ElementForce {
    double X = 0.0, Y = 0.0;  // midpoint of the element, from the centroid, group axes
    // Where the solver took the element to stand when it formed the force:
    // the midpoint, except where the program's iteration lays the segments
    // of a line that falls (in its load frame) below the line, by its rise.
    double ArmX = 0.0, ArmY = 0.0;
    double Force = 0.0;             // kips (weld) or a fraction of one bolt's strength (bolts)
    double DirX = 0.0, DirY = 0.0;  // unit direction of the force on the element
    double Length = 0.0;            // weld the element stands for, inches (0 for a bolt)
    int32_t Line = 0;               // its line's index in the group as given (a bolt's own index)
    double Theta = 0.0;             // angle of the force to the weld axis, degrees (0 for a bolt)
    double Deformation = 0.0;       // its deformation over its ultimate deformation (0 .. 1)
};

}  // namespace shell
