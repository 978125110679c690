#include "board/core/BoardState.h"

#include "board/core/Dimensions.h"
#include "board/core/SnapSearch.h"
#include "board/core/Viewport.h"
#include "board/core/modes/Modes.h"

namespace BoardState {

using board::Pointer;
using CommandLine::ReplyStatus;

namespace {

// The board before its first mode is set: no prompt and no command line.
class FreeMode : public BoardMode {
public:
    explicit FreeMode(Board& board) : BoardMode(board, NONE, "") {}
    void Enter(bool) override {}
    PromptLine Prompt() const override { return {}; }
};

void Place(board::BoardMarks::Box& box, const PointRec& p) {
    box.Visible = true;
    box.X = p.X;
    box.Y = p.Y;
}

}  // namespace

// An event that may change the layout: the outermost one opens the step (if
// none is open) and closes it at its end, unless a command is still under way.
class StepScope {
public:
    explicit StepScope(Board& b, bool on = true) : b_(b), on_(on) {
        if (on_ && b_.stepDepth_++ == 0) b_.Open_Step();
    }
    ~StepScope() {
        if (on_ && --b_.stepDepth_ == 0) b_.Close_Step(false);
    }
    StepScope(const StepScope&) = delete;
    StepScope& operator=(const StepScope&) = delete;

private:
    Board& b_;
    bool on_;
};

// A change of the view rewrites the coordinates the rows hold: a step under
// way is recorded before it (if it changed anything) and opened again after
// it, so that no step holds a view change it did not make.
class ViewScope {
public:
    explicit ViewScope(Board& b, bool on = true) : b_(b), reopen_(on && b.stepDepth_ == 0 && b.History.Pending()) {
        if (reopen_) b_.Close_Step(true);
    }
    ~ViewScope() {
        if (reopen_ && b_.active_->Busy()) b_.Open_Step();
    }
    ViewScope(const ViewScope&) = delete;
    ViewScope& operator=(const ViewScope&) = delete;

private:
    Board& b_;
    bool reopen_;
};

void BoardMode::Redisplay() { board_.Repaint(true); }

Board::Board(LayoutDocument& doc, board::DrawSurface& surface)
    : doc_(doc), surface_(surface), free_(std::make_unique<FreeMode>(*this)) {
    auto selection = std::make_unique<SelectionMode>(*this);
    auto calculation = std::make_unique<CalculationMode>(*this);
    selection_ = selection.get();
    calculation_ = calculation.get();
    modes_ = {std::make_unique<DrawMode>(*this),
              std::move(selection),
              std::make_unique<DimensionMode>(*this),
              std::make_unique<EditMode>(*this),
              std::make_unique<PanMode>(*this),
              std::make_unique<ZoomMode>(*this),
              std::move(calculation)};
    active_ = free_.get();
    Build_Edit_Hooks();
}

Board::~Board() = default;

// What the selection commands show goes to the board; the window's hooks and
// the yield are read when a command runs, so they may be set at any time.
void Board::Build_Edit_Hooks() {
    Selection::EditHooks& h = editHooks_;
    h.Repaint.Draw_Lines = [this] {
        LayoutRender::Draw_Lines(surface_, doc_.Lines, LayoutRender::kLineColor, LayoutRender::kSelectedColor, true,
                                 Yield);
        MoveBandShown = SelectBoxShown = false;
    };
    h.Repaint.Draw_Dims = [this] {
        LayoutRender::Draw_Dims(surface_, doc_.Dims);
        surface_.Refresh();
    };
    h.Repaint.Clear_Board = [this] {
        surface_.Cls();
        MoveBandShown = SelectBoxShown = false;
        surface_.Refresh();
    };
    h.Repaint.Yield = [this] { shell::YieldNow(Yield); };
    h.Paint_Line = [this](const Layout::LineRec& r, int16_t color) { LayoutRender::Paint_Line(surface_, r, color); };
    h.Paint_Selection = [this](int16_t selected, int16_t other) {
        LayoutRender::Paint_Selection(surface_, doc_.Lines, selected, other);
    };
    h.Renew_Pointer = [this] { selection_->Renew_Pointer(); };
    h.Cross_Pointer = [this] { Set_Pointer(Pointer::Cross); };
    h.Show_Prompt = [this] { Show_Prompt(); };
    h.Show_Rotate_Marks = [this](const PointRec& p) {
        Ui.Marks.RotBox = {true, p.X, p.Y};
        Ui.Marks.RotLines = true;
    };
    h.Hide_Rotate_Marks = [this] { Hide_Rotate_Marks(); };
    h.Erase_Move_Band = [this] { Erase_Move_Band(); };
    h.Cancel_Band = [this] { Cancel_Band(); };
    h.Focus_CommandBox = [this] { Ui.CommandFocus = true; };
    h.Set_DrawMode = [this] { Set_Mode(DRAW); };
    h.Show_Message = [this](const BoardMessages::BoardMessage& m) {
        return hooks.Show_Message ? hooks.Show_Message(m) : false;
    };
}

// ---- Modes and keys -------------------------------------------------------------

void Board::Set_Pointer(Pointer p) {
    Ui.MousePointer = p;
    surface_.SetMousePointer(p);
}

void Board::Set_Mode(int16_t index) {
    ViewScope step(*this);
    BoardMode* next = nullptr;
    for (const auto& m : modes_)
        if (m->Index() == index) next = m.get();
    const bool again = next == active_;
    Cancel_Band();
    active_->Leave(again);
    if (next == nullptr || !next->Selects()) {
        // The calculation display clears the board and draws the lines anew.
        if (next == nullptr || next->ShowsWorkingDisplay()) {
            LayoutRender::Paint_Selection(surface_, doc_.Lines, LayoutRender::kLineColor, LayoutRender::kLineColor);
            surface_.Refresh();
        }
        Selection::Clear_Selection(doc_.Lines);
    }
    Ui.CheckedMode = index;
    Ui.LoadParamBoxVisible = false;
    Hide_Rotate_Marks();
    // The lines were painted anew above or are painted anew below.
    Drop_Pointer_Feedback();
    // An index of no mode keeps the mode and shows no name.
    if (next != nullptr) {
        active_ = next;
        next->Enter(again);
    }
    Show_Prompt();
    Ui.ModeCaption = std::string("   Active Mode:  ") + (next != nullptr ? next->Name() : "");
}

void Board::Show_Prompt() {
    const PromptLine p = active_->Prompt();
    Ui.Prompt = p.Text;
    Ui.CommandBoxEnabled = p.Replies;
    Set_CommandText(p.Replies ? "" : kDisabledText);
}

void Board::Set_CommandText(const std::string& text) {
    Ui.CommandText = text;
    ++Ui.CommandTextSerial;
}

void Board::Cancel_Band() { active_->Cancel(); }

void Board::Hide_Rotate_Marks() {
    Ui.Marks.RotBox.Visible = false;
    Ui.Marks.RotLines = false;
}

void Board::Hide_Marks() { Ui.Marks = {}; }

void Board::Show_Grips(const Layout::LineRec& line) {
    Place(Ui.Marks.StartBox, line.StartPt);
    Place(Ui.Marks.EndBox, line.EndPt);
    Place(Ui.Marks.MidBox, line.MidPt);
}

bool Board::Form_KeyDown(Key key) {
    StepScope step(*this);
    switch (key) {
        case Key::Escape:
        case Key::Delete:
            active_->KeyDown(key);
            return true;
        case Key::F8:
            OrthoBox_Click(!Ui.OrthoBox);
            return true;
        case Key::F9:
            PolyBox_Click(!Ui.PolyBox);
            return true;
        default:
            return false;
    }
}

void Board::OrthoBox_Click(bool checked) {
    Ui.OrthoBox = checked;
    OrthoMode = checked;
}

void Board::PolyBox_Click(bool checked) {
    Ui.PolyBox = checked;
    PolyMode = checked;
    if (!checked) Cancel_Band();
}

void Board::SnapButton_Click(int index) {
    if (index >= 0 && index <= 5) SnapMode = index;
}

// ---- Pointer ----------------------------------------------------------------------

void Board::Status_Coordinates(double x, double y) { Ui.CoordinateStatus = Viewport::Coordinate_Status(doc_, x, y); }

bool Board::Snap(int mode, const PointRec& base, double& x, double& y) {
    SnapPt.X = static_cast<float>(x);
    SnapPt.Y = static_cast<float>(y);
    SnapPt.Flag = 0;
    PointRec out = SnapPt;
    if (!Viewport::Snap_Point(doc_, static_cast<float>(x), static_cast<float>(y), static_cast<int16_t>(mode), out,
                              base))
        return false;
    SnapPt = out;
    x = out.X;
    y = out.Y;
    return true;
}

void Board::Snap_Feedback(bool found, double x, double y) {
    Ui.FindingStatus = Viewport::Snap_Status(found, static_cast<int16_t>(SnapMode));
    if (found)
        Ui.Marks.PickBox = {true, static_cast<float>(x), static_cast<float>(y)};
    else
        Ui.Marks.PickBox.Visible = false;
}

void Board::Draw_Move_Band() {
    LayoutRender::Band_Line(surface_, Sel.MoveBase, CurrentPt);
    MoveBandShown = !MoveBandShown;
}

void Board::Erase_Move_Band() {
    if (MoveBandShown) Draw_Move_Band();
}

void Board::Erase_Select_Box() {
    if (SelectBoxShown)
        LayoutRender::Band_Box(surface_, Sel.WindowCorner.X, Sel.WindowCorner.Y, CurrentPt.X, CurrentPt.Y);
    SelectBoxShown = false;
}

void Board::Show_Echo(const CommandLine::EchoResult& e) {
    if (e.SetText) Set_CommandText(e.Text);
    Ui.CommandFocus = Ui.CommandFocus || e.Focus;
    Ui.CommandSelectAll = Ui.CommandSelectAll || e.SelectAll;
}

// PAN and ZOOM change only the view; every other mode may change the layout.
bool Board::Views_Only() const { return active_->Index() == PAN || active_->Index() == ZOOM; }

void Board::DrawingBoard_MouseDown(Button button, bool shift, double x, double y) {
    ViewScope view(*this, Views_Only());
    StepScope step(*this, !Views_Only());
    LastButton = button;
    if (button == Button::Right && !shift) Cancel_Band();
    active_->Press(button, shift, x, y);
    Show_Prompt();
}

void Board::DrawingBoard_MouseMove(Button button, bool /*shift*/, double x, double y) {
    ViewScope view(*this, Views_Only());
    PointerX = x;
    PointerY = y;
    HoverLine = Selection::Hover_Line(doc_, static_cast<float>(x), static_cast<float>(y), active_->Selects());
    active_->Move(button, x, y);
    // The line lit before goes back to its own colour once the pointer left it.
    if (!HoverLine.Found && HoverShown) {
        HoverShown = false;
        if (PrevHover.Found) {
            LayoutRender::Paint_Line(surface_, PrevHover.Line, LayoutRender::kLineColor);
            surface_.Refresh();
        }
    }
    PointerX = x;
    PointerY = y;
    Status_Coordinates(x, y);
}

PopUp Board::DrawingBoard_MouseUp(Button button, bool shift, double x, double y) {
    ViewScope view(*this, Views_Only());
    StepScope step(*this, !Views_Only());
    const PopUp popup = active_->Release(button, shift, x, y);
    Ui.CommandFocus = true;
    Show_Prompt();
    return popup;
}

void Board::DrawingBoard_Click() {
    StepScope step(*this, !Views_Only());
    if (LastButton == Button::Left) active_->Click();
}

void Board::DrawingBoard_DblClick() {
    StepScope step(*this, !Views_Only());
    active_->DoubleClick();
}

// ---- Command line ---------------------------------------------------------------

void Board::CommandBox_KeyDown(Key key, const std::string& text) {
    StepScope step(*this);
    active_->Reply(key, text);
}

void Board::Apply_Reply(const CommandLine::ReplyResult& r, void (Board::*pick)()) {
    switch (r.Status) {
        case ReplyStatus::Point:
            Set_CommandText("");
            TypedX = r.TypedX;
            TypedY = r.TypedY;
            TypedPoint = true;
            if (pick != nullptr) (this->*pick)();
            TypedPoint = false;
            break;
        case ReplyStatus::Invalid:
            Set_CommandText(r.BoxText);
            break;
        case ReplyStatus::Failed:
        case ReplyStatus::Done:
            Set_CommandText("");
            break;
        case ReplyStatus::Ignored:
            break;
    }
}

void Board::Press_Typed() { DrawingBoard_MouseDown(Button::Left, false, 0.0, 0.0); }

// ---- Edit commands ----------------------------------------------------------------

// Starting either command ends the band of a move in progress.
void Board::MoveButton_Click() {
    StepScope step(*this);
    Erase_Move_Band();
    Selection::MoveButton_Click(doc_, Sel, editHooks_);
}

void Board::RotateButton_Click() {
    StepScope step(*this);
    Erase_Move_Band();
    Selection::RotateButton_Click(doc_, Sel, editHooks_);
}

void Board::DeleteButton_Click() {
    StepScope step(*this);
    Name_Step("Delete", true);
    Selection::DeleteButton_Click(doc_, !active_->ShowsWorkingDisplay(), editHooks_);
    surface_.Refresh();
}

void Board::ClearButton_Click() {
    StepScope step(*this);
    Name_Step("Delete All", false);
    if (Selection::ClearButton_Click(doc_, !active_->ShowsWorkingDisplay(), editHooks_)) {
        HoverLine = PrevHover = {};
        HoverShown = false;
        Hide_Marks();
    }
    surface_.Refresh();
}

void Board::ClearDimButton_Click() {
    StepScope step(*this);
    Name_Step("Clear Dimensions", false);
    Selection::ClearDimButton_Click(doc_, !active_->ShowsWorkingDisplay(), editHooks_);
    surface_.Refresh();
}

// ---- The view ---------------------------------------------------------------------

void Board::Repaint(bool showSelection) {
    LayoutRender::Repaint(surface_, doc_, showSelection, Yield);
    MoveBandShown = SelectBoxShown = false;
    Drop_Pointer_Feedback();
}

// After a repaint or a change of mode the last pointer test is out of date:
// the view may have moved, or the hovered line been edited. Every line stands
// in its own colour, so no highlight is left to undo, and the Delete key of
// EDIT finds no line until the pointer moves over one again. The snap box,
// the grips and the texts that told of them go with it.
void Board::Drop_Pointer_Feedback() {
    HoverLine.Found = false;
    HoverShown = false;
    auto& m = Ui.Marks;
    m.PickBox.Visible = m.StartBox.Visible = m.MidBox.Visible = m.EndBox.Visible = false;
    Ui.FindingStatus.clear();
    surface_.SetToolTipText("");
}

void Board::RefreshButton_Click() {
    ViewScope step(*this);
    Cancel_Band();
    active_->Redisplay();
}

void Board::Zoom_Done() {
    active_->Zoomed();
    Cancel_Band();
    Show_Prompt();
    surface_.Refresh();
}

void Board::Zoom_Button(float factor) {
    ViewScope step(*this);
    Cancel_Band();
    Viewport::Zoom_Factor(doc_, factor);
    Repaint(true);
    Zoom_Done();
}

void Board::ZoomExtentButton_Click() {
    ViewScope step(*this);
    Cancel_Band();
    if (Viewport::Zoom_Fit(doc_, 0.925f)) Repaint(true);
    Zoom_Done();
}

void Board::Surface_Resized() {
    ViewScope step(*this);
    doc_.ScaleWidth = static_cast<float>(surface_.ScaleWidth());
    doc_.ScaleHeight = static_cast<float>(surface_.ScaleHeight());
    if (Viewport::Lines_Empty(doc_.Lines) && Dimensions::Dims_Empty(doc_.Dims)) Viewport::Set_Viewport(doc_);
    active_->Redisplay();
}

void Board::Show_Document() {
    History.Clear();
    Set_Mode(DRAW);
    Show_Prompt();
    Repaint(true);
}

void Board::Reset_View() {
    History.Clear();
    Set_Mode(DRAW);
    Show_Prompt();
    Viewport::Set_Viewport(doc_);
    doc_.Lines = Layout::BlankLines();
    doc_.Dims = Layout::BlankDims();
    doc_.Intersections = Layout::BlankPoints();
    HoverLine = PrevHover = {};
    HoverShown = false;
    Hide_Marks();
    surface_.Cls();
    MoveBandShown = SelectBoxShown = false;
    surface_.Refresh();
}

// ---- The load panel ---------------------------------------------------------------

const CalculationView::CalcState& Board::Load_Inputs() const { return calculation_->Display(); }

void Board::Show_Results(const weld::SolveResult& run, const weld::LoadedGroup& group) {
    CalculationView::Keep_Results(calculation_->Display().Results, run, group, doc_.Load.LoadSide);
    if (active_ == calculation_) CalculationView::Refresh_Load(*this, calculation_->Display(), 0);
}

const weld::SolveResult* Board::Layout_Results() const {
    const CalculationView::RunResults& r = calculation_->Display().Results;
    return CalculationView::Results_Current(doc_, r) ? &r.Record : nullptr;
}

void Board::Set_Show_Results(bool on) {
    CalculationView::RunResults& r = calculation_->Display().Results;
    if (r.Show == on) return;
    r.Show = on;
    if (active_ == calculation_ && r.Valid) CalculationView::Refresh_Load(*this, calculation_->Display(), 0);
}

bool Board::Apply_Eccentricity(const std::string& text) {
    StepScope step(*this);
    Name_Step("Load Eccentricity", false);
    if (!CalculationView::Apply_Eccentricity(text, doc_.Load, calculation_->Display())) return false;
    active_->Load_Changed();
    return true;
}

bool Board::Apply_Rotation(const std::string& text) {
    StepScope step(*this);
    Name_Step("Load Angle", false);
    if (!CalculationView::Apply_Rotation(text, doc_.Load, calculation_->Display())) return false;
    active_->Load_Changed();
    return true;
}

}  // namespace BoardState

