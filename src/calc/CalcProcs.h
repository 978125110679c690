// The calculator engine: tokens in, display fields out. Every button and
// keyboard key of the calculator window becomes a short token; Press_Key runs
// the key's handler (operator mark, Dispatch_Key or the key's own action, then
// its spoken word). All state is in the CalcVariables passed in.
//
// This header declares the whole engine; the code is split by concern:
// CalcKeys (key table, Press_Key, keyboard, speech), CalcEntry (dispatch and
// operand entry), CalcOperators (priority evaluation), CalcDisplay (display,
// modes, clock), CalcFractions (fractions, sexagesimal), CalcValueKeys
// (functions, conversions, pi, random, paste), CalcMemory (memory, registers,
// statistics data).
#pragma once

#include <string>
#include <vector>

#include "calc/CalcKeys.h"
#include "calc/CalcVariables.h"
#include "shell/Variant.h"

namespace CalcProcs {

// ---- Window level -------------------------------------------------------------
// Runs the handler of the key named by `token` (see Key_Table); false when no
// engine key has that name (the window's own keys "time" and "del" included).
bool Press_Key(CalcVariables& s, const std::string& token);
bool Is_Key_Token(const std::string& token);

// Keyboard: a key code (the classic virtual-key numbering: 48-57 digits, 96-105
// keypad digits, 112-115 F1-F4, ...) and the modifier state (0 none, 1 Shift)
// to the token of the key it acts as (the bindings of Key_Table); "tab0" to
// "tab3" for the key pad pages; "" when the key does nothing.
std::string Keyboard_Token(int keyCode, int shift);

// The first load of the window (settings and files are the window's part):
// K indicator, redisplay or AC, angle and display mode indicators, M indicator.
void Initial_Routine(CalcVariables& s);

// Angle mode option buttons: 'D', 'R' or 'G'.
void Set_Angle_Mode(CalcVariables& s, char mode);
// Display mode option buttons and the precision list.
void StdButton_Click(CalcVariables& s);
void FxnButton_Click(CalcVariables& s);
void ScnButton_Click(CalcVariables& s);
void PrecBox_Click(CalcVariables& s, int index);
void PrecBox_Change(CalcVariables& s);

// Clock key: toggles the clock on the display; true while it is on, when the
// window runs its loop of Show_Clock and event yields until TimeShown clears.
bool key_Time_Click(CalcVariables& s);
// One turn of the clock loop: date line and time of day, e.g.
// "MONDAY NOV 23, 2026" and "09:05:07 AM".
void Show_Clock(CalcVariables& s, int year, int month, int day, int weekday, int hour, int minute, int second);

// ---- Key engine ------------------------------------------------------------------
void Dispatch_Key(CalcVariables& s, std::string& token);
void Process_Key(CalcVariables& s);
void Enter_Digit(CalcVariables& s);
void Enter_Exponent(CalcVariables& s);
void Enter_Fraction(CalcVariables& s);
void Clear_All(CalcVariables& s);
void Clear_Entry(CalcVariables& s);

// ---- Operators -------------------------------------------------------------------
void Operator_Step(CalcVariables& s);
void Press_Operator(CalcVariables& s);
void Press_Equal(CalcVariables& s);
void Evaluate_Pending(CalcVariables& s);
void Reduce_Operands(CalcVariables& s);
void Apply_Constant(CalcVariables& s);

// ---- Display ---------------------------------------------------------------------
void Show_Result(CalcVariables& s, double x);
void Show_Value(CalcVariables& s, const prim::Variant& valueArg, const std::string& textArg);
void Show_Exponent(CalcVariables& s, const std::string& text, const prim::Variant& valueArg);
void Show_Error(CalcVariables& s);
std::string Limit_Digits(const std::string& s);
std::string Check_Length(const std::string& s);
std::string Shorten_Number(const std::string& s);

// ---- Fractions and sexagesimal -----------------------------------------------------
void Commit_Fraction(CalcVariables& s);
// The value of a fraction text, or the text "Error"; leaves the improper form
// in s.ImproperText.
prim::Variant Fraction_Value(CalcVariables& s, const std::string& text);
void Show_Fraction(CalcVariables& s, const std::string& text);
void Fraction_Toggle(CalcVariables& s);

// ---- Speech ------------------------------------------------------------------------
// Says `word` when speech is on and the display holds a number.
void Speak_Text(CalcVariables& s, const std::string& word);

// ---- Memory --------------------------------------------------------------------------
// Register actions after the register window: what the keys do with
// RegisterChoice and RegisterText.
void key_Min_Click(CalcVariables& s);
void key_Kin_Click(CalcVariables& s);
void key_Mplus_Click(CalcVariables& s);
void key_Mminus_Click(CalcVariables& s);
void key_KAC_Click(CalcVariables& s);
// What the DELETE action of the register window does: every checked register
// (indices 0 to 99) goes back to 0 with no description.
void Delete_Registers(CalcVariables& s, const std::vector<int>& checked);
// Value column of the register list: "0.0" and 100 "#", or "0.0", 15 "#" and
// "E+00" when the whole part is too long to write plainly; three blanks behind.
std::string Register_Value_Text(double value);

// ---- Statistics data window ------------------------------------------------------------
// Deletes the checked rows; with every row checked the data becomes the empty
// text (no list).
void Delete_Data(CalcVariables& s, const std::vector<bool>& checked);
// Value column of the data list: as the register list, read back and written plainly.
std::string Data_Value_Text(double value);

// ---- Clipboard -----------------------------------------------------------------------------
// The text the copy command puts on the clipboard: the plain text of X.
std::string Copy_Text(const CalcVariables& s);

}  // namespace CalcProcs
