// The calculator's one-argument functions, angle conversions and the small
// numeric helpers that snap results to whole values and guard powers.
#pragma once

#include <string>

#include "calc/core/CalculatorState.h"

namespace Calculator::Functions {

// The value of pi used all through the program.
constexpr double kPi = 3.14159265358979;

// Outcome of a function key: a value for Show_Result, an error word for the
// display ("" gives the bare "*Error*"), or no change at all.
struct FunctionResult {
    enum class Kind { Value, Error, NoChange };
    Kind kind = Kind::NoChange;
    double value = 0.0;
    std::string word;
};

// Applies the function named by `token` to x (the displayed value).
FunctionResult Evaluate_Function(const CalculatorState& s, const std::string& token, double x);

// Degrees to the unit of the angle mode; in RADIAN and GRADIAN the angle is
// first reduced by 360 (not by 2 pi or 400: that is how the keys behave).
double To_Unit(const CalculatorState& s, double deg);
// The unit of the angle mode to degrees, with the same reduction by 360.
double To_Degrees(const CalculatorState& s, double x);

// Snaps x to the next whole number when its fraction reads 0.99999999999999
// (15 places), or 0.999999999999 for the short form (12 places).
double Near_Whole(double x);
double Near_Whole_Short(double x);
// a and b equal when both are written with n decimals.
bool Near_Equal(double a, double b, int n);
double Clean_One(double f, int n);
double Clean_Value(double x);
bool Is_Whole(double x);
// base to the exponent with a real odd root of a negative base; false when
// the power is invalid (or overflows), `result` then untouched.
bool Safe_Power(double base, double exponent, double& result);

// Greatest common divisor of two whole numbers held in doubles (0 when b is 0).
double Greatest_Divisor(double a, double b);
// Period k (-1 for none) and pattern of the decimals of x repeating from the
// first place.
void Find_Repeat(double x, int& k, std::string& pattern);

}  // namespace Calculator::Functions
