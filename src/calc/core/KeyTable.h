// The calculator's key table: every key once, with its token, its kind, the
// button or menu entry that presses it, its caption, the operator mark and the
// word it says, and the keyboard keys that act as it. Dispatch, speech, the
// keyboard, the command line and the window's buttons all read this table.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "calc/core/CalculatorState.h"

namespace Calculator {

enum class KeyKind : std::uint8_t {
    Digit,      // "0" to "9"
    Operator,   // "+", "-", "*", "/", "=", power and root
    Function,   // one-argument functions of X
    Statistic,  // statistics of the data list
    Entry,      // point, sign, exponent, fraction, delete and clear keys
    Value,      // keys that put a value on the display: pi, random, recalls, paste, swap, sexagesimal
    Memory,     // M memory, registers and data
    Direct,     // display conversions with actions of their own
    Window,     // keys the window runs itself (clock, data window): no engine token
};

// How Press_Key speaks after the key: its word, the result at "=", or
// "negative" when the sign key left a negative number.
enum class KeySpeech : std::uint8_t { Silent, Word, Result, Sign };

// The keyboard keys the calculator reads, by the calculator's own names. The
// row of digits and the keypad are told apart where they act otherwise: a
// digit of the row minds Shift, one of the keypad does not. A character that
// shares a key with a digit ("#" over 3, "^" over 6, "*" over 8) arrives as
// that digit with Shift.
// clang-format off
enum class Keyboard : std::uint8_t {
    None,
    Digit0, Digit1, Digit2, Digit3, Digit4, Digit5, Digit6, Digit7, Digit8, Digit9,            // row of digits
    Keypad0, Keypad1, Keypad2, Keypad3, Keypad4, Keypad5, Keypad6, Keypad7, Keypad8, Keypad9,  // keypad
    Point,        // "." of the row or the keypad
    Plus,         // "+" of the row or the keypad
    Minus,        // "-" of the row
    KeypadMinus,  // "-" of the keypad
    Asterisk,     // "*" of the keypad, or the character typed elsewhere
    Slash,        // "/" of the row or the keypad
    Equal,        // the "=" key, "+" with Shift
    Enter,        // Return or the keypad's Enter
    Delete, Backspace, Escape, Up,
    F1, F2, F3, F4,  // the four pages of keys
    F8, F9,
};
// clang-format on

// Digit d (0 to 9) of the row of digits and of the keypad.
constexpr Keyboard Row_Digit(int d) { return static_cast<Keyboard>(static_cast<int>(Keyboard::Digit0) + d); }
constexpr Keyboard Keypad_Digit(int d) { return static_cast<Keyboard>(static_cast<int>(Keyboard::Keypad0) + d); }

// The modifiers held with a keyboard key: none, Shift alone, or any other
// (Ctrl, Alt or Meta, with or without Shift).
enum class Modifiers : std::uint8_t { None, Shift, Other };

// Which modifiers a keyboard binding accepts.
enum class ShiftRule : std::uint8_t { Any, None, Shift, NotShift };

// A keyboard key that acts as a key of the table; Keyboard::None is no binding.
struct KeyBinding {
    Keyboard key = Keyboard::None;
    ShiftRule shift = ShiftRule::Any;
};

using KeyAction = void (*)(CalculatorState&, const std::string& token);

struct KeyDef {
    const char* token;
    KeyKind kind;
    const char* control;  // objectName of the button (or menu entry) of the window
    const char* caption;  // text on the button
    bool dispatched;      // runs through Dispatch_Key (operator mark, lock, AC, Process_Key)
    const char* mark;     // operator mark set before dispatch: nullptr leaves it, "" blanks it
    KeySpeech speech;
    const char* word;     // for KeySpeech::Word; "" cuts off what is being said
    std::array<KeyBinding, 3> keyboard;
    std::optional<RegisterAction> registerAction;  // the register window this key opens
    KeyAction action;     // nullptr for Window keys
};

// Every key, in the order of the key pad.
std::span<const KeyDef> Key_Table();
// The key with this token or control name; nullptr when there is none.
const KeyDef* Find_Key(const std::string& token);
const KeyDef* Find_Key_By_Control(const std::string& control);

// The key of the table a keyboard key acts as with these modifiers (the
// bindings of Key_Table); nullptr when it acts as none.
const KeyDef* Keyboard_Key(Keyboard key, Modifiers modifiers);
// The page of keys F1 to F4 turn to (0 to 3), whatever the modifiers; -1 for
// any other key.
int Keyboard_Page(Keyboard key);

}  // namespace Calculator
