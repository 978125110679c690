#include "shell/core/KeyFilters.h"

#include <cmath>

#include "shell/core/Primitives.h"

namespace KeyFilters {

namespace {

bool IsBasic(int16_t key) {
    return (key >= '0' && key <= '9') || key == KeyCode::Backspace || key == KeyCode::Tab ||
           key == KeyCode::Enter;
}

bool HasPoint(const BoxState& box) { return box.Text.find('.') != std::string::npos; }

}  // namespace

int16_t Key_Digit(int16_t key) { return IsBasic(key) ? key : 0; }

int16_t Key_PositiveDecimal(int16_t key) { return (IsBasic(key) || key == '.') ? key : 0; }

int16_t Key_UnsignedDecimal(int16_t key, const BoxState& box) {
    if (IsBasic(key)) return key;
    if (key == '.' && !HasPoint(box)) return key;
    return 0;
}

int16_t Key_SignedDecimal(int16_t key, const BoxState& box) {
    if (IsBasic(key)) return key;
    if (key == '.' && !HasPoint(box)) return key;
    if (key == '-' && !Box_HasMinus(box)) return key;
    return 0;
}

int16_t Key_Architectural(int16_t key, const BoxState&) {
    if (IsBasic(key)) return key;
    switch (key) {
        case ' ': case '/': case '"': case '\'': case '-': case '.': return key;
        default: return 0;
    }
}

bool Box_HasMinus(const BoxState& box) {
    if (!box.Text.empty() && box.AllSelected) return false;
    return box.Text.find('-') != std::string::npos;
}

double Normalize_Angle(double degrees) {
    double value = degrees;
    double result = 0.0;
    do {
        const double whole = prim::Fix(std::fabs(value));
        const double fraction = std::fabs(value) - whole;
        result = std::fmod(prim::Sgn(value) * whole + 360.0, 360.0) + fraction;
        value = result;
    } while (result < 0.0);
    return result;
}

}  // namespace KeyFilters
