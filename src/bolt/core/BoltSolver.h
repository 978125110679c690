// The program's own iteration for the coefficients of a rectangular bolt
// group under an eccentric load by the instantaneous center of rotation
// method: C, the group's strength as a multiple of one bolt's strength, and
// C', its pure moment coefficient. Callers reach it through bolt::Solve
// (BoltSolve.h), which also holds the element model.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "shell/core/ElementForce.h"
#include "shell/core/Settling.h"
#include "shell/core/Yield.h"

namespace bolt {

using shell::YieldFn;

// What one run of BoltGroup_C went through.
struct BoltRunInfo {
    int32_t Passes = 0;       // passes of the center loop
    int32_t Halvings = 0;     // times the center correction was halved to settle the run
    double Relaxation = 1.0;  // the correction factor at the end
    // The center at the end, from the centroid in the group's axes (x
    // across, y up); the centroid itself when the load has no arm.
    double CenterX = 0.0, CenterY = 0.0;
};

// A run that has not converged after this many passes and still swings about
// its fixed point gets half the center correction, and a further half after
// each further block of passes for as long as it swings.
constexpr int32_t kSettlePasses = 1000;
inline constexpr shell::SettlingRule kBoltSettling{1e-5, kSettlePasses, kSettlePasses, 100, false, 0.0};

// C of an m by n group at spacings sv (vertical) and sh (horizontal), load at
// eccentricity ex and angle `angle` degrees from the vertical. Empty when the
// group cannot be laid out (m x n is not a count of bolts from 1 to 32767).
// With `forces`, also the force on every bolt in the last pass, about that
// pass's center, in units of one bolt's strength.
std::optional<double> BoltGroup_C(int16_t m, int16_t n, double sv, double sh, double ex, double angle,
                                  const YieldFn& Yield = nullptr, BoltRunInfo* info = nullptr,
                                  std::vector<shell::ElementForce>* forces = nullptr);

// C' of the same group, in the length unit of the spacings. Empty as above.
std::optional<double> BoltGroup_CPrime(int16_t m, int16_t n, double sv, double sh);

}  // namespace bolt
