#include "shell/core/Primitives.h"

#include <cctype>
#include <charconv>
#include <cstring>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

namespace prim {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// A finite double as at most 15 significant decimal digits: value =
// 0.d1d2d3... x 10^pointPos. Zero gives no digits.
struct Decimal {
    bool negative = false;
    std::vector<int> digits;  // most significant first, no trailing zeros
    int pointPos = 0;         // digits before the decimal point
};

Decimal ToDecimal(double x) {
    Decimal d;
    d.negative = std::signbit(x) && x != 0.0;
    double a = std::fabs(x);
    if (a == 0.0 || !std::isfinite(a)) return d;
    // d.dddddddddddddde[+-]xx, correctly rounded as printf's %.14e (and
    // several times faster: labels format thousands of numbers a display).
    char buf[64];
    const std::to_chars_result r = std::to_chars(buf, buf + sizeof buf - 1, a, std::chars_format::scientific, 14);
    *r.ptr = '\0';
    const char* e = std::strchr(buf, 'e');
    const int exp10 = std::atoi(e + 1);
    d.digits.reserve(15);
    for (const char* c = buf; c != e; ++c)
        if (IsDigit(*c)) d.digits.push_back(*c - '0');
    while (!d.digits.empty() && d.digits.back() == 0) d.digits.pop_back();
    d.pointPos = exp10 + 1;
    return d;
}

// Rounds to `keep` significant digits (counted from the first digit), ties
// away from zero. May lengthen the number by a carry (999 -> 1000).
void RoundDigits(Decimal& d, int keep) {
    if (keep < 0) {
        d.digits.clear();
        return;
    }
    if (static_cast<int>(d.digits.size()) <= keep) return;
    bool up = d.digits[static_cast<size_t>(keep)] >= 5;
    d.digits.resize(static_cast<size_t>(keep));
    if (up) {
        int i = keep - 1;
        while (i >= 0) {
            if (++d.digits[static_cast<size_t>(i)] < 10) break;
            d.digits[static_cast<size_t>(i)] = 0;
            --i;
        }
        if (i < 0) {
            d.digits.insert(d.digits.begin(), 1);
            d.pointPos += 1;
        }
    }
    while (!d.digits.empty() && d.digits.back() == 0) d.digits.pop_back();
}

// Digit at decimal position `k` counted from the point: k = 1 is the ones
// digit, k = 2 the tens...; k = 0 the first decimal, k = -1 the second...
int DigitAt(const Decimal& d, int k) {
    int idx = d.pointPos - k;  // index into digits
    if (idx < 0 || idx >= static_cast<int>(d.digits.size())) return 0;
    return d.digits[static_cast<size_t>(idx)];
}

struct Picture {
    std::string prefix, suffix;
    int intZeros = 0;     // "0" placeholders before the point
    int intPlaces = 0;    // all placeholders before the point
    bool hasPoint = false;
    bool grouping = false;
    int fracPlaces = 0;   // all placeholders after the point
    int fracLastZero = 0; // 1-based position of the last "0" after the point
    bool hasExp = false;
    bool expPlus = false; // "E+": sign always; "E-": minus only
    char expChar = 'E';
    int expDigits = 0;
};

Picture ParsePicture(std::string_view p) {
    Picture pic;
    size_t i = 0;
    // Literal text up to the first placeholder, point or comma.
    auto isPlace = [](char c) { return c == '0' || c == '#' || c == '.' || c == ','; };
    while (i < p.size() && !isPlace(p[i])) pic.prefix += p[i++];
    bool seenDigit = false;
    for (; i < p.size(); ++i) {
        char c = p[i];
        if (c == '0' || c == '#') {
            seenDigit = true;
            if (pic.hasPoint) {
                ++pic.fracPlaces;
                if (c == '0') pic.fracLastZero = pic.fracPlaces;
            } else {
                ++pic.intPlaces;
                if (c == '0') ++pic.intZeros;
            }
        } else if (c == '.' && !pic.hasPoint) {
            pic.hasPoint = true;
        } else if (c == ',' && !pic.hasPoint) {
            if (seenDigit) pic.grouping = true;
        } else if ((c == 'E' || c == 'e') && i + 1 < p.size() && (p[i + 1] == '+' || p[i + 1] == '-')) {
            pic.hasExp = true;
            pic.expChar = c;
            pic.expPlus = p[i + 1] == '+';
            i += 2;
            while (i < p.size() && (p[i] == '0' || p[i] == '#')) {
                if (p[i] == '0') ++pic.expDigits;
                ++i;
            }
            break;
        } else {
            break;
        }
    }
    pic.suffix = std::string(p.substr(std::min(i, p.size())));
    return pic;
}

std::string GroupThousands(const std::string& digits) {
    std::string out;
    int n = static_cast<int>(digits.size());
    for (int i = 0; i < n; ++i) {
        out += digits[static_cast<size_t>(i)];
        int left = n - 1 - i;
        if (left > 0 && left % 3 == 0) out += ',';
    }
    return out;
}

// Writes the whole part and the fraction of a rounded decimal by the picture.
std::string Body(const Decimal& d, const Picture& pic) {
    std::string whole;
    for (int k = std::max(d.pointPos, 1); k >= 1; --k) whole += static_cast<char>('0' + DigitAt(d, k));
    // Drop leading zeros, then pad back to the "0" count of the picture.
    size_t nz = whole.find_first_not_of('0');
    whole = nz == std::string::npos ? std::string() : whole.substr(nz);
    if (static_cast<int>(whole.size()) < pic.intZeros)
        whole = std::string(static_cast<size_t>(pic.intZeros) - whole.size(), '0') + whole;
    if (pic.grouping) whole = GroupThousands(whole);
    std::string out = whole;
    if (pic.hasPoint) {
        out += '.';
        std::string frac;
        for (int j = 1; j <= pic.fracPlaces; ++j) frac += static_cast<char>('0' + DigitAt(d, 1 - j));
        while (static_cast<int>(frac.size()) > pic.fracLastZero && !frac.empty() && frac.back() == '0')
            frac.pop_back();
        out += frac;
    }
    return out;
}

}  // namespace

