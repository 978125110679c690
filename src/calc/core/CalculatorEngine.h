// The calculator engine: tokens in, display fields out. Every button and
// keyboard key of the calculator window becomes a short token; Press_Key runs
// the key's handler (operator mark, Dispatch_Key or the key's own action, then
// its spoken word). All state is in the CalculatorState passed in.
//
// This header declares the whole engine; the code is split by concern:
// KeyTable (the keys, Press_Key, keyboard, speech), OperandEntry (dispatch and
// operand entry), Operators (priority evaluation), DisplayFormat (display,
// modes, clock), Fractions (fractions, sexagesimal), ValueKeys (functions,
// conversions, pi, random, paste), Memory (memory, registers, statistics data).
#pragma once

#include <string>
#include <vector>

#include "calc/core/KeyTable.h"
#include "calc/core/CalculatorState.h"
#include "shell/core/Variant.h"

namespace Calculator {

// ---- Window level -------------------------------------------------------------
// Runs the handler of the key named by `token` (see Key_Table); false when no
// engine key has that name (the window's own keys "time" and "del" included).
bool Press_Key(CalculatorState& s, const std::string& token);
bool Is_Key_Token(const std::string& token);

// The first load of the window (settings and files are the window's part):
// K indicator, redisplay or AC, angle and display mode indicators, M indicator.
void Initial_Routine(CalculatorState& s);

void Set_Angle_Mode(CalculatorState& s, AngleMode mode);
// The display mode (its option buttons) and the places of fixed and
// scientific (the precision list, -1 for no item); both write the display anew.
void Set_Display_Mode(CalculatorState& s, DisplayMode mode);
void Set_Places(CalculatorState& s, int places);

// Clock key: toggles the clock on the display; true while it is on, when the
// window runs its loop of Show_Clock and event yields until TimeShown clears.
bool Toggle_Clock(CalculatorState& s);
// One turn of the clock loop: date line and time of day, e.g.
// "MONDAY NOV 23, 2026" and "09:05:07 AM".
void Show_Clock(CalculatorState& s, int year, int month, int day, int weekday, int hour, int minute, int second);

// ---- Key engine ------------------------------------------------------------------
void Dispatch_Key(CalculatorState& s, std::string& token);
void Process_Key(CalculatorState& s);
void Enter_Digit(CalculatorState& s);
void Enter_Exponent(CalculatorState& s);
void Enter_Fraction(CalculatorState& s);
void Clear_All(CalculatorState& s);
void Clear_Entry(CalculatorState& s);

// ---- Operators -------------------------------------------------------------------
void Operator_Step(CalculatorState& s);
void Press_Operator(CalculatorState& s);
void Press_Equal(CalculatorState& s);
void Evaluate_Pending(CalculatorState& s);
void Reduce_Operands(CalculatorState& s);
void Apply_Constant(CalculatorState& s);

// ---- Display ---------------------------------------------------------------------
void Show_Result(CalculatorState& s, double x);
void Show_Value(CalculatorState& s, const prim::Variant& valueArg, const std::string& textArg);
void Show_Exponent(CalculatorState& s, const std::string& text, const prim::Variant& valueArg);
void Show_Error(CalculatorState& s);
std::string Limit_Digits(const std::string& s);
std::string Check_Length(const std::string& s);
std::string Shorten_Number(const std::string& s);

// ---- Fractions and sexagesimal -----------------------------------------------------
void Commit_Fraction(CalculatorState& s);
// The value of a fraction text, or the text "Error"; leaves the improper form
// in s.ImproperText.
prim::Variant Fraction_Value(CalculatorState& s, const std::string& text);
void Show_Fraction(CalculatorState& s, const std::string& text);
void Fraction_Toggle(CalculatorState& s);

// ---- Speech ------------------------------------------------------------------------
// Says `word` when speech is on and the display holds a number.
void Speak_Text(CalculatorState& s, const std::string& word);

// ---- Memory --------------------------------------------------------------------------
// What the DELETE action of the register window does: every checked register
// (indices 0 to 99) goes back to 0 with no description.
void Delete_Registers(CalculatorState& s, const std::vector<int>& checked);
// Value column of the register list: "0.0" and 100 "#", or "0.0", 15 "#" and
// "E+00" when the whole part is too long to write plainly; three blanks behind.
std::string Register_Value_Text(double value);

// ---- Statistics data window ------------------------------------------------------------
// Deletes the checked rows; with every row checked the data becomes the empty
// text (no list).
void Delete_Data(CalculatorState& s, const std::vector<bool>& checked);
// Value column of the data list: as the register list, read back and written plainly.
std::string Data_Value_Text(double value);

// ---- Clipboard -----------------------------------------------------------------------------
// The text the copy command puts on the clipboard: the plain text of X.
std::string Copy_Text(const CalculatorState& s);
// The display as a spreadsheet reads it: the digits shown, without the
// trailing point, with "E+nn"/"E-nn" when the exponent field is in use
// ("5." gives "5", "1.234" with " 03" gives "1.234E+03"). A display that is
// no plain number (fraction, angle) gives the value of X; an error or the
// clock gives "".
std::string Display_Digits(const CalculatorState& s);

}  // namespace Calculator
