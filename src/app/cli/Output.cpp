#include "Output.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <iostream>

namespace cli {

std::string FullPrecision(double v) {
    if (!std::isfinite(v)) return "";
    if (v == 0.0) return "0";
    char buf[64];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
    return ec == std::errc() ? std::string(buf, end) : std::string();
}

Cell Num(float v) {
    Cell c{Cell::Number, static_cast<double>(v), {}, false};
    if (std::isfinite(v) && v != 0.0f) {
        char buf[32];
        auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
        if (ec == std::errc()) c.text.assign(buf, end);
    }
    return c;
}

std::string JsonString(const std::string& s) {
    std::string out = "\"";
    for (unsigned char ch : s) {
        switch (ch) {
            case '"': out += "\\\""; break;
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\t': out += "\\t"; break;
            case '\r': out += "\\r"; break;
            default:
                if (ch < 0x20) {
                    char buf[8];
                    std::snprintf(buf, sizeof buf, "\\u%04X", ch);
                    out += buf;
                } else {
                    out += static_cast<char>(ch);
                }
        }
    }
    return out + "\"";
}

namespace {

std::string JsonCell(const Cell& c) {
    switch (c.kind) {
        case Cell::Number: {
            const std::string t = c.text.empty() ? FullPrecision(c.number) : c.text;
            return t.empty() ? "null" : t;
        }
        case Cell::Text: return JsonString(c.text);
        case Cell::Bool: return c.flag ? "true" : "false";
        case Cell::Json: return c.text;
        case Cell::None: break;
    }
    return "null";
}

std::string CsvText(const std::string& s) {
    if (s.find_first_of(",\"\n\r") == std::string::npos) return s;
    std::string out = "\"";
    for (char ch : s) out += ch == '"' ? std::string("\"\"") : std::string(1, ch);
    return out + "\"";
}

std::string CsvCell(const Cell& c) {
    switch (c.kind) {
        case Cell::Number: return c.text.empty() ? FullPrecision(c.number) : c.text;
        case Cell::Text: return CsvText(c.text);
        case Cell::Bool: return c.flag ? "true" : "false";
        case Cell::Json: return CsvText(c.text);
        case Cell::None: break;
    }
    return "";
}

}  // namespace

std::string JsonObject(const Row& row) {
    std::string s = "{";
    for (size_t i = 0; i < row.size(); ++i) {
        if (i != 0) s += ", ";
        s += JsonString(row[i].name) + ": " + JsonCell(row[i].value);
    }
    return s + "}";
}

std::string JsonArray(const std::vector<Row>& rows) {
    std::string s = "[";
    for (size_t i = 0; i < rows.size(); ++i) s += (i != 0 ? ", " : "") + JsonObject(rows[i]);
    return s + "]";
}

void WriteCsv(std::ostream& out, const std::vector<Row>& rows, bool header) {
    if (rows.empty()) return;
    if (header) {
        for (size_t i = 0; i < rows.front().size(); ++i) out << (i != 0 ? "," : "") << CsvText(rows.front()[i].name);
        out << "\n";
    }
    for (const Row& r : rows) {
        for (size_t i = 0; i < r.size(); ++i) out << (i != 0 ? "," : "") << CsvCell(r[i].value);
        out << "\n";
    }
}

void WriteRows(const Parsed& p, const std::vector<Row>& rows) {
    if (p.format == Format::Csv) {
        WriteCsv(std::cout, rows, p.header);
    } else if (p.format == Format::Json) {
        std::cout << (rows.size() == 1 ? JsonObject(rows.front()) : JsonArray(rows)) << "\n";
    }
}

}  // namespace cli
