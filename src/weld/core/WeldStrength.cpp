#include "weld/core/WeldStrength.h"

#include "shell/core/Primitives.h"

namespace WeldStrength {

bool SegmentsPerInchOf(int index, int16_t& segmentsPerInch) {
    if (index < 0 || index >= static_cast<int>(kSegmentsPerInch.size())) return false;
    segmentsPerInch = kSegmentsPerInch[static_cast<size_t>(index)];
    return true;
}

int WeldStripIndexOf(int segmentsPerInch) {
    for (size_t i = 0; i < kSegmentsPerInch.size(); ++i)
        if (kSegmentsPerInch[i] == segmentsPerInch) return static_cast<int>(i);
    return -1;
}

bool ElectrodeStrengthOf(int index, double& strength) {
    if (index < 0 || index >= static_cast<int>(kElectrodeStrength.size())) return false;
    strength = kElectrodeStrength[static_cast<size_t>(index)];
    return true;
}

bool WeldSizeInchesOf(int index, double& inches) {
    if (index < 0 || index >= static_cast<int>(kSizeItems.size())) return false;
    inches = (index + 1) / 16.0;
    return true;
}

bool MethodOf(int index, double& factor, std::string& caption) {
    if (index < 0 || index >= static_cast<int>(kMethodFactor.size())) return false;
    factor = kMethodFactor[static_cast<size_t>(index)];
    caption = std::string(kMethodLabelCaptions[static_cast<size_t>(index)]);
    return true;
}

double ClampSaved(const SavedIndex& setting, double saved) {
    return saved < setting.clamp ? saved : setting.clamp;
}

double DisplayedCapacity(double electrodeStrength, double unitCapacity, double weldSizeInches,
                         double methodFactor) {
    return electrodeStrength * unitCapacity * weldSizeInches * methodFactor;
}

std::string CapacityText(double value) { return prim::Format(value, "0.00000  "); }

}  // namespace WeldStrength
