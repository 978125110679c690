// Thousands of random replies and edits against one document: whatever is
// typed, the document stays valid.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include "BoardTestDoc.h"
#include "board/CommandLine.h"
#include "board/LineDataModule.h"
#include "board/SelectionModule.h"

using namespace boardtest;
using CommandLine::ReplyStatus;

namespace {

bool Finite(const PointRec& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

// Every line finite, MidPt the mean of its ends, no blank row but the only
// one, the counts consistent with the table and the numbering.
void ExpectValid(const LayoutDocument& doc, const std::string& step) {
    ASSERT_FALSE(doc.Lines.empty()) << step;
    ASSERT_FALSE(doc.Dims.empty()) << step;
    const int16_t count = CartesianModule::Line_Count(doc.Lines);
    if (count == 0) {
        ASSERT_EQ(doc.Lines.size(), 1u) << step;
        return;
    }
    ASSERT_EQ(static_cast<size_t>(count), doc.Lines.size()) << step;
    ASSERT_LE(count, doc.LineCounter) << step;
    ASSERT_LE(CartesianModule::Selected_Count(doc.Lines), count) << step;
    for (const LineRec& r : doc.Lines) {
        ASSERT_NE(r.Exists, 0) << step;
        ASSERT_TRUE(Finite(r.StartPt) && Finite(r.EndPt) && Finite(r.MidPt)) << step;
        ASSERT_TRUE(std::isfinite(r.Length)) << step;
        ASSERT_FLOAT_EQ(r.MidPt.X, static_cast<float>((static_cast<double>(r.StartPt.X) + r.EndPt.X) / 2)) << step;
    }
    for (const PointRec& p : doc.Intersections) ASSERT_TRUE(Finite(p)) << step;
}

class Fuzzer {
public:
    explicit Fuzzer(unsigned seed) : rng_(seed) {}

    // Half of the replies are well formed, so that lines get drawn, moved and
    // turned; the rest are random pieces.
    std::string Reply() { return Choice(2) == 0 ? GoodReply() : Pieces(); }

    std::string Number() {
        static const char* forms[] = {"%g", "%g'", "%g\"", "0'-%g\"", "%g'-3 1/2\"", "%g 1/4"};
        char buf[64];
        const double v = std::round(std::uniform_real_distribution<double>(-3.0, 9.0)(rng_) * 8) / 8;
        std::snprintf(buf, sizeof buf, forms[Choice(static_cast<int>(std::size(forms)))], std::fabs(v));
        return (v < 0 && Choice(2) == 0 ? "-" : "") + std::string(buf);
    }

    std::string GoodReply() {
        switch (Choice(3)) {
            case 0:
                return Number() + "," + Number();
            case 1:
                return Number() + "<" + std::to_string(Choice(720) - 360);
            default:
                return std::to_string(Choice(10) + 1);
        }
    }

    std::string Pieces() {
        static const char* pieces[] = {"0",    "1",   "2",  "5",     "12",  "-",   "'",    "\"",   "<",
                                       ",",    " ",   "/",  ".",     "E",   "E39", "1E38", "9E99", "1E-2",
                                       "w",    "c",   "r",  "a",     "x",   "90",  "-45",  "360",  "0'-6\"",
                                       "3'-6", "1/2", "--", "1,000", "1/0", "\t",  "inf",  "nan",  "D3"};
        std::uniform_int_distribution<int> len(0, 6);
        std::uniform_int_distribution<size_t> pick(0, std::size(pieces) - 1);
        std::string s;
        for (int i = len(rng_); i > 0; --i) s += pieces[pick(rng_)];
        return s;
    }
    float Coord() { return std::uniform_real_distribution<float>(-2.0f, 9.0f)(rng_); }
    int Choice(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }

private:
    std::mt19937 rng_;
};

TEST(ReplyFuzz, RandomRepliesKeepTheDocumentValid) {
    Fuzzer fz(20261123);
    LayoutDocument doc;
    SelectionModule::SelectionState st;
    SelectionModule::EditHooks hooks;
    hooks.Show_Message = [](const BoardMessages::BoardMessage&) { return true; };
    DrawClicks draw;
    CommandLine::EchoState echo;
    int points = 0, invalid = 0, mostLines = 0;

    for (int i = 0; i < 6000; ++i) {
        const std::string reply = fz.Reply();
        const std::string step = std::to_string(i) + ": \"" + reply + "\"";
        // A pointer move echoes first, as it does on the board.
        CommandLine::Echo_Draw(doc, true, draw.DrawClick, fz.Coord(), fz.Coord(), draw.AnchorPt, echo);
        switch (fz.Choice(8)) {
            case 0:
            case 1:
            case 2: {
                // DRAW: the typed point goes through a click like the board's.
                const auto r = CommandLine::Reply_Draw(
                    doc, reply, {draw.DrawClick, echo.LastPt, echo.EchoDistanceDeg, echo.EchoDistanceRad});
                if (r.Status != ReplyStatus::Point) {
                    invalid += r.Status == ReplyStatus::Invalid;
                    break;
                }
                ++points;
                draw.Click(doc, P(static_cast<float>(r.TypedX), static_cast<float>(r.TypedY)));
                break;
            }
            case 3:
                CommandLine::Reply_Select(doc, st, reply, hooks);
                if (st.SelectKind >= 1 && st.SelectKind <= 3)
                    SelectionModule::Select_Window(doc, st, P(fz.Coord(), fz.Coord()), P(fz.Coord(), fz.Coord()),
                                                   st.SelectKind != SelectionModule::Kind::Remove, hooks);
                break;
            case 4: {
                if (st.MovePending == 0) SelectionModule::MoveButton_Click(doc, st, hooks);
                const auto r = CommandLine::Reply_Move(doc, reply, {st.MoveClick, st.MoveBase, 45.0, 0.785});
                if (r.Status == ReplyStatus::Point)
                    SelectionModule::Move_Click(doc, st, P(static_cast<float>(r.TypedX), static_cast<float>(r.TypedY)),
                                                hooks);
                break;
            }
            case 5: {
                if (st.RotatePending == 0) SelectionModule::RotateButton_Click(doc, st, hooks);
                const auto r = CommandLine::Reply_Rotate(doc, st, reply, hooks);
                if (r.Status == ReplyStatus::Point)
                    SelectionModule::Rotate_Click(st, P(static_cast<float>(r.TypedX), static_cast<float>(r.TypedY)),
                                                  hooks);
                break;
            }
            case 6:
                LineDataModule::Apply_LineData(doc, static_cast<int16_t>(fz.Choice(6)), reply, fz.Reply(),
                                               static_cast<int16_t>(fz.Choice(3)));
                break;
            default: {
                switch (fz.Choice(4)) {
                    case 0:
                        SelectionModule::DeleteButton_Click(doc, false, hooks);
                        break;
                    case 1: {
                        auto hover = SelectionModule::Hover_Line(doc, fz.Coord(), fz.Coord(), false);
                        if (fz.Choice(2) == 0 && !CartesianModule::Lines_Empty(doc.Lines)) {
                            const auto& mid =
                                doc.Lines[static_cast<size_t>(fz.Choice(static_cast<int>(doc.Lines.size())))].MidPt;
                            hover = SelectionModule::Hover_Line(doc, mid.X, mid.Y, false);
                        }
                        PublicVariables::HoverRec prev;
                        int16_t drawn = 0;
                        SelectionModule::Edit_DeleteKey(doc, hover, prev, drawn, hooks);
                        break;
                    }
                    case 2:
                        if (fz.Choice(10) == 0) SelectionModule::ClearButton_Click(doc, false, hooks);
                        break;
                    default:
                        SelectionModule::Toggle_Line(doc.Lines, static_cast<int16_t>(fz.Choice(8)), hooks);
                }
            }
        }
        ExpectValid(doc, step);
        mostLines = std::max<int>(mostLines, CartesianModule::Line_Count(doc.Lines));
        if (testing::Test::HasFatalFailure()) return;
    }
    // The run must have exercised both the good and the bad paths.
    EXPECT_GT(points, 100);
    EXPECT_GT(invalid, 100);
    EXPECT_GT(mostLines, 10);
}

}  // namespace
