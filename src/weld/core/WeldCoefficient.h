// The coefficient window's data and rules without the window: the labels of
// its grid, the cells kept for each of the nine configurations, the centroid
// rows, the text rules of its cells and the reason a row cannot be computed.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace WeldCoefficient {

constexpr int kConfigs = 9;
constexpr int kRows = 6;  // L, kL, aL, angle, xL, yL
constexpr int kInputRows = 4;

constexpr std::array<std::string_view, kRows> kRowLabels = {
    "   Base Length, L",          "   Length, kL",
    "   Eccentricity, aL",        "   Load Rotation Angle,  \xC3\x98",
    "   Centroid Distance, xL",   "   Centroid Distance, yL"};

constexpr std::string_view kWindowTitle = "Weld Group Coefficient Calculator";
constexpr std::string_view kResultCaption = "Weld Group Coefficient,  C";
constexpr std::string_view kIncompleteInput = "Incomplete Parameter Input ! ";
constexpr std::string_view kMidpoint = "             Midpoint";

// The six value cells of one configuration, and the nine of them, kept for
// as long as the program runs.
using ConfigCells = std::array<std::string, kRows>;
using WeldConfigStore = std::array<ConfigCells, kConfigs>;

// "Weld Configuration n" and the window caption with that item.
std::string ItemText(int config);
std::string WindowCaption(std::string_view itemText);

// A cell's text after editing: Val of a non-blank text by "0.000     "; a
// blank text stays as it is.
std::string CellText(std::string_view text);

// Whether an edit changes a value at three decimals (a result computed from
// the old value then no longer holds).
bool ChangedAtThreeDecimals(std::string_view boxText, std::string_view cellText);

// Rows 4 and 5 (xL and yL) for the cells of L and kL.
struct CentroidRows {
    std::string xL;
    std::string yL;
};
CentroidRows Update_Centroids(int16_t config, std::string_view cellL, std::string_view cellKL);

// Whether all four input cells hold text.
bool InputsComplete(const ConfigCells& cells);

// Why a configuration cannot give a coefficient for these numbers, or "" when
// it can.
std::string ImpossibleReason(int16_t config, double L, double kL);

}  // namespace WeldCoefficient
