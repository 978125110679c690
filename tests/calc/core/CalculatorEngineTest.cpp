// The calculator engine driven the way the window drives it: key tokens in,
// display fields out. The key sequences are in key_sequences.golden; here is
// what needs the engine's hooks or functions called directly, and the key
// table with its keyboard keys.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "calc/core/CalculatorEngine.h"
#include "shell/core/Primitives.h"

namespace {

using prim::Trim;

CalculatorState Fresh() {
    CalculatorState s;
    Calculator::Initial_Routine(s);
    Constants::Load_Constants(s.Constants);
    return s;
}

void Press(CalculatorState& s, const std::string& keys) {
    std::istringstream in(keys);
    for (std::string t; in >> t;) ASSERT_TRUE(Calculator::Press_Key(s, t)) << t;
}

std::string Shown(const CalculatorState& s) { return s.Shown.Number + "|" + s.Shown.Exponent; }

// One word of a key-sequence line: a mode word, now:T, reopen, or a key with
// the row picked in the window it opens ("kin:5", "cnst:73").
bool Replay(CalculatorState& s, const std::string& word) {
    const size_t colon = word.find(':');
    const std::string head = word.substr(0, colon), tail = colon == std::string::npos ? "" : word.substr(colon + 1);
    static const std::map<std::string, AngleMode> angles = {
        {"deg", AngleMode::Degree}, {"rad", AngleMode::Radian}, {"grad", AngleMode::Gradian}};
    static const std::map<std::string, DisplayMode> modes = {
        {"norm", DisplayMode::Normal}, {"fix", DisplayMode::Fixed}, {"sci", DisplayMode::Scientific}};
    if (angles.count(head)) {
        Calculator::Set_Angle_Mode(s, angles.at(head));
    } else if (modes.count(head)) {
        Calculator::Set_Display_Mode(s, modes.at(head));
        if (!tail.empty()) Calculator::Set_Places(s, std::stoi(tail));
    } else if (head == "now") {
        const double now = std::stod(tail);
        s.Now = [now] { return now; };
    } else if (head == "reopen") {
        Calculator::Initial_Routine(s);
    } else {
        const int row = tail.empty() ? 0 : std::stoi(tail);  // 0: Exit
        s.ShowRegisterWindow = [row](CalculatorState& st) { st.RegisterChoice = row - 1; };
        s.ShowConstantWindow = [row](CalculatorState& st) {
            if (row > 0) st.ConstantChoice = "  " + prim::PlainText(st.Constants.ConstantData[size_t(row - 1)].Value);
        };
        return Calculator::Press_Key(s, head);
    }
    return true;
}

std::string Field(const CalculatorState& s, const std::string& name) {
    if (name == "OperatorMark") return s.Shown.OperatorMark;
    if (name == "ConstantMark") return s.Shown.ConstantMark;
    if (name == "MemoryMark") return s.Shown.MemoryMark;
    if (name == "AngleName") return s.Shown.AngleName;
    if (name == "ModeName") return s.Shown.ModeName;
    if (name == "Digits") return Calculator::Display_Digits(s);
    if (name == "Copy") return Calculator::Copy_Text(s);
    return "no field " + name;
}

TEST(CalcKeySequences, EveryLineOfTheFile) {
    const int cases =
        calctest::ForEachCase("key_sequences.golden", [](const std::string& keys, const std::string& want) {
            CalculatorState s = Fresh();
            std::istringstream words(keys);
            for (std::string word; words >> word;) ASSERT_TRUE(Replay(s, word)) << word;
            const size_t semicolon = want.find(';');
            EXPECT_EQ(Shown(s), Trim(want.substr(0, semicolon)));
            std::istringstream fields(semicolon == std::string::npos ? "" : want.substr(semicolon + 1));
            for (std::string f; fields >> f;)
                EXPECT_EQ(Field(s, f.substr(0, f.find('='))), f.substr(f.find('=') + 1)) << f;
        });
    EXPECT_GT(cases, 250);
}

TEST(CalcEngine, PasteTakesTheNumberAtTheStartOfTheClipboard) {
    CalculatorState s = Fresh();
    std::string clip = "abc";
    std::vector<std::string> boxes;
    s.ClipboardText = [&] { return clip; };
    s.ShowMessage = [&](const std::string& text, const std::string& title) { boxes.push_back(title + ": " + text); };
    Press(s, "7 xtract");
    EXPECT_EQ(Shown(s), "0.|");
    clip = "12.5 kips";
    Press(s, "xtract");
    EXPECT_EQ(Shown(s), "12.5|");
    clip = "   ";
    Press(s, "xtract");
    EXPECT_EQ(Shown(s), "12.5|");
    EXPECT_EQ(boxes, std::vector<std::string>{"Warning: Nothing to paste. Clipboard is EMPTY !"});
    clip = "1e400";
    Press(s, "xtract");
    EXPECT_EQ(Shown(s), "*Infinity*|");
}

TEST(CalcEngine, ClockSwallowsTheNextKey) {
    CalculatorState s = Fresh();
    Press(s, "4 2");
    EXPECT_TRUE(Calculator::Toggle_Clock(s));
    Calculator::Show_Clock(s, 2026, 11, 23, 1, 21, 5, 7);
    EXPECT_EQ(s.Shown.Date, "MONDAY NOV 23, 2026");
    EXPECT_EQ(s.Shown.Number, "09:05:07 PM");
    EXPECT_EQ(Calculator::Display_Digits(s), "");
    Press(s, "7");
    EXPECT_EQ(Shown(s) + s.Shown.Date, "42.|");
    Press(s, "7");
    EXPECT_EQ(Shown(s), "427.|");
}

TEST(CalcEngine, SpeechSaysWordsAndResultsOnlyWhenOn) {
    CalculatorState s = Fresh();
    std::vector<std::string> said;
    s.Speak = [&](const std::string& w) { said.push_back(w); };
    Press(s, "5 sqrt");
    EXPECT_TRUE(said.empty());  // speech off
    s.ReadOutOn = true;
    Press(s, "AC 2 * 3 =");
    EXPECT_EQ(said, (std::vector<std::string>{"", "2", "times", "3", "= 6"}));
    const std::pair<const char*, const char*> last[] = {{"1 exp 2 0 =", "= 1times 10 to the power20"},
                                                        {"1 exp 2 0 pm =", "= 1times 10 to the power negative20"},
                                                        {"5 pm", "negative"},
                                                        {"=", "= negative 5"},
                                                        {"AC 2 dot 5 fact", "Error :::: "}};
    for (const auto& [keys, words] : last) {
        Press(s, keys);
        EXPECT_EQ(said.back(), words) << keys;
    }
    Press(s, "AC");
    said.clear();
    Press(s, "1 / 0 = 5 sqrt C");
    EXPECT_EQ(said, (std::vector<std::string>{"1", "divided by", "0", "Error :::: Divide by Zero"}));
}

// Random sequences of every key: the engine never shows a non-number that is
// not an error text, and never loses its display.
TEST(CalcEngine, RandomKeySequencesKeepADisplay) {
    std::vector<const char*> keys;  // every key of the engine
    for (const auto& k : Calculator::Key_Table())
        if (Calculator::Is_Key_Token(k.token)) keys.push_back(k.token);
    uint32_t seed = 12345;
    auto next = [&] { return (seed = seed * 1664525u + 1013904223u) >> 8; };
    for (int run = 0; run < 400; ++run) {
        CalculatorState s = Fresh();
        s.Now = [] { return 46349.25; };
        std::string trail;
        for (int k = 0; k < 40; ++k) {
            const char* key = keys[next() % keys.size()];
            trail += std::string(key) + " ";
            ASSERT_TRUE(Calculator::Press_Key(s, key));
            ASSERT_FALSE(s.Shown.Number.empty()) << trail;
            const bool error = s.Shown.Number.front() == '*';
            EXPECT_EQ(error, s.ErrorLock) << trail;
            if (error) continue;
            for (const char* bad : {"Inf", "NaN"}) EXPECT_EQ(s.Shown.Number.find(bad), std::string::npos) << trail;
        }
    }
}

TEST(CalcKeyTable, TokensAndControlsAreUniqueAndFound) {
    std::set<std::string> tokens, controls;
    for (const auto& k : Calculator::Key_Table()) {
        EXPECT_TRUE(tokens.insert(k.token).second) << k.token;
        EXPECT_TRUE(controls.insert(k.control).second) << k.control;
        EXPECT_EQ(Calculator::Find_Key(k.token), &k);
        EXPECT_EQ(Calculator::Find_Key_By_Control(k.control), &k);
        EXPECT_NE(std::string(k.caption), "") << k.token;
        // Window keys are the window's own; every other key is an engine key.
        EXPECT_EQ(Calculator::Is_Key_Token(k.token), k.kind != Calculator::KeyKind::Window) << k.token;
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
