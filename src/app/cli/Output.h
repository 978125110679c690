// The machine-readable forms of a command's result: csv with a header row
// and json objects, fields labelled with their unit in the name
// ("capacity_kips", "ex_in"), numbers at full precision. Text output stays
// with each command, as it always printed it.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Cli.h"

namespace cli {

struct Cell {
    enum Kind { None, Number, Text, Bool, Json } kind = None;
    double number = 0.0;
    std::string text;  // Text, ready json for Json, or the shortest text of a single
    bool flag = false;
};
inline Cell Num(double v) { return {Cell::Number, v, {}, false}; }
// A single at its own precision: the shortest text that reads back as that single.
Cell Num(float v);
inline Cell Txt(std::string s) { return {Cell::Text, 0.0, std::move(s), false}; }
inline Cell Flag(bool b) { return {Cell::Bool, 0.0, {}, b}; }
inline Cell RawJson(std::string json) { return {Cell::Json, 0.0, std::move(json), false}; }

struct Field {
    std::string name;
    Cell value;
};
using Row = std::vector<Field>;
inline Row operator+(Row a, const Row& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// The shortest text that reads back as the same double; "" for NaN or infinity.
std::string FullPrecision(double v);

std::string JsonString(const std::string& s);
std::string JsonObject(const Row& row);
std::string JsonArray(const std::vector<Row>& rows);

// Header from the first row's names (unless `header` is false), then one line per row.
void WriteCsv(std::ostream& out, const std::vector<Row>& rows, bool header);

// csv rows, or json: one object for one row, an array for several.
void WriteRows(const Parsed& p, const std::vector<Row>& rows);

}  // namespace cli
