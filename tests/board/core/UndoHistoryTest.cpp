#include "board/core/UndoHistory.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "board/core/LayoutFile.h"
#include "board/core/Viewport.h"
#include "support/BoardTestDoc.h"

using Layout::LayoutDocument;

namespace {

std::string Bytes(const LayoutDocument& doc) { return LayoutFile::Layout_Bytes(doc); }

// One command on a document, as the board carries them out.
using Edit = std::function<void(LayoutDocument&)>;

void Draw(LayoutDocument& doc, float x1, float y1, float x2, float y2) {
    Viewport::Add_Drawn_Line(doc, boardtest::P(x1, y1), boardtest::P(x2, y2));
}

// A layout of `n` lines, one above the other.
LayoutDocument Stack(int n) {
    LayoutDocument doc;
    Viewport::Set_Viewport(doc);
    for (int i = 0; i < n; ++i) Draw(doc, 1, 0.5f + 0.0001f * i, 3, 0.5f + 0.0001f * i);
    return doc;
}

bool Record(Undo::History& h, LayoutDocument& doc, const std::string& name, const Edit& edit) {
    h.Begin(doc);
    edit(doc);
    return h.Commit(doc, name);
}

}  // namespace

TEST(UndoHistory, EachKindOfStepComesBackByteForByte) {
    struct Case {
        const char* name;
        Edit edit;
    };
    const Case cases[] = {
        {"Line", [](LayoutDocument& d) { Draw(d, 0.5f, 0.5f, 2, 1); }},
        {"Delete", [](LayoutDocument& d) { Viewport::Delete_Line(d.Lines, 2); }},
        {"Delete All", [](LayoutDocument& d) { d.Lines = Layout::BlankLines(); }},
        {"Move 2 Lines",
         [](LayoutDocument& d) {
             for (int i : {1, 3}) {
                 d.Lines[i].StartPt.X += 0.25f;
                 d.Lines[i].EndPt.X += 0.25f;
             }
         }},
        {"Line Data", [](LayoutDocument& d) { d.Lines[1].LineName = "Web"; }},
        {"Dimension", [](LayoutDocument& d) { d.Dims.push_back(boardtest::Dim(1, 1, 3, 1, 2, 2)); }},
        {"Load", [](LayoutDocument& d) {
             d.Load.LoadAngle = 30;
             d.Load.LoadEccentricity = 1.5;
             d.Load.LoadSide = 1;
         }},
    };
    for (const Case& c : cases) {
        LayoutDocument doc = Stack(4);
        Undo::History h;
        const std::string before = Bytes(doc);
        ASSERT_TRUE(Record(h, doc, c.name, c.edit)) << c.name;
        const std::string after = Bytes(doc);
        EXPECT_EQ(h.UndoText(), std::string("Undo ") + c.name);
        ASSERT_TRUE(h.Undo(doc));
        EXPECT_EQ(Bytes(doc), before) << c.name;
        EXPECT_EQ(h.RedoText(), std::string("Redo ") + c.name);
        EXPECT_EQ(h.UndoText(), "Undo");
        ASSERT_TRUE(h.Redo(doc));
        EXPECT_EQ(Bytes(doc), after) << c.name;
    }
    // A command that changes nothing is no step.
    LayoutDocument doc = Stack(2);
    Undo::History h;
    EXPECT_FALSE(Record(h, doc, "Move 0 Lines", [](LayoutDocument&) {}));
    EXPECT_FALSE(h.CanUndo());
}

TEST(UndoHistory, FiftyRandomEditsUndoneAndRedoneInFull) {
    std::mt19937 rng(7);
    LayoutDocument doc = Stack(20);
    Undo::History h;
    const std::string start = Bytes(doc);
    int steps = 0;
    for (int i = 0; i < 50; ++i) {
        const auto n = static_cast<int16_t>(Viewport::Line_Count(doc.Lines));
        const int16_t row = static_cast<int16_t>(rng() % std::max<int16_t>(n, 1));
        switch (rng() % 4) {
            case 0: steps += Record(h, doc, "Line", [&](LayoutDocument& d) { Draw(d, 0.1f * i, 1, 2, 2); }); break;
            case 1: steps += Record(h, doc, "Delete", [&](LayoutDocument& d) { Viewport::Delete_Line(d.Lines, row); }); break;
            case 2:
                steps += Record(h, doc, "Move", [&](LayoutDocument& d) { d.Lines[static_cast<size_t>(row)].MidPt.Y += 1; });
                break;
            default: steps += Record(h, doc, "Load", [&](LayoutDocument& d) { d.Load.LoadAngle += 5; }); break;
        }
    }
    const std::string end = Bytes(doc);
    int undone = 0;
    while (h.Undo(doc)) ++undone;
    EXPECT_EQ(undone, steps);
    EXPECT_EQ(Bytes(doc), start);
    while (h.Redo(doc)) {
    }
    EXPECT_EQ(Bytes(doc), end);

    // A new edit after undos drops what could have been redone.
    h.Undo(doc);
    h.Undo(doc);
    Record(h, doc, "Line", [](LayoutDocument& d) { Draw(d, 0, 0, 1, 1); });
    EXPECT_FALSE(h.CanRedo());
    EXPECT_EQ(h.UndoText(), "Undo Line");
}

TEST(UndoHistory, AStepUndoneInAnotherViewComesBackInThatView) {
    LayoutDocument doc = Stack(3);
    Undo::History h;
    const float worldX = Viewport::To_WorldX(doc, doc.Lines[1].StartPt.X);
    Record(h, doc, "Delete", [](LayoutDocument& d) { Viewport::Delete_Line(d.Lines, 1); });
    Viewport::Zoom_Factor(doc, 2.0f);  // a view, not a step
    ASSERT_TRUE(h.Undo(doc));
    EXPECT_EQ(Viewport::Line_Count(doc.Lines), 3);
    EXPECT_FLOAT_EQ(Viewport::To_WorldX(doc, doc.Lines[1].StartPt.X), worldX);
    EXPECT_FLOAT_EQ(Viewport::To_WorldX(doc, doc.Lines[1].StartPt.X), Viewport::To_WorldX(doc, doc.Lines[0].StartPt.X));
}

TEST(UndoHistory, ALargeLayoutStaysWithinTheBudget) {
    // 32,767 lines: each Delete All holds the table once; the history keeps
    // within 64 MB by dropping its oldest steps, and small steps stay many.
    LayoutDocument doc = Stack(32767);
    const LayoutDocument full = doc;
    Undo::History h;
    for (int i = 0; i < 40; ++i) {
        Record(h, doc, "Delete All", [](LayoutDocument& d) { d.Lines = Layout::BlankLines(); });
        Record(h, doc, "Paste", [&](LayoutDocument& d) { d.Lines = full.Lines; });
    }
    EXPECT_LE(h.Bytes(), size_t{64} << 20);
    EXPECT_GT(h.Bytes(), size_t{32} << 20);
    RecordProperty("HistoryBytes", static_cast<int>(h.Bytes() >> 10));
    Undo::History small;
    for (int i = 0; i < 150; ++i) Record(small, doc, "Move", [](LayoutDocument& d) { d.Lines[9].MidPt.X += 1; });
    EXPECT_EQ(small.Steps(), 150u);
}
