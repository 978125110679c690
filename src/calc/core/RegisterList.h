// What the register and data windows show, worked out without a window:
// captions of the register window by action, the previews of a picked
// register, the description line and the rows of both lists.
#pragma once

#include <string>

#include "calc/core/CalculatorState.h"

namespace RegisterList {

// Captions of the register window for one action.
struct MemoryCaptions {
    const char* Title;
    const char* Prompt;        // Lab1
    const char* OkCaption;     // OKButton
    bool DescriptionOpen;      // DescBox can be typed in
    const char* FrameCaption;  // DecFrame
};
MemoryCaptions Memory_Captions(RegisterAction action);

// Value column of register `index` as the action would leave it, before
// anything is stored: X for IN and SWAP, the sum for ADD, the difference for
// MINUS; the stored value otherwise. Three blanks behind.
std::string Register_Preview_Text(const CalculatorState& s, RegisterAction action, int index);

// The description line of a register: its trimmed text, or
// "No specified description".
std::string Register_Description_Text(const CalculatorFiles::RegisterRecord& r);

// The question before a value goes into a register that is not free, or ""
// when none is asked: "Do you wish to OVERWRITE Reg-007 ?".
std::string Overwrite_Question(const CalculatorState& s, int index);

}  // namespace RegisterList
