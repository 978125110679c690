// The calculation sheet of a layout as a PDF file, painted on the offscreen
// platform (no display needed). Only in builds with Qt.
#include <iostream>
#include <string>

#include "Cli.h"
#include "ModelCli.h"
#include "WeldCli.h"
#include "board/core/CapacitySheet.h"
#include "board/core/LayoutFile.h"
#include "shell/core/AppInfo.h"
#include "shell/print/SheetPrinter.h"

namespace sheetcli {

// Writes the sheet and says where; 1 with one line on stderr when it cannot.
int Write(const sheet::Sheet& s, sheet::Paper paper, const std::string& out) {
    const std::string error = sheetprint::WritePdf(s, paper, out);
    if (!error.empty()) return cli::Fail("cannot write " + cli::Quote(out) + ": " + error, 1);
    return 0;
}

// This build paints sheets: the commands with --sheet write through here.
const bool kWriterInstalled = [] {
    SheetWriter() = [](const sheet::Sheet& s, sheet::Paper paper, const std::string& path) {
        sheetprint::PaintingContext painting;
        return Write(s, paper, path);
    };
    return true;
}();

}  // namespace sheetcli

namespace {

std::string BaseName(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

int Sheet(const cli::Parsed& p) {
    std::string error;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    shell::SolverModel model = shell::SolverModel::Iterative;
    weldcli::StrengthChoice choice;
    sheet::TitleBlock title;
    sheet::Paper paper = sheet::Paper::Letter;
    if (!weldcli::ReadRunOptions(p, opt, error) || !modelcli::ReadModel(p, model, error) ||
        !weldcli::ReadStrength(p, choice, error) || !sheetcli::ReadTitle(p, title, paper, error))
        return cli::UsageError(error);
    if (p.positional.size() != 1) return cli::UsageError(p, "sheet needs one FILE.wld");
    const std::string& file = p.positional[0];
    Layout::LayoutDocument doc;
    const LayoutFile::LayoutRead read = LayoutFile::Read_Layout_Checked(doc, file);
    if (!read.Ok()) return cli::Fail("cannot read layout " + cli::Quote(file) + ": " + read.Cause(), 1);

    const capsheet::Inputs in{static_cast<int16_t>(choice.electrode), static_cast<int16_t>(choice.size),
                              static_cast<int16_t>(choice.method), static_cast<int16_t>(opt.stripIndex), model};
    const capsheet::Run run = capsheet::Solve_Both(doc, in, opt.maxPasses);
    if (!run.Result.Converged)
        return cli::Fail("no converged run for " + cli::Quote(file) + ": no sheet is made", 3);
    sheetprint::PaintingContext painting;
    const std::string& out = p.Value("-o");
    if (const int rc = sheetcli::Write(capsheet::Capacity_Sheet(doc, in, run, title, BaseName(file), appinfo::kVersion),
                                       paper, out);
        rc != 0)
        return rc;
    std::cout << "wrote " << out << "\n";
    return 0;
}

const cli::Registrar kSheet({
    "sheet",
    "FILE.wld",
    "writes the calculation sheet of a layout's capacity as a PDF file",
    cli::Options{{"-o", "OUT.pdf", "the PDF file to write", false, true}} + weldcli::StrengthOptionList() +
        weldcli::RunOptionList() + cli::Options{modelcli::ModelOption()} + sheetcli::TitleOptionList(),
    {"The sheet holds the layout drawn to scale with its load and instantaneous center, the inputs, the",
     "capacity by the chosen method and by all three, C, the center, the passes and the other model's",
     "capacity; exit 3 and no file when the run does not converge."},
    {"sheet examples/c-shape-right.wld -o /tmp/c-shape-right.pdf --project 'Bay 4 bracket'"},
    Sheet});

}  // namespace
