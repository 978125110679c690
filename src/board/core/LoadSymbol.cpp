#include "board/core/LoadSymbol.h"

#include <algorithm>
#include <cmath>

#include "board/core/Viewport.h"
#include "board/core/LayoutRender.h"
#include "shell/core/KeyFilters.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "units/core/ImperialText.h"

namespace LoadSymbol {

using board::PenMode;
using board::PenStyle;
using board::QBColor;

namespace {

// Board units (inches) of the symbol.
constexpr double kShaft = 0.6;          // arrow length, anchor to head
constexpr double kBarb = 0.14;          // length of each barb of the head
constexpr double kBarbAngle = 0.4363;   // 25 degrees between barb and shaft
constexpr double kAnchorRadius = 0.035;
constexpr double kDimBelow = 0.17;      // dimension line below the group, clear of its labels
constexpr double kExtGap = 0.05;        // extension lines stop short of what they measure
constexpr double kExtOverrun = 0.075;   // and run past the dimension line
constexpr double kTextGap = 0.03;       // between the dimension line and its text
constexpr double kLineStep = 0.11;      // from the eccentricity to its caption
constexpr double kTick = 1.0 / 16.0;

const uint32_t kArrowColor = QBColor(14);  // yellow
const uint32_t kDimColor = QBColor(7);     // light grey

void SetPen(DrawSurface& b, int16_t width) {
    b.DrawMode = PenMode::Copy;
    b.DrawStyle = PenStyle::Solid;
    b.DrawWidth = width;
}

void SetFont(DrawSurface& b, double size, bool bold, uint32_t color) {
    b.FontName = "Tahoma";
    b.FontSize = size;
    b.FontBold = bold;
    b.ForeColor = color;
}

// Prints a text with its middle at (x, y) of the text box.
void PrintCentred(DrawSurface& b, double x, double y, const std::string& text) {
    b.CurrentX = x - b.TextWidth(text) / 2.0;
    b.CurrentY = y - b.TextHeight() / 2.0;
    b.Print(text);
}

// Unit direction of the load on the board (Y down): straight up at 0
// degrees, turning clockwise on the right side and the mirror of that on the
// left, which is how the solver sees a load on the left.
void Direction(int16_t side, double degrees, double& dx, double& dy) {
    const double w = shell::Radians(degrees - 90.0);
    dx = std::cos(w);
    dy = std::sin(w);
    if (side == 0) dx = -dx;
}

void Draw_LoadArrow(DrawSurface& b, const PointRec& anchor, int16_t side, double loadAngle) {
    const double degrees = KeyFilters::Normalize_Angle(loadAngle);
    double dx = 0.0, dy = 0.0;
    Direction(side, degrees, dx, dy);
    const double ax = anchor.X, ay = anchor.Y;
    const double hx = ax + dx * kShaft, hy = ay + dy * kShaft;

    SetPen(b, 2);
    b.ForeColor = kArrowColor;
    b.Circle(ax, ay, kAnchorRadius, kArrowColor);
    b.Line(ax + dx * kAnchorRadius, ay + dy * kAnchorRadius, hx, hy, kArrowColor);
    // The barbs in mirrored order on the left, so the two sides draw alike.
    const double first = side == 0 ? -kBarbAngle : kBarbAngle;
    for (double turn : {first, -first}) {
        const double c = std::cos(turn), s = std::sin(turn);
        const double bx = -(dx * c - dy * s), by = -(dx * s + dy * c);
        b.Line(hx, hy, hx + bx * kBarb, hy + by * kBarb, kArrowColor);
    }

    // "P" beyond the head, whatever the quadrant.
    SetFont(b, 11.0, true, kArrowColor);
    const double pReach = std::max(b.TextWidth("P"), b.TextHeight()) / 2.0 + 0.03;
    PrintCentred(b, hx + dx * pReach, hy + dy * pReach, "P");

    if (degrees == 0.0) return;
    // The angle beside the middle of the shaft, on the side away from the group.
    SetFont(b, 8.0, false, board::kWhite);
    const std::string text = "\xC3\x98=" + Angle_Text(degrees) + "\xC2\xB0";
    double nx = -dy, ny = dx;
    if ((side == 0 && nx > 0.0) || (side != 0 && nx < 0.0) || (nx == 0.0 && ny > 0.0)) {
        nx = -nx;
        ny = -ny;
    }
    const double reach = std::fabs(nx) * b.TextWidth(text) / 2.0 + std::fabs(ny) * b.TextHeight() / 2.0 + 0.05;
    PrintCentred(b, ax + dx * kShaft / 2.0 + nx * reach, ay + dy * kShaft / 2.0 + ny * reach, text);
}

}  // namespace

std::string Angle_Text(double degrees) {
    std::string t = prim::Trim(prim::Format(degrees, "0.####"));
    if (!t.empty() && t.back() == '.') t.pop_back();
    return t;
}

void Draw_LoadArrowUp(DrawSurface& board, const PointRec& anchor, int16_t loadSide, double loadAngle) {
    Draw_LoadArrow(board, anchor, loadSide, loadAngle);
}

void Draw_LoadArrowDown(DrawSurface& board, const PointRec& anchor, int16_t loadSide, double loadAngle) {
    Draw_LoadArrow(board, anchor, loadSide, loadAngle);
}

void Draw_LoadSymbol(DrawSurface& board, const LineTable& lines, const PointRec& loadPoint, int16_t loadSide,
                     double loadAngle, double eccentricity) {
    bool found = false;
    const double bottom = Viewport::Max_Y(lines, found);
    if (!found) return;
    const double cx = Viewport::Centroid_X(lines);
    // With no eccentricity the load passes through the center of gravity:
    // the dimension shrinks onto it.
    const double lx = eccentricity == 0.0 ? cx : loadPoint.X;
    const double yd = bottom + kDimBelow;

    SetPen(board, 1);
    board.ForeColor = kDimColor;
    board.Line(cx, bottom + kExtGap, cx, yd + kExtOverrun, kDimColor);
    if (lx != cx) board.Line(lx, loadPoint.Y + kAnchorRadius + kExtGap, lx, yd + kExtOverrun, kDimColor);
    board.Line(cx, yd, lx, yd, kDimColor);
    LayoutRender::Draw_Tick(board, cx, yd, kTick);
    LayoutRender::Draw_Tick(board, lx, yd, kTick);

    SetFont(board, 8.0, false, board::kWhite);
    const double mid = (cx + lx) / 2.0;
    const double textY = yd + kTextGap + board.TextHeight() / 2.0;
    PrintCentred(board, mid, textY, "ex = " + Imperial::Imperial_Text(eccentricity, 16, 0, 0));
    PrintCentred(board, mid, textY + kLineStep, "[Load Eccentricity]");

    double dx = 0.0, dy = 0.0;
    Direction(loadSide, KeyFilters::Normalize_Angle(loadAngle), dx, dy);
    if (dy < 0.0) Draw_LoadArrowUp(board, loadPoint, loadSide, loadAngle);
    else Draw_LoadArrowDown(board, loadPoint, loadSide, loadAngle);
}

void Place_Beside(Layout::LayoutDocument& doc, int16_t loadSide) {
    bool found = false;
    const float minX = Viewport::Min_X(doc.Lines, found);
    const double a = std::min(static_cast<double>(minX), doc.ScaleHeight / 2.0);
    const double r = std::fabs(a * 0.5 * 0.95);
    const double cy = Viewport::Centroid_Y(doc.Lines);
    const double x = loadSide == 0 ? r : doc.ScaleWidth - r;
    doc.Load.LoadSide = loadSide;
    doc.Load.LoadPoint.X = static_cast<float>(x);
    doc.Load.LoadPoint.Y = static_cast<float>(cy);
    doc.Load.LoadPlaced = Viewport::Lines_Empty(doc.Lines) ? 0 : -1;
}

}  // namespace LoadSymbol
