// Small helpers for statements that the board skips when they fail: the
// target keeps its value when a division by zero or an overflow would occur.
#pragma once

#include <cmath>
#include <limits>

namespace BoardMath {

// Narrows a double to a single; false (target untouched) when the value is
// not finite or outside the range of a single.
inline bool Narrow(double v, float& out) {
    if (!std::isfinite(v)) return false;
    const float f = static_cast<float>(v);
    if (!std::isfinite(f)) return false;
    out = f;
    return true;
}

// a / b; false (target untouched) on division by zero or a non-finite result.
inline bool Divide(double a, double b, double& out) {
    if (b == 0.0) return false;
    const double q = a / b;
    if (!std::isfinite(q)) return false;
    out = q;
    return true;
}

// a / b narrowed to a single, both steps guarded.
inline bool DivideNarrow(double a, double b, float& out) {
    double q = 0.0;
    return Divide(a, b, q) && Narrow(q, out);
}

}  // namespace BoardMath
