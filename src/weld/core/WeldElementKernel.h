// The inner loop of the weld element model: the force of every element for
// one motion of the group, summed into a resultant, with the derivatives of
// that resultant by the motion. Kept in a file of its own so that it can be
// built with vector math; the program's own iteration never goes through here.
#pragma once

#include <cstddef>
#include <vector>

#include "shell/core/MotionSolver.h"

namespace WeldKernel {

// Elements of a weld group in the load frame (origin at the centroid), as
// parallel arrays.
struct Elements {
    double D = 1.0;                        // weld size, inches
    std::vector<double> x, y;              // element midpoints
    std::vector<double> tx, ty;            // unit vector along the weld
    std::vector<double> k;                 // 0.6 Fexx x throat area of the element
    std::vector<double> px, py, ptx, pty;  // line ends, where the critical ratio is taken

    // Scratch of one force sweep: the ratio Du / r at each line end.
    mutable std::vector<double> ratio;

    void Reserve(size_t n);
    void Add(double X, double Y, double TX, double TY, double K);
    void AddProbe(double X, double Y, double TX, double TY);
    size_t Count() const { return x.size(); }
    // Radius of gyration of the elements about the origin (1 when it is 0).
    double Gyration() const;
    // Sum of 0.6 Fexx x throat area over the elements.
    double Strength() const;
};

// Sums of the element forces for the motion (vx, vy, w), forces along each
// element's displacement, the critical ratio, and d[i][j], the derivative of
// sum i (fx, fy, moment) by motion component j (vx, vy, w). crit is kNoRatio
// when no line end moves. The sums are not checked for finiteness.
constexpr double kNoRatio = 1e300;
struct Sums {
    double fx, fy, moment, crit;
    double d[3][3];
};
Sums ForceSums(const Elements& el, double vx, double vy, double w);

// The same as the resultant the equilibrium solver wants, with its slopes;
// ok is false when no element moves or a sum is not finite.
shell::Resultant Forces(const Elements& el, const shell::Motion& m);

// The vector math a sweep calls, over the same elements and motion, with
// none of the arithmetic around it: the floor a sweep is measured against.
double VectorMathFloor(const Elements& el, const shell::Motion& m);

// Deformation limits of an element whose force makes the angle thetaDeg
// (degrees) with its axis, for weld size D.
double DeltaU(double thetaDeg, double D);
double DeltaM(double thetaDeg, double D);

}  // namespace WeldKernel
