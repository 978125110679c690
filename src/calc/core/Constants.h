// The table of physical constants and conversion factors offered by the
// calculator's constant window. The table is kept as 128 row texts of five
// fields joined by "<+>" (number, symbol, description, value, unit) and parsed
// into records whenever the window loads, so the parser is the table's only
// reader. Texts are UTF-8 in memory.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace Constants {

constexpr int kConstantCount = 128;

// Field separator inside a row text.
inline constexpr std::string_view kFieldSeparator = "<+>";

struct ConstantRecord {
    int32_t Number = 0;        // row number, 1 to 128
    std::string Symbol;        // trimmed
    std::string Description;   // trimmed
    double Value = 0.0;        // the number of the value field (six significant digits)
    std::string Unit;          // trimmed
};

// The two arrays the calculator state keeps: the row texts and the records
// parsed from them, index 0 holding row number 1.
struct ConstantTable {
    std::array<std::string, kConstantCount> ConstantText;
    std::array<ConstantRecord, kConstantCount> ConstantData;
};

// The 128 row texts as they are stored, in row order.
const std::array<std::string_view, kConstantCount>& Constant_Rows();

// Splits one row text at "<+>" into a record: Number = number of field 0,
// Symbol/Description/Unit trimmed, Value = number of field 3. Missing
// fields read as empty (0 for the numbers).
ConstantRecord Parse_Constant(std::string_view row);

// Stores the 128 row texts in the table, then parses every row into its record.
void Load_Constants(ConstantTable& table);

}  // namespace Constants
