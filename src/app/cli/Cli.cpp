#include "Cli.h"

#include <cctype>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iostream>

#include "shell/core/Primitives.h"
#include "units/core/ImperialText.h"

namespace cli {

const double kSingleMax = static_cast<double>(FLT_MAX);

const char* const kLengthHelp =
    "Lengths: a plain number is in the unit the option names (inches unless it says feet);\n"
    "  feet-and-inch text is read as the program reads it elsewhere: 5'-3 1/2\", 5', 6\", 3 1/2\n"
    "  (a number without a mark is inches there). Quote such text in the shell.";

namespace {
std::vector<Command>& Table() {
    static std::vector<Command> table;
    return table;
}

const Option kFormatOption{"--format", "text|csv|json",
                           "text (default) as before; csv with a header row; json (an array for tables)"};
const Option kNoHeaderOption{"--no-header", "", "csv without its header row (to append rows)"};

const Option* FindOption(const Command& c, const std::string& name) {
    for (const Option& o : c.options)
        if (o.name == name) return &o;
    if (c.formats && name == kFormatOption.name) return &kFormatOption;
    if (c.formats && name == kNoHeaderOption.name) return &kNoHeaderOption;
    return nullptr;
}

bool LooksLikeOption(const std::string& a) {
    return a.size() > 2 && a[0] == '-' && a[1] == '-' && std::isalpha(static_cast<unsigned char>(a[2]));
}

std::string Range(double lo, double hi) {
    auto text = [](double v) { return prim::PlainText(v); };
    return text(lo) + " to " + text(hi);
}
}  // namespace

Options operator+(Options a, const Options& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Registrar::Registrar(Command c) { Table().push_back(std::move(c)); }

const std::vector<Command>& Commands() { return Table(); }

const Command* FindCommand(const std::string& name) {
    for (const Command& c : Table())
        if (c.name == name) return &c;
    return nullptr;
}

std::string UsageLine(const Command& c) {
    std::string s = c.name;
    if (!c.args.empty()) s += " " + c.args;
    Options all = c.options;
    if (c.formats) all = all + Options{kFormatOption, kNoHeaderOption};
    for (const Option& o : all) {
        const std::string text = o.name + (o.value.empty() ? "" : " " + o.value);
        s += o.required ? " " + text : " [" + text + "]";
        if (o.repeats) s += o.required ? " [" + o.name + " ...]" : "...";
    }
    return s;
}

std::string HelpText(const Command& c) {
    std::string s = "usage: ferrolith-cli " + UsageLine(c) + "\n\n" + c.summary + "\n";
    Options all = c.options;
    if (c.formats) all = all + Options{kFormatOption, kNoHeaderOption};
    if (!all.empty()) {
        s += "\noptions:\n";
        for (const Option& o : all) {
            std::string head = "  " + o.name + (o.value.empty() ? "" : " " + o.value);
            if (head.size() < 26) head += std::string(26 - head.size(), ' ');
            else head += "\n" + std::string(26, ' ');
            s += head + o.help + "\n";
        }
    }
    if (!c.details.empty()) {
        s += "\n";
        for (const std::string& d : c.details) s += d + "\n";
    }
    if (!c.examples.empty()) {
        s += "\nexamples:\n";
        for (const std::string& e : c.examples) s += "  $ ferrolith-cli " + e + "\n";
    }
    return s;
}

const std::string& Parsed::Empty() {
    static const std::string empty;
    return empty;
}

const std::string& Parsed::Value(const std::string& name, const std::string& fallback) const {
    auto it = values.find(name);
    return it == values.end() || it->second.empty() ? fallback : it->second.front();
}

const std::vector<std::string>& Parsed::All(const std::string& name) const {
    static const std::vector<std::string> none;
    auto it = values.find(name);
    return it == values.end() ? none : it->second;
}

bool Parse(const Command& c, const Args& args, Parsed& out, std::string& error) {
    out = Parsed{};
    out.command = &c;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        const Option* o = FindOption(c, a);
        if (o == nullptr) {
            if (LooksLikeOption(a)) {
                error = c.name + " has no option " + Quote(a);
                return false;
            }
            out.positional.push_back(a);
            continue;
        }
        if (out.Has(a) && !o->repeats) {
            error = a + " is given twice";
            return false;
        }
        if (o->value.empty()) {
            out.values[a].push_back("");
            continue;
        }
        if (i + 1 >= args.size()) {
            error = a + " needs a value (" + o->value + ")";
            return false;
        }
        out.values[a].push_back(args[++i]);
    }
    if (out.Has("--format")) {
        const std::string f = prim::LCase(out.Value("--format"));
        if (f == "text") out.format = Format::Text;
        else if (f == "csv") out.format = Format::Csv;
        else if (f == "json") out.format = Format::Json;
        else {
            error = "--format must be text, csv or json, not " + Quote(out.Value("--format"));
            return false;
        }
    }
    out.header = !out.Has("--no-header");
    return true;
}

std::string Quote(const std::string& text) {
    std::string s;
    for (unsigned char ch : text) {
        if (ch == '\n') s += "\\n";
        else if (ch == '\t') s += "\\t";
        else if (ch == '\r') s += "\\r";
        else if (ch < 0x20 || ch == 0x7F) {
            static const char* hex = "0123456789ABCDEF";
            s += "\\x";
            s += hex[ch >> 4];
            s += hex[ch & 15];
        } else {
            s += static_cast<char>(ch);
        }
        if (s.size() > 80) return s + "...";
    }
    return s;
}

int Fail(const std::string& message, int code) {
    std::string line;
    for (char ch : message) {
        const auto u = static_cast<unsigned char>(ch);
        if (u < 0x20 || u == 0x7F) line += ' ';
        else line += ch;
    }
    std::cerr << "ferrolith-cli: " << line << "\n";
    return code;
}

int UsageError(const std::string& message) { return Fail(message, 2); }

int UsageError(const Parsed& p, const std::string& message) {
    Fail(message, 2);
    if (p.command != nullptr) std::cerr << "usage: ferrolith-cli " << UsageLine(*p.command) << "\n";
    return 2;
}

bool ReadNumber(const std::string& what, const std::string& text, double lo, double hi, double& out,
                std::string& error) {
    const char* first = text.data();
    const char* last = first + text.size();
    if (first != last && *first == '+') ++first;
    double v = 0.0;
    auto [ptr, ec] = std::from_chars(first, last, v);
    if (text.empty() || ptr != last || (ec != std::errc() && ec != std::errc::result_out_of_range) ||
        std::isnan(v)) {
        error = what + ": not a number: " + Quote(text);
        return false;
    }
    if (ec == std::errc::result_out_of_range) {
        // Too small to hold is zero for every use here; too large is refused.
        // (from_chars leaves the value alone then; strtod tells which way it fell.)
        const bool tiny = std::fabs(std::strtod(std::string(first, last).c_str(), nullptr)) < 1.0;
        if (!tiny) {
            error = what + ": " + Quote(text) + " is out of range (" + Range(lo, hi) + ")";
            return false;
        }
        v = 0.0;
    }
    if (!std::isfinite(v) || v < lo || v > hi) {
        error = what + ": " + Quote(text) + " is out of range (" + Range(lo, hi) + ")";
        return false;
    }
    out = v;
    return true;
}

bool ReadWhole(const std::string& what, const std::string& text, long long lo, long long hi, long long& out,
               std::string& error) {
    long long v = 0;
    auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (text.empty() || ptr != text.data() + text.size() ||
        (ec != std::errc() && ec != std::errc::result_out_of_range)) {
        error = what + ": not a whole number: " + Quote(text);
        return false;
    }
    if (ec == std::errc::result_out_of_range || v < lo || v > hi) {
        error = what + ": " + Quote(text) + " is out of range (" + std::to_string(lo) + " to " +
                std::to_string(hi) + ")";
        return false;
    }
    out = v;
    return true;
}

bool ReadLength(const std::string& what, const std::string& text, bool feet, double lo, double hi, double& out,
                std::string& error) {
    double v = 0.0;
    std::string plainError;
    if (ReadNumber(what, text, lo, hi, v, plainError)) {
        out = v;
        return true;
    }
    // A plain number that is out of range stays refused as such.
    if (plainError.find("out of range") != std::string::npos) {
        error = plainError;
        return false;
    }
    const prim::Variant r = Imperial::Imperial_Value(text, feet ? "FT" : "IN");
    if (!r.IsNumber()) {
        error = what + ": not a length: " + Quote(text) + " (write 5'-3 1/2\", 5', 6\" or a plain number)";
        return false;
    }
    if (!std::isfinite(r.number) || r.number < lo || r.number > hi) {
        error = what + ": " + Quote(text) + " is out of range (" + Range(lo, hi) + (feet ? " ft)" : " in)");
        return false;
    }
    out = r.number;
    return true;
}

}  // namespace cli
