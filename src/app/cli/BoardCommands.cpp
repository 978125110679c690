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
#include "board/core/CapacityHandOver.h"
#include "board/core/Dimensions.h"
#include "board/core/LayoutDocument.h"
#include "board/core/LayoutFile.h"
#include "board/core/LoadSymbol.h"
#include "board/core/Viewport.h"
#include "shell/core/Primitives.h"
#include "weld/core/WeldSolve.h"
#include "weld/core/WeldStrength.h"

namespace {

using namespace Layout;
namespace cm = Viewport;

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

bool ReadLine(const LayoutDocument& doc, const std::string& text, PointRec& a, PointRec& b, std::string& error) {
    double v[4];
    if (!weldcli::ReadCoords("--line", text, v, error)) return false;
    a.X = cm::To_BoardX(doc, v[0]);
    a.Y = cm::To_BoardY(doc, v[1]);
    b.X = cm::To_BoardX(doc, v[2]);
    b.Y = cm::To_BoardY(doc, v[3]);
    // The board keeps singles: a point that does not fit one is refused, not lost.
    for (float f : {a.X, a.Y, b.X, b.Y})
        if (!std::isfinite(f)) {
            error = "--line " + cli::Quote(text) + " is out of range: the board holds coordinates up to about 3.4E+38";
            return false;
        }
    return true;
}

int WldNew(const cli::Parsed& p) {
    const std::string side = p.Value("--load-side", "right");
    if (p.positional.size() != 1) return cli::UsageError(p, "wld-new needs one OUT.wld");
    if (!p.Has("--line")) return cli::UsageError(p, "wld-new needs at least one --line");
    if (side != "left" && side != "right") return cli::UsageError("--load-side must be left or right");

    LayoutDocument doc;
    cm::Set_Viewport(doc);
    std::string error;
    if ((p.Has("--load-angle") && !cli::ReadNumber("--load-angle", p.Value("--load-angle"), -cli::kSingleMax,
                                                   cli::kSingleMax, doc.Load.LoadAngle, error)) ||
        (p.Has("--load-ecc") && !cli::ReadLength("--load-ecc", p.Value("--load-ecc"), true, -cli::kSingleMax,
                                                 cli::kSingleMax, doc.Load.LoadEccentricity, error)))
        return cli::UsageError(error);

    for (const std::string& t : p.All("--line")) {
        PointRec a, b;
        if (!ReadLine(doc, t, a, b, error)) return cli::UsageError(error);
        if (!cm::Add_Drawn_Line(doc, a, b)) return cli::Fail("too many lines", 1);
    }
    LoadSymbol::Place_Beside(doc, side == "left" ? 0 : 1);
    doc.LinesSaved = doc.Lines;
    doc.DimsSaved = doc.Dims;

    const std::string& out = p.positional[0];
    const LayoutFile::FileError e = LayoutFile::Write_Layout(doc, out);
    if (e.Number != 0)
        return cli::Fail("cannot write " + cli::Quote(out) + ": Error No. " + std::to_string(e.Number) + ":  " +
                             e.Description,
                         1);
    return 0;
}

const char* const kDimKinds[] = {"vertical", "horizontal", "straight"};
const char* DimKind(int16_t type) { return type >= 0 && type <= 2 ? kDimKinds[type] : "type ?"; }

// One row per line and dimension, and one for the load, for csv and json.
cli::Row SegmentRow(const LayoutDocument& doc, const std::string& kind, const std::string& name, const PointRec& a,
                    const PointRec& b, double length, bool selected) {
    auto x = [&](const PointRec& pt) { return cli::Num(cm::To_WorldX(doc, pt.X)); };
    auto y = [&](const PointRec& pt) { return cli::Num(cm::To_WorldY(doc, pt.Y)); };
    return {{"kind", cli::Txt(kind)}, {"name", cli::Txt(name)}, {"x1_in", x(a)}, {"y1_in", y(a)},
            {"x2_in", x(b)},          {"y2_in", y(b)},          {"length_in", cli::Num(length)},
            {"selected", cli::Flag(selected)}};
}

void WldInfoRows(const cli::Parsed& p, const LayoutDocument& doc) {
    std::vector<cli::Row> lines, dims;
    for (const LineRec& l : doc.Lines)
        if (l.Exists != 0) lines.push_back(SegmentRow(doc, "line", l.LineName, l.StartPt, l.EndPt, l.Length, l.Selected != 0));
    for (const DimensionRec& d : doc.Dims)
        if (d.Exists != 0) dims.push_back(SegmentRow(doc, DimKind(d.DimType), "", d.DimP1, d.DimP2, d.DimLength, false));
    const cli::Row load = {{"side", cli::Txt(doc.Load.LoadSide == 0 ? "left" : "right")},
                           {"angle_deg", cli::Num(doc.Load.LoadAngle)},
                           {"eccentricity_ft", cli::Num(doc.Load.LoadEccentricity)},
                           {"placed", cli::Flag(doc.Load.LoadPlaced != 0)}};
    if (p.format == cli::Format::Json) {
        const cli::Row viewport = {{"ZoomBase", cli::Num(doc.ZoomBase)}, {"ZoomScale", cli::Num(doc.ZoomScale)},
                                   {"OriginX", cli::Num(doc.OriginX)},   {"OriginY", cli::Num(doc.OriginY)}};
        std::cout << cli::JsonObject({{"viewport", cli::RawJson(cli::JsonObject(viewport))},
                                      {"LineCounter", cli::Num(static_cast<double>(doc.LineCounter))},
                                      {"lines", cli::RawJson(cli::JsonArray(lines))},
                                      {"dimensions", cli::RawJson(cli::JsonArray(dims))},
                                      {"load", cli::RawJson(cli::JsonObject(load))}})
                  << "\n";
        return;
    }
    // csv: the lines and dimensions as one table, the load as a last row of its own kind.
    std::vector<cli::Row> rows = lines;
    rows.insert(rows.end(), dims.begin(), dims.end());
    cli::Row loadRow = SegmentRow(doc, "load", load[0].value.text, {}, {}, 0.0, false);
    for (size_t i = 2; i < loadRow.size(); ++i) loadRow[i].value = cli::Cell{};
    loadRow = loadRow + cli::Row{load[1], load[2], load[3]};
    for (cli::Row& r : rows) r = r + cli::Row{{"angle_deg", {}}, {"eccentricity_ft", {}}, {"placed", {}}};
    rows.push_back(loadRow);
    cli::WriteRows(p, rows);
}

// Reads a layout; "" or the message that says why it was not read.
std::string ReadLayout(const std::string& file, LayoutDocument& doc) {
    const LayoutFile::LayoutRead r = LayoutFile::Read_Layout_Checked(doc, file);
    return r.Ok() ? "" : "cannot read layout " + cli::Quote(file) + ": " + r.Cause();
}

int WldInfo(const cli::Parsed& p) {
    if (p.positional.size() != 1) return cli::UsageError(p, "wld-info needs one FILE.wld");
    LayoutDocument doc;
    if (const std::string e = ReadLayout(p.positional[0], doc); !e.empty()) return cli::Fail(e, 1);
    if (p.format != cli::Format::Text) {
        WldInfoRows(p, doc);
        return 0;
    }

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
        std::cout << "  " << DimKind(d.DimType) << ": " << WorldPoint(doc, d.DimP1) << " to "
                  << WorldPoint(doc, d.DimP2) << "  length " << DoubleText(d.DimLength) << "\n";
    }
    std::cout << "Load: " << (doc.Load.LoadSide == 0 ? "left" : "right") << "  angle "
              << DoubleText(doc.Load.LoadAngle) << "  eccentricity " << DoubleText(doc.Load.LoadEccentricity)
              << " ft  " << (doc.Load.LoadPlaced != 0 ? "placed" : "not placed") << "\n";
    return 0;
}

