// The key table: one entry per key, found by token and by control name, and
// the routes Press_Key takes from it.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "calc/CalcProcs.h"

namespace {

using CalcProcs::KeyKind;

TEST(CalcKeyTable, TokensAndControlsAreUniqueAndFound) {
    std::set<std::string> tokens, controls;
    for (const auto& k : CalcProcs::Key_Table()) {
        EXPECT_TRUE(tokens.insert(k.token).second) << k.token;
        EXPECT_TRUE(controls.insert(k.control).second) << k.control;
        EXPECT_EQ(CalcProcs::Find_Key(k.token), &k);
        EXPECT_EQ(CalcProcs::Find_Key_By_Control(k.control), &k);
        EXPECT_NE(std::string(k.caption), "") << k.token;
        // Window keys are the window's own; every other key is an engine key.
        EXPECT_EQ(CalcProcs::Is_Key_Token(k.token), k.kind != KeyKind::Window) << k.token;
    }
    EXPECT_EQ(CalcProcs::Find_Key("nosuchkey"), nullptr);
    EXPECT_FALSE(CalcProcs::Is_Key_Token("time"));
}

TEST(CalcKeyTable, RegisterKeysNameTheirWindowAction) {
    CalcVariables s;
    CalcProcs::Initial_Routine(s);
    std::vector<RegisterAction> opened;
    s.ShowRegisterWindow = [&](CalcVariables& st) { opened.push_back(st.MemoryAction); };
    for (const auto& k : CalcProcs::Key_Table()) {
        if (!k.registerAction) continue;
        opened.clear();
        ASSERT_TRUE(CalcProcs::Press_Key(s, k.token));
        EXPECT_EQ(opened, std::vector<RegisterAction>{*k.registerAction}) << k.token;
    }
}

TEST(CalcKeyTable, OnlyDispatchedKeysSetTheOperatorMark) {
    CalcVariables s;
    CalcProcs::Initial_Routine(s);
    CalcProcs::Press_Key(s, "5");
    CalcProcs::Press_Key(s, "/");
    EXPECT_EQ(s.OperatorIndicator, "\xC3\xB7");
    CalcProcs::Press_Key(s, "min");  // a key of its own action leaves the mark
    EXPECT_EQ(s.OperatorIndicator, "\xC3\xB7");
    CalcProcs::Press_Key(s, "=");
    EXPECT_EQ(s.OperatorIndicator, "");
}

}  // namespace
