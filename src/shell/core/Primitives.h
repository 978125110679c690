// Text and number primitives used by every subsystem: reading numbers out of
// text, writing them by a picture, and the small string helpers the
// procedures are written with. Positions in strings are 1-based where a
// procedure speaks of positions (InStr, Mid), 0 meaning "not found".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace prim {

// Truth values kept in 16-bit integers.
constexpr int16_t kTrue = -1;
constexpr int16_t kFalse = 0;

// The number at the start of a text: blanks, tabs and line feeds are skipped
// (also inside the number), reading stops at the first character that cannot
// continue a number, and a text with no number gives 0. "&H" and "&O" prefixes
// read hexadecimal and octal whole numbers.
double Val(std::string_view s);

// True when the whole text (blanks around it allowed) is one number: optional
// sign, digits with an optional point (thousands commas allowed in the whole
// part), optional exponent "E" or "D" with optional sign. "" is not numeric.
bool IsNumeric(std::string_view s);

// Writes a number by a picture of "0" (digit always shown), "#" (digit shown
// when significant), "." (decimal point, kept even when no digit follows),
// "," (thousands separators), "E+00"/"E-00" (exponent; "E-" shows only a
// minus sign). Text before and after the digit placeholders is copied as it
// stands, blanks included. The value is first taken to 15 significant digits,
// then rounded to the picture with ties away from zero.
std::string Format(double value, std::string_view picture);

// Truncation toward zero and the sign as -1, 0 or 1.
double Fix(double x);
int Sgn(double x);

// Nearest whole number, ties to the even neighbour.
double RoundEven(double x);
// Same conversion into a 16-bit or 32-bit integer; false (target untouched)
// when the value is not finite or does not fit.
bool ToInt16(double x, int16_t& out);
bool ToInt32(double x, int32_t& out);

// The plain text of a double: at most 15 significant digits, no trailing
// zeros, "E+nn"/"E-nn" form from 1E+15 upward and below 1E-04.
std::string PlainText(double x);

// Small string helpers.
std::string Trim(std::string_view s);
std::string LTrim(std::string_view s);
std::string RTrim(std::string_view s);
std::string UCase(std::string_view s);
std::string LCase(std::string_view s);
// First position of `what` in `s` at or after `start` (1-based), 0 if absent.
size_t InStr(std::string_view s, std::string_view what, size_t start = 1);
// `len` characters from 1-based position `start` (the rest when len is npos).
std::string Mid(std::string_view s, size_t start, size_t len = std::string::npos);
std::string Left(std::string_view s, size_t n);
std::string Right(std::string_view s, size_t n);
// Every occurrence of `from` replaced by `to`, scanning left to right once.
std::string Replace(std::string_view s, std::string_view from, std::string_view to);
// `n` copies of a character.
std::string RepeatChar(char c, size_t n);

// Text on disk is Windows-1252; text in memory is UTF-8. Characters that the
// code page cannot hold are written as "?".
std::string ToCp1252(std::string_view utf8);
std::string FromCp1252(std::string_view bytes);

}  // namespace prim
