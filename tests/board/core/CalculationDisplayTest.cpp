#include "board/core/CalculationDisplay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/BoardTestDoc.h"
#include "support/RecordingSurface.h"
#include "board/core/LoadSymbol.h"

using namespace CalculationView;
using boardtest::DocWith;
using boardtest::L;
using boardtest::P;
using Layout::LineRec;

namespace {

std::string Phi(const std::string& angle) { return "\xC3\x98=" + angle + "\xC2\xB0"; }

// Texts of no width, so that a centred text is recorded at its middle.
struct Surface : RecordingSurface {
    double TextWidth(const std::string&) const override { return 0.0; }
    std::vector<std::string> Texts() const {
        std::vector<std::string> out;
        for (const auto& o : OfKind("Print")) out.push_back(o.Text);
        return out;
    }
    bool Printed(const std::string& t) const {
        const auto v = Texts();
        return std::find(v.begin(), v.end(), t) != v.end();
    }
};

struct Calc {
    LayoutDocument doc;
    Surface surface;
    BoardState::Board board{doc, surface};
    const CalcState& state = board.Load_Inputs();
    explicit Calc(LayoutDocument d) : doc(std::move(d)) { board.Set_Mode(BoardState::DRAW); }
    void Click(double x) {
        board.DrawingBoard_MouseMove(BoardState::Button::None, false, x, 1.0);
        board.DrawingBoard_MouseDown(BoardState::Button::Left, false, x, 1.0);
        board.DrawingBoard_MouseUp(BoardState::Button::Left, false, x, 1.0);
        board.DrawingBoard_Click();  // the window raises it for a release where the press was
    }
    RecordedOp Anchor() const { return surface.OfKind("Circle").back(); }
};

// An open C: a web of 3 and two flanges of 1.5, in board units.
LayoutDocument CShape() { return DocWith({L(2, 1, 2, 4), L(2, 1, 3.5f, 1), L(2, 4, 3.5f, 4)}); }

TEST(CalculationView, LineLabelsGiveTheAcuteAngleToTheHorizontal) {
    const float c30 = static_cast<float>(2 * std::cos(0.5235987755982988));
    const std::pair<LineRec, std::string> cases[] = {
        {L(1, 2, 3, 2), "0"},   {L(1, 1, 1, 3), "90"}, {L(1, 1, 2, 2), "45"},
        {L(1, 2, 2, 1), "45"},  {L(1, 1, 1 + c30, 2), "30"}, {L(1, 1, 3, 1.5f), "14.0362"},
    };
    for (const auto& [line, angle] : cases) {
        Surface s;
        const LayoutDocument doc = DocWith({line});
        Label_Lines(s, doc, doc.Lines);
        const auto prints = s.OfKind("Print");
        ASSERT_EQ(prints.size(), 2u);
        EXPECT_EQ(prints[1].Text, Phi(angle));
        // Both texts start where the length text, centred by its count, starts.
        const double x = line.MidPt.X - prints[0].Text.size() * 0.2 / 9.0;
        EXPECT_DOUBLE_EQ(prints[0].X1, x);
        EXPECT_DOUBLE_EQ(prints[1].X1, x);
        EXPECT_NEAR(prints[0].Y1, line.MidPt.Y - 0.14, 1e-6);
        if (angle == "0") {
            EXPECT_EQ(prints[0].Text, "L=2\"");
        }
    }
}

TEST(CalculationView, LayoutDataCountsRowsAndAddsTheirLengths) {
    Surface s;
    const LayoutDocument one = DocWith({L(1, 2, 3, 2)});
    Layout_Data(s, one, one.Lines);
    EXPECT_EQ(s.Texts(), (std::vector<std::string>{"WELD LAYOUT DATA:", "Total Weld Segments", " =   1",
                                                   "Total Weld Length", " =   2\""}));
    EXPECT_NEAR(s.Ops.back().Y1, s.H - 0.25, 1e-9);
}

TEST(CalculationView, AnEmptyBoardPaintsNothingAndShowsNoPanel) {
    for (bool withDims : {false, true}) {
        LayoutDocument doc;
        if (withDims) {
            doc.Dims[0].Exists = -1;
            doc.Dims[0].DimP2 = P(2, 2);
        }
        Calc c(doc);
        c.surface.Ops.clear();
        c.board.Set_Mode(BoardState::CALCULATION);
        ASSERT_FALSE(c.surface.Ops.empty());
        EXPECT_EQ(c.surface.Ops.back().Kind, "Cls") << "nothing after clearing the board";
        EXPECT_FALSE(c.board.Ui.LoadParamBoxVisible);
        EXPECT_EQ(c.board.Ui.Prompt, "[Pick on either Left or Right to specify Load Location]");
        const size_t before = c.surface.Ops.size();
        c.Click(6.0);
        EXPECT_EQ(c.surface.Ops.size(), before) << "a click places no load";
    }
}

TEST(CalculationView, EnteringShowsTheCenterOfGravityAndPlacesTheLoad) {
    Calc c(CShape());
    c.doc.Load.LoadAngle = -90;
    c.doc.Load.LoadEccentricity = 0.75;
    c.board.Set_Mode(BoardState::CALCULATION);
    EXPECT_TRUE(c.board.Ui.LoadParamBoxVisible);
    EXPECT_EQ(c.board.Ui.Prompt, "[Specify 'Load Position', 'Load Rotation Angle' and 'Load Eccentricity']");
    EXPECT_EQ(c.state.EcInput, "9\"");
    EXPECT_EQ(c.state.RotInput, "270\xC2\xB0");
    EXPECT_EQ(c.doc.Load.LoadAngle, 270.0);
    EXPECT_NE(c.doc.Load.LoadPlaced, 0);
    EXPECT_NEAR(c.state.cy, c.surface.H / 2, 1e-4);  // the group is centred
    const auto lines = c.surface.OfKind("Line");
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const RecordedOp& o) {
        return o.X1 == c.state.cx && o.X2 == c.state.cx && o.Y1 == 0 && o.Color == board::QBColor(4);
    })) << "the vertical axis through the center of gravity";
    EXPECT_TRUE(c.surface.Printed("C.G."));
    EXPECT_TRUE(c.surface.Printed("ex = 9\""));
    EXPECT_TRUE(c.surface.Printed(Phi("270")));
}