double Val(std::string_view s) {
    size_t i = 0;
    auto skip = [&] {
        while (i < s.size() && IsBlank(s[i])) ++i;
    };
    skip();
    if (i + 1 < s.size() && s[i] == '&') {
        char k = static_cast<char>(std::toupper(static_cast<unsigned char>(s[i + 1])));
        int base = k == 'H' ? 16 : k == 'O' ? 8 : 0;
        if (base != 0) {
            i += 2;
            double v = 0;
            for (; i < s.size(); ++i) {
                if (IsBlank(s[i])) continue;
                int c = std::toupper(static_cast<unsigned char>(s[i]));
                int dv = IsDigit(static_cast<char>(c)) ? c - '0' : (c >= 'A' && c <= 'F') ? c - 'A' + 10 : 99;
                if (dv >= base) break;
                v = v * base + dv;
            }
            return v;
        }
    }
    std::string buf;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) {
        buf += s[i++];
    }
    bool any = false, point = false;
    for (; i < s.size(); ++i) {
        char c = s[i];
        if (IsBlank(c)) continue;
        if (IsDigit(c)) {
            buf += c;
            any = true;
        } else if (c == '.' && !point) {
            buf += c;
            point = true;
        } else {
            break;
        }
    }
    if (!any) return 0.0;
    // Exponent: E or D, optional sign, at least one digit.
    if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
        size_t j = i + 1;
        std::string exp = "e";
        while (j < s.size() && IsBlank(s[j])) ++j;
        if (j < s.size() && (s[j] == '-' || s[j] == '+')) exp += s[j++];
        bool digits = false;
        for (; j < s.size(); ++j) {
            if (IsBlank(s[j])) continue;
            if (!IsDigit(s[j])) break;
            exp += s[j];
            digits = true;
        }
        if (digits) buf += exp;
    }
    double v = std::strtod(buf.c_str(), nullptr);
    return v;
}

