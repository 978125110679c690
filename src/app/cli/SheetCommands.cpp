// The calculation sheet of a layout as a PDF file, painted on the offscreen
// platform (no display needed). Only in builds with Qt.
#include <ctime>
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

const cli::Options& TitleOptionList() {
    static const cli::Options list = {
        {"--project", "TEXT", "project name in the title block"},
        {"--job", "TEXT", "job number in the title block"},
        {"--engineer", "TEXT", "engineer in the title block"},
        {"--checker", "TEXT", "checker in the title block"},
        {"--date", "TEXT", "date in the title block (default today, YYYY-MM-DD)"},
        {"--paper", "letter|a4", "paper size (default letter)"}};
    return list;
}

std::string Today() {
    const std::time_t now = std::time(nullptr);
    char buf[16];
    std::tm tm{};
    localtime_r(&now, &tm);
    std::strftime(buf, sizeof buf, "%Y-%m-%d", &tm);
    return buf;
}

bool ReadTitle(const cli::Parsed& p, sheet::TitleBlock& t, sheet::Paper& paper, std::string& error) {
    t.Project = p.Value("--project");
    t.JobNumber = p.Value("--job");
    t.Engineer = p.Value("--engineer");
    t.Checker = p.Value("--checker");
    t.Date = p.Value("--date", Today());
    const std::string size = p.Value("--paper", "letter");
    if (size != "letter" && size != "a4") {
        error = "--paper must be letter or a4, not " + cli::Quote(size);
        return false;
    }
    paper = size == "a4" ? sheet::Paper::A4 : sheet::Paper::Letter;
    return true;
}

// Writes the sheet; 0, or 1 with one line on stderr.
int Write(const sheet::Sheet& s, sheet::Paper paper, const std::string& out) {
    const std::string error = sheetprint::WritePdf(s, paper, out);
    if (!error.empty()) return cli::Fail("cannot write " + cli::Quote(out) + ": " + error, 1);
    std::cout << "wrote " << out << "\n";
    return 0;
}

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
    return sheetcli::Write(capsheet::Capacity_Sheet(doc, in, run, title, BaseName(file), appinfo::kVersion), paper,
                           p.Value("-o"));
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
