#include "calc/core/RegisterList.h"

#include "calc/core/EngineInternal.h"
#include "shell/core/Primitives.h"

namespace RegisterList {

MemoryCaptions Memory_Captions(RegisterAction action) {
    static const MemoryCaptions kCaptions[] = {
        {"Memory IN", "Choose memory address to SAVE to.", "Save", true, "Specify Description"},
        {"Memory RECALL", "Choose memory address to RECALL value.", "Recall", false, "Description"},
        {"Memory SWAP", "Choose memory address to SWAP value.", "Swap", true, "Specify Description"},
        {"Memory ADD", "Choose memory address to ADD value to.", "Apply", true, "Specify Description"},
        {"Memory MINUS", "Choose memory address to SUBTRACT value from.", "Apply", true, "Specify Description"},
        {"Memory DELETE", "Choose memory address to DELETE value.", "Delete", false, "Description"},
    };
    const auto i = static_cast<int16_t>(action);
    return kCaptions[i >= 0 && i <= 5 ? i : 1];
}

std::string Register_Preview_Text(const CalculatorState& s, RegisterAction action, int index) {
    const double stored = s.Registers[size_t(index)].Value;
    const double x = Calculator::detail::X(s);
    double shown;
    switch (action) {
        case RegisterAction::In:
        case RegisterAction::Swap:
            shown = x;
            break;
        case RegisterAction::Add:
            shown = stored + x;
            break;
        case RegisterAction::Minus:
            shown = stored - x;
            break;
        default:
            return Calculator::Register_Value_Text(stored);
    }
    return prim::Format(shown, "0.0" + Calculator::detail::kHashes100) + "   ";
}

std::string Register_Description_Text(const CalculatorFiles::RegisterRecord& r) {
    const std::string t = prim::Trim(r.Description);
    return t.empty() ? "No specified description" : t;
}

std::string Overwrite_Question(const CalculatorState& s, int index) {
    if (s.Registers[size_t(index)].Value == 0) return "";
    return "Do you wish to OVERWRITE Reg-" + prim::Format(index + 1, "000") + " ?";
}

}  // namespace RegisterList
