#include "board/core/CalculationDisplay.h"

#include <cmath>

#include "board/core/Viewport.h"
#include "board/core/LayoutRender.h"
#include "board/core/LoadSymbol.h"
#include "shell/core/KeyFilters.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "units/core/ImperialText.h"

namespace CalculationView {

using board::PenMode;
using board::PenStyle;
using Viewport::Lines_Empty;
using Layout::LineRec;
using Layout::PointRec;

namespace {

const char* const kDegree = "\xC2\xB0";

void TextFont(DrawSurface& board, bool bold) {
    board.FontName = "Tahoma";
    board.FontSize = 8.0;
    board.FontBold = bold;
    board.ForeColor = board::kWhite;
}

void PrintAt(DrawSurface& board, double x, double y, const std::string& text) {
    board.CurrentX = x;
    board.CurrentY = y;
    board.Print(text);
}

std::string FeetText(double feet) { return Imperial::Imperial_Text(feet, 16, 0, 0); }

}  // namespace

bool Zoom_Fit_Load(BoardState::Board& b, CalcState& s, float k) {
    LayoutDocument& doc = b.Doc();
    DrawSurface& board = b.Surface();
    // Dimensions alone make no weld group: there is nothing to show.
    if (Lines_Empty(doc.Lines)) return false;
    // Dimensions stay off this display.
    Viewport::RepaintHooks h;
    h.Draw_Lines = [&] {
        LayoutRender::Draw_Lines(board, doc.Lines, LayoutRender::kLineColor, LayoutRender::kSelectedColor, true,
                                 b.Yield);
    };
    h.Yield = b.Yield;
    if (!Viewport::Zoom_Fit(doc, k, h)) return false;

    const double cx = Viewport::Centroid_X(doc.Lines);
    const double cy = Viewport::Centroid_Y(doc.Lines);
    board.DrawMode = PenMode::Copy;
    board.DrawStyle = PenStyle::Solid;
    board.DrawWidth = 1;
    const uint32_t red = board::QBColor(4);
    board.Line(cx, 0.0, cx, board.ScaleHeight(), red);
    board.Line(0.0, cy, board.ScaleWidth(), cy, red);
    TextFont(board, true);
    PrintAt(board, cx - 0.1, cy - 0.065, "C.G.");
    s.cx = cx;
    s.cy = cy;
    Label_Lines(board, doc, doc.Lines);
    Layout_Data(board, doc, doc.Lines);
    Draw_Run_Results(board, doc, cx, cy, s.Results);
    board.Refresh();
    return true;
}

void Label_Lines(DrawSurface& board, const LayoutDocument& doc, const LineTable& t) {
    using Viewport::To_WorldX;
    using Viewport::To_WorldY;
    TextFont(board, false);
    for (const LineRec& r : t) {
        const double length = std::hypot(static_cast<double>(To_WorldX(doc, r.StartPt.X)) - To_WorldX(doc, r.EndPt.X),
                                          static_cast<double>(To_WorldY(doc, r.StartPt.Y)) - To_WorldY(doc, r.EndPt.Y));
        const double dx = static_cast<double>(r.StartPt.X) - r.EndPt.X;
        const double dy = static_cast<double>(r.StartPt.Y) - r.EndPt.Y;
        double angle = 0.0;
        if (dx == 0.0) angle = 90.0;
        else if (dy != 0.0) angle = std::atan(dy / dx) * 180.0 / shell::kPi;
        // The acute angle to the horizontal: the label does not tell the slope's direction.
        angle = std::fabs(angle);

        const std::string lengthText = "L=" + FeetText(length / 12.0);
        // Centred by a fixed width per character, both texts from the length text's count.
        const double x = r.MidPt.X - static_cast<double>(lengthText.size()) * 0.2 / 9.0;
        PrintAt(board, x, r.MidPt.Y - 0.14, lengthText);
        PrintAt(board, x, r.MidPt.Y, "\xC3\x98=" + LoadSymbol::Angle_Text(angle) + kDegree);
    }
}

void Layout_Data(DrawSurface& board, const LayoutDocument& doc, const LineTable& t) {
    const double h = board.ScaleHeight();
    TextFont(board, false);
    PrintAt(board, 0.2, h - 0.55, "WELD LAYOUT DATA:");
    PrintAt(board, 0.2, h - 0.3875, "Total Weld Segments");
    PrintAt(board, 1.35, h - 0.3875, " =   " + std::to_string(t.size()));
    PrintAt(board, 0.2, h - 0.25, "Total Weld Length");
    PrintAt(board, 1.35, h - 0.25, " =   " + FeetText(Viewport::Line_Total(doc, t) / 12.0));
}

void Place_Load(BoardState::Board& b, CalcState& s, int how) {
    LayoutDocument& doc = b.Doc();
    LoadRec& load = doc.Load;
    DrawSurface& board = b.Surface();
    // The load stands in the middle of the margin beside the group.
    bool found = false;
    const double a = shell::MinOf({Viewport::Min_X(doc.Lines, found), board.ScaleHeight() / 2.0});
    const double r = std::fabs(a * 0.5 * 0.95);
    Zoom_Fit_Load(b, s, kFitFactor);

    const bool left = b.PointerX <= s.cx;
    PointRec candidate;
    candidate.X = static_cast<float>(left ? r : board.ScaleWidth() - r);
    candidate.Y = static_cast<float>(s.cy);
    if (how == 1 || load.LoadPlaced == 0) {
        load.LoadPoint = candidate;
        load.LoadSide = left ? 0 : 1;
    } else {
        // A placed load keeps its side and follows the center of gravity.
        load.LoadPoint.Y = candidate.Y;
    }
    LoadSymbol::Draw_LoadSymbol(board, doc.Lines, load.LoadPoint, load.LoadSide, load.LoadAngle,
                             load.LoadEccentricity);
    board.Refresh();
}

void Refresh_Load(BoardState::Board& b, CalcState& s, int how) {
    Place_Load(b, s, how);
    b.Doc().Load.LoadPlaced = Lines_Empty(b.Doc().Lines) ? 0 : -1;
    b.Show_Prompt();
}

void Write_Inputs(const LoadRec& load, CalcState& s) {
    s.EcInput = FeetText(load.LoadEccentricity);
    s.RotInput = prim::PlainText(load.LoadAngle) + kDegree;
    ++s.EcSerial;
    ++s.RotSerial;
}

bool Apply_Eccentricity(const std::string& text, LoadRec& load, CalcState& s) {
    const prim::Variant feet = Imperial::Imperial_Value(prim::Trim(text), "FT");
    // Beyond the range of a single no layout keeps it: the reader would refuse it.
    if (!feet.IsNumber() || !(std::fabs(feet.number) <= Layout::kMaxLoadValue)) return false;
    load.LoadEccentricity = feet.number;
    s.EcInput = FeetText(feet.number);
    ++s.EcSerial;
    return true;
}

bool Apply_Rotation(const std::string& text, LoadRec& load, CalcState& s) {
    std::string t = prim::Trim(text);
    const std::string degree = kDegree;
    if (t.size() >= degree.size() && t.compare(t.size() - degree.size(), degree.size(), degree) == 0)
        t = prim::Trim(t.substr(0, t.size() - degree.size()));
    if (!prim::IsNumeric(t)) return false;
    const double degrees = KeyFilters::Normalize_Angle(prim::Val(t));
    if (!std::isfinite(degrees)) return false;
    load.LoadAngle = degrees;
    s.RotInput = prim::PlainText(degrees) + kDegree;
    ++s.RotSerial;
    return true;
}

void Enter_Calculation(BoardState::Board& b, CalcState& s) {
    LayoutDocument& doc = b.Doc();
    const bool lines = !Lines_Empty(doc.Lines);
    if (lines) {
        // The load's place is measured on the fitted group, and placing it
        // fits the group again and draws the display: the first fit needs no
        // drawing, which the second would clear at once.
        Viewport::RepaintHooks fitOnly;
        fitOnly.Yield = b.Yield;
        fitOnly.FindCrossings = false;
        Viewport::Zoom_Fit(doc, kFitFactor, fitOnly);
        Write_Inputs(doc.Load, s);
        Apply_Rotation(s.RotInput, doc.Load, s);
        Refresh_Load(b, s, 0);
    }
    b.Ui.LoadParamBoxVisible = lines;
}

void Calculation_Click(BoardState::Board& b, CalcState& s) {
    if (Lines_Empty(b.Doc().Lines)) return;
    Write_Inputs(b.Doc().Load, s);
    Refresh_Load(b, s, 1);
}

}  // namespace CalculationView
