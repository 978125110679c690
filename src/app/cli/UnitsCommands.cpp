// Feet-and-inch text and numbers in words from the command line.
#include <iostream>

#include "Cli.h"
#include "shell/Primitives.h"
#include "units/ImperialProc.h"

namespace {

int ArchValue(const cli::Args& in) {
    cli::Args args = in;
    std::string unit = "IN";
    bool present = false;
    if (!cli::TakeOption(args, "--unit", unit, present)) return cli::UsageError("--unit needs IN or FT");
    std::string u = prim::UCase(unit);
    if (u != "IN" && u != "FT") return cli::UsageError("--unit must be IN or FT");
    if (args.size() != 1) return cli::UsageError("arch-value takes one TEXT");
    prim::Variant v = ImperialProc::Imperial_Value(args[0], u);
    if (!v.IsNumber()) {
        std::cout << ImperialProc::kError << "\n";
        return 1;
    }
    std::cout << prim::PlainText(v.number) << "\n";
    return 0;
}

int ArchText(const cli::Args& in) {
    cli::Args args = in;
    std::string modeText = "0";
    bool present = false;
    if (!cli::TakeOption(args, "--mode", modeText, present)) return cli::UsageError("--mode needs 0 or 1");
    bool words = cli::TakeFlag(args, "--words");
    long mode = 0;
    if (!cli::ParseInt(modeText, mode) || (mode != 0 && mode != 1)) return cli::UsageError("--mode must be 0 or 1");
    if (args.size() != 1) return cli::UsageError("arch-text takes one FEET value");
    double feet = 0;
    if (!cli::ParseDouble(args[0], feet)) return cli::UsageError("not a number: " + args[0]);
    std::cout << ImperialProc::Imperial_Text(feet, 16, static_cast<int16_t>(mode), words ? -1 : 0) << "\n";
    return 0;
}

int Words(const cli::Args& in) {
    cli::Args args = in;
    std::string whole, part;
    bool present = false;
    if (!cli::TakeOption(args, "--whole", whole, present)) return cli::UsageError("--whole needs a LABEL");
    if (!cli::TakeOption(args, "--part", part, present)) return cli::UsageError("--part needs a LABEL");
    if (args.size() != 1) return cli::UsageError("words takes one NUMBER");
    double v = 0;
    if (!cli::ParseDouble(args[0], v)) return cli::UsageError("not a number: " + args[0]);
    std::cout << ImperialProc::Number_Words(v, whole, part) << "\n";
    return 0;
}

cli::Registrar r1({"arch-value", "arch-value TEXT [--unit IN|FT]",
                   "reads a feet-and-inch text; prints the length (inches by default) or *ERROR* (exit 1)",
                   &ArchValue});
cli::Registrar r2({"arch-text", "arch-text FEET [--mode 0|1] [--words]",
                   "writes a length in feet as feet-and-inch text to the sixteenth; mode 1 gives total inches",
                   &ArchText});
cli::Registrar r3({"words", "words NUMBER [--whole LABEL] [--part LABEL]",
                   "spells a number in words, with optional labels for the whole and the hundredths",
                   &Words});

}  // namespace