bool IsNumeric(std::string_view s) {
    std::string t = Trim(s);
    size_t i = 0, n = t.size();
    if (n == 0) return false;
    if (n > 2 && t[0] == '&') {
        char k = static_cast<char>(std::toupper(static_cast<unsigned char>(t[1])));
        if (k == 'H' || k == 'O') {
            for (i = 2; i < n; ++i) {
                int c = std::toupper(static_cast<unsigned char>(t[i]));
                bool ok = k == 'H' ? (IsDigit(static_cast<char>(c)) || (c >= 'A' && c <= 'F')) : (c >= '0' && c <= '7');
                if (!ok) return false;
            }
            return true;
        }
    }
    if (t[i] == '+' || t[i] == '-') ++i;
    bool digits = false;
    while (i < n && (IsDigit(t[i]) || (t[i] == ',' && digits))) {
        if (IsDigit(t[i])) digits = true;
        ++i;
    }
    if (i < n && t[i] == '.') {
        ++i;
        while (i < n && IsDigit(t[i])) {
            digits = true;
            ++i;
        }
    }
    if (!digits) return false;
    if (i < n && (t[i] == 'E' || t[i] == 'e' || t[i] == 'D' || t[i] == 'd')) {
        ++i;
        if (i < n && (t[i] == '+' || t[i] == '-')) ++i;
        bool ed = false;
        while (i < n && IsDigit(t[i])) {
            ed = true;
            ++i;
        }
        if (!ed) return false;
    }
    return i == n;
}

std::string Format(double value, std::string_view picture) {
    Picture pic = ParsePicture(picture);
    if (!std::isfinite(value)) return pic.prefix + (std::isnan(value) ? "NaN" : value < 0 ? "-Inf" : "Inf") + pic.suffix;
    Decimal d = ToDecimal(value);
    std::string sign = d.negative ? "-" : "";
    if (!pic.hasExp) {
        // Keep the digits down to the last decimal place of the picture.
        RoundDigits(d, d.pointPos + pic.fracPlaces);
        return pic.prefix + sign + Body(d, pic) + pic.suffix;
    }
    int lead = std::max(pic.intPlaces, 1);
    int exp10 = 0;
    if (!d.digits.empty()) {
        exp10 = d.pointPos - lead;
        d.pointPos = lead;
        RoundDigits(d, lead + pic.fracPlaces);
        if (d.pointPos > lead) {  // a carry made one more digit: 9.99E+00 -> 1.00E+01
            exp10 += d.pointPos - lead;
            d.pointPos = lead;
        }
    }
    Picture mant = pic;
    if (mant.intZeros == 0 && mant.intPlaces > 0 && !d.digits.empty()) mant.intZeros = 0;
    std::string e = std::to_string(std::abs(exp10));
    if (static_cast<int>(e.size()) < pic.expDigits) e = std::string(static_cast<size_t>(pic.expDigits) - e.size(), '0') + e;
    std::string esign = exp10 < 0 ? "-" : (pic.expPlus ? "+" : "");
    return pic.prefix + sign + Body(d, mant) + pic.expChar + esign + e + pic.suffix;
}

double Fix(double x) { return std::trunc(x); }

int Sgn(double x) { return x > 0 ? 1 : (x < 0 ? -1 : 0); }

double RoundEven(double x) { return std::nearbyint(x); }

bool ToInt16(double x, int16_t& out) {
    if (!std::isfinite(x)) return false;
    double r = RoundEven(x);
    if (r < -32768.0 || r > 32767.0) return false;
    out = static_cast<int16_t>(r);
    return true;
}

bool ToInt32(double x, int32_t& out) {
    if (!std::isfinite(x)) return false;
    double r = RoundEven(x);
    if (r < -2147483648.0 || r > 2147483647.0) return false;
    out = static_cast<int32_t>(r);
    return true;
}

std::string PlainText(double x) {
    if (std::isnan(x)) return "NaN";
    if (std::isinf(x)) return x < 0 ? "-Inf" : "Inf";
    Decimal d = ToDecimal(x);
    if (d.digits.empty()) return "0";
    std::string out = d.negative ? "-" : "";
    int exp10 = d.pointPos - 1;
    if (exp10 >= 15 || exp10 < -4) {
        out += static_cast<char>('0' + d.digits[0]);
        if (d.digits.size() > 1) {
            out += '.';
            for (size_t i = 1; i < d.digits.size(); ++i) out += static_cast<char>('0' + d.digits[i]);
        }
        std::string e = std::to_string(std::abs(exp10));
        if (e.size() < 2) e = "0" + e;
        out += std::string("E") + (exp10 < 0 ? "-" : "+") + e;
        return out;
    }
    if (d.pointPos <= 0) {
        out += "0.";
        out += std::string(static_cast<size_t>(-d.pointPos), '0');
        for (int v : d.digits) out += static_cast<char>('0' + v);
        return out;
    }
    for (int k = 0; k < d.pointPos; ++k)
        out += static_cast<char>('0' + (k < static_cast<int>(d.digits.size()) ? d.digits[static_cast<size_t>(k)] : 0));
    if (static_cast<int>(d.digits.size()) > d.pointPos) {
        out += '.';
        for (size_t k = static_cast<size_t>(d.pointPos); k < d.digits.size(); ++k) out += static_cast<char>('0' + d.digits[k]);
    }
    return out;
}

