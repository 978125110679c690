// Feet-and-inch text: architectural lengths such as 5'-3 1/2" read into
// numbers, lengths written back as such text, and numbers spelled in words.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "shell/core/Variant.h"

namespace Imperial {

// The word every refused text gives.
inline constexpr const char* kError = "*ERROR*";

// Kinds of text: 1 feet mark + 2 dash + 4 inch mark; 100 refused.
inline constexpr int16_t kRefused = 100;

// Reads an architectural length. `unit` "FT" gives feet, "IN" inches (any
// case); the result is a number, the text "*ERROR*", or empty for another unit.
prim::Variant Imperial_Value(std::string_view text, std::string_view unit);

// Feet or "*ERROR*": the body of Imperial_Value once the blanks round dashes are gone.
prim::Variant Imperial_Parse(std::string_view text);
int16_t Imperial_Classify(std::string_view text);
bool Imperial_KindIsValid(int16_t kind);
// Each sets `kind` to 100 when its piece does not hold up, and never to anything else.
void Imperial_CheckFeet(int16_t& kind, std::string_view text, size_t markPos);
void Imperial_CheckInches(int16_t& kind, std::string_view text);
// Values in feet; the inch forms fail (no value) on a zero denominator.
double Imperial_FeetValue(std::string_view text);
std::optional<double> Imperial_InchValue(std::string_view text);
std::optional<double> Imperial_FeetInchValue(std::string_view text);

// True when the text reads as a length.
bool Imperial_InputOk(std::string_view text);

// a - Fix(a / b) * b: a remainder with the sign of a. NaN when b is 0.
double Imperial_Mod(double a, double b);
// Euclid on doubles holding whole numbers; 0 when b is 0.
double Imperial_Gcd(double a, double b);

// A length in feet as feet, inches and a reduced fraction of `denominator`.
// `mode` 1 gives total inches. `words` non-zero spells the text in words.
std::string Imperial_Text(double value, int16_t denominator, int16_t mode, int16_t words);
std::string Imperial_TextDigits(int16_t mode, double feet, double inches, double numerator, double gcd,
                                double denominator);
std::string Imperial_TextWords(int16_t mode, int16_t feet, int16_t inches, double numerator, double gcd,
                               double denominator);

// Numbers in capitalised English words.
std::string Number_Words(double value, std::string_view wholeLabel, std::string_view partLabel);
std::string Fraction_Word(double denominator, double numerator);
std::string Group_Words(std::string_view digits3, int groupIndex);
std::string Hundred_Words(int digit);
std::string Tens_Words(int tens, int ones);
std::string Teen_Words(int ones);
std::string Ones_Words(int digit);
std::string Pad_Groups(std::string_view digits);

}  // namespace Imperial
