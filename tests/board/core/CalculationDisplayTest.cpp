#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "board/core/CalculationDisplay.h"
#include "board/core/LoadSymbol.h"
#include "support/BoardTestDoc.h"
#include "support/CaseTable.h"
#include "support/RecordingSurface.h"

using namespace CalculationView;
using boardtest::DocWith;
using boardtest::L;
using boardtest::P;
using Layout::LineRec;

namespace {

const std::string kCases = FERROLITH_TEST_DATA "/board_cases.table";

std::string Phi(const std::string& angle) { return "\xC3\x98=" + angle + "\xC2\xB0"; }

// Texts of no width, so that a centred text is recorded at its middle.
struct Surface : RecordingSurface {
    double TextWidth(const std::string&) const override { return 0.0; }
    std::vector<std::string> Texts() const {
        std::vector<std::string> out;
        for (const auto& o : OfKind("Print")) out.push_back(o.Text);
        return out;
    }
};

TEST(CalculationView, LineLabelsAndLayoutData) {
    for (const casetable::Row& c : casetable::Read(kCases, "line labels")) {
        const std::vector<double> v = c.Nums(0);
        Surface s;
        const LayoutDocument doc = DocWith({L(static_cast<float>(v[0]), static_cast<float>(v[1]),
                                              static_cast<float>(v[2]), static_cast<float>(v[3]))});
        Label_Lines(s, doc, doc.Lines);
        const auto prints = s.OfKind("Print");
        ASSERT_EQ(prints.size(), 2u);
        EXPECT_EQ(prints[1].Text, Phi(c[1]));
        // Both texts start where the length text, centred by its count, starts.
        const Layout::PointRec& mid = doc.Lines[0].MidPt;
        EXPECT_DOUBLE_EQ(prints[1].X1, mid.X - prints[0].Text.size() * 0.2 / 9.0);
        EXPECT_NEAR(prints[0].Y1, mid.Y - 0.14, 1e-6);
    }
    // The layout data in the lower left corner.
    Surface s;
    const LayoutDocument doc = DocWith({L(1, 2, 3, 2)});
    Label_Lines(s, doc, doc.Lines);
    Layout_Data(s, doc, doc.Lines);
    EXPECT_EQ(s.Texts(), (std::vector<std::string>{"L=2\"", Phi("0"), "WELD LAYOUT DATA:", "Total Weld Segments",
                                                   " =   1", "Total Weld Length", " =   2\""}));
    EXPECT_NEAR(s.Ops.back().Y1, s.H - 0.25, 1e-9);
}

// The symbol of a group standing on the board's middle line.
Surface Symbol(int16_t side, double angle, double ecc) {
    Surface s;
    const LayoutDocument doc = DocWith({L(s.W / 2, 1, s.W / 2, 4)});
    const float x = side == 0 ? 1.0f : static_cast<float>(s.W) - 1.0f;
    LoadSymbol::Draw_LoadSymbol(s, doc.Lines, P(x, 2.5f), side, angle, ecc);
    return s;
}

TEST(LoadSymbol, ShowsTheArrowAtItsAngleAndTheEccentricity) {
    auto sign = [](double v) { return std::fabs(v) < 1e-9 ? 0 : (v > 0 ? 1 : -1); };
    for (const casetable::Row& c : casetable::Read(kCases, "load symbols")) {
        SCOPED_TRACE(c.line);
        const double ecc = c.Num(2);
        const Surface s = Symbol(static_cast<int16_t>(c.Num(0)), c.Num(1), ecc);
        // "ex = ", its caption, "P" and the angle unless it is 0.
        std::vector<std::string> texts = s.Texts(),
                                 want = {ecc == 0 ? "ex = 0\"" : "ex = 6\"", "[Load Eccentricity]", "P"};
        if (c[3] != "-") want.push_back(Phi(c[3]));
        std::sort(texts.begin(), texts.end());
        std::sort(want.begin(), want.end());
        EXPECT_EQ(texts, want);
        const RecordedOp anchor = s.OfKind("Circle").at(0);
        const auto lines = s.OfKind("Line");
        // The shaft is the first line drawn after the anchor.
        const auto shaft = std::find_if(lines.begin(), lines.end(), [](const RecordedOp& o) { return o.Width == 2; });
        ASSERT_NE(shaft, lines.end());
        EXPECT_EQ(sign(shaft->X2 - anchor.X1), c.Nums(4)[0]);
        EXPECT_EQ(sign(shaft->Y2 - anchor.Y1), c.Nums(4)[1]);
        // The dimension line runs from the center of gravity to the load, or
        // collapses onto the center without an eccentricity.
        const auto dim = std::find_if(lines.begin(), lines.end(), [](const RecordedOp& o) { return o.Y1 == o.Y2; });
        ASSERT_NE(dim, lines.end());
        EXPECT_NEAR(dim->X1, s.W / 2, 1e-6);
        EXPECT_NEAR(dim->X2, ecc == 0 ? s.W / 2 : anchor.X1, 1e-6);
    }
}

TEST(CalculationView, TypedLoadInputsAreCheckedAndRewritten) {
    for (const casetable::Row& c : casetable::Read(kCases, "load inputs")) {
        SCOPED_TRACE(c.line);
        Layout::LoadRec load;
        load.LoadEccentricity = load.LoadAngle = 7;
        CalcState s;
        const bool ecc = c[0] == "ecc";
        EXPECT_EQ(ecc ? Apply_Eccentricity(c[1], load, s) : Apply_Rotation(c[1], load, s), c[2] == "yes");
        EXPECT_NEAR(ecc ? load.LoadEccentricity : load.LoadAngle, c.Num(3), 1e-12);
        EXPECT_EQ(ecc ? s.EcInput : s.RotInput, c.fields.size() > 4 ? c[4] : "");
    }
}

}  // namespace
