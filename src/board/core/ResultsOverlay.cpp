#include "board/core/ResultsOverlay.h"

#include <cmath>

#include "board/core/CapacityHandOver.h"
#include "shell/core/Primitives.h"
#include "units/core/ImperialText.h"

namespace CalculationView {

namespace {

// Feet and inches of a length in inches, with its sign.
std::string Length(double inches) {
    const std::string text = Imperial::Imperial_Text(std::fabs(inches) / 12.0, 16, 0, 0);
    return inches < 0 && text.find_first_of("123456789") != std::string::npos ? "-" + text : text;
}

}  // namespace

void Keep_Results(RunResults& r, const weld::SolveResult& run, const weld::LoadedGroup& group, int16_t loadSide) {
    r.Valid = run.Converged && !run.Forces.empty();
    r.Drawn = false;
    if (!r.Valid) return;
    r.Record = run;
    r.Group = group;
    r.LoadSide = loadSide;
}

bool Results_Current(const Layout::LayoutDocument& doc, const RunResults& r) {
    return r.Valid && doc.Load.LoadSide == r.LoadSide && weld::Same_Group(weld::Layout_Group(doc), r.Group);
}

ResultPicture::Labels Results_Labels(const shell::SolveRecord& run, int16_t loadSide) {
    // A left load was solved mirrored.
    const double x = loadSide == 0 ? -run.CenterX : run.CenterX;
    return {"IC  x = " + Length(x) + "   y = " + Length(run.CenterY),
            "Max. force = " + prim::Format(ResultPicture::Largest(run), "0.000") + " k/in"};
}

void Draw_Run_Results(board::DrawSurface& s, const Layout::LayoutDocument& doc, double cx, double cy, RunResults& r) {
    r.Drawn = false;
    if (r.Valid && !Results_Current(doc, r)) r.Valid = false;
    if (!r.Valid || !r.Show) return;
    r.Where.OriginX = cx;
    r.Where.OriginY = cy;
    r.Where.Scale = static_cast<double>(doc.ZoomBase) * doc.ZoomScale;
    r.Where.MirrorX = r.LoadSide == 0;
    ResultPicture::Draw_Results(s, r.Record, r.Where, Results_Labels(r.Record, r.LoadSide));
    r.Drawn = true;
}

std::string Results_ToolTip(const Layout::LayoutDocument& doc, const RunResults& r, double x, double y) {
    if (!r.Drawn) return "";
    const int i = ResultPicture::Element_At(r.Record, r.Where, x, y, 0.08);
    if (i < 0) return "";
    const shell::ElementForce& e = r.Record.Forces[static_cast<size_t>(i)];
    const size_t line = static_cast<size_t>(e.Line);
    const std::string name = line < doc.Lines.size() ? doc.Lines[line].LineName : "";
    return name + "\nForce = " + prim::Format(e.Force, "0.0000") + " k  (" +
           prim::Format(ResultPicture::Intensity(e), "0.000") + " k/in)\n\xCE\xB8 = " + prim::Format(e.Theta, "0.0") +
           "\xC2\xB0 to the weld axis\n\xCE\x94/\xCE\x94u = " + prim::Format(e.Deformation, "0.000");
}

}  // namespace CalculationView
