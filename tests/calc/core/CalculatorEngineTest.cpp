// The calculator engine driven the way the window drives it: key tokens in,
// display fields out.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "calc/core/CalculatorEngine.h"
#include "calc/core/CalculatorState.h"

namespace {

std::vector<std::string> Tokens(const std::string& keys) {
    std::istringstream in(keys);
    std::vector<std::string> out;
    for (std::string t; in >> t;) out.push_back(t);
    return out;
}

void Press(CalculatorState& s, const std::string& keys) {
    for (const auto& t : Tokens(keys)) ASSERT_TRUE(Calculator::Press_Key(s, t)) << t;
}

CalculatorState Fresh() {
    CalculatorState s;
    Calculator::Initial_Routine(s);
    return s;
}

std::string Shown(const CalculatorState& s) { return s.Shown.Number + "|" + s.Shown.Exponent; }

struct Case {
    const char* keys;
    const char* expected;  // DisplayBox|ExpoBox
};

void RunCases(const std::vector<Case>& cases, void (*setup)(CalculatorState&) = nullptr) {
    for (const auto& c : cases) {
        CalculatorState s = Fresh();
        if (setup) setup(s);
        Press(s, c.keys);
        EXPECT_EQ(Shown(s), c.expected) << "keys: " << c.keys;
    }
}

TEST(CalcEntry, DigitsPointSignAndExponent) {
    RunCases({
        {"", "0.|"},
        {"1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6", "123456789012345.|"},  // the 16th digit is ignored
        {"0 0 7", "7.|"},
        {"0 dot 0 7", "0.07|"},
        {"dot", "0.|"},
        {"+ 5 =", "5.|"},
        {"exp 5", "5.|"},              // no exponent without a mantissa
        {"5 pm exp 3", "-5.| 03"},
        {"5 exp 1 2 3", "5.| 23"},     // the exponent keeps its last two digits
        {"1 exp 1 5 =", "1.| 15"},
        {"4 sqrt 7", "7.|"},           // a digit after a result starts a new number
        {"1 2 3 4 5 6 7 8 9 0 1 2 3 4 pm dot 5 6", "-12345678901234.5|"},
        {"1 dot dot 5", "1.5|"},
        {"5 exp", "5.| 00"},
        {"5 exp 2 pm", "5.|-02"},
        {"5 exp 2 pm pm", "5.| 02"},
        {"5 exp 2 dot", "5.| 02"},
        {"5 pm pm", "5.|"},
        {"0 pm", "0.|"},
        {"9 sqrt pm", "-3.|"},         // sign of a result
        {"1 2 dot 5 ers", "12.|"},     // the point goes with the last decimal
        {"1 2 ers", "1.|"},
        {"1 ers", "0.|"},
        {"5 pm ers", "0.|"},
        {"5 exp 2 3 ers", "5.| 20"},   // the last exponent digit is zeroed, not shifted
        {"5 exp 2 3 ers ers", "5.| 20"},   // a zero last digit stays
        {"5 exp 2 ers", "5.| 00"},
        {"5 exp 2 ers ers", "5.|"},        // a zero exponent leaves exponent entry
        {"5 exp 2 ers ers 1", "51.|"},
        {"4 sqrt ers", "2.|"},         // a result cannot be deleted into
        {"1 2 C", "0.|"},
        {"2 + 3 C 4 =", "6.|"},
    });
}

TEST(CalcEntry, ErrorLocksEverythingButAC) {
    RunCases({
        {"1 / 0 = C", "*Divide by Zero*|"},
        {"1 / 0 = 5 + 3 = pm exp sqrt", "*Divide by Zero*|"},
        {"1 / 0 = dc engl engr ptor min", "*Divide by Zero*|"},
        {"1 / 0 = AC 2 + 3 =", "5.|"},
    });
}

TEST(CalcPriority, ChainsUndoAndRedo) {
    RunCases({
        {"9 - 2 * 3 =", "3.|"},
        {"2 * 3 + 4 =", "10.|"},
        {"1 + 2 * 3 / 4 =", "2.5|"},
        {"2 + 3 xy 2 =", "11.|"},
        {"2 xy 3 xy 2 =", "64.|"},     // powers chain from the left
        {"2 + * 3 =", "6.|"},          // a second operator replaces the first
        {"1 + 2 * + 5 =", "7.|"},
        {"8 - 6 / 2 =", "5.|"},
        {"1 - 2 xy 3 =", "-7.|"},
        {"1 + 2 * 3 xy 2 =", "19.|"},
        {"1 + 8 root 3 =", "3.|"},
        // The two plain-chain root rows as the key has always worked them:
        // T * P(x1, 1 - 1 / x0) and T * P(x1, 1 - (1 - x0)).
        {"2 * 8 root 3 =", "64.|"},
        {"2 / 8 root 3 =", "128.|"},
        {"2 + 3 * / 4 =", "0.75|"},    // the "/" took T back to X = 3
        {"1 0 - 2 * 3 =", "4.|"},
        {"2 / 4 / 5 =", "0.1|"},
        {"1 + 2 / 4 / 5 =", "1.1|"},
        {"3 0 - 2 * 3 * 4 =", "6.|"},
        {"2 + 3 * 4 xy 2 =", "50.|"},
        {"2 * 3 xy 2 xy 2 =", "162.|"},
        {"2 + 3 * 4 root 2 =", "8.|"},
        {"1 0 - 3 * 2 xy 2 =", "-2.|"},
        {"1 0 0 / 2 xy 2 =", "25.|"},
        {"2 * 3 xy 2 * 2 =", "36.|"},
        {"5 0 - 1 0 / 2 xy 2 =", "47.5|"},
        {"2 xy 3 * 2 =", "16.|"},
    });
}

TEST(CalcPriority, DisplayRuleOfEvaluatePending) {
    // Only "=" or a repeat of the same operator shows the total.
    RunCases({
        {"2 + 3 +", "5.|"},
        {"2 * 3 *", "6.|"},
        {"2 xy 3 xy", "8.|"},
        {"2 * 3 +", "3.|"},            // a lower operator leaves X shown
    });
}

TEST(CalcPriority, ConstantCalculation) {
    RunCases({
        {"2 / / 8 =", "4.|"},
        {"2 - - 9 = =", "5.|"},
        {"5 + + 3 = =", "13.|"},
        {"5 * * 3 = =", "75.|"},
        {"2 xy xy 3 =", "9.|"},
        {"2 root root 9 =", "3.|"},
        {"0 / / 8 =", "*Divide by Zero*|"},
        {"0 root root 8 =", "*Divide by Zero*|"},
        {"5 + + + 3 =", "8.|"},        // a third press disarms
        {"7 = =", "7.|"},              // without K "=" keeps the display
    });
    CalculatorState s = Fresh();
    Press(s, "5 + +");
    EXPECT_EQ(s.Shown.ConstantMark, "K");
    Press(s, "3 = =");
    EXPECT_EQ(s.Shown.ConstantMark, "K");  // K stays armed across "="
    Press(s, "+");
    EXPECT_EQ(s.Shown.ConstantMark, "");
    Press(s, "5 + + AC");
    EXPECT_EQ(s.Shown.ConstantMark, "");
}

TEST(CalcPriority, PowerAndRootErrors) {
    RunCases({
        {"8 pm xy 3 =", "-512.|"},
        {"8 pm root 3 =", "-2.|"},     // an odd root of a negative number
        {"8 pm xy 0 dot 5 =", "*Invalid Power*|"},
        {"0 xy 0 =", "*Divide by Zero*|"},
        {"1 0 xy 2 0 0 =", "*Infinity*|"},
        {"1 0 xy 2 0 0 pm =", "0.|"},  // below 1E-99: 0, no error
        {"1 exp 9 0 * 1 exp 9 0 =", "*Infinity*|"},
        {"0 xy 1 pm =", "*Invalid Power*|"},
    });
}

TEST(CalcFunctionsKeys, WorkedExamples) {
    RunCases({
        {"3 6 0 cos", "1.|"},
        {"9 0 cos", "0.|"},
        {"3 0 sin", "0.5|"},
        {"4 5 tan", "1.|"},
        {"2 7 0 tan", "*Out of Range*|"},
        {"1 8 0 tan", "0.|"},
        {"9 0 tan", "*Out of Range*|"},
        {"1 8 0 sin", "0.|"},
        {"1 0 0 0 log", "3.|"},
        {"0 log", "*Out of Range*|"},
        {"0 fact", "1.|"},
        {"6 9 fact", "1.71122452428141| 98"},  // the largest factorial shown
        {"7 0 fact", "*Infinity*|"},
        {"1 pm fact", "*Out of Range*|"},
        {"2 dot 5 fact", "*Error*|"},
        {"8 pm cubt", "-2.|"},
        {"1 pm sqrt", "*Undefined*|"},
        {"0 rcp", "*Divide by Zero*|"},
        {"1 pm ln", "*Out of Range*|"},
        {"5 fact", "120.|"},
        {"2 0 0 fact", "*Infinity*|"},
        {"1 6 sqrt", "4.|"},
        {"3 rcp", "0.333333333333333|"},
        {"4 rcp", "0.25|"},
        {"3 sqr", "9.|"},
        {"3 pm cube", "-27.|"},
        {"2 alog", "100.|"},
        {"1 0 0 alog", "*Infinity*|"},
        {"1 aln", "2.71828182845905|"},
        {"1 iSin", "90.|"},
        {"1 pm iSin", "-90.|"},
        {"2 iSin", "*Undefined*|"},
        {"0 dot 5 iSin", "30.|"},
        {"1 iCos", "0.|"},
        {"1 pm iCos", "180.|"},
        {"2 iCos", "*Undefined*|"},
        {"1 iTan", "45.|"},
        {"0 sinh", "0.|"},
        {"0 cosh", "1.|"},
        {"1 0 0 0 sinh", "*Undefined*|"},
        {"1 0 0 0 tanh", "1.|"},
        {"1 0 0 0 pm tanh", "-1.|"},
        {"0 isinh", "0.|"},
        {"1 icosh", "0.|"},
        {"0 dot 5 icosh", "*Undefined*|"},
        {"0 dot 5 itanh", "*Undefined*|"},  // (x + 1) / (x - 1) as it stands
        {"1 itanh", "*Undefined*|"},
        {"2 itanh", "0.549306144334055|"},
        {"PI", "3.14159265358979|"},
        {"5 exp PI", "5.| 00"},             // PI is ignored in exponent entry
        {"2 + 9 sqrt =", "5.|"},            // a function acts at once on X
    });
}

TEST(CalcFunctionsKeys, AngleModes) {
    RunCases({{"PI sin", "0.|"}, {"PI cos", "-1.|"}, {"3 6 0 sin", "0.|"}, {"1 iSin", "1.5707963267949|"}},
             [](CalculatorState& s) { Calculator::Set_Angle_Mode(s, AngleMode::Radian); });
    RunCases({{"1 0 0 tan", "*Out of Range*|"}, {"2 0 0 sin", "0.|"}, {"1 iSin", "100.|"}},
             [](CalculatorState& s) { Calculator::Set_Angle_Mode(s, AngleMode::Gradian); });
    CalculatorState s = Fresh();
    EXPECT_EQ(s.Shown.AngleName, "DEGREE");
    Calculator::Set_Angle_Mode(s, AngleMode::Gradian);
    EXPECT_EQ(s.Shown.AngleName, "GRADIAN");
    Press(s, "AC");
    EXPECT_EQ(s.Shown.AngleName, "GRADIAN");  // AC keeps the angle mode
}

TEST(CalcFunctionsKeys, SwapConversionsAndRandom) {
    RunCases({
        {"2 + 3 = 7 x-y", "5.|"},
        {"2 + 3 = 7 x-y x-y", "7.|"},
        {"x-y", "0.|"},
        {"3 rtop 4 =", "5.|"},
        {"3 rtop 4 = x-y", "53.130102354156|"},
        {"2 ptor 9 0 = x-y", "2.|"},
        {"0 rtop 4 =", "*Divide by Zero*|"},
        {"2 ptor 0 = 3 ptor 0 =", "3.|"},     // each conversion takes its own radius
        {"3 rtop 4 = 6 rtop 8 =", "10.|"},
        {"2 ptor 6 0 + 1 =", "2.|"},          // x = 1 becomes the operand
    });
    CalculatorState s = Fresh();
    Press(s, "2 ptor 9 0 =");
    EXPECT_NEAR(s.DisplayValue.number, 0.0, 1e-14);  // x near 0
    EXPECT_EQ(s.Shown.Exponent, "-15");

    CalculatorState r = Fresh();
    r.Now = [] { return 46349.123456789; };
    Press(r, "rand");
    EXPECT_EQ(Shown(r), "0.789|");
    Press(r, "rand");
    EXPECT_EQ(Shown(r), "0.789|");  // same clock, same value
    r.Now = [] { return 46349.2; };
    Press(r, "rand");
    EXPECT_EQ(Shown(r), "0.009|");  // "9.2" / 1000, always three places
}

TEST(CalcFunctionsKeys, EngineeringKeysShiftTheDisplayOnly) {
    RunCases({
        {"1 2 3 4 engl", "1234.| 00"},
        {"1 2 3 4 engl engl", "1.234| 03"},
        {"1 2 3 4 engl engl engl", "0.001234| 06"},
        {"1 2 3 4 engr engr", "1234000.|-03"},
        {"2 dot 5 engr engr", "2500.|-03"},
        {"1 2 3 4 pm engl engl", "-1.234| 03"},
        {"0 engl", "0.|"},
        {"1 2 3 4 engl engl + 1 =", "1235.|"},
    });
}

TEST(CalculationView, ModesAndFormatting) {
    RunCases({
        {"2 / 3 =", "0.666666666666667|"},
        {"0 dot 0 0 5 * 1 =", "0.005|"},
        {"1 2 3 4 5 6 7 8 9 0 1 * 1 =", "12345678901.|"},
        {"1 exp 2 0 pm * 1 =", "1.|-20"},
        // The mantissa's whole digits are counted after rounding to units.
        {"9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 * 1 0 =", "10.| 15"},
    });
    auto fix = [](int n) {
        return [n](CalculatorState& s) {
            Calculator::Set_Display_Mode(s, DisplayMode::Fixed);
            Calculator::Set_Places(s, n);
        };
    };
    CalculatorState s = Fresh();
    Press(s, "3 dot 1 4 1 5 9");
    fix(2)(s);
    EXPECT_EQ(Shown(s), "3.14|");
    EXPECT_EQ(s.DisplayValue.number, 3.14159);  // X keeps its value
    EXPECT_EQ(s.Shown.ModeName, "FIX");
    Calculator::Set_Display_Mode(s, DisplayMode::Normal);
    EXPECT_EQ(Shown(s), "3.14159|");
    EXPECT_EQ(s.Shown.ModeName, "NORM");
    Calculator::Set_Display_Mode(s, DisplayMode::Fixed);  // FIX comes back with its last precision
    EXPECT_EQ(Shown(s), "3.14|");

    CalculatorState f = Fresh();
    Press(f, "1 2 3 dot 4 5 6");
    fix(14)(f);
    EXPECT_EQ(Shown(f), "123.456|");
    CalculatorState z = Fresh();
    Press(z, "3 dot 1 4");
    fix(0)(z);
    EXPECT_EQ(Shown(z), "3.|");
    Press(z, "+ 1 =");
    EXPECT_EQ(Shown(z), "4.|");
    Press(z, "sqrt");
    EXPECT_EQ(Shown(z), "2.|");

    CalculatorState c = Fresh();
    Press(c, "1 2 3 4");
    Calculator::Set_Display_Mode(c, DisplayMode::Scientific);
    Calculator::Set_Places(c, 3);
    EXPECT_EQ(Shown(c), "1.234| 03");
    EXPECT_EQ(c.Shown.ModeName, "SCI");
    Press(c, "+ 1 =");
    EXPECT_EQ(Shown(c), "1.235| 03");
}

TEST(CalculationView, LengthRules) {
    EXPECT_EQ(Calculator::Limit_Digits("3.14159265358979"), "3.14159265358979");
    EXPECT_EQ(Calculator::Limit_Digits("-12.3456789012345678"), "-12.3456789012346");
    EXPECT_EQ(Calculator::Limit_Digits("1.5E+20"), "1.5E+20");
    EXPECT_EQ(Calculator::Check_Length("123.45600000000000"), "123.456");
    EXPECT_EQ(Calculator::Check_Length("123456789012345"), "123456789012345");
    EXPECT_EQ(Calculator::Check_Length("-123456789012345"), "-123456789012345");
    EXPECT_EQ(Calculator::Shorten_Number("1.1234567890123456789"), "1.12345678901235E+00");
    EXPECT_EQ(Calculator::Shorten_Number("12.5"), "12.5");
}

TEST(CalculationView, PasteAndMemory) {
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
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0], "Warning: Nothing to paste. Clipboard is EMPTY !");

    Press(s, "min");
    EXPECT_EQ(s.Shown.MemoryMark, "MEM");
    Press(s, "AC 3 mo");
    EXPECT_EQ(Shown(s), "12.5|");
    Press(s, "AC min");
    EXPECT_EQ(s.Shown.MemoryMark, "");
}

