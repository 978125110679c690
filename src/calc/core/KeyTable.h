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

// Which modifier state a keyboard binding accepts (0 none, 1 Shift, other
// values for other modifiers).
enum class ShiftRule : std::uint8_t { Any, None, Shift, NotShift };

// A keyboard key in the classic virtual-key numbering: 48-57 digits, 96-105
// keypad digits, 112-115 F1-F4, 13 Enter, 27 Esc, ...; code 0 is no binding.
struct KeyboardKey {
    int code = 0;
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
    std::array<KeyboardKey, 3> keyboard;
    std::optional<RegisterAction> registerAction;  // the register window this key opens
    KeyAction action;     // nullptr for Window keys
};

// Every key, in the order of the key pad.
std::span<const KeyDef> Key_Table();
// The key with this token or control name; nullptr when there is none.
const KeyDef* Find_Key(const std::string& token);
const KeyDef* Find_Key_By_Control(const std::string& control);

}  // namespace Calculator
