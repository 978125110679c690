// The cross-check of a result of the program's own iteration against the
// AISC element model solved on the same group and load. The two models
// differ; where the iteration gives more than the element model by more than
// a threshold (5 % unless the setting says otherwise) the user is warned
// and the lower value governs. Texts here are shared by the windows and the
// command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace modelcheck {

constexpr double kDefaultPercent = 5.0;
// The threshold in percent, section "FerrolithSetting" of the settings.
constexpr std::string_view kPercentKey = "ModelCheckPercent";

struct Comparison {
    bool solved = false;   // the element model found an equilibrium
    double system = 0.0;   // the iteration's value
    double element = 0.0;  // the element model's value, in the same unit
    double ratio = 0.0;    // system / element (0 when not solved)
    double percent = 0.0;  // (element - system) / system, in percent
    bool exceeds = false;  // system above element by more than the threshold
};

// `element` is empty when the element model found no equilibrium.
Comparison Compare(double system, std::optional<double> element, double thresholdPercent);

// A threshold read from text: a number from 0 to 100, else the default.
double PercentFrom(std::string_view text);

// "AISC element model: 115.12 kips (-31.9 %)", with the value to `decimals`
// places and `unit` after it when not empty; "AISC element model: no
// equilibrium for this load" when it was not solved.
std::string CheckLine(const Comparison& c, std::string_view unit, int decimals);

// The warning that goes with a result above the element model's:
// "The iteration exceeds the AISC element model by 46.9 %: the lower value governs."
std::string WarningLine(const Comparison& c);

}  // namespace modelcheck
