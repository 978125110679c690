// The choices of the capacity window as plain data: the segment length list,
// the electrodes, the weld sizes and the design methods, with the numbers
// each item stands for and the arithmetic that turns the solver's unit
// capacity (Fexx = D = 1) into the capacity the engineer reads.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace WeldStrength {

// WeldStripBox, "Weld Segment Iteration Length": list index -> segments per inch.
constexpr std::string_view kWeldStripLabel = "Weld Segment Iteration Length";
constexpr std::array<std::string_view, 5> kWeldStripItems = {
    "  1/4\"", "  1/8\"", "  1/16\"", "  1/32\"", "  1/64\""};
constexpr std::array<int16_t, 5> kSegmentsPerInch = {4, 8, 16, 32, 64};
// Segments per inch of a list index; false (target untouched) outside 0..4.
bool SegmentsPerInchOf(int index, int16_t& segmentsPerInch);
// List index of a segment setting, -1 when it is none of the five.
int WeldStripIndexOf(int segmentsPerInch);

// ElectrodeBox, "Weld Electrode Type": list index -> Fexx in ksi.
constexpr std::string_view kElectrodeLabel = "Weld Electrode Type";
constexpr std::array<std::string_view, 6> kElectrodeItems = {
    "  E60XX", "  E70XX", "  E80XX", "  E90XX", "  E100XX", "  E110XX"};
constexpr std::array<double, 6> kElectrodeStrength = {60, 70, 80, 90, 100, 110};
bool ElectrodeStrengthOf(int index, double& strength);

// SizeBox, "Weld Size": sixteen items, 1/16" to 1"; D = (index + 1) / 16.
constexpr std::string_view kSizeLabel = "Weld Size";
constexpr std::array<std::string_view, 16> kSizeItems = {
    "  1/16\"", "  1/8\"",   "  3/16\"", "  1/4\"",   "  5/16\"", "  3/8\"",
    "  7/16\"", "  1/2\"",   "  9/16\"", "  5/8\"",   "  11/16\"", "  3/4\"",
    "  13/16\"", "  7/8\"", "  15/16\"", "  1\""};
bool WeldSizeInchesOf(int index, double& inches);

// DesignMethod, "AISC Design Method": list index -> factor and the caption of
// MethodLabel.
constexpr std::string_view kDesignMethodLabel = "AISC Design Method";
constexpr std::array<std::string_view, 3> kDesignMethodItems = {"  Nominal", "  ASD", "  LRFD"};
constexpr std::array<double, 3> kMethodFactor = {1.0, 0.5, 0.75};
constexpr std::array<std::string_view, 3> kMethodLabelCaptions = {
    "Weld Group Nominal Strength, KIPS", "Weld Group Allowable Strength, KIPS",
    "Weld Group Design Strength, KIPS"};
// The caption MethodLabel carries until the first change of the method runs.
constexpr std::string_view kMethodLabelInitialCaption = "Weld Group Nominal Capacity, KIPS";
// Factor and caption of a method; false (both untouched) outside 0..2.
bool MethodOf(int index, double& factor, std::string& caption);

// Saved list indices of the capacity window: defaults and the upper clamp
// applied on load (MinOf(clamp, saved)); negative values are not clamped.
struct SavedIndex {
    std::string_view key;
    int16_t defaultValue;
    int16_t clamp;
};
constexpr SavedIndex kWeldStripSetting{"WeldStrip", 3, 4};
constexpr SavedIndex kWeldSizeSetting{"WeldSize", 3, 15};
constexpr SavedIndex kWeldClassSetting{"WeldClass", 3, 5};
constexpr SavedIndex kDesignMethodSetting{"DesignMethod", 0, 2};
constexpr std::string_view kSettingsSection = "FerrolithSetting";
double ClampSaved(const SavedIndex& setting, double saved);

// Capacity shown for a unit capacity: electrode x unit capacity x size x
// factor, multiplied in that order.
double DisplayedCapacity(double electrodeStrength, double unitCapacity, double weldSizeInches,
                         double methodFactor);
// The text of CBox: five decimals and two trailing blanks ("0.00000  ").
std::string CapacityText(double value);

}  // namespace WeldStrength