// --size: a whole number of sixteenths, or length text such as 1/4" that is one.
bool ReadWeldSize(const std::string& text, int& sizeIndex, std::string& error) {
    long long v = 0;
    double plain = 0.0;
    if (cli::ReadNumber("--size", text, -cli::kSingleMax, cli::kSingleMax, plain, error) ||
        error.find("out of range") != std::string::npos) {
        // A plain number counts sixteenths, as it always has.
        if (!cli::ReadWhole("--size", text, 1, 16, v, error)) return false;
    } else {
        double inches = 0.0;
        if (!cli::ReadLength("--size", text, false, 1.0 / 16.0, 1.0, inches, error)) return false;
        const double sixteenths = inches * 16.0;
        if (sixteenths != std::floor(sixteenths)) {
            error = "--size must be a whole number of sixteenths: " + cli::Quote(text);
            return false;
        }
        v = static_cast<long long>(sixteenths);
    }
    sizeIndex = static_cast<int>(v - 1);
    return true;
}

}  // namespace

namespace weldcli {

const cli::Options& StrengthOptionList() {
    static const cli::Options list = {
        {"--electrode", "60|70|80|90|100|110", "electrode strength Fexx in ksi (default 90)"},
        {"--size", "SIXTEENTHS", "weld size 1 to 16 sixteenths of an inch, or 1/4\" (default 4)"},
        {"--method", "nominal|asd|lrfd", "design method (default nominal)"}};
    return list;
}

bool ReadStrength(const cli::Parsed& p, StrengthChoice& c, std::string& error) {
    if (p.Has("--electrode")) {
        long long v = 0;
        c.electrode = -1;
        if (cli::ReadWhole("--electrode", p.Value("--electrode"), 0, 1000, v, error))
            for (size_t i = 0; i < WeldStrength::kElectrodeStrength.size(); ++i)
                if (WeldStrength::kElectrodeStrength[i] == static_cast<double>(v)) c.electrode = static_cast<int>(i);
        if (c.electrode < 0) {
            error = "--electrode must be 60, 70, 80, 90, 100 or 110";
            return false;
        }
    }
    if (p.Has("--size") && !ReadWeldSize(p.Value("--size"), c.size, error)) return false;
    if (p.Has("--method")) {
        const std::string m = prim::LCase(p.Value("--method"));
        c.method = m == "nominal" ? 0 : m == "asd" ? 1 : m == "lrfd" ? 2 : -1;
        if (c.method < 0) {
            error = "--method must be nominal, asd or lrfd";
            return false;
        }
    }
    return true;
}

}  // namespace weldcli