TEST(CalculationView, ClockSwallowsTheNextKey) {
    CalculatorState s = Fresh();
    Press(s, "4 2");
    EXPECT_TRUE(Calculator::Toggle_Clock(s));
    Calculator::Show_Clock(s, 2026, 11, 23, 1, 21, 5, 7);
    EXPECT_EQ(s.Shown.Date, "MONDAY NOV 23, 2026");
    EXPECT_EQ(s.Shown.Number, "09:05:07 PM");
    Press(s, "7");
    EXPECT_EQ(Shown(s), "42.|");
    EXPECT_EQ(s.Shown.Date, "");
    Press(s, "7");
    EXPECT_EQ(Shown(s), "427.|");
}

TEST(CalcFractions, EntryToggleAndSexagesimal) {
    RunCases({
        {"1 frc", "1/.|"},
        {"1 frc 2 frc 3 frc", "1 2/3.|"},    // a third separator is dropped
        {"1 frc frc 2", "1/2.|"},            // "/" right after "/" is dropped
        {"1 frc 2 frc 3 pm pm", "1 2/3.|"},
        {"1 frc 2 frc 3 pm = ", "-1.66666666666667|"},
        {"1 frc 2 frc 3 + 1 =", "2.66666666666667|"},
        {"1 frc 0 + 2 =", "*Divide by Zero*|"},
        {"0 frc", "0.|"},
        {"2 dot 5 frc", "2.5|"},             // no fraction after a point
        {"0 dot 7 5 dc", "3/4.|"},
        {"1 / 3 = dc", "1/3.|"},
        {"1 dot 5 dc dc", "3/2.|"},
        {"1 2 sexa 3 0 sexa 0 sexa", "12.5|"},
        {"3 frc 4 sqrt", "0.866025403784439|"},
        {"1 frc 0", "1/0.|"},                // reported only when the value is needed
        {"1 frc 2 ers", "1/.|"},
        {"1 frc 2 ers ers", "1.|"},
        {"1 frc 2 C", "0.|"},
        {"1 dot 5 dc dc dc", "1 1/2.|"},
        {"1 dot 5 pm dc", "-1 1/2.|"},
        {"2 / 3 = dc", "2/3.|"},
        {"4 dc", "4.|"},
        {"6 frc 8 dc", "3/4.|"},
        {"1 frc 4 frc 8 dc", "1 1/2.|"},
        {"1 frc 4 frc 8 dc dc", "3/2.|"},
        {"1 dot 5 dc + 1 =", "2.5|"},        // X does not change
        {"1 2 sexa 3 0 sexa 3 6 sexa", "12.51|"},
        {"1 2 sexa 3 0 sexa 0 sexa 5 sexa", "5.|"},  // a fourth press starts again
        {"1 2 dot 5 asex", "12\xC2\xB0" "30'0\".|"},
        {"1 2 dot 5 1 asex", "12\xC2\xB0" "30'36\".|"},
        {"3 7 0 dot 5 asex", "10\xC2\xB0" "30'0\".|"},
    });
}

