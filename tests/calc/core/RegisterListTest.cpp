#include <gtest/gtest.h>

#include "calc/core/RegisterList.h"
#include "calc/core/CalculatorEngine.h"

using namespace RegisterList;

namespace {

// A calculator with `keys` typed in.
CalculatorState Typed(std::initializer_list<const char*> keys) {
    CalculatorState s;
    Calculator::Initial_Routine(s);
    for (const char* k : keys) Calculator::Press_Key(s, k);
    return s;
}

}  // namespace

TEST(RegisterList, PreviewByAction) {
    CalculatorState s = Typed({"2", "dot", "5"});
    s.Registers[7].Value = 10;
    struct Case {
        RegisterAction action;
        const char* shown;
    };
    const Case cases[] = {
        {RegisterAction::In, "2.5   "},    {RegisterAction::Swap, "2.5   "},    {RegisterAction::Add, "12.5   "},
        {RegisterAction::Minus, "7.5   "}, {RegisterAction::Recall, "10.0   "}, {RegisterAction::Delete, "10.0   "},
    };
    for (const Case& c : cases) EXPECT_EQ(Register_Preview_Text(s, c.action, 7), c.shown) << int(c.action);
    // Large values are written out in full.
    s = Typed({"1", "exp", "2", "0"});
    EXPECT_EQ(Register_Preview_Text(s, RegisterAction::In, 0), "100000000000000000000.0   ");
}

TEST(RegisterList, DescriptionAndOverwriteQuestion) {
    CalculatorState s;
    s.Registers[0] = {0, "  has text but no value "};
    s.Registers[99] = {-1, ""};
    EXPECT_EQ(Register_Description_Text(s.Registers[0]), "has text but no value");
    EXPECT_EQ(Register_Description_Text(s.Registers[99]), "No specified description");
    EXPECT_EQ(Overwrite_Question(s, 0), "");  // a free register is taken without a question
    EXPECT_EQ(Overwrite_Question(s, 99), "Do you wish to OVERWRITE Reg-100 ?");
    EXPECT_EQ(std::string(Memory_Captions(RegisterAction::Minus).Prompt),
              "Choose memory address to SUBTRACT value from.");
}
