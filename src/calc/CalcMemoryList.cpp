#include "calc/CalcMemoryList.h"

#include "calc/CalcProcs.h"
#include "shell/Primitives.h"

namespace CalcMemoryList {

MemoryCaptions Memory_Captions(int16_t action) {
    static const MemoryCaptions kCaptions[] = {
        {"Memory IN", "Choose memory address to SAVE to.", "Save", true, "Specify Description"},
        {"Memory RECALL", "Choose memory address to RECALL value.", "Recall", false, "Description"},
        {"Memory SWAP", "Choose memory address to SWAP value.", "Swap", true, "Specify Description"},
        {"Memory ADD", "Choose memory address to ADD value to.", "Apply", true, "Specify Description"},
        {"Memory MINUS", "Choose memory address to SUBTRACT value from.", "Apply", true, "Specify Description"},
        {"Memory DELETE", "Choose memory address to DELETE value.", "Delete", false, "Description"},
    };
    return kCaptions[action >= 0 && action <= 5 ? action : 1];
}

double Display_Value(const CalcVariables& s) {
    if (s.DisplayValue.IsNumber()) return s.DisplayValue.number;
    if (s.DisplayValue.IsText()) return prim::Val(s.DisplayValue.text);
    return 0.0;
}

std::string Register_Preview_Text(const CalcVariables& s, int16_t action, int index) {
    const double stored = s.Registers[size_t(index)].Value;
    const double x = Display_Value(s);
    double shown;
    switch (action) {
        case 0:
        case 2:
            shown = x;
            break;
        case 3:
            shown = stored + x;
            break;
        case 4:
            shown = stored - x;
            break;
        default:
            return CalcProcs::Register_Value_Text(stored);
    }
    return prim::Format(shown, "0.0" + std::string(100, '#')) + "   ";
}

std::string Register_Description_Text(const CalcFiles::RegisterRecord& r) {
    const std::string t = prim::Trim(r.Description);
    return t.empty() ? "No specified description" : t;
}

std::string Overwrite_Question(const CalcVariables& s, int index) {
    if (s.Registers[size_t(index)].Value == 0) return "";
    return "Do you wish to OVERWRITE Reg-" + prim::Format(index + 1, "000") + " ?";
}

}  // namespace CalcMemoryList