TEST(CalcStatistics, KeysAndErrors) {
    RunCases({
        {"ave 5 + C", "*Empty Data*|"},
        {"ave AC", "0.|"},
        {"ave", "*Empty Data*|"},
        {"5 data strd1", "*Error*|"},        // one value has no sample deviation
        {"1 data 1 pm data strd0", "*Error*|"},
        {"1 data 2 data 3 data ave", "2.|"},
        {"1 data 2 data 3 data dtn", "3.|"},
        {"1 data 2 data 3 data dts", "6.|"},
        {"1 data 2 data 3 data sqr1", "36.|"},
        {"1 data 2 data 3 data sqr2", "14.|"},
        {"1 data 2 data 3 data strd1", "1.|"},
        {"2 data 4 data 4 data 4 data 5 data 5 data 7 data 9 data strd0", "2.|"},
        {"1 frc 2 data dts", "0.5|"},
        {"7 data", "7.|"},                   // the display does not change
        {"7 data + 1 =", "8.|"},
    });
    CalculatorState s = Fresh();
    Press(s, "3 data 4 data AC");
    ASSERT_TRUE(s.DataValues.IsList());  // AC keeps the data
    EXPECT_EQ(s.DataValues.Values, (std::vector<double>{3, 4}));
}

TEST(CalcRegisters, ActionsOnTheChosenRegister) {
    CalculatorState s = Fresh();
    int16_t choice = -1;
    std::string text;
    std::vector<RegisterAction> actions;
    s.ShowRegisterWindow = [&](CalculatorState& st) {
        actions.push_back(st.MemoryAction);
        st.RegisterChoice = choice;
        st.RegisterText = text;
    };
    choice = 4;
    text = "span";
    Press(s, "2 5 kin");
    EXPECT_EQ(s.Registers[4].Value, 25);
    EXPECT_EQ(s.Registers[4].Description, "span");
    Press(s, "AC 5 mplus");
    EXPECT_EQ(s.Registers[4].Value, 30);
    EXPECT_EQ(s.Registers[4].Description, "span");  // ADD stores no description
    Press(s, "AC 1 0 mminus");
    EXPECT_EQ(s.Registers[4].Value, 20);
    Press(s, "AC ko");
    EXPECT_EQ(Shown(s), "20.|");
    Press(s, "7 xk");
    EXPECT_EQ(Shown(s), "20.|");
    EXPECT_EQ(s.Registers[4].Value, 7);
    Press(s, "+ 1 =");
    EXPECT_EQ(Shown(s), "21.|");
    choice = -1;  // Exit in the window
    Press(s, "9 kin AC ko");
    EXPECT_EQ(s.Registers[4].Value, 7);
    EXPECT_EQ(Shown(s), "0.|");
    Press(s, "kac");
    using A = RegisterAction;
    EXPECT_EQ(actions, (std::vector<A>{A::In, A::Add, A::Minus, A::Recall, A::Swap, A::In, A::Recall, A::Delete}));
    choice = 4;
    Press(s, "1 / 0 = kin");
    EXPECT_EQ(s.Registers[4].Value, 7);  // nothing while an error shows
}