TEST(CalculationView, RefreshRedrawsTheLoadWhereItWasOnTheNewCenterOfGravity) {
    Calc c(CShape());
    c.board.Set_Mode(BoardState::CALCULATION);
    c.Click(c.surface.W - 0.5);
    EXPECT_EQ(c.doc.Load.LoadSide, 1);
    const Layout::PointRec saved = c.doc.Load.LoadPoint;
    EXPECT_GT(saved.X, c.state.cx);

    // A fourth line lowers the center of gravity; the pointer now stands on the left.
    c.doc.Lines.push_back(L(2, 4, 2, 6));
    c.board.DrawingBoard_MouseMove(BoardState::Button::None, false, 0.2, 1.0);
    const double oldCy = c.state.cy;
    c.board.RefreshButton_Click();
    EXPECT_NE(c.state.cy, oldCy);
    EXPECT_EQ(c.doc.Load.LoadSide, 1);
    EXPECT_NEAR(c.Anchor().X1, saved.X, 1e-6);
    EXPECT_NEAR(c.Anchor().Y1, c.state.cy, 1e-6);

    // A click on the left moves it there.
    c.Click(0.2);
    EXPECT_EQ(c.doc.Load.LoadSide, 0);
    EXPECT_LT(c.Anchor().X1, c.state.cx);
}

// The symbol of a group standing on the board's middle line, so that the two
// sides are mirror images about it.
Surface Symbol(int16_t side, double angle, double ecc) {
    Surface s;
    const LayoutDocument doc = DocWith({L(s.W / 2, 1, s.W / 2, 4)});
    const float x = side == 0 ? 1.0f : static_cast<float>(s.W) - 1.0f;
    LoadSymbol::Draw_LoadSymbol(s, doc.Lines, P(x, 2.5f), side, angle, ecc);
    return s;
}

