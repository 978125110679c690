// Statements that are skipped when they fail: the target keeps its value when
// a division by zero, an overflow or a power with no real value would occur.
// Each helper reports whether it stored anything.
#pragma once

#include <cmath>

namespace guarded {

// target = value, only when value is finite.
inline bool Let(double& target, double value) {
    if (!std::isfinite(value)) return false;
    target = value;
    return true;
}

// Narrows a double to a single; false (target untouched) when the value is
// not finite or outside the range of a single.
inline bool Narrow(double v, float& out) {
    if (!std::isfinite(v)) return false;
    const float f = static_cast<float>(v);
    if (!std::isfinite(f)) return false;
    out = f;
    return true;
}

// a / b; false (target untouched) on a zero divisor, an operand that is not
// finite, or a non-finite result.
inline bool Divide(double a, double b, double& out) {
    if (b == 0.0 || !std::isfinite(a) || !std::isfinite(b)) return false;
    return Let(out, a / b);
}

// a / b narrowed to a single, both steps guarded.
inline bool DivideNarrow(double a, double b, float& out) {
    double q = 0.0;
    return Divide(a, b, q) && Narrow(q, out);
}

// base ^ exponent through std::pow; false (target untouched) when the result
// is not a finite real number.
inline bool Power(double base, double exponent, double& out) { return Let(out, std::pow(base, exponent)); }

}  // namespace guarded
