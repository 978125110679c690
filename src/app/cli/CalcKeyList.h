// The key tokens `calc` takes and a word on what each does, for
// `calc --keys`: every key of the calculator's key table, then the command's
// own mode tokens.
#pragma once

#include <string>
#include <vector>

namespace cli {

struct CalcKeyInfo {
    std::string token;
    std::string does;
    bool engineKey = true;  // false for the digit group and the command's own tokens
};

// Every key token of the engine, then the command's own tokens.
const std::vector<CalcKeyInfo>& CalcKeyList();
// The few words on what a key of the table does; empty for a key not described.
std::string KeyDescription(const std::string& token);

// A whole number ("100", "2.5", "-3", "1.5e3") as the keys that enter it:
// digits, "dot", "pm" after the mantissa, "exp", exponent digits, "pm".
// False when the text is no number; `error` is set when it is one the
// display cannot hold (more than 15 digits, an exponent beyond 99).
bool NumberKeys(const std::string& text, std::vector<std::string>& keys, std::string& error);

}  // namespace cli
