#include "weld/core/WeldCoefficient.h"

#include "shell/core/Primitives.h"
#include "weld/core/WeldConfigurations.h"

namespace WeldCoefficient {

std::string ItemText(int config) { return "Weld Configuration " + std::to_string(config); }

std::string WindowCaption(std::string_view itemText) {
    return std::string(kWindowTitle) + "    -    [" + std::string(itemText) + "]";
}

std::string CellText(std::string_view text) {
    if (prim::Trim(text).empty()) return std::string(text);
    return prim::Format(prim::Val(text), "0.000     ");
}

bool ChangedAtThreeDecimals(std::string_view boxText, std::string_view cellText) {
    return prim::Format(prim::Val(boxText), "0.000") != prim::Format(prim::Val(cellText), "0.000");
}

CentroidRows Update_Centroids(int16_t config, std::string_view cellL, std::string_view cellKL) {
    CentroidRows rows;
    const bool both = config >= 1 && config <= 5;
    const bool onlyY = config == 6 || config == 7;
    if (both) rows.xL = rows.yL = std::string(kMidpoint);
    if (onlyY) rows.yL = std::string(kMidpoint);
    if (prim::Trim(cellL).empty() || prim::Trim(cellKL).empty()) return rows;

    const double L = prim::Val(cellL);
    const double kL = prim::Val(cellKL);
    if (both) return rows;  // the centroid is the middle
    rows.xL = prim::Format(weld::Config_xL(config, L, kL), "0.000     ");
    if (config >= 8 && config <= 9) rows.yL = prim::Format(weld::Config_yL(config, L, kL), "0.000     ");
    return rows;
}

bool InputsComplete(const ConfigCells& cells) {
    for (int r = 0; r < kInputRows; ++r)
        if (prim::Trim(cells[r]).empty()) return false;
    return true;
}

std::string ImpossibleReason(int16_t /*config*/, double L, double kL) {
    if (!(L > 0.0)) return "No coefficient: the base length L must be greater than 0.";
    if (kL < 0.0) return "No coefficient: the length kL cannot be negative.";
    return {};
}

}  // namespace WeldCoefficient
