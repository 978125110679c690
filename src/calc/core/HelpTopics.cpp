#include "calc/core/HelpTopics.h"

#include <initializer_list>

#include "shell/core/Primitives.h"

namespace HelpTopics {

namespace {

// Joins lines with a line break; an empty line makes a paragraph break.
std::string Lines(std::initializer_list<const char*> lines) {
    std::string out;
    bool first = true;
    for (const char* line : lines) {
        if (!first) out += "\r\n";
        out += line;
        first = false;
    }
    return out;
}

}  // namespace

void Fill_Help(int index, std::string& title, std::string& text) {
    title.clear();
    text.clear();
    switch (index) {
        case 1:
            title = "Overview";
            text = Lines({
                "Abacorne is an engineering calculator on the screen, made for those who work in a "
                "spreadsheet all day and want a real calculator at hand beside it.",
                "",
                "It behaves like the pocket calculators engineers are used to: you key in a number, an "
                "operator and the next number, and the display shows each result as it comes.",
                "",
                "It does not take the place of the calculator that comes with the system; it is a second "
                "tool for the sums that go with a design.",
            });
            break;
        case 2:
            title = "Calculator Capabilities";
            text = Lines({
                "Abacorne offers:",
                "  - arithmetic in order of priority, with constant calculation on repeated '=',",
                "  - 100 memory registers with a description each, and the M memory,",
                "  - statistics on a list of data: count, sum, mean, sums of squares and deviations,",
                "  - fractions, degrees-minutes-seconds, and a table of 128 constants,",
                "  - reading out loud of keys and results.",
                "",
                "Operations are done in this sequence of priority:",
                "  1. functions,",
                "  2. polar to rectangular and rectangular to polar conversion,",
                "  3. exponential,",
                "  4. multiplication,",
                "  5. division,",
                "  6. addition,",
                "  7. subtraction.",
                "",
                "The functions include the trigonometric functions (sine, cosine, tangent), their "
                "inverse functions, the hyperbolic functions and the inverse hyperbolic functions.",
            });
            break;
        case 3:
            title = "Mode Settings";
            text = Lines({
                "The MODE tab of the key pad holds the settings of the calculator.",
                "",
                "There you choose the Display Modes, which decide how a number is written on the "
                "display, and the Angle Specification Modes, which decide the unit of angles for the "
                "trigonometric functions.",
                "",
                "The mode in force is shown in the indicators above the display.",
            });
            break;
        case 4:
            title = "Display Modes";
            text = Lines({
                "Three display modes are offered:",
                "  Normal mode (NORM) shows a number as it is, in plain digits.",
                "  Fix mode (FIX) shows a fixed number of digits after the decimal point.",
                "  Scientific mode (SCI) shows a mantissa and an exponent.",
                "",
                "In Fix and Scientific mode the number of digits is chosen with the Display Precision "
                "Number droplist.",
                "",
                "The display holds a maximum of 15 significant digits, and two digits for the exponent.",
                "However, exponential display is automatically performed for any number less than "
                "0.01(10^-2) or greater than 10 billion (10^10).",
            });
            break;
        case 5:
            title = "Angle Specification Modes";
            text = Lines({
                "Angles are taken and given in one of three units:",
                "  DEGREE, a full turn being 360 degrees,",
                "  RADIAN, a full turn being 2 pi radians,",
                "  GRADIAN, a full turn being 400 grads.",
                "",
                "The unit chosen applies to the trigonometric functions and their inverse functions, "
                "and to the polar and rectangular conversions.",
            });
            break;
        case 6:
            title = "Numeric keys";
            text = Lines({
                "Values are entered from left to right, one digit key at a time, with the '.' key for the "
                "decimal point.",
                "",
                "Any numeric key pressed after the 15th digit is ignored.",
                "",
                "The EXP key starts the exponent of the number being entered, and the sign key changes the sign of "
                "the number or of its exponent.",
            });
            break;
        case 7:
            title = "Arithmetic Operation keys";
            text = Lines({
                "The operation keys, in the order in which a formula applies them, and the '=' key:",
                "",
                "'x^y'   raises the number before it to the power of the number after it.",
                "'root'   takes the root of the number before it, of the degree given after it.",
                "'x'   multiplies.",
                "'/'   divides.",
                "'+'   adds.",
                "'-'   subtracts.",
                "'='   works out the calculation and shows the result.",
            });
            break;
        default:
            break;
    }
}

std::string Spoken_Help(const std::string& text) {
    std::string s = prim::Replace(text, "\r\n", ":::");
    s = prim::Replace(s, "^", " TO THE POWER ");
    s = prim::Replace(s, "'/'", "SLASH");
    s = prim::Replace(s, "/", " OVER ");
    s = prim::Replace(s, "'.'", " PERIOD ");
    s = prim::Replace(s, "'='", " EQUAL ");
    s = prim::Replace(s, "'-'", " DASH ");
    return s;
}

std::string Spoken_Topic(const std::string& title, const std::string& text) {
    return title + " :::: " + Spoken_Help(text);
}

std::optional<Mark> Word_Mark(int characterPosition, int length, int titleLength) {
    const int p = characterPosition - titleLength;
    if (p - 3 < 1) return std::nullopt;
    Mark m;
    m.Start = p - 6 < 0 ? 0 : p - 6;
    m.Length = length;
    return m;
}

}  // namespace HelpTopics