TEST(CalcRegisters, WindowHelpers) {
    CalculatorState s = Fresh();
    s.Registers[0] = {5, "a"};
    s.Registers[99] = {7, "b"};
    Calculator::Delete_Registers(s, {0, 99, 120});
    EXPECT_EQ(s.Registers[0].Value, 0);
    EXPECT_EQ(s.Registers[99].Description, "");
    EXPECT_EQ(Calculator::Register_Value_Text(12.5), "12.5   ");
    EXPECT_EQ(Calculator::Register_Value_Text(3), "3.0   ");
    EXPECT_EQ(Calculator::Register_Value_Text(1.5e20), "150000000000000000000.0   ");  // "1.5E+20" is short
    EXPECT_EQ(Calculator::Register_Value_Text(1.23456789012345e20), "1.23456789012345E+20   ");
    EXPECT_EQ(Calculator::Data_Value_Text(3), "3   ");

    Press(s, "1 data 2 data 3 data");
    Calculator::Delete_Data(s, {false, true, false});
    EXPECT_EQ(s.DataValues.Values, (std::vector<double>{1, 3}));
    Calculator::Delete_Data(s, {true, true});
    EXPECT_FALSE(s.DataValues.IsList());
    Press(s, "ave");
    EXPECT_EQ(Shown(s), "*Empty Data*|");
    Press(s, "AC 2 / 8 =");
    EXPECT_EQ(Calculator::Copy_Text(s), "0.25");
}