TEST(LoadSymbol, ShowsTheArrowAtItsAngleAndTheEccentricity) {
    struct Case {
        int16_t side;
        double angle;
        double ecc;
        const char* angleText;  // "" for none
        int headX, headY;       // sign of head minus anchor
    } cases[] = {
        {1, 0, 0.5, "", 0, -1},      {1, 360, 0.5, "", 0, -1},     {1, 30, 0.5, "30", 1, -1},
        {0, 30, 0.5, "30", -1, -1},  {1, 90, 0.5, "90", 1, 0},     {1, -45, 0.5, "315", -1, -1},
        {1, 180, 0, "180", 0, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.angle);
        const Surface s = Symbol(c.side, c.angle, c.ecc);
        // "ex = ", its caption, "P" and the angle unless it is 0.
        EXPECT_EQ(s.Texts().size(), *c.angleText ? 4u : 3u);
        EXPECT_TRUE(s.Printed("P") && (!*c.angleText || s.Printed(Phi(c.angleText))));
        EXPECT_TRUE(s.Printed(c.ecc == 0 ? "ex = 0\"" : "ex = 6\""));
        EXPECT_TRUE(s.Printed("[Load Eccentricity]"));

        const RecordedOp anchor = s.OfKind("Circle").at(0);
        const auto lines = s.OfKind("Line");
        // The shaft is the first line drawn after the anchor.
        const auto shaft = std::find_if(lines.begin(), lines.end(), [](const RecordedOp& o) { return o.Width == 2; });
        ASSERT_NE(shaft, lines.end());
        auto sign = [](double v) { return std::fabs(v) < 1e-9 ? 0 : (v > 0 ? 1 : -1); };
        EXPECT_EQ(sign(shaft->X2 - anchor.X1), c.headX);
        EXPECT_EQ(sign(shaft->Y2 - anchor.Y1), c.headY);

        // The dimension line runs from the center of gravity to the load, or
        // collapses onto the center without an eccentricity.
        const double cx = s.W / 2;
        const auto dim = std::find_if(lines.begin(), lines.end(), [](const RecordedOp& o) { return o.Y1 == o.Y2; });
        ASSERT_NE(dim, lines.end());
        EXPECT_NEAR(dim->X1, cx, 1e-6);
        EXPECT_NEAR(dim->X2, c.ecc == 0 ? cx : anchor.X1, 1e-6);
    }
}

TEST(LoadSymbol, TheTwoSidesAreMirrorImagesWithTheSameTexts) {
    for (double angle : {0.0, 30.0, 135.0}) {
        const Surface left = Symbol(0, angle, 0.5), right = Symbol(1, angle, 0.5);
        const double w = left.W;
        ASSERT_EQ(left.Ops.size(), right.Ops.size());
        EXPECT_EQ(left.Texts(), right.Texts());
        for (size_t i = 0; i < left.Ops.size(); ++i) {
            const RecordedOp &a = left.Ops[i], &b = right.Ops[i];
            ASSERT_EQ(a.Kind, b.Kind);
            EXPECT_NEAR(a.Y1, b.Y1, 1e-6) << i;
            // Dimension ticks slant the same way on both sides: only their middles mirror.
            const bool tick = a.Kind == "Line" && a.Width == 3;
            EXPECT_NEAR(tick ? 0.0 : a.X1, tick ? 0.0 : w - b.X1, 1e-6) << i;
            if (a.Kind == "Line") {
                EXPECT_NEAR(a.X1 + a.X2, 2 * w - b.X1 - b.X2, 1e-6) << i;
            }
        }
    }
}

TEST(CalculationView, TypedLoadInputsAreCheckedAndRewritten) {
    struct Case {
        bool ecc;
        const char* text;
        bool ok;
        double value;
        const char* shown;
    } cases[] = {
        {true, "0'-6\"", true, 0.5, "6\""},  {true, " 6 ", true, 0.5, "6\""},
        {true, "1'-3 1/2\"", true, 1.2916666666666667, "1'-3 1/2\""},
        {true, "", false, 0, ""},            {true, "5-3", false, 0, ""},
        {true, "1000000000000000000000000000000000000000'", false, 0, ""},  // beyond a single
        {false, "45\xC2\xB0", true, 45, "45\xC2\xB0"}, {false, "-90", true, 270, "270\xC2\xB0"},
        {false, "725.25", true, 5.25, "5.25\xC2\xB0"}, {false, "-", false, 0, ""},
        {false, "", false, 0, ""},           {false, "4-5", false, 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Layout::LoadRec load;
        load.LoadEccentricity = 7;
        load.LoadAngle = 7;
        CalcState s;
        const bool ok = c.ecc ? Apply_Eccentricity(c.text, load, s) : Apply_Rotation(c.text, load, s);
        EXPECT_EQ(ok, c.ok);
        EXPECT_NEAR(c.ecc ? load.LoadEccentricity : load.LoadAngle, c.ok ? c.value : 7.0, 1e-12);
        EXPECT_EQ(c.ecc ? s.EcInput : s.RotInput, c.shown);
    }
}

}  // namespace
