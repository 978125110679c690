// Replays the cases of board_modes.script (its format is told there) on the
// board with a recording surface, each on a new board in DRAW.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <utility>

#include "board/core/BoardState.h"
#include "board/core/CalculationDisplay.h"
#include "board/core/LayoutFile.h"
#include "board/core/Viewport.h"
#include "support/CaseTable.h"
#include "support/RecordingSurface.h"

using namespace BoardState;
using casetable::Unquote;

namespace {

struct ScriptCase {
    std::string name;
    int line = 0;
    std::vector<std::pair<int, std::string>> steps;
};

std::vector<ScriptCase> LoadCases() {
    std::ifstream in(FERROLITH_TEST_DATA "/board_modes.script");
    std::vector<ScriptCase> cases;
    std::string text;
    for (int n = 1; std::getline(in, text); ++n)
        if (text.rfind("=== ", 0) == 0)
            cases.push_back({text.substr(4), n, {}});
        else if (!text.empty() && text[0] != '#' && !cases.empty())
            cases.back().steps.emplace_back(n, text);
    return cases;
}

// A number as the checks write it: at most four decimals, no trailing zeros.
std::string Num(double v) {
    std::string t = std::to_string(std::round(v * 1e4) / 1e4 + 0.0);
    t.erase(t.find_last_not_of('0') + 1);
    if (t.back() == '.') t.pop_back();
    return t == "-0" ? "0" : t;
}

std::string Join(const std::vector<std::string>& parts, const char* sep) {
    std::string out;
    for (const std::string& p : parts) out += (out.empty() ? "" : sep) + p;
    return out.empty() ? "none" : out;
}

class Script {
public:
    Script() {
        board_.hooks.Show_Message = [this](const BoardMessages::BoardMessage& m) {
            messages_.push_back(m.Text);
            return m.YesNo && yes_;
        };
        board_.hooks.Show_LineData = [this](int16_t index) { lineData_ = index; };
        board_.Set_Mode(DRAW);
    }

