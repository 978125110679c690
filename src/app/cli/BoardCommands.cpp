// Layout files from the command line: make a .wld from typed lines, and show
// what a .wld holds.
#include <charconv>
#include <cmath>
#include <iostream>
#include <string>
#include <vector>

#include "Cli.h"
#include "ModelCli.h"
#include "WeldCli.h"
#include "board/CartesianModule.h"
#include "board/DimensionModule.h"
#include "board/FileHandling.h"
#include "board/PublicVariables.h"
#include "shell/Primitives.h"
#include "weld/WeldFunctions.h"
#include "weld/WeldStrength.h"
#include "board/WeldUnitCapacity.h"

namespace {

using namespace PublicVariables;
namespace cm = CartesianModule;

// The shortest text that reads back as the same single.
std::string SingleText(float v) {
    char buf[64];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
    if (ec != std::errc()) return "?";
    std::string s(buf, end);
    return s == "-0" ? "0" : s;
}

std::string DoubleText(double v) { return prim::PlainText(v); }

std::string WorldPoint(const LayoutDocument& doc, const PointRec& p) {
    return "(" + SingleText(cm::To_WorldX(doc, p.X)) + ", " + SingleText(cm::To_WorldY(doc, p.Y)) + ")";
}

// Places the load symbol beside the group at the start viewport: a margin of
// half the group's left offset (at most half the board's height), on the
// chosen side, at the height of the group's center of gravity.
void PlaceLoad(LayoutDocument& doc, int16_t side) {
    bool found = false;
    const float minX = cm::Min_X(doc.Lines, found);
    const double a = std::min(static_cast<double>(minX), doc.ScaleHeight / 2.0);
    const double r = std::fabs(a * 0.5 * 0.95);
    const double cy = cm::Centroid_Y(doc.Lines);
    const double x = side == 0 ? r : doc.ScaleWidth - r;
    doc.Load.LoadSide = side;
    doc.Load.LoadPoint.X = static_cast<float>(x);
    doc.Load.LoadPoint.Y = static_cast<float>(cy);
    doc.Load.LoadPlaced = cm::Lines_Empty(doc.Lines) ? 0 : -1;
}

int WldNew(const cli::Args& argsIn) {
    cli::Args args = argsIn;
    std::vector<std::string> lineTexts;
    std::string side = "right", angleText, eccText;
    bool hasSide = false, hasAngle = false, hasEcc = false;
    if (!cli::TakeRepeated(args, "--line", lineTexts)) return cli::UsageError("--line needs X1,Y1,X2,Y2");
    if (!cli::TakeOption(args, "--load-side", side, hasSide)) return cli::UsageError("--load-side needs left or right");
    if (!cli::TakeOption(args, "--load-angle", angleText, hasAngle)) return cli::UsageError("--load-angle needs degrees");
    if (!cli::TakeOption(args, "--load-ecc", eccText, hasEcc)) return cli::UsageError("--load-ecc needs feet");
    if (args.size() != 1) return cli::UsageError("usage: wld-new OUT.wld --line X1,Y1,X2,Y2 [--line ...]");
    if (lineTexts.empty()) return cli::UsageError("wld-new needs at least one --line");
    if (side != "left" && side != "right") return cli::UsageError("--load-side must be left or right");

    LayoutDocument doc;
    cm::Set_Viewport(doc);
    if (hasAngle && !cli::ParseDouble(angleText, doc.Load.LoadAngle))
        return cli::UsageError("bad --load-angle: " + angleText);
    if (hasEcc && !cli::ParseDouble(eccText, doc.Load.LoadEccentricity))
        return cli::UsageError("bad --load-ecc: " + eccText);

    for (const std::string& t : lineTexts) {
        double v[4];
        if (!weldcli::ParseCoords(t, v)) return cli::UsageError("bad --line: " + t);
        PointRec a, b;
        a.X = cm::To_BoardX(doc, v[0]);
        a.Y = cm::To_BoardY(doc, v[1]);
        b.X = cm::To_BoardX(doc, v[2]);
        b.Y = cm::To_BoardY(doc, v[3]);
        if (!cm::Add_Drawn_Line(doc, a, b)) return cli::Fail("too many lines", 1);
    }
    PlaceLoad(doc, side == "left" ? 0 : 1);
    doc.LinesSaved = doc.Lines;
    doc.DimsSaved = doc.Dims;

    const FileHandling::FileError e = FileHandling::Write_Layout(doc, args[0]);
    if (e.Number != 0)
        return cli::Fail("cannot write " + args[0] + ": Error No. " + std::to_string(e.Number) + ":  " + e.Description, 1);
    return 0;
}

int WldInfo(const cli::Args& args) {
    if (args.size() != 1) return cli::UsageError("usage: wld-info FILE.wld");
    LayoutDocument doc;
    if (!FileHandling::Read_Layout(doc, args[0])) return cli::Fail("cannot read layout " + args[0], 1);

    std::cout << "Viewport: ZoomBase " << SingleText(doc.ZoomBase) << "  ZoomScale " << SingleText(doc.ZoomScale)
              << "  OriginX " << SingleText(doc.OriginX) << "  OriginY " << SingleText(doc.OriginY) << "\n";
    std::cout << "Lines: " << cm::Line_Count(doc.Lines) << "  LineCounter " << doc.LineCounter << "\n";
    for (const LineRec& l : doc.Lines) {
        if (l.Exists == 0) continue;
        std::cout << "  " << l.LineName << ": " << WorldPoint(doc, l.StartPt) << " to " << WorldPoint(doc, l.EndPt)
                  << "  length " << DoubleText(l.Length) << (l.Selected != 0 ? "  selected" : "") << "\n";
    }
    std::cout << "Dimensions: " << cm::Line_Count(doc.Dims) << "\n";
    for (const DimensionRec& d : doc.Dims) {
        if (d.Exists == 0) continue;
        static const char* kinds[] = {"vertical", "horizontal", "straight"};
        const char* kind = d.DimType >= 0 && d.DimType <= 2 ? kinds[d.DimType] : "type ?";
        std::cout << "  " << kind << ": " << WorldPoint(doc, d.DimP1) << " to " << WorldPoint(doc, d.DimP2)
                  << "  length " << DoubleText(d.DimLength) << "\n";
    }
    std::cout << "Load: " << (doc.Load.LoadSide == 0 ? "left" : "right") << "  angle "
              << DoubleText(doc.Load.LoadAngle) << "  eccentricity " << DoubleText(doc.Load.LoadEccentricity)
              << " ft  " << (doc.Load.LoadPlaced != 0 ? "placed" : "not placed") << "\n";
    return 0;
}

// The capacity as the capacity window shows it after a run at its settings.
int Capacity(const cli::Args& argsIn) {
    cli::Args args = argsIn;
    std::string electrodeText, sizeText, methodText, error;
    bool hasElectrode = false, hasSize = false, hasMethod = false;
    // First-start defaults of the capacity window: E90XX, 1/4", Nominal, 1/32".
    int electrodeIndex = WeldStrength::kWeldClassSetting.defaultValue;
    int sizeIndex = WeldStrength::kWeldSizeSetting.defaultValue;
    int methodIndex = WeldStrength::kDesignMethodSetting.defaultValue;
    int stripIndex = WeldStrength::kWeldStripSetting.defaultValue;
    long maxPasses = weldcli::kDefaultMaxPasses;
    if (!cli::TakeOption(args, "--electrode", electrodeText, hasElectrode) ||
        !cli::TakeOption(args, "--size", sizeText, hasSize) || !cli::TakeOption(args, "--method", methodText, hasMethod))
        return cli::UsageError("an option needs a value");
    shell::SolverModel model = shell::SolverModel::Iterative;
    if (!weldcli::TakeStripIndex(args, stripIndex, error) || !weldcli::TakeMaxPasses(args, maxPasses, error) ||
        !modelcli::TakeModel(args, model, error))
        return cli::UsageError(error);
    if (args.size() != 1) return cli::UsageError("usage: capacity FILE.wld [--electrode 60|70|80|90|100|110] "
                                                 "[--size SIXTEENTHS] [--method nominal|asd|lrfd] [--strip 4|8|16|32|64]");

    long v = 0;
    if (hasElectrode) {
        electrodeIndex = -1;
        if (cli::ParseInt(electrodeText, v))
            for (size_t i = 0; i < WeldStrength::kElectrodeStrength.size(); ++i)
                if (WeldStrength::kElectrodeStrength[i] == static_cast<double>(v)) electrodeIndex = static_cast<int>(i);
        if (electrodeIndex < 0) return cli::UsageError("--electrode must be 60, 70, 80, 90, 100 or 110");
    }
    if (hasSize) {
        if (!cli::ParseInt(sizeText, v) || v < 1 || v > 16) return cli::UsageError("--size must be 1 to 16 (sixteenths)");
        sizeIndex = static_cast<int>(v - 1);
    }
    if (hasMethod) {
        const std::string m = prim::LCase(methodText);
        methodIndex = m == "nominal" ? 0 : m == "asd" ? 1 : m == "lrfd" ? 2 : -1;
        if (methodIndex < 0) return cli::UsageError("--method must be nominal, asd or lrfd");
    }

    LayoutDocument doc;
    if (!FileHandling::Read_Layout(doc, args[0])) return cli::Fail("cannot read layout " + args[0], 1);

    double fexx = 0.0, size = 0.0, factor = 0.0;
    std::string caption;
    WeldStrength::ElectrodeStrengthOf(electrodeIndex, fexx);
    WeldStrength::WeldSizeInchesOf(sizeIndex, size);
    WeldStrength::MethodOf(methodIndex, factor, caption);

    if (model == shell::SolverModel::AiscElement)
        return modelcli::Capacity(doc, stripIndex, fexx, size, factor, caption);
    weldcli::LimitedRun run(stripIndex, maxPasses);
    const double unit = WeldFunctions::Weld_UnitCapacity(1.0, 1.0, doc, run.state, run.hooks, &run.report);
    const double shown = WeldStrength::DisplayedCapacity(fexx, unit, size, factor);
    std::cout << prim::Trim(WeldStrength::CapacityText(shown)) << "\n" << caption << "\n";
    return run.Finish(false);
}

const cli::Registrar kWldNew({"wld-new",
                              "wld-new OUT.wld --line X1,Y1,X2,Y2 [--line ...] [--load-side left|right] "
                              "[--load-angle DEG] [--load-ecc FEET]",
                              "writes a layout drawn from world-inch lines on a new board", WldNew});
const cli::Registrar kWldInfo({"wld-info", "wld-info FILE.wld",
                               "prints the viewport, lines, dimensions and load of a layout", WldInfo});
const cli::Registrar kCapacity({"capacity",
                                "capacity FILE.wld [--electrode 60|70|80|90|100|110] [--size SIXTEENTHS] "
                                "[--method nominal|asd|lrfd] [--strip 4|8|16|32|64] [--max-passes N] [--model iterative|aisc]",
                                "prints the capacity of a layout in kips and the caption of its method", Capacity});

}  // namespace