TEST(CalcConstants, ChosenValueBecomesX) {
    CalculatorState s = Fresh();
    std::string choice;
    s.ShowConstantWindow = [&](CalculatorState& st) {
        if (!choice.empty()) st.ConstantChoice = prim::Variant(choice);
    };
    Press(s, "4 2 cnst");
    EXPECT_EQ(Shown(s), "42.|");  // Exit leaves everything
    choice = "  -17.7778";
    Press(s, "cnst");
    EXPECT_EQ(Shown(s), "-17.7778|");
    Press(s, "+ 1 =");
    EXPECT_EQ(Shown(s), "-16.7778|");
}

TEST(CalcSpeech, WordsResultsAndSilence) {
    CalculatorState s = Fresh();
    std::vector<std::string> said;
    s.Speak = [&](const std::string& w) { said.push_back(w); };
    Press(s, "5 sqrt");
    EXPECT_TRUE(said.empty());  // speech off
    s.ReadOutOn = true;
    Press(s, "AC 2 * 3 =");
    EXPECT_EQ(said, (std::vector<std::string>{"", "2", "times", "3", "= 6"}));
    said.clear();
    Press(s, "1 exp 2 0 =");
    EXPECT_EQ(said.back(), "= 1times 10 to the power20");
    Press(s, "1 exp 2 0 pm =");
    EXPECT_EQ(said.back(), "= 1times 10 to the power negative20");
    Press(s, "5 pm");
    EXPECT_EQ(said.back(), "negative");
    Press(s, "=");
    EXPECT_EQ(said.back(), "= negative 5");
    said.clear();
    Press(s, "1 / 0 =");
    EXPECT_EQ(said, (std::vector<std::string>{"1", "divided by", "0", "Error :::: Divide by Zero"}));
    said.clear();
    Press(s, "5 sqrt C");
    EXPECT_TRUE(said.empty());  // an error on the display: nothing is said
    Press(s, "AC 2 dot 5 fact");
    EXPECT_EQ(said.back(), "Error :::: ");
}

