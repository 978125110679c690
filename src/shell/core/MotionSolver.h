// Equilibrium of a group of elements (weld pieces or bolts) that turns as a
// rigid body about an instantaneous center. Both element models of the
// program use it: they say what force each element gives for a motion, this
// finds the motion whose element forces balance the load.
//
// Frame: origin at the group's centroid, the load along +y on the line
// x = arm (arm >= 0). A motion is the velocity (vx, vy) of the centroid and
// the rotation rate w; a point q moves with (vx - w qy, vy + w qx). Only the
// direction of the motion counts, so the center may be anywhere, also at
// infinity (w = 0: a pure translation, as under a load through the centroid).
//
// The solve is a 2-D Newton iteration with a backtracking line search on the
// squared residual, in one of two charts of the motion: the translation chart
// (vy = 1; unknowns vx and w times the group's length), which holds the far
// centers of small arms and pure translation, and the center chart (w = 1;
// unknowns the center's x and y), which holds the near centers of large arms
// and pure moments. It starts at the elastic solution and, where that run
// fails, from a fixed list of other starts in both charts. Each run has an
// iteration cap, so a solve always ends, converged or plainly not.
#pragma once

#include <cstdint>
#include <functional>

namespace shell {

struct Motion {
    double vx = 0.0;
    double vy = 1.0;
    double w = 0.0;
};

// Resultant of the element forces for one motion: its components and its
// moment about the centroid (counterclockwise positive). ok = false when the
// motion leaves no element with a force. A function that works out the
// slopes d[i][j] of (fx, fy, moment) by (vx, vy, w) sets slopes; for one that
// does not, the solver takes differences.
struct Resultant {
    double fx = 0.0;
    double fy = 0.0;
    double moment = 0.0;
    bool ok = false;
    bool slopes = false;
    double d[3][3] = {};
};

// Sums of a weight c over the points of a group: of c, c x, c y and
// c (x^2 + y^2). For element forces c u, u = (vx - w y, vy + w x) the
// velocity of each point under the motion, they give the resultant, and the
// part of its slopes by the motion that c G'G makes (the rows of G' being
// (1, 0, -y) and (0, 1, x)). Both element models' kernels sum R / r so.
struct WeightSums {
    double c = 0.0, cx = 0.0, cy = 0.0, crr = 0.0;

    void Resultant(double vx, double vy, double w, double& fx, double& fy, double& moment) const {
        fx = vx * c - w * cy;
        fy = vy * c + w * cx;
        moment = vy * cx - vx * cy + w * crr;
    }
    void AddSlopes(double (&p)[3][3]) const {
        p[0][0] += c;
        p[1][1] += c;
        p[2][2] += crr;
        p[0][2] -= cy;
        p[2][0] -= cy;
        p[1][2] += cx;
        p[2][1] += cx;
    }
};

// Gives r the slopes d, where all of them are finite.
void SetSlopes(Resultant& r, const double (&d)[3][3]);

using ResultantFn = std::function<Resultant(const Motion&)>;

struct MotionProblem {
    double arm = 0.0;            // distance of the load line from the centroid
    bool pureMoment = false;     // no force, only a couple (arm at infinity)
    double length = 1.0;         // typical length of the group (its radius of gyration)
    double force = 1.0;          // typical force (sum of the element strengths)
    double tolerance = 1e-10;    // on the residuals over force (and force x length)
    int32_t maxIterations = 60;  // per start
};

struct MotionResult {
    bool converged = false;
    Motion motion;            // at the solution (or at the best point of a failed solve)
    double load = 0.0;        // the balancing load (for a pure moment: the couple)
    double residual = 0.0;    // largest scaled residual at the end
    int32_t iterations = 0;   // Newton steps over all starts
    int32_t starts = 0;       // starts tried
    int32_t evaluations = 0;  // calls of the resultant function
};

MotionResult SolveMotion(const MotionProblem& problem, const ResultantFn& resultant);

// A motion in the coordinates of the group as given: the velocity of the
// centroid, the rotation rate (counterclockwise positive) and, unless the
// group only translates, the instantaneous center.
struct GroupMotion {
    double VX = 0.0, VY = 0.0, W = 0.0;
    bool Translation = false;
    double CenterX = 0.0, CenterY = 0.0;
};

// The load frame of a group as both solvers of the program turn it: moved to
// the centroid (cx, cy), turned by the load angle a (radians) so the load
// runs along +y, and mirrored in x when cos a < 0 so the load stays on the
// +x side. The load line lies at |cos a x ex| from the centroid.
struct LoadFrame {
    double cx = 0.0, cy = 0.0;
    double cosA = 1.0, sinA = 0.0, sgn = 1.0;

    LoadFrame() = default;
    LoadFrame(double centroidX, double centroidY, double radians);

    void ToLoad(double x, double y, double& X, double& Y) const;
    double Arm(double ex) const;
    GroupMotion Back(const Motion& m) const;
    // A vector of the load frame (or a point, from the centroid) in the
    // group's own axes.
    void BackVector(double X, double Y, double& x, double& y) const;
};

}  // namespace shell