    void Step(const std::string& text) {
        std::istringstream in(text);
        std::string verb, word, words;
        double x = 0, y = 0;
        in >> verb >> x >> y;
        const std::string rest = text.size() > verb.size() ? Unquote(text.substr(verb.size() + 1)) : "";
        if (verb == "?") return Check(rest.substr(0, rest.find(' ')), Unquote(rest.substr(rest.find(' ') + 1)));
        drawn_ = surface_.Ops.size();
        while (in >> word) words += word + " ";  // the right button, Shift, a position in board units
        const Button button = words.find("right") != std::string::npos ? Button::Right : Button::Left;
        const bool shift = words.find("shift") != std::string::npos;
        if (words.find("board") == std::string::npos) {
            x = Viewport::To_BoardX(doc_, x);
            y = Viewport::To_BoardY(doc_, y);
        }
        static const std::map<std::string, void (Board::*)()> kButtons = {
            {"move", &Board::MoveButton_Click},         {"rotate", &Board::RotateButton_Click},
            {"delete", &Board::DeleteButton_Click},     {"clear", &Board::ClearButton_Click},
            {"cleardim", &Board::ClearDimButton_Click}, {"refresh", &Board::RefreshButton_Click},
            {"extent", &Board::ZoomExtentButton_Click}};
        static const std::map<std::string, Key> kKeys = {
            {"esc", Key::Escape}, {"delete", Key::Delete}, {"f8", Key::F8}, {"f9", Key::F9}};
        const double number = std::atof(rest.c_str());
        if (verb == "line") {
            std::vector<double> v;
            std::istringstream ends(rest);
            for (double d; ends >> d;) v.push_back(d);
            Viewport::Add_Drawn_Line(doc_, At(v[0], v[1]), At(v[2], v[3]));
            Viewport::Build_Intersections(doc_.Lines, doc_.Intersections, doc_.IntersectionsFound);
            board_.Repaint(true);
        } else if (verb == "mode") {
            board_.Set_Mode(static_cast<int16_t>(number));
        } else if (verb == "over") {  // the middle of a row, wherever the view put it
            const Layout::PointRec& mid = doc_.Lines.at(static_cast<size_t>(number)).MidPt;
            board_.DrawingBoard_MouseMove(Button::None, false, mid.X, mid.Y);
        } else if (verb == "move" || verb == "drag") {
            board_.DrawingBoard_MouseMove(verb == "drag" ? Button::Left : Button::None, false, x, y);
        } else if (verb == "press") {
            board_.DrawingBoard_MouseDown(button, shift, x, y);
        } else if (verb == "release") {
            popup_ = board_.DrawingBoard_MouseUp(button, shift, x, y);
        } else if (verb == "click" || verb == "dclick") {
            board_.DrawingBoard_MouseMove(Button::None, false, x, y);
            board_.DrawingBoard_MouseDown(button, shift, x, y);
            popup_ = board_.DrawingBoard_MouseUp(button, shift, x, y);
            board_.DrawingBoard_Click();
            if (verb == "dclick") {
                board_.DrawingBoard_DblClick();
                board_.DrawingBoard_MouseUp(button, shift, x, y);
            }
        } else if (verb == "type") {
            board_.CommandBox_KeyDown(Key::Enter, rest);
        } else if (verb == "boxesc") {
            board_.Form_KeyDown(Key::Escape);
            board_.CommandBox_KeyDown(Key::Escape, "");
        } else if (verb == "key") {
            board_.Form_KeyDown(kKeys.at(rest));
        } else if (verb == "do") {
            (board_.*kButtons.at(rest))();
        } else if (verb == "zoom") {
            board_.Zoom_Button(static_cast<float>(number));
        } else if (verb == "snap") {
            board_.SnapButton_Click(static_cast<int>(number));
        } else if (verb == "ortho" || verb == "poly") {
            (board_.*(verb == "ortho" ? &Board::OrthoBox_Click : &Board::PolyBox_Click))(rest == "on");
        } else if (verb == "answer") {
            yes_ = rest == "yes";
        } else if (verb == "saved") {
            std::tie(doc_.LinesSaved, doc_.DimsSaved) = std::tie(doc_.Lines, doc_.Dims);
        } else if (verb == "undo" || verb == "redo") {
            (board_.*(verb == "undo" ? &Board::Undo_Step : &Board::Redo_Step))();
        } else if (verb == "keep") {
            kept_[rest] = LayoutFile::Layout_Bytes(doc_);
        } else if (verb == "ecc" || verb == "rot") {
            if (!(verb == "ecc" ? board_.Apply_Eccentricity(rest) : board_.Apply_Rotation(rest)))
                messages_.push_back("refused");
        } else {
            ADD_FAILURE() << "unknown action " << verb;
        }
    }

private:
    Layout::PointRec At(double x, double y) const {
        return {Viewport::To_BoardX(doc_, x), Viewport::To_BoardY(doc_, y), 0};
    }
    std::string World(const Layout::PointRec& p) const {
        return Num(Viewport::To_WorldX(doc_, p.X)) + "," + Num(Viewport::To_WorldY(doc_, p.Y));
    }
    static std::string OnOff(bool on) { return on ? "on" : "off"; }

