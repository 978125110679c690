// What the register and data windows show and delete, without a window.
#include <gtest/gtest.h>

#include "calc/core/CalculatorEngine.h"
#include "calc/core/RegisterList.h"

namespace {

using namespace RegisterList;
using A = RegisterAction;

// A calculator with `keys` typed in.
CalculatorState Typed(std::initializer_list<const char*> keys) {
    CalculatorState s;
    Calculator::Initial_Routine(s);
    for (const char* k : keys) Calculator::Press_Key(s, k);
    return s;
}

TEST(RegisterList, PreviewByAction) {
    CalculatorState s = Typed({"2", "dot", "5"});
    s.Registers[7].Value = 10;
    const std::pair<A, const char*> cases[] = {{A::In, "2.5   "},    {A::Swap, "2.5   "},    {A::Add, "12.5   "},
                                               {A::Minus, "7.5   "}, {A::Recall, "10.0   "}, {A::Delete, "10.0   "}};
    for (const auto& [action, shown] : cases) EXPECT_EQ(Register_Preview_Text(s, action, 7), shown) << int(action);
    // Large values are written out in full.
    s = Typed({"1", "exp", "2", "0"});
    EXPECT_EQ(Register_Preview_Text(s, A::In, 0), "100000000000000000000.0   ");
}

TEST(RegisterList, ValueTextsOfBothLists) {
    const std::pair<double, const char*> registers[] = {{12.5, "12.5   "},
                                                        {3, "3.0   "},
                                                        {1.5e20, "150000000000000000000.0   "},  // "1.5E+20" is short
                                                        {1.23456789012345e20, "1.23456789012345E+20   "}};
    for (const auto& [v, text] : registers) EXPECT_EQ(Calculator::Register_Value_Text(v), text) << v;
    EXPECT_EQ(Calculator::Data_Value_Text(3), "3   ");
    EXPECT_EQ(Calculator::Data_Value_Text(2.5), "2.5   ");
}

TEST(RegisterList, DescriptionAndOverwriteQuestion) {
    CalculatorState s;
    s.Registers[0] = {0, "  has text but no value "};
    s.Registers[99] = {-1, ""};
    EXPECT_EQ(Register_Description_Text(s.Registers[0]), "has text but no value");
    EXPECT_EQ(Register_Description_Text(s.Registers[99]), "No specified description");
    EXPECT_EQ(Overwrite_Question(s, 0), "");  // a free register is taken without a question
    EXPECT_EQ(Overwrite_Question(s, 99), "Do you wish to OVERWRITE Reg-100 ?");
    EXPECT_STREQ(Memory_Captions(A::Minus).Prompt, "Choose memory address to SUBTRACT value from.");
}

TEST(RegisterList, DeleteCheckedRegistersAndData) {
    CalculatorState s = Typed({"1", "data", "2", "data", "3", "data"});
    s.Registers[0] = {5, "a"};
    s.Registers[99] = {7, "b"};
    Calculator::Delete_Registers(s, {0, 99, 120});
    EXPECT_EQ(s.Registers[0].Value, 0);
    EXPECT_EQ(s.Registers[99].Description, "");
    Calculator::Delete_Data(s, {false, true});  // rows past the checks are kept
    EXPECT_EQ(s.DataValues.Values, (std::vector<double>{1, 3}));
    Calculator::Delete_Data(s, {true, true});
    EXPECT_EQ(s.DataValues.kind, CalculatorFiles::DataList::Kind::EmptyText);
}

}  // namespace
