// Case tables kept in a text file: "[name]" starts a table, and every later
// line that is neither blank nor a "#" comment is a row of fields separated
// by "|", trimmed. A field in double quotes keeps its blanks.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace casetable {

inline std::string Unquote(std::string t) {
    t.erase(0, t.find_first_not_of(' '));
    t.erase(t.find_last_not_of(' ') + 1);
    return t.size() >= 2 && t.front() == '"' && t.back() == '"' ? t.substr(1, t.size() - 2) : t;
}

struct Row {
    int line = 0;
    std::vector<std::string> fields;
    const std::string& operator[](size_t i) const { return fields.at(i); }
    double Num(size_t i) const { return std::stod(fields.at(i)); }
    // A field of several numbers, separated by blanks.
    std::vector<double> Nums(size_t i) const {
        std::istringstream in(fields.at(i));
        std::vector<double> v;
        for (double d; in >> d;) v.push_back(d);
        return v;
    }
};

inline std::vector<Row> Read(const std::string& path, const std::string& table) {
    std::ifstream in(path);
    std::vector<Row> rows;
    bool inside = false;
    std::string text;
    for (int n = 1; std::getline(in, text); ++n) {
        if (!text.empty() && text[0] == '[') inside = text == "[" + table + "]";
        if (!inside || text.empty() || text[0] == '#' || text[0] == '[') continue;
        rows.push_back({n, {}});
        std::istringstream fields(text);
        for (std::string field; std::getline(fields, field, '|');) rows.back().fields.push_back(Unquote(field));
    }
    EXPECT_FALSE(rows.empty()) << "no table [" << table << "] in " << path;
    return rows;
}

}  // namespace casetable
