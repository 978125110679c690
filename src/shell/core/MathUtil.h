// Angle conversions with the program's truncated pi, and the least and
// greatest of a list, shared by the solvers and the board.
#pragma once

#include <initializer_list>

namespace shell {

// Pi as the program has always carried it: results depend on these digits.
constexpr double kPi = 3.14159265358979;

inline double Radians(double value) { return value * kPi / 180; }
inline double Degrees(double value) { return value * 180 / kPi; }

// Least (greatest) of the values; 0 for an empty list.
inline double MinOf(std::initializer_list<double> values) {
    if (values.size() == 0) return 0.0;
    double m = *values.begin();
    for (double v : values)
        if (v < m) m = v;
    return m;
}

inline double MaxOf(std::initializer_list<double> values) {
    if (values.size() == 0) return 0.0;
    double m = *values.begin();
    for (double v : values)
        if (v > m) m = v;
    return m;
}

}  // namespace shell
