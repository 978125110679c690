// Feet-and-inch text and numbers in words from the command line.
#include <cmath>
#include <iostream>

#include "Cli.h"
#include "Output.h"
#include "shell/core/Primitives.h"
#include "units/core/ImperialText.h"

namespace {

// Feet that still print as plain digits with their inches.
constexpr double kTextFeetMax = 1e15;
// Words name whole feet up to a 16-bit count.
constexpr double kWordsFeetMax = 32767.999999;
// Words name groups of three digits up to the tenth group.
const double kWordsMax = std::nextafter(1e24, 0.0);

int ArchValue(const cli::Parsed& p) {
    const std::string u = prim::UCase(p.Value("--unit", "IN"));
    if (u != "IN" && u != "FT") return cli::UsageError("--unit must be IN or FT, not " + cli::Quote(p.Value("--unit")));
    if (p.positional.size() != 1) return cli::UsageError(p, "arch-value takes one TEXT");
    const std::string& text = p.positional[0];
    const prim::Variant v = Imperial::Imperial_Value(text, u);
    if (!v.IsNumber()) {
        if (p.format == cli::Format::Text) std::cout << Imperial::kError << "\n";
        return cli::Fail("not a feet-and-inch length: " + cli::Quote(text) +
                             " (forms: 5'-3 1/2\", 5', 3 1/2\", 63.5; a blank only before a fraction)",
                         1);
    }
    if (!std::isfinite(v.number)) return cli::UsageError(cli::Quote(text) + " is out of range (too large a length)");
    if (p.format != cli::Format::Text)
        cli::WriteRows(p, {{{u == "FT" ? "length_ft" : "length_in", cli::Num(v.number)}}});
    else
        std::cout << prim::PlainText(v.number) << "\n";
    return 0;
}

int ArchText(const cli::Parsed& p) {
    long long mode = 0;
    std::string error;
    if (p.Has("--mode") && !cli::ReadWhole("--mode", p.Value("--mode"), 0, 1, mode, error))
        return cli::UsageError(error);
    const bool words = p.Has("--words");
    if (p.positional.size() != 1) return cli::UsageError(p, "arch-text takes one FEET value");
    const double max = words ? kWordsFeetMax : kTextFeetMax;
    double feet = 0;
    if (!cli::ReadLength("FEET", p.positional[0], true, -max, max, feet, error)) return cli::UsageError(error);
    const std::string text = Imperial::Imperial_Text(feet, 16, static_cast<int16_t>(mode), words ? -1 : 0);
    if (p.format != cli::Format::Text)
        cli::WriteRows(p, {{{"feet", cli::Num(feet)}, {"text", cli::Txt(text)}}});
    else
        std::cout << text << "\n";
    return 0;
}

int Words(const cli::Parsed& p) {
    if (p.positional.size() != 1) return cli::UsageError(p, "words takes one NUMBER");
    // With only a part label the whole number is counted in hundredths.
    const bool partOnly = prim::Trim(p.Value("--whole")).empty() && !prim::Trim(p.Value("--part")).empty();
    const double max = partOnly ? kWordsMax / 100.0 : kWordsMax;
    double v = 0;
    std::string error;
    if (!cli::ReadNumber("NUMBER", p.positional[0], -max, max, v, error)) return cli::UsageError(error);
    const std::string text = Imperial::Number_Words(v, p.Value("--whole"), p.Value("--part"));
    if (p.format != cli::Format::Text)
        cli::WriteRows(p, {{{"number", cli::Num(v)}, {"words", cli::Txt(text)}}});
    else
        std::cout << text << "\n";
    return 0;
}

const cli::Registrar r1({"arch-value",
                         "TEXT",
                         "reads a feet-and-inch text and prints the length",
                         {{"--unit", "IN|FT", "unit of the result (default IN)"}},
                         {"TEXT    5'-3 1/2\", 5' - 3 1/2\", 5', 3 1/2, 1/2\", 63.5 (a number without a mark is inches)",
                          "Prints the length at full precision, or *ERROR* and exit 1 with the reason on stderr."},
                         {"arch-value \"5'-3 1/2\\\"\"", "arch-value 6 --unit FT --format json"},
                         &ArchValue,
                         true});
const cli::Registrar r2({"arch-text",
                         "FEET",
                         "writes a length in feet as feet-and-inch text to the sixteenth",
                         {{"--mode", "0|1", "0 feet and inches (default), 1 total inches"},
                          {"--words", "", "spell the text in words (whole feet up to 32767)"}},
                         {"FEET    a length in feet (up to 1E+15), or feet-and-inch text such as 5'-3 1/2\""},
                         {"arch-text 5.291666667", "arch-text 5.291666667 --mode 1 --words"},
                         &ArchText,
                         true});
const cli::Registrar r3({"words",
                         "NUMBER",
                         "spells a number in words, with optional labels for the whole and the hundredths",
                         {{"--whole", "LABEL", "label of the whole part, singular: an s is added above one"},
                          {"--part", "LABEL", "label of the hundredths, singular: an s is added above one"}},
                         {"NUMBER  below 1E+24 in size (below 1E+22 with only --part); the sign is not spoken",
                          "Labels are given singular (Dollar, not Dollars): the plural s is added when the",
                          "count is above one."},
                         {"words 1001", "words 5.25 --whole Dollar --part Cent --format csv"},
                         &Words,
                         true});

}  // namespace
