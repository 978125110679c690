#include "CalcKeyList.h"

#include <cctype>
#include <map>

#include "Cli.h"
#include "calc/core/KeyTable.h"

namespace cli {

namespace {

// What each key of the calculator's key table does, in a few words.
const std::map<std::string, std::string>& Descriptions() {
    static const std::map<std::string, std::string> words = {
        {"dot", "decimal point"},
        {"pm", "change the sign of the number or of the exponent being typed"},
        {"exp", "start the exponent of ten"},
        {"ers", "erase the last digit typed"},
        {"C", "clear the entry"},
        {"AC", "clear all: entry, pending operation and indicators"},
        {"+", "add"},
        {"-", "subtract"},
        {"*", "multiply"},
        {"/", "divide"},
        {"xy", "x to the power y"},
        {"root", "y-th root of x"},
        {"=", "finish the calculation"},
        {"frc", "fraction key (a b/c): whole number, numerator and denominator"},
        {"dc", "switch the display between decimal and fraction"},
        {"x-y", "exchange x and y"},
        {"PI", "pi"},
        {"rand", "a random number"},
        {"sqr", "square"},
        {"sqrt", "square root"},
        {"cube", "cube"},
        {"cubt", "cube root"},
        {"rcp", "reciprocal"},
        {"fact", "factorial"},
        {"log", "logarithm to base 10"},
        {"alog", "ten to the power x"},
        {"ln", "natural logarithm"},
        {"aln", "e to the power x"},
        {"sin", "sine (in the angle mode)"},
        {"cos", "cosine"},
        {"tan", "tangent"},
        {"iSin", "inverse sine"},
        {"iCos", "inverse cosine"},
        {"iTan", "inverse tangent"},
        {"sinh", "hyperbolic sine"},
        {"cosh", "hyperbolic cosine"},
        {"tanh", "hyperbolic tangent"},
        {"isinh", "inverse hyperbolic sine"},
        {"icosh", "inverse hyperbolic cosine"},
        {"itanh", "inverse hyperbolic tangent"},
        {"sexa", "decimal degrees to degrees, minutes and seconds"},
        {"asex", "degrees, minutes and seconds to decimal degrees"},
        {"ptor", "polar (r, angle) to rectangular (x, y)"},
        {"rtop", "rectangular (x, y) to polar (r, angle)"},
        {"engl", "engineering display: move the point left by three digits"},
        {"engr", "engineering display: move the point right by three digits"},
        {"min", "store the display in memory"},
        {"mo", "recall memory"},
        {"xtract", "paste: take the number held for pasting"},
        {"data", "add the display to the statistics data"},
        {"dtn", "statistics: count of data values"},
        {"dts", "statistics: sum of the values"},
        {"ave", "statistics: mean"},
        {"sqr1", "statistics: square of the sum"},
        {"sqr2", "statistics: sum of the squares"},
        {"strd0", "statistics: standard deviation of the population (n)"},
        {"strd1", "statistics: standard deviation of a sample (n - 1)"},
        {"kin", "store the display in register N (1 to 100)"},
        {"ko", "recall register N"},
        {"xk", "exchange the display with register N"},
        {"mplus", "add the display to register N"},
        {"mminus", "subtract the display from register N"},
        {"kac", "clear register N"},
        {"cnst", "the constant in row N of the constant table (1 to 128)"},
    };
    return words;
}

// Keys the command gives a register or row number: "kin:12".
bool TakesNumber(const Calculator::KeyDef& k) { return k.registerAction.has_value() || std::string(k.token) == "cnst"; }

}  // namespace

std::string KeyDescription(const std::string& token) {
    const auto it = Descriptions().find(token);
    return it == Descriptions().end() ? std::string() : it->second;
}

const std::vector<CalcKeyInfo>& CalcKeyList() {
    static const std::vector<CalcKeyInfo> keys = [] {
        std::vector<CalcKeyInfo> out = {
            {"0-9", "digit keys (a whole number such as 100, 2.5, -3 or 1.5e3 is typed as its keys)", false}};
        // Every key of the calculator's own table, in key pad order; the
        // window's own keys (clock, data window) have no token here.
        for (const Calculator::KeyDef& k : Calculator::Key_Table()) {
            if (k.kind == Calculator::KeyKind::Window || k.kind == Calculator::KeyKind::Digit) continue;
            std::string does = KeyDescription(k.token);
            if (does.empty()) does = k.word != nullptr && *k.word != 0 ? k.word : k.caption;
            out.push_back({std::string(k.token) + (TakesNumber(k) ? ":N" : ""), does, !TakesNumber(k)});
        }
        out.push_back({"deg, rad, grad", "angle mode from here on", false});
        out.push_back({"norm", "normal display from here on", false});
        out.push_back({"fix:N, sci:N", "fixed or scientific display with N places (0 to 14) from here on", false});
        return out;
    }();
    return keys;
}

bool NumberKeys(const std::string& text, std::vector<std::string>& keys, std::string& error) {
    size_t i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    std::vector<std::string> mantissa;
    int digits = 0, significant = 0;
    bool point = false;
    for (; i < text.size(); ++i) {
        const char ch = text[i];
        if (std::isdigit(static_cast<unsigned char>(ch))) {
            ++digits;
            if (ch != '0' || significant > 0 || point) ++significant;
            mantissa.emplace_back(1, ch);
        } else if (ch == '.' && !point) {
            point = true;
            mantissa.emplace_back("dot");
        } else {
            break;
        }
    }
    if (digits == 0) return false;
    std::vector<std::string> exponent;
    bool expNegative = false;
    if (i < text.size()) {
        if (text[i] != 'e' && text[i] != 'E') return false;
        ++i;
        if (i < text.size() && (text[i] == '-' || text[i] == '+')) expNegative = text[i++] == '-';
        int expDigits = 0, expSignificant = 0;
        for (; i < text.size(); ++i) {
            const char ch = text[i];
            if (!std::isdigit(static_cast<unsigned char>(ch))) return false;
            ++expDigits;
            if (ch != '0' || expSignificant > 0) {
                ++expSignificant;
                exponent.emplace_back(1, ch);
            }
        }
        if (expDigits == 0) return false;
        if (expSignificant > 2) {
            error = Quote(text) + " is out of range: the exponent runs from -99 to 99";
            return true;
        }
        if (exponent.empty()) exponent.emplace_back("0");
    }
    if (significant > 15) {
        error = Quote(text) + " is out of range: the display takes 15 digits";
        return true;
    }
    keys = mantissa;
    if (negative) keys.emplace_back("pm");
    if (!exponent.empty()) {
        keys.emplace_back("exp");
        keys.insert(keys.end(), exponent.begin(), exponent.end());
        if (expNegative) keys.emplace_back("pm");
    }
    return true;
}

}  // namespace cli
