// The key table: one entry per key, found by token and by control name, and
// the routes Press_Key takes from it.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "calc/core/CalculatorEngine.h"

namespace {

using Calculator::KeyKind;

TEST(CalcKeyTable, TokensAndControlsAreUniqueAndFound) {
    std::set<std::string> tokens, controls;
    for (const auto& k : Calculator::Key_Table()) {
        EXPECT_TRUE(tokens.insert(k.token).second) << k.token;
        EXPECT_TRUE(controls.insert(k.control).second) << k.control;
        EXPECT_EQ(Calculator::Find_Key(k.token), &k);
        EXPECT_EQ(Calculator::Find_Key_By_Control(k.control), &k);
        EXPECT_NE(std::string(k.caption), "") << k.token;
        // Window keys are the window's own; every other key is an engine key.
        EXPECT_EQ(Calculator::Is_Key_Token(k.token), k.kind != KeyKind::Window) << k.token;
    }
    EXPECT_EQ(Calculator::Find_Key("nosuchkey"), nullptr);
    EXPECT_FALSE(Calculator::Is_Key_Token("time"));
}

TEST(CalcKeyTable, RegisterKeysNameTheirWindowAction) {
    CalculatorState s;
    Calculator::Initial_Routine(s);
    std::vector<RegisterAction> opened;
    s.ShowRegisterWindow = [&](CalculatorState& st) { opened.push_back(st.MemoryAction); };
    for (const auto& k : Calculator::Key_Table()) {
        if (!k.registerAction) continue;
        opened.clear();
        ASSERT_TRUE(Calculator::Press_Key(s, k.token));
        EXPECT_EQ(opened, std::vector<RegisterAction>{*k.registerAction}) << k.token;
    }
}

TEST(CalcKeyTable, OnlyDispatchedKeysSetTheOperatorMark) {
    CalculatorState s;
    Calculator::Initial_Routine(s);
    Calculator::Press_Key(s, "5");
    Calculator::Press_Key(s, "/");
    EXPECT_EQ(s.Shown.OperatorMark, "\xC3\xB7");
    Calculator::Press_Key(s, "min");  // a key of its own action leaves the mark
    EXPECT_EQ(s.Shown.OperatorMark, "\xC3\xB7");
    Calculator::Press_Key(s, "=");
    EXPECT_EQ(s.Shown.OperatorMark, "");
}

}  // namespace

namespace {

TEST(CalcCopy, DisplayDigitsForASpreadsheet) {
    struct Case {
        const char* keys;
        const char* digits;
        const char* value;  // the plain value copy beside it
    };
    const Case cases[] = {
        {"5", "5", "5"},
        {"1 2 dot 5", "12.5", "12.5"},
        {"1 exp 1 5", "1E+15", "1E+15"},
        {"1 exp 2 0 pm", "1E-20", "1E-20"},
        {"2 pm", "-2", "-2"},
        {"1 / 3 =", "0.333333333333333", "0.333333333333333"},
        {"3 frc 4", "3", "3"},  // a fraction being typed: its X, not the fraction text
        {"1 / 0 =", "", "0"},   // an error: nothing for the spreadsheet
    };
    for (const auto& c : cases) {
        CalculatorState s;
        Calculator::Initial_Routine(s);
        std::istringstream in(c.keys);
        for (std::string t; in >> t;) Calculator::Press_Key(s, t);
        EXPECT_EQ(Calculator::Display_Digits(s), c.digits) << c.keys;
        EXPECT_EQ(Calculator::Copy_Text(s), c.value) << c.keys;
    }
}

}  // namespace