    // What the window would show, in the words of the checks.
    std::string Shown(const std::string& what) {
        const BoardUi& ui = board_.Ui;
        const std::map<std::string, std::function<std::string()>> simple = {
            {"prompt", [&] { return ui.Prompt; }},
            {"text", [&] { return ui.CommandText; }},
            {"box", [&] { return OnOff(ui.CommandBoxEnabled); }},
            {"caption", [&] { return ui.ModeCaption; }},
            {"in", [&] { return std::to_string(board_.Mode().Index()); }},
            {"status", [&] { return ui.FindingStatus; }},
            {"coords", [&] { return ui.CoordinateStatus; }},
            {"tooltip", [&] { return surface_.ToolTip; }},
            {"panel", [&] { return OnOff(ui.LoadParamBoxVisible); }},
            {"ortho", [&] { return ui.OrthoBox == board_.OrthoMode ? OnOff(ui.OrthoBox) : "box and flag differ"; }},
            {"poly", [&] { return ui.PolyBox == board_.PolyMode ? OnOff(ui.PolyBox) : "box and flag differ"; }},
            {"counter", [&] { return std::to_string(doc_.LineCounter); }},
            {"changed", [&] { return std::string(LayoutFile::Layout_Changed(doc_) ? "yes" : "no"); }},
            {"zoom", [&] { return Num(doc_.ZoomScale); }},
            {"origin", [&] { return Num(doc_.OriginX) + "," + Num(doc_.OriginY); }},
            {"pointer", [&] { return std::to_string(static_cast<int>(surface_.LastPointer)); }},
            {"inputs", [&] { return board_.Load_Inputs().EcInput + " " + board_.Load_Inputs().RotInput; }},
            {"load",
             [&] {
                 return std::string(doc_.Load.LoadSide ? "right" : "left") + (doc_.Load.LoadPlaced ? " placed" : "");
             }},
            {"linedata", [&] { return std::to_string(std::exchange(lineData_, -1)); }},
            {"popup", [&] { return std::to_string(static_cast<int>(popup_)); }},
            {"messages", [&] { return Join(std::exchange(messages_, {}), "|"); }},
            {"history", [&] { return board_.History.UndoText() + "|" + board_.History.RedoText(); }},
        };
        if (simple.count(what)) return simple.at(what)();
        std::vector<std::string> parts;
        for (size_t i = 0; i < doc_.Lines.size(); ++i) {
            const Layout::LineRec& l = doc_.Lines[i];
            if (l.Exists == 0) continue;
            if (what == "lines") parts.push_back(World(l.StartPt) + ">" + World(l.EndPt));
            if (what == "names") parts.push_back(l.LineName);
            if (what == "lengths") parts.push_back(Num(l.Length));
            if (what == "selected" && l.Selected != 0) parts.push_back(std::to_string(i));
        }
        for (const Layout::DimensionRec& d : doc_.Dims)
            if (what == "dims" && d.Exists != 0) parts.push_back(std::to_string(d.DimType) + ":" + Num(d.DimLength));
        const board::BoardMarks& m = ui.Marks;
        const std::pair<const char*, bool> marks[] = {{"pick", m.PickBox.Visible}, {"start", m.StartBox.Visible},
                                                      {"mid", m.MidBox.Visible},   {"end", m.EndBox.Visible},
                                                      {"rot", m.RotBox.Visible},   {"rotlines", m.RotLines}};
        for (const auto& [name, on] : marks)
            if (what == "marks" && on) parts.push_back(name);
        // The texts on the picture: those printed since it was last cleared.
        for (const RecordedOp& o : surface_.Ops) {
            if (what != "printed") break;
            if (o.Kind == "Cls") parts.clear();
            if (o.Kind == "Print") parts.push_back(o.Text);
        }
        return Join(parts, what == "names" || what == "printed" ? "|" : " ");
    }

    void Check(const std::string& what, const std::string& want) {
        if (what == "quiet") {
            EXPECT_EQ(surface_.Ops.size(), drawn_) << "the last action drew";
        } else if (what == "clean") {
            // Every inverting figure of some length since the board was last
            // cleared drawn an even number of times: no trace of it is left.
            std::map<std::vector<double>, int> count;
            for (const RecordedOp& o : surface_.Ops) {
                if (o.Kind == "Cls") count.clear();
                if (o.Kind != "Line" || o.Mode != board::PenMode::Invert || (o.X1 == o.X2 && o.Y1 == o.Y2)) continue;
                const bool turn = std::make_pair(o.X2, o.Y2) < std::make_pair(o.X1, o.Y1);
                ++count[turn ? std::vector{o.X2, o.Y2, o.X1, o.Y1} : std::vector{o.X1, o.Y1, o.X2, o.Y2}];
            }
            for (const auto& [key, n] : count) EXPECT_EQ(n % 2, 0) << "a figure left at " << key[0] << "," << key[1];
        } else if (what == "bytes") {
            EXPECT_TRUE(LayoutFile::Layout_Bytes(doc_) == kept_.at(want)) << "the file differs from " << want;
        } else if (what == "printed") {
            EXPECT_NE(Shown(what).find(want), std::string::npos) << Shown(what);
        } else {
            EXPECT_EQ(Shown(what), want == what ? "" : want) << what;
        }
    }

    Layout::LayoutDocument doc_;
    RecordingSurface surface_;
    Board board_{doc_, surface_};
    std::vector<std::string> messages_;
    bool yes_ = false;
    int lineData_ = -1;
    PopUp popup_ = PopUp::None;
    size_t drawn_ = 0;
    std::map<std::string, std::string> kept_;  // file bytes kept by name
};

TEST(BoardScript, ReplaysEveryCase) {
    for (const ScriptCase& c : LoadCases()) {
        SCOPED_TRACE("board_modes.script:" + std::to_string(c.line) + ": " + c.name);
        Script run;
        for (const auto& [line, text] : c.steps) {
            SCOPED_TRACE("board_modes.script:" + std::to_string(line) + ": " + text);
            run.Step(text);
        }
    }
}

}  // namespace
