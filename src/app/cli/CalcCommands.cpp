// ferrolith-cli calc: replays calculator keys on a fresh engine and prints
// what the display shows, mantissa and exponent joined by "|".
#include <iostream>

#include "Cli.h"
#include "calc/CalcProcs.h"
#include "calc/CalcVariables.h"
#include "calc/ConstantModule.h"
#include "shell/Primitives.h"

namespace {

// Register keys take the register number the window would have chosen:
// "kin:12" stores X in Reg-012.
bool RegisterKey(const std::string& arg, const std::string& key, long& number) {
    size_t colon = arg.find(':');
    if (colon == std::string::npos || arg.substr(0, colon) != key) return false;
    return cli::ParseInt(arg.substr(colon + 1), number) && number >= 1 && number <= CalcFiles::kRegisterCount;
}

int RunCalc(const cli::Args& argsIn) {
    cli::Args args = argsIn;
    bool rad = cli::TakeFlag(args, "--rad");
    bool grad = cli::TakeFlag(args, "--grad");
    std::string fix, sci;
    bool hasFix = false, hasSci = false;
    if (!cli::TakeOption(args, "--fix", fix, hasFix)) return cli::UsageError("--fix needs a number of places");
    if (!cli::TakeOption(args, "--sci", sci, hasSci)) return cli::UsageError("--sci needs a number of places");
    if (rad && grad) return cli::UsageError("--rad and --grad exclude each other");
    if (hasFix && hasSci) return cli::UsageError("--fix and --sci exclude each other");
    long places = 0;
    if ((hasFix && (!cli::ParseInt(fix, places) || places < 0 || places > 14)) ||
        (hasSci && (!cli::ParseInt(sci, places) || places < 0 || places > 14)))
        return cli::UsageError("places must be 0 to 14");

    CalcVariables s;
    CalcProcs::Initial_Routine(s);
    ConstantModule::Load_Constants(s.Constants);
    if (rad) CalcProcs::Set_Angle_Mode(s, 'R');
    if (grad) CalcProcs::Set_Angle_Mode(s, 'G');
    if (hasFix || hasSci) {
        if (hasFix)
            CalcProcs::FxnButton_Click(s);
        else
            CalcProcs::ScnButton_Click(s);
        CalcProcs::PrecBox_Click(s, static_cast<int>(places));
    }

    long chosen = 0;
    s.ShowRegisterWindow = [&chosen](CalcVariables& st) {
        st.RegisterChoice = static_cast<int16_t>(chosen - 1);
        if (st.MemoryAction == RegisterAction::Delete && chosen >= 1) {
            st.Registers[static_cast<size_t>(chosen - 1)] = {};
            st.RegisterChoice = -1;
        }
    };
    for (const std::string& arg : args) {
        bool reg = false;
        for (const auto& key : CalcProcs::Key_Table()) {
            if (key.registerAction && RegisterKey(arg, key.token, chosen)) {
                CalcProcs::Press_Key(s, key.token);
                reg = true;
                break;
            }
        }
        if (reg) continue;
        // "cnst:N" picks row N of the constant table, as a click and OK would.
        if (arg.rfind("cnst:", 0) == 0) {
            long row = 0;
            if (!cli::ParseInt(arg.substr(5), row) || row < 1 || row > ConstantModule::kConstantCount)
                return cli::UsageError("cnst takes a row number 1 to 128");
            s.ShowConstantWindow = [row](CalcVariables& st) {
                st.ConstantChoice = "  " + prim::PlainText(st.Constants.ConstantData[static_cast<size_t>(row - 1)].Value);
            };
            CalcProcs::Press_Key(s, "cnst");
            s.ShowConstantWindow = nullptr;
            continue;
        }
        // Mode switches of the window's option buttons, usable between keys.
        long n = 0;
        if (arg == "deg" || arg == "rad" || arg == "grad") {
            CalcProcs::Set_Angle_Mode(s, arg == "rad" ? 'R' : arg == "grad" ? 'G' : 'D');
            continue;
        }
        if (arg == "norm") {
            CalcProcs::StdButton_Click(s);
            continue;
        }
        if ((arg.rfind("fix:", 0) == 0 || arg.rfind("sci:", 0) == 0) && cli::ParseInt(arg.substr(4), n) && n >= 0 &&
            n <= 14) {
            if (arg[0] == 'f')
                CalcProcs::FxnButton_Click(s);
            else
                CalcProcs::ScnButton_Click(s);
            CalcProcs::PrecBox_Click(s, static_cast<int>(n));
            continue;
        }
        if (!CalcProcs::Press_Key(s, arg)) return cli::UsageError("unknown calculator key '" + arg + "'");
    }
    std::cout << s.DisplayBox << "|" << s.ExpoBox << "\n";
    return 0;
}

const cli::Registrar kCalc({"calc", "calc [--rad|--grad] [--fix N|--sci N] TOKEN...",
                            "replays calculator keys on a fresh engine and prints DisplayBox|ExpoBox; "
                            "register keys take the register number (kin:3, ko:3, xk:3, mplus:3, mminus:3, kac:3); "
                            "cnst:N picks row N of the constant table; "
                            "deg, rad, grad, norm, fix:N, sci:N switch modes between keys",
                            RunCalc});

}  // namespace
