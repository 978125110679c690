// The key table: one entry per key, found by token and by control name, and
// the keyboard keys that act as its keys.
#include <gtest/gtest.h>

#include <set>
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
    EXPECT_EQ(Calculator::Find_Key("nosuchkey"), Calculator::Find_Key_By_Control("nosuchkey"));
    CalculatorState s;
    for (const char* notEngine : {"time", "tab0", "bogus"}) EXPECT_FALSE(Calculator::Press_Key(s, notEngine));
}

TEST(CalcKeyTable, KeyboardKeysActAsTheirKeys) {
    using B = Calculator::Keyboard;
    using M = Calculator::Modifiers;
    // clang-format off
    const struct {
        B key;
        M held;
        const char* token;
    } table[] = {
        {B::Digit0, M::None, "0"},       {B::Digit1, M::None, "1"},     {B::Digit1, M::Shift, ""},
        {B::Digit3, M::Shift, "3"},      {B::Digit4, M::Other, "4"},    {B::Digit6, M::Shift, "exp"},
        {B::Digit6, M::None, "6"},       {B::Digit6, M::Other, "6"},    {B::Digit8, M::Shift, "*"},
        {B::Digit8, M::None, "8"},       {B::Digit9, M::Shift, ""},     {B::Keypad0, M::None, "0"},
        {B::Keypad9, M::Shift, "9"},     {B::Point, M::None, "dot"},    {B::Delete, M::None, "AC"},
        {B::Backspace, M::None, "ers"},  {B::Escape, M::None, "C"},     {B::Enter, M::Other, "="},
        {B::Equal, M::None, "="},        {B::Equal, M::Other, "="},     {B::Equal, M::Shift, "+"},
        {B::Plus, M::Shift, "+"},        {B::Slash, M::None, "/"},      {B::Asterisk, M::Other, "*"},
        {B::KeypadMinus, M::Other, "-"}, {B::Minus, M::None, "-"},      {B::Minus, M::Shift, ""},
        {B::F8, M::None, "exp"},         {B::F9, M::None, "PI"},        {B::Up, M::None, "xy"},
        {B::F1, M::None, ""},            {B::None, M::None, ""}};
    // clang-format on
    for (const auto& k : table) {
        const Calculator::KeyDef* key = Calculator::Keyboard_Key(k.key, k.held);
        EXPECT_EQ(key ? key->token : "", std::string(k.token)) << int(k.key) << " " << int(k.held);
    }
    for (B key : {B::F1, B::F2, B::F3, B::F4, B::F8})
        EXPECT_EQ(Calculator::Keyboard_Page(key), key == B::F8 ? -1 : int(key) - int(B::F1));
}

}  // namespace
