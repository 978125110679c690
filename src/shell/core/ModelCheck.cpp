#include "shell/core/ModelCheck.h"

#include <cmath>
#include <cstdio>

#include "shell/core/Primitives.h"

namespace modelcheck {

namespace {

// One decimal, with the sign always written and no "-0.0".
std::string Percent(double value) {
    const double rounded = std::round(value * 10) / 10;
    char text[64];
    std::snprintf(text, sizeof text, "%+.1f", rounded == 0.0 ? 0.0 : rounded);
    return text;
}

}  // namespace

Comparison Compare(double system, std::optional<double> element, double thresholdPercent) {
    Comparison c;
    c.system = system;
    if (!element || !std::isfinite(*element) || *element <= 0.0 || !std::isfinite(system)) return c;
    c.solved = true;
    c.element = *element;
    c.ratio = system / *element;
    c.percent = system != 0.0 ? (*element - system) / system * 100 : 0.0;
    c.exceeds = c.ratio > 1 + thresholdPercent / 100;
    return c;
}

double PercentFrom(std::string_view text) {
    const std::string t = prim::Trim(std::string(text));
    if (t.empty() || !prim::IsNumeric(t)) return kDefaultPercent;
    const double v = prim::Val(t);
    return std::isfinite(v) && v >= 0.0 && v <= 100.0 ? v : kDefaultPercent;
}

std::string CheckLine(const Comparison& c, std::string_view unit, int decimals) {
    if (!c.solved) return "AISC element model: no equilibrium for this load";
    const std::string picture = decimals > 0 ? "0." + std::string(static_cast<size_t>(decimals), '0') : "0";
    std::string text = "AISC element model: " + prim::Format(c.element, picture);
    if (!unit.empty()) text += " " + std::string(unit);
    return text + " (" + Percent(c.percent) + " %)";
}

std::string WarningLine(const Comparison& c) {
    return "The iteration exceeds the AISC element model by " + Percent((c.ratio - 1) * 100).substr(1) +
           " %: the lower value governs.";
}

}  // namespace modelcheck