TEST(CalcKeyboard, KeysToTokens) {
    using B = Calculator::Keyboard;
    using M = Calculator::Modifiers;
    struct K {
        B key;
        M held;
        const char* token;
    };
    const K table[] = {
        {B::Digit0, M::None, "0"},
        {B::Digit1, M::None, "1"},
        {B::Digit1, M::Shift, ""},
        {B::Digit3, M::Shift, "3"},
        {B::Digit4, M::Other, "4"},
        {B::Digit6, M::Shift, "exp"},
        {B::Digit6, M::None, "6"},
        {B::Digit6, M::Other, "6"},
        {B::Digit8, M::Shift, "*"},
        {B::Digit8, M::None, "8"},
        {B::Digit9, M::Shift, ""},
        {B::Keypad0, M::None, "0"},
        {B::Keypad9, M::Shift, "9"},
        {B::Point, M::None, "dot"},
        {B::Delete, M::None, "AC"},
        {B::Backspace, M::None, "ers"},
        {B::Escape, M::None, "C"},
        {B::Enter, M::Other, "="},
        {B::Equal, M::None, "="},
        {B::Equal, M::Other, "="},
        {B::Equal, M::Shift, "+"},
        {B::Plus, M::Shift, "+"},
        {B::Slash, M::None, "/"},
        {B::Asterisk, M::Other, "*"},
        {B::KeypadMinus, M::Other, "-"},
        {B::Minus, M::None, "-"},
        {B::Minus, M::Shift, ""},
        {B::F8, M::None, "exp"},
        {B::F9, M::None, "PI"},
        {B::Up, M::None, "xy"},
        {B::F1, M::None, ""},
        {B::None, M::None, ""},
    };
    for (const auto& k : table) {
        const Calculator::KeyDef* key = Calculator::Keyboard_Key(k.key, k.held);
        EXPECT_EQ(key ? key->token : "", std::string(k.token)) << int(k.key) << " " << int(k.held);
    }
    EXPECT_EQ(Calculator::Keyboard_Page(B::F1), 0);
    EXPECT_EQ(Calculator::Keyboard_Page(B::F4), 3);
    EXPECT_EQ(Calculator::Keyboard_Page(B::F8), -1);
    CalculatorState s = Fresh();
    EXPECT_FALSE(Calculator::Press_Key(s, "tab0"));  // pages are the window's business
}