namespace BoardState {

// ---- Undo and redo ---------------------------------------------------------------

void Board::Open_Step() {
    if (History.Pending()) return;
    History.Begin(doc_);
    // A move or rotate under way names the step its last point makes.
    stepNamed_ = false;
    stepVerb_ = Sel.MovePending ? "Move" : Sel.RotatePending ? "Rotate" : "";
    stepCountLines_ = true;
}

void Board::Name_Step(const std::string& verb, bool countLines) {
    stepVerb_ = verb;
    stepCountLines_ = countLines;
    stepNamed_ = true;
}

void Board::Close_Step(bool force) {
    if (!History.Pending() || (!force && active_->Busy())) return;
    if (!stepNamed_ && stepVerb_.empty()) {
        // Draws and dimensions are named by the mode that made them.
        if (active_->Index() == DIMENSION)
            Name_Step("Dimension", false);
        else if (active_->Index() != DRAW)
            Name_Step("Edit", true);
    }
    History.Commit(doc_, stepVerb_, stepCountLines_);
    stepVerb_.clear();
    stepNamed_ = false;
}

bool Board::Undo_Step() {
    if (stepDepth_ > 0) return false;
    if (active_->Busy()) {
        active_->Abandon();
        Close_Step(true);
        Show_Prompt();
        return false;
    }
    Close_Step(true);
    if (!History.Undo(doc_)) return false;
    After_History();
    return true;
}

bool Board::Redo_Step() {
    if (stepDepth_ > 0) return false;
    if (active_->Busy()) active_->Abandon();
    Close_Step(true);
    if (!History.Redo(doc_)) return false;
    After_History();
    return true;
}

// The layout was put back: no line stays selected, no command waits on the
// lines it had, and the board is drawn anew (CALCULATION makes its display
// again).
void Board::After_History() {
    Selection::Clear_Selection(doc_.Lines);
    Sel.MovePending = Sel.RotatePending = Sel.CornerPicked = false;
    Sel.MoveClick = Sel.RotateClick = 0;
    Viewport::Build_Intersections(doc_.Lines, doc_.Intersections, doc_.IntersectionsFound, Yield);
    HoverLine = PrevHover = {};
    HoverShown = false;
    Hide_Marks();
    active_->Redisplay();
    Show_Prompt();
}

void Board::Begin_Change() {
    Close_Step(true);
    History.Begin(doc_);
}

void Board::End_Change(const std::string& name, bool countLines) {
    Name_Step(name, countLines);
    Close_Step(true);
}

}  // namespace BoardState
