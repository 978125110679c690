// Thousands of random replies, pointer events, keys, buttons, undos and
// redos on the board in every mode, with random line data and load inputs: whatever comes, the
// document and its load stay valid, and the calculation display does not
// follow the pointer.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "board/core/BoardState.h"
#include "board/core/LineData.h"
#include "support/RecordingSurface.h"

using namespace BoardState;

namespace {

bool Finite(const Layout::PointRec& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

// Every point finite, MidPt the mean of its ends, no blank row but the only
// one, the counts consistent with the table and the numbering.
bool Valid(const Layout::LayoutDocument& doc) {
    const int16_t count = Viewport::Line_Count(doc.Lines);
    bool ok = !doc.Dims.empty() && doc.Lines.size() == static_cast<size_t>(std::max<int16_t>(count, 1)) &&
              count <= doc.LineCounter && std::isfinite(doc.ZoomScale) && std::isfinite(doc.OriginX) &&
              std::isfinite(doc.OriginY) && Finite(doc.Load.LoadPoint) && std::isfinite(doc.Load.LoadEccentricity) &&
              doc.Load.LoadAngle >= 0 && doc.Load.LoadAngle < 360;
    for (const auto& d : doc.Dims) ok = ok && Finite(d.DimP1) && Finite(d.DimP2) && Finite(d.DimPos);
    for (const auto& p : doc.Intersections) ok = ok && Finite(p);
    for (const auto& r : doc.Lines)
        ok =
            ok && (count == 0 || (Finite(r.StartPt) && Finite(r.EndPt) && std::isfinite(r.Length) &&
                                  r.MidPt.X == static_cast<float>((static_cast<double>(r.StartPt.X) + r.EndPt.X) / 2)));
    return ok;
}

TEST(BoardFuzz, RandomRepliesAndPointerEventsKeepTheDocumentValid) {
    Layout::LayoutDocument doc;
    RecordingSurface surface;
    Board board(doc, surface);
    std::mt19937 rng(20261123);
    auto choice = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); };
    // Half of the replies are well formed, so that lines get drawn, moved and
    // turned; the rest are random pieces.
    auto reply = [&] {
        static const char* pieces[] = {"0", "1", "5",  "12",  "-",      "'",    "\"",   "<", ",",
                                       " ", "/", ".",  "E",   "E39",    "1E38", "9E99", "w", "c",
                                       "a", "x", "90", "-45", "0'-6\"", "1/0",  "nan"};
        std::string s =
            choice(2) ? "" : std::to_string(choice(12) - 4) + ",<"[choice(2)] + std::to_string(choice(720) - 360);
        for (int i = s.empty() ? choice(6) : 0; i > 0; --i) s += pieces[choice(static_cast<int>(std::size(pieces)))];
        return s;
    };
    board.hooks.Show_Message = [&](const BoardMessages::BoardMessage& m) { return m.YesNo && choice(4) == 0; };
    board.hooks.Show_LineData = [&](int16_t row) { LineData::Apply_LineData(doc, row, reply(), reply(), choice(3)); };
    board.Set_Mode(DRAW);
    void (Board::*const tools[])() = {&Board::MoveButton_Click,       &Board::RotateButton_Click,
                                      &Board::DeleteButton_Click,     &Board::RefreshButton_Click,
                                      &Board::ZoomExtentButton_Click, &Board::ClearButton_Click,
                                      &Board::ClearDimButton_Click,   &Board::DrawingBoard_DblClick};
    const Button buttons[] = {Button::Left, Button::Left, Button::Right, Button::Middle};
    int mostLines = 0, calcMoves = 0;
    for (int i = 0; i < 20000; ++i) {
        const double x = choice(760) / 100.0 - 0.3, y = choice(560) / 100.0 - 0.3;
        const Button button = buttons[choice(4)];
        const bool shift = choice(4) == 0, calc = !board.Mode().ShowsWorkingDisplay();
        const std::string text = reply();
        const size_t drawn = surface.Ops.size();
        const int what = choice(12);
        if (what < 3 && board.Ui.CommandBoxEnabled)
            board.CommandBox_KeyDown(choice(8) ? Key::Enter : Key::Escape, text);
        if (what == 3 || what == 5) board.DrawingBoard_MouseMove(Button::None, false, x, y);
        if (what == 3 || what == 4) board.DrawingBoard_MouseDown(button, shift, x, y);
        if (what == 3 || what == 5) board.DrawingBoard_MouseUp(button, shift, x, y);
        if (what == 3) board.DrawingBoard_Click();
        if (what == 6) {
            board.DrawingBoard_MouseMove(choice(3) ? Button::None : Button::Left, false, x, y);
            ASSERT_FALSE(calc && surface.Ops.size() != drawn) << i << ": the calculation display moved";
            calcMoves += calc;
        }
        if (what == 7) board.Set_Mode(static_cast<int16_t>(2 * (choice(7) + 1)));
        if (what == 7 && choice(2)) choice(2) ? board.Apply_Eccentricity(text) : board.Apply_Rotation(text);
        if (what == 8) board.SnapButton_Click(choice(6));
        if (what == 9) board.Form_KeyDown(std::array{Key::Escape, Key::Delete, Key::F8, Key::F9}[choice(4)]);
        if (what == 10) board.Zoom_Button(choice(2) ? 1.05f : 0.95f);
        if (what == 11 && choice(4) == 0) (board.*tools[choice(8)])();
        if (what == 11 && choice(8) == 0) choice(3) ? board.Undo_Step() : board.Redo_Step();
        ASSERT_TRUE(Valid(doc)) << "step " << i << ", reply \"" << text << "\"";
        mostLines = std::max<int>(mostLines, Viewport::Line_Count(doc.Lines));
        if (surface.Ops.size() > 100000) surface.Ops.clear();
    }
    EXPECT_GT(mostLines, 5) << "the run drew lines";
    // Every step taken back and made again leaves a valid document.
    int steps = 0;
    for (; board.Undo_Step(); ++steps) ASSERT_TRUE(Valid(doc)) << "undo " << steps;
    while (board.Redo_Step()) ASSERT_TRUE(Valid(doc)) << "redo " << --steps;
    EXPECT_EQ(steps, 0);
    EXPECT_GT(calcMoves, 0) << "the run moved the pointer on the calculation display";
}

}  // namespace