TEST(CalcState, ReopenKeepsTheNumberAndOperatorMarks) {
    CalculatorState s = Fresh();
    Press(s, "2 + 3 *");
    EXPECT_EQ(s.Shown.OperatorMark, "x");
    Press(s, "/");
    EXPECT_EQ(s.Shown.OperatorMark, "\xC3\xB7");
    Press(s, "AC 2 + 3 / 4");
    Calculator::Initial_Routine(s);  // the window closed and opened again
    EXPECT_EQ(Shown(s), "4.|");
    Press(s, "=");
    EXPECT_EQ(Shown(s), "2.75|");
    EXPECT_EQ(s.Shown.OperatorMark, "");

    Press(s, "5 + + 1 / 0 =");
    Calculator::Initial_Routine(s);  // a locked calculator comes back cleared
    EXPECT_EQ(Shown(s), "0.|");
    EXPECT_FALSE(s.ErrorLock);
    EXPECT_FALSE(Calculator::Press_Key(s, "bogus"));
}

// Random key sequences: the engine never shows a non-number that is not an
// error text, and never loses its display.
TEST(CalcEngine, RandomKeySequencesKeepADisplay) {
    const char* const keys[] = {"0",    "1",    "5",    "9",     "dot",  "+",    "-",     "*",    "/",    "=",
                                "xy",   "root", "pm",   "exp",   "frc",  "C",    "AC",    "ers",  "x-y",  "PI",
                                "rand", "mo",   "sexa", "asex",  "data", "ave",  "strd1", "sqrt", "log",  "fact",
                                "sin",  "iCos", "tanh", "itanh", "rcp",  "sqr",  "cube",  "alog", "min",  "dc",
                                "engl", "engr", "ptor", "rtop",  "aln",  "isinh", "dtn",  "xtract"};
    const size_t n = sizeof keys / sizeof keys[0];
    uint32_t seed = 12345;
    auto next = [&] {
        seed = seed * 1664525u + 1013904223u;
        return seed >> 8;
    };
    for (int run = 0; run < 400; ++run) {
        CalculatorState s = Fresh();
        s.Now = [] { return 46349.25; };
        std::string trail;
        for (int k = 0; k < 40; ++k) {
            const char* key = keys[next() % n];
            trail += std::string(key) + " ";
            ASSERT_TRUE(Calculator::Press_Key(s, key));
            ASSERT_FALSE(s.Shown.Number.empty()) << trail;
            bool error = s.Shown.Number.front() == '*';
            EXPECT_EQ(error, s.ErrorLock) << trail;
            if (!error) {
                EXPECT_EQ(s.Shown.Number.find("Inf"), std::string::npos) << trail;
                EXPECT_EQ(s.Shown.Number.find("NaN"), std::string::npos) << trail;
            }
        }
    }
}

}  // namespace
