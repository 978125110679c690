// Key filters for text boxes and grid cells, and the angle normaliser, kept
// free of any window code. A filter takes the character code of a pressed key
// and gives it back when it may pass, or 0 to swallow it.
#pragma once

#include <cstdint>
#include <string>

namespace KeyFilters {

// Codes of the keys the editors act on (character codes for the filters,
// key codes for the moves out of an edit box).
namespace KeyCode {
constexpr int16_t Backspace = 8;
constexpr int16_t Tab = 9;
constexpr int16_t Enter = 13;
constexpr int16_t Esc = 27;
constexpr int16_t Space = 32;
constexpr int16_t Left = 37;
constexpr int16_t Up = 38;
constexpr int16_t Right = 39;
constexpr int16_t Down = 40;
constexpr int16_t Delete = 46;
constexpr int16_t F2 = 113;
}  // namespace KeyCode

// What a filter needs to know of the box the key goes to.
struct BoxState {
    std::string Text;          // the box's text
    bool AllSelected = false;  // the whole text is selected, so a typed key replaces it
};

// Digits, Backspace, Tab and Enter.
int16_t Key_Digit(int16_t key);
// As Key_Digit, and "." whatever the text holds.
int16_t Key_PositiveDecimal(int16_t key);
// As Key_Digit, and "." when the text holds none.
int16_t Key_UnsignedDecimal(int16_t key, const BoxState& box);
// As Key_UnsignedDecimal, and "-" when Box_HasMinus is false.
int16_t Key_SignedDecimal(int16_t key, const BoxState& box);
// As Key_Digit, and blank, "/", the double quote, "'", "-" and ".".
int16_t Key_Architectural(int16_t key, const BoxState& box);

// False when the box has text that is all selected (a typed minus replaces
// it); otherwise whether the text holds a "-" anywhere.
bool Box_HasMinus(const BoxState& box);

// Brings an angle in degrees into 0 up to 360. The fraction of a negative
// angle is added, not taken away: -10.5 gives 350.5.
double Normalize_Angle(double degrees);

}  // namespace KeyFilters
