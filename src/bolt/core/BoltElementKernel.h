// The inner loop of the bolt element model: the force of every bolt for one
// motion of the group, summed into a resultant, with the derivatives of that
// resultant by the motion. Kept in a file of its own so that it can be built
// with vector math.
#pragma once

#include <cstddef>

namespace BoltKernel {

// Sums of the bolt forces, in units of Rult, for the motion (vx, vy, w) of
// the bolts at (x, y): the farthest bolt at the deformation du (inches), each
// bolt along its displacement, R = (1 - e^(-10 D))^0.55. d[i][j] is the
// derivative of sum i (fx, fy, moment) by motion component j (vx, vy, w).
// rmax is 0 when no bolt moves; the sums are not checked for finiteness.
// r is scratch of 3 n values (r, e^(-10 D) and R of each bolt).
struct Sums {
    double fx, fy, moment, rmax;
    double d[3][3];
};
Sums ForceSums(const double* x, const double* y, double* r, size_t n, double du, double vx, double vy, double w);

// The vector math a sweep calls, over the same bolts and motion, with none of
// the arithmetic around it: the floor a sweep is measured against.
double VectorMathFloor(const double* x, const double* y, double* r, size_t n, double du, double vx, double vy,
                       double w);

}  // namespace BoltKernel
