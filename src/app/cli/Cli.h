// ferrolith-cli: each subsystem registers its subcommands from its own file
// with a static Registrar, so the command table needs no central list. A
// command declares its arguments, options, help lines and examples; the usage
// line, the help page and the option parsing all come from that one entry.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace cli {

using Args = std::vector<std::string>;

struct Option {
    std::string name;         // "--strip"
    std::string value;        // what follows it in the usage line ("4|8|16|32|64"); empty for a flag
    std::string help;         // one line: meaning, unit, default
    bool repeats = false;     // may be given more than once (--line)
    bool required = false;    // shown without brackets in the usage line
};
using Options = std::vector<Option>;

// Joins option lists, for groups several commands share.
Options operator+(Options a, const Options& b);

enum class Format { Text, Csv, Json };

struct Parsed;

struct Command {
    std::string name;
    std::string args;                    // positional part of the synopsis: "CONFIG L kL aL ANGLE"
    std::string summary;                 // one line: what it prints
    Options options;                     // every option it takes, in usage order
    std::vector<std::string> details;    // further help lines (units, output, exit codes)
    std::vector<std::string> examples;   // command lines after "ferrolith-cli ", each runnable as shown
    int (*run)(const Parsed& p);         // returns the exit code
    bool formats = false;                // takes --format text|csv|json and --no-header
};

struct Registrar {
    explicit Registrar(Command c);
};

const std::vector<Command>& Commands();
const Command* FindCommand(const std::string& name);

// "name ARGS [--opt VALUE] ..." with every option the command takes.
std::string UsageLine(const Command& c);
// The whole help page of one command.
std::string HelpText(const Command& c);

// The arguments after the command name, sorted into options and positionals.
struct Parsed {
    const Command* command = nullptr;
    Args positional;
    std::map<std::string, std::vector<std::string>> values;  // flags hold one empty value
    Format format = Format::Text;
    bool header = true;  // csv: print the header row

    bool Has(const std::string& name) const { return values.count(name) != 0; }
    // The value of an option given once, or `fallback`.
    const std::string& Value(const std::string& name, const std::string& fallback = Empty()) const;
    const std::vector<std::string>& All(const std::string& name) const;

private:
    static const std::string& Empty();
};

// Sorts `args` by the command's options. An argument that starts with "--"
// and a letter but is no option of the command is refused; anything else is
// positional (so "-6" and "--5" stay values).
bool Parse(const Command& c, const Args& args, Parsed& out, std::string& error);

// One line on stderr ("ferrolith-cli: <message>"), control characters shown
// as escapes so an argument cannot break the line; returns `code`.
int Fail(const std::string& message, int code);
// A bad value: one line, exit 2.
int UsageError(const std::string& message);
// A wrong shape of arguments: the message and the command's usage line, exit 2.
int UsageError(const Parsed& p, const std::string& message);

// An argument as it may appear in a message: control characters escaped,
// long texts shortened.
std::string Quote(const std::string& text);

// Strict number reading for arguments: the whole text must be a number. The
// error says which argument, and whether the text is no number or one out of
// range. Doubles must be finite and within [lo, hi].
bool ReadNumber(const std::string& what, const std::string& text, double lo, double hi, double& out,
                std::string& error);
bool ReadWhole(const std::string& what, const std::string& text, long long lo, long long hi, long long& out,
               std::string& error);

// The largest magnitude a single holds: lengths and coordinates must fit the
// singles the layouts and solvers keep.
extern const double kSingleMax;

// A length: a plain number is in the argument's own unit (`feet` true for
// feet, else inches); any other text is feet-and-inch text read by the
// program's reader (5'-3 1/2", 6", 1'), where a number without a mark is inches.
bool ReadLength(const std::string& what, const std::string& text, bool feet, double lo, double hi, double& out,
                std::string& error);

// Lines shared by the help of every command that takes lengths.
extern const char* const kLengthHelp;

}  // namespace cli
