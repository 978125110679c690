// What the calculation sheets say, before any page is painted: the numbers
// in the digits the windows and commands show, the other model beside them,
// the figure's load, center and forces where the run put them.
#include <gtest/gtest.h>

#include <algorithm>

#include "board/core/CapacityHandOver.h"
#include "board/core/CapacitySheet.h"
#include "bolt/core/BoltSheet.h"
#include "support/BoardTestDoc.h"
#include "weld/core/CoefficientSheet.h"
#include "weld/core/WeldStrength.h"

namespace {

std::string Value(const sheet::Sheet& s, const std::string& label) {
    for (const sheet::Section& sec : s.Sections)
        for (const sheet::Row& r : sec.Rows)
            if (r.Label.rfind(label, 0) == 0) return r.Value;
    return "(no row " + label + ")";
}

// The C-shape of the examples: a 10 in web and 4 in flanges, the load 9 in
// right of the centroid.
Layout::LayoutDocument CShape(int16_t side) {
    Layout::LayoutDocument doc = boardtest::Drawn({{1, 1, 1, 11}, {1, 1, 5, 1}, {1, 11, 5, 11}});
    doc.Load.LoadSide = side;
    doc.Load.LoadEccentricity = 0.75;
    return doc;
}

TEST(CalculationSheetContent, TheCapacitySheetStatesTheRunAndBothModels) {
    for (int16_t side : {0, 1}) {
        const Layout::LayoutDocument doc = CShape(side);
        capsheet::Inputs in;
        in.Method = 2;  // LRFD
        const capsheet::Run run = capsheet::Solve_Both(doc, in);
        ASSERT_TRUE(run.Result.Converged && run.Other);
        const sheet::Sheet s = capsheet::Capacity_Sheet(doc, in, run, {}, "c.wld", "1.1");
        // On the right as capacity prints it for examples/c-shape-right.wld, in LRFD.
        const struct {
            const char *capacity, *element, *center, *asd;
        } want[] = {{"50.90822", "59.04879 kips (16.0 %)", "x = 1.4321 in", "33.93881"},
                    {"53.17513", "60.86351 kips (14.5 %)", "x = -1.6432 in", "35.45008"}};
        EXPECT_EQ(Value(s, "Weld Group Design Strength"), want[side].capacity);
        EXPECT_EQ(Value(s, "AISC element model"), want[side].element);
        EXPECT_EQ(Value(s, "Instantaneous center").rfind(want[side].center, 0), 0u) << Value(s, "Instantaneous center");
        EXPECT_EQ(Value(s, "Load side"), side == 0 ? "Left" : "Right");
        EXPECT_EQ(Value(s, "Eccentricity"), "9\"");
        const sheet::Table& methods = s.Sections[1].Tables.at(0);
        ASSERT_EQ(methods.Rows.size(), 3u);
        EXPECT_EQ(methods.Rows[1][2], want[side].asd);
        // The figure: the load's anchor 9 in from the centroid (x 1.889), on its side.
        const sheet::Figure& f = s.Figures.at(0);
        const bool anchored = std::any_of(f.Circles.begin(), f.Circles.end(), [&](const sheet::Figure::Circle& c) {
            return c.rgb == sheet::kLoad && std::abs(c.x - (side == 0 ? 1.8889 - 9 : 1.8889 + 9)) < 1e-3;
        });
        EXPECT_TRUE(anchored);
    }
    // A run belongs to its group and load, whatever the view.
    Layout::LayoutDocument moved = CShape(1), zoomed = CShape(1);
    moved.Lines[1].EndPt.X += 0.5f;
    Viewport::Zoom_Factor(zoomed, 2.0f);
    EXPECT_FALSE(weld::Same_Group(weld::Layout_Group(CShape(1)), weld::Layout_Group(moved)));
    EXPECT_TRUE(weld::Same_Group(weld::Layout_Group(CShape(1)), weld::Layout_Group(zoomed)));
}

TEST(CalculationSheetContent, CoefficientSheetsGiveCByBothModels) {
    weld::CoefficientRun run{{4, 10, 5, 5, 30}, {}, {}, std::nullopt};
    run.Result = weld::Solve(run.Config, run.Options);
    run.Other = weld::Other_Coefficient(run.Config, run.Options);
    const sheet::Sheet w = weld::Coefficient_Sheet(run, {}, "1.1");
    EXPECT_EQ(Value(w, "Weld Group Coefficient"), "5.03332");
    EXPECT_EQ(Value(w, "AISC element model"), "4.27677   (-15.0 %)");
    EXPECT_EQ(Value(w, "Length kL"), "5 in   (k = 0.5)");

    const sheet::Sheet b = bolt::Bolt_Sheet({{{4, 2, 3, 3}, {6, 15}}}, shell::SolverModel::Iterative, {}, "1.1");
    const std::vector<std::string> row = b.Sections.at(0).Tables.at(0).Rows.at(0);
    EXPECT_EQ(row[6], "3.7670");
    EXPECT_EQ(row[7], "26.0315");
    EXPECT_EQ(b.Figures.size(), 1u);
    EXPECT_EQ(std::count_if(b.Figures[0].Circles.begin(), b.Figures[0].Circles.end(),
                            [](const sheet::Figure::Circle& c) { return c.rgb == sheet::kInk; }),
              8);
}

}  // namespace
