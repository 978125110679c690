// ferrolith-cli calc: replays calculator keys on a fresh engine and prints
// what the display shows, mantissa and exponent joined by "|".
#include <algorithm>
#include <iostream>

#include "CalcKeyList.h"
#include "Cli.h"
#include "Output.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/core/CalculatorState.h"
#include "calc/core/Constants.h"
#include "shell/core/Primitives.h"

namespace {

// Register keys take the register number the window would have chosen:
// "kin:12" stores X in Reg-012.
bool RegisterKey(const std::string& arg, const std::string& key, long& number) {
    size_t colon = arg.find(':');
    if (colon == std::string::npos || arg.substr(0, colon) != key) return false;
    long long n = 0;
    std::string error;
    if (!cli::ReadWhole(key, arg.substr(colon + 1), 1, CalculatorFiles::kRegisterCount, n, error)) return false;
    number = static_cast<long>(n);
    return true;
}

int ListKeys() {
    size_t width = 0;
    for (const auto& k : cli::CalcKeyList()) width = std::max(width, k.token.size());
    for (const auto& k : cli::CalcKeyList())
        std::cout << k.token << std::string(width + 2 - k.token.size(), ' ') << k.does << "\n";
    return 0;
}

int RunCalc(const cli::Parsed& p) {
    if (p.Has("--keys")) return p.positional.empty() ? ListKeys() : cli::UsageError(p, "--keys takes no keys");
    const bool rad = p.Has("--rad"), grad = p.Has("--grad"), hasFix = p.Has("--fix"), hasSci = p.Has("--sci");
    if (rad && grad) return cli::UsageError("--rad and --grad exclude each other");
    if (hasFix && hasSci) return cli::UsageError("--fix and --sci exclude each other");
    long long places = 0;
    std::string error;
    if ((hasFix && !cli::ReadWhole("--fix", p.Value("--fix"), 0, 14, places, error)) ||
        (hasSci && !cli::ReadWhole("--sci", p.Value("--sci"), 0, 14, places, error)))
        return cli::UsageError(error);

    CalculatorState s;
    Calculator::Initial_Routine(s);
    Constants::Load_Constants(s.Constants);
    if (rad) Calculator::Set_Angle_Mode(s, AngleMode::Radian);
    if (grad) Calculator::Set_Angle_Mode(s, AngleMode::Gradian);
    if (hasFix || hasSci) {
        Calculator::Set_Display_Mode(s, hasFix ? DisplayMode::Fixed : DisplayMode::Scientific);
        Calculator::Set_Places(s, static_cast<int>(places));
    }

    long chosen = 0;
    s.ShowRegisterWindow = [&chosen](CalculatorState& st) {
        st.RegisterChoice = static_cast<int>(chosen - 1);
        if (st.MemoryAction == RegisterAction::Delete && chosen >= 1) {
            st.Registers[static_cast<size_t>(chosen - 1)] = {};
            st.RegisterChoice = -1;
        }
    };
    for (const std::string& arg : p.positional) {
        std::vector<std::string> keys;
        if (cli::NumberKeys(arg, keys, error)) {
            if (!error.empty()) return cli::UsageError(error);
            for (const std::string& k : keys) Calculator::Press_Key(s, k);
            continue;
        }
        bool reg = false;
        for (const auto& key : Calculator::Key_Table()) {
            if (key.registerAction && RegisterKey(arg, key.token, chosen)) {
                Calculator::Press_Key(s, key.token);
                reg = true;
                break;
            }
        }
        if (reg) continue;
        // "cnst:N" picks row N of the constant table, as a click and OK would.
        if (arg.rfind("cnst:", 0) == 0) {
            long long row = 0;
            if (!cli::ReadWhole("cnst", arg.substr(5), 1, Constants::kConstantCount, row, error))
                return cli::UsageError(error);
            s.ShowConstantWindow = [row](CalculatorState& st) {
                st.ConstantChoice = "  " + prim::PlainText(st.Constants.ConstantData[static_cast<size_t>(row - 1)].Value);
            };
            Calculator::Press_Key(s, "cnst");
            s.ShowConstantWindow = nullptr;
            continue;
        }
        // Mode switches of the window's option buttons, usable between keys.
        long long n = 0;
        if (arg == "deg" || arg == "rad" || arg == "grad") {
            Calculator::Set_Angle_Mode(s, arg == "rad"    ? AngleMode::Radian
                                          : arg == "grad" ? AngleMode::Gradian
                                                          : AngleMode::Degree);
            continue;
        }
        if (arg == "norm") {
            Calculator::Set_Display_Mode(s, DisplayMode::Normal);
            continue;
        }
        if ((arg.rfind("fix:", 0) == 0 || arg.rfind("sci:", 0) == 0) && cli::ReadWhole(arg.substr(0, 3), arg.substr(4), 0, 14, n, error)) {
            Calculator::Set_Display_Mode(s, arg[0] == 'f' ? DisplayMode::Fixed : DisplayMode::Scientific);
            Calculator::Set_Places(s, static_cast<int>(n));
            continue;
        }
        if (!Calculator::Press_Key(s, arg))
            return cli::UsageError("unknown calculator key " + cli::Quote(arg) + " (see ferrolith-cli calc --keys)");
    }
    if (p.format != cli::Format::Text)
        cli::WriteRows(p, {{{"display", cli::Txt(s.Shown.Number)}, {"exponent", cli::Txt(s.Shown.Exponent)}}});
    else
        std::cout << s.Shown.Number << "|" << s.Shown.Exponent << "\n";
    return 0;
}

const cli::Registrar kCalc({
    "calc",
    "TOKEN...",
    "replays calculator keys on a fresh calculator and prints its display",
    {{"--rad", "", "start in radians (default degrees)"},
     {"--grad", "", "start in grads"},
     {"--fix", "N", "start with a fixed display of N places, 0 to 14"},
     {"--sci", "N", "start with a scientific display of N places, 0 to 14"},
     {"--keys", "", "list every key token with what it does"}},
    {"TOKEN   a key (see --keys) or a whole number, typed as its keys: 100 is 1 0 0, 2.5 is",
     "        2 dot 5, -3 is 3 pm, 1.5e3 is 1 dot 5 exp 3 (up to 15 digits, exponent -99 to 99).",
     "        Numbers next to each other run together as on the keypad: 1 4 is 14.",
     "Output: DISPLAY|EXPONENT, the two fields of the calculator's display: the number as",
     "  shown (with its point), then the exponent of ten, blank when there is none.",
     "  1.| 15 is 1 x 10^15; 1.|-20 is 1 x 10^-20."},
    {"calc 100 sqrt", "calc 2.5 '*' -3 =", "calc 1.5e3 + 2 = --format json", "calc --fix 2 PI", "calc --keys"},
    RunCalc,
    true});

}  // namespace