namespace {

// The capacity as the capacity window shows it after a run at its settings.
int Capacity(const cli::Parsed& p) {
    std::string error;
    weldcli::RunOptions opt{WeldStrength::kWeldStripSetting.defaultValue};
    shell::SolverModel model = shell::SolverModel::Iterative;
    weldcli::StrengthChoice choice;
    if (!weldcli::ReadRunOptions(p, opt, error) || !modelcli::ReadModel(p, model, error))
        return cli::UsageError(error);
    if (p.positional.size() != 1) return cli::UsageError(p, "capacity needs one FILE.wld");
    if (!weldcli::ReadStrength(p, choice, error)) return cli::UsageError(error);
    const int electrodeIndex = choice.electrode, sizeIndex = choice.size, methodIndex = choice.method;

    const std::string& file = p.positional[0];
    LayoutDocument doc;
    if (const std::string e = ReadLayout(file, doc); !e.empty()) return cli::Fail(e, 1);

    double fexx = 0.0, size = 0.0, factor = 0.0;
    std::string caption;
    WeldStrength::ElectrodeStrengthOf(electrodeIndex, fexx);
    WeldStrength::WeldSizeInchesOf(sizeIndex, size);
    WeldStrength::MethodOf(methodIndex, factor, caption);

    static const char* const kMethods[] = {"nominal", "asd", "lrfd"};
    const cli::Row head = {modelcli::ModelField(model),
                           {"method", cli::Txt(kMethods[methodIndex])},
                           {"electrode_ksi", cli::Num(fexx)},
                           {"size_in", cli::Num(size)}};
    weldcli::LimitedRun run(opt, model, "capacity");
    run.result = weld::Solve_Layout(doc, run.options, run.state, run.hooks);
    if (const int rc = run.Check(p, head); rc != 0) return rc;
    auto inKips = [&](double unit) { return WeldStrength::DisplayedCapacity(fexx, unit, size, factor); };
    const double shown = inKips(run.result.Value);
    const weldcli::CrossCheck check =
        weldcli::CheckAgainst(p, shown, weld::CrossCheck(weld::Layout_Group(doc), run.options), "kips", 2, inKips);
    if (p.format != cli::Format::Text) {
        cli::WriteRows(p, {head + cli::Row{{"capacity_kips", cli::Num(shown)}, {"caption", cli::Txt(caption)}} +
                           run.Fields() + check.Fields()});
        return 0;
    }
    std::cout << prim::Trim(WeldStrength::CapacityText(shown)) << "\n" << caption << "\n";
    if (opt.verbose) run.PrintVerbose();
    return 0;
}

const cli::Registrar kWldNew({
    "wld-new",
    "OUT.wld",
    "writes a layout drawn from world-inch lines on a new board",
    {{"--line", "X1,Y1,X2,Y2", "a weld line from (X1,Y1) to (X2,Y2), inches, Y up", true, true},
     {"--load-side", "left|right", "side of the group the load symbol stands on (default right)"},
     {"--load-angle", "DEG", "load angle in degrees from vertical (default 0)"},
     {"--load-ecc", "FEET", "eccentricity of the load in feet (default 0); 6\" is half a foot"}},
    {"Coordinates must fit the board's single precision (about 3.4E+38).", cli::kLengthHelp},
    {"wld-new /tmp/angle.wld --line 0,0,0,8 --line 0,0,5,0 --load-side left --load-ecc '6\"'"},
    WldNew});
const cli::Registrar kWldInfo({
    "wld-info",
    "FILE.wld",
    "prints the viewport, lines, dimensions and load of a layout",
    {},
    {"Coordinates and lengths in inches, the load's eccentricity in feet. csv gives one row per",
     "line and dimension and a last row for the load; json one object with the same fields."},
    {"wld-info examples/angle-left.wld", "wld-info examples/angle-left.wld --format json"},
    WldInfo,
    true});
const cli::Registrar kCapacity({
    "capacity",
    "FILE.wld",
    "the capacity of a layout in kips and the caption of its design method",
    weldcli::StrengthOptionList() + weldcli::RunOptionList() + cli::Options{modelcli::ModelOption(), weldcli::NoCheckOption()},
    {"Text: the capacity to five decimals, then the caption of the method, as the capacity",
     "window shows them; exit 3 and nothing on stdout when the pass limit ends the run."},
    {"capacity examples/c-shape-right.wld", "capacity examples/c-shape-right.wld --method lrfd --size '5/16\"'",
     "capacity examples/angle-left.wld --format csv", "capacity examples/c-shape-right.wld --model aisc"},
    Capacity,
    true});

}  // namespace