std::string Trim(std::string_view s) { return RTrim(LTrim(s)); }

std::string LTrim(std::string_view s) {
    size_t i = 0;
    while (i < s.size() && s[i] == ' ') ++i;
    return std::string(s.substr(i));
}

std::string RTrim(std::string_view s) {
    size_t n = s.size();
    while (n > 0 && s[n - 1] == ' ') --n;
    return std::string(s.substr(0, n));
}

std::string UCase(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

std::string LCase(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

size_t InStr(std::string_view s, std::string_view what, size_t start) {
    if (start < 1) start = 1;
    if (start > s.size() + 1) return 0;
    size_t p = s.find(what, start - 1);
    return p == std::string_view::npos ? 0 : p + 1;
}

std::string Mid(std::string_view s, size_t start, size_t len) {
    if (start < 1) start = 1;
    if (start > s.size()) return std::string();
    return std::string(s.substr(start - 1, len));
}

std::string Left(std::string_view s, size_t n) { return std::string(s.substr(0, std::min(n, s.size()))); }

std::string Right(std::string_view s, size_t n) {
    n = std::min(n, s.size());
    return std::string(s.substr(s.size() - n));
}

std::string Replace(std::string_view s, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(s);
    std::string out;
    size_t i = 0;
    for (;;) {
        size_t p = s.find(from, i);
        if (p == std::string_view::npos) break;
        out.append(s.substr(i, p - i));
        out.append(to);
        i = p + from.size();
    }
    out.append(s.substr(i));
    return out;
}

std::string RepeatChar(char c, size_t n) { return std::string(n, c); }

namespace {
// Windows-1252 code points 0x80..0x9F; 0 where the code page has no character.
const char32_t kCp1252High[32] = {
    0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0, 0x017D, 0,
    0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}
}  // namespace

std::string ToCp1252(std::string_view utf8) {
    std::string out;
    size_t i = 0;
    while (i < utf8.size()) {
        unsigned char c = static_cast<unsigned char>(utf8[i]);
        char32_t cp;
        size_t len;
        if (c < 0x80) { cp = c; len = 1; }
        else if ((c & 0xE0) == 0xC0) { cp = c & 0x1F; len = 2; }
        else if ((c & 0xF0) == 0xE0) { cp = c & 0x0F; len = 3; }
        else if ((c & 0xF8) == 0xF0) { cp = c & 0x07; len = 4; }
        else { out += '?'; ++i; continue; }
        if (i + len > utf8.size()) { out += '?'; break; }
        bool bad = false;
        for (size_t k = 1; k < len; ++k) {
            unsigned char cc = static_cast<unsigned char>(utf8[i + k]);
            if ((cc & 0xC0) != 0x80) { bad = true; break; }
            cp = (cp << 6) | (cc & 0x3F);
        }
        if (bad) { out += '?'; ++i; continue; }
        i += len;
        if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
            out += static_cast<char>(cp);
            continue;
        }
        // The five bytes the code page leaves undefined read as U+0081 etc.;
        // they go back as the same bytes.
        if (cp >= 0x80 && cp <= 0x9F && kCp1252High[cp - 0x80] == 0) {
            out += static_cast<char>(cp);
            continue;
        }
        char mapped = '?';
        for (int k = 0; k < 32; ++k)
            if (kCp1252High[k] == cp && cp != 0) mapped = static_cast<char>(0x80 + k);
        out += mapped;
    }
    return out;
}

std::string FromCp1252(std::string_view bytes) {
    std::string out;
    for (char ch : bytes) {
        unsigned char c = static_cast<unsigned char>(ch);
        if (c < 0x80) out += ch;
        else if (c < 0xA0) AppendUtf8(out, kCp1252High[c - 0x80] ? kCp1252High[c - 0x80] : c);
        else AppendUtf8(out, c);
    }
    return out;
}

}  // namespace prim
