#include "board/core/UndoHistory.h"

#include <algorithm>
#include <cstring>

#include "board/core/Viewport.h"

namespace Undo {

namespace {

using Layout::DimensionRec;
using Layout::LayoutDocument;
using Layout::LineRec;
using Layout::LoadRec;
using Layout::PointRec;

// Rows are compared bit for bit: a -0 and a 0 are written differently.
template <class T>
bool Same(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}
bool Same(const PointRec& a, const PointRec& b) { return Same(a.X, b.X) && Same(a.Y, b.Y) && a.Flag == b.Flag; }
bool Same(const LineRec& a, const LineRec& b) {
    return Same(a.EndPt, b.EndPt) && Same(a.StartPt, b.StartPt) && Same(a.MidPt, b.MidPt) && a.Exists == b.Exists &&
           a.Selected == b.Selected && a.LineName == b.LineName && Same(a.Length, b.Length);
}
bool Same(const DimensionRec& a, const DimensionRec& b) {
    return Same(a.DimP1, b.DimP1) && Same(a.DimP2, b.DimP2) && Same(a.DimMid, b.DimMid) && Same(a.DimPos, b.DimPos) &&
           a.DimType == b.DimType && a.DimDone == b.DimDone && Same(a.DimLength, b.DimLength) &&
           a.Exists == b.Exists && a.DimSpare == b.DimSpare;
}
bool Same(const LoadRec& a, const LoadRec& b) {
    return a.LoadSide == b.LoadSide && Same(a.LoadPoint, b.LoadPoint) && Same(a.LoadAngle, b.LoadAngle) &&
           Same(a.LoadEccentricity, b.LoadEccentricity) && a.LoadPlaced == b.LoadPlaced;
}

// The same line but for its selection mark.
bool SameButSelection(const LineRec& a, const LineRec& b) {
    return Same(a.EndPt, b.EndPt) && Same(a.StartPt, b.StartPt) && Same(a.MidPt, b.MidPt) && a.Exists == b.Exists &&
           a.LineName == b.LineName && Same(a.Length, b.Length);
}

size_t ExistingLines(const std::vector<LineRec>& lines) {
    return static_cast<size_t>(std::count_if(lines.begin(), lines.end(), [](const LineRec& r) { return r.Exists != 0; }));
}

// How many lines a splice touched: those it added or removed, or else those
// whose rows it changed other than by their selection mark.
template <class Splice>
size_t LinesTouched(const Splice& s) {
    const size_t before = ExistingLines(s.before), after = ExistingLines(s.after);
    if (before != after) return before > after ? before - after : after - before;
    size_t n = s.before.size() > s.after.size() ? s.before.size() - s.after.size() : s.after.size() - s.before.size();
    for (size_t i = 0; i < std::min(s.before.size(), s.after.size()); ++i)
        if (!SameButSelection(s.before[i], s.after[i])) ++n;
    return n;
}

std::string Named(const std::string& verb, size_t lines) {
    const std::string count = lines == 1 ? "Line" : std::to_string(lines) + " Lines";
    return verb.empty() ? count : verb + " " + count;
}

size_t RowBytes(const LineRec& r) { return sizeof(LineRec) + r.LineName.capacity(); }
size_t RowBytes(const DimensionRec&) { return sizeof(DimensionRec); }

// The run of rows that differs between two tables, between the rows they
// share at the start and at the end.
template <class Row, class Splice>
void Diff(const std::vector<Row>& before, const std::vector<Row>& after, Splice& out, size_t& bytes) {
    const size_t shorter = std::min(before.size(), after.size());
    size_t head = 0;
    while (head < shorter && Same(before[head], after[head])) ++head;
    size_t tail = 0;
    while (tail < shorter - head && Same(before[before.size() - 1 - tail], after[after.size() - 1 - tail])) ++tail;
    out.first = head;
    out.before.assign(before.begin() + static_cast<std::ptrdiff_t>(head),
                      before.end() - static_cast<std::ptrdiff_t>(tail));
    out.after.assign(after.begin() + static_cast<std::ptrdiff_t>(head), after.end() - static_cast<std::ptrdiff_t>(tail));
    for (const Row& r : out.before) bytes += RowBytes(r);
    for (const Row& r : out.after) bytes += RowBytes(r);
}

// A point of a step recorded in one view, carried into the document's.
struct Carry {
    const LayoutDocument& doc;
    LayoutDocument from;  // holds only the recorded view
    void operator()(PointRec& p) const {
        p.X = Viewport::To_BoardX(doc, Viewport::To_WorldX(from, p.X));
        p.Y = Viewport::To_BoardY(doc, Viewport::To_WorldY(from, p.Y));
    }
};

template <class Row>
void Replace(std::vector<Row>& table, size_t first, size_t count, const std::vector<Row>& rows) {
    const auto at = table.begin() + static_cast<std::ptrdiff_t>(first);
    table.erase(at, at + static_cast<std::ptrdiff_t>(count));
    table.insert(table.begin() + static_cast<std::ptrdiff_t>(first), rows.begin(), rows.end());
}

}  // namespace

History::History(size_t budgetBytes) : budget_(budgetBytes) {}

void History::Begin(const LayoutDocument& doc) {
    before_ = Before{doc.ZoomBase, doc.ZoomScale, doc.OriginX, doc.OriginY, doc.Lines, doc.Dims, doc.Load, doc.LineCounter};
}

bool History::Commit(const LayoutDocument& doc, const std::string& name, bool countLines) {
    if (!before_) return false;
    const Before& was = *before_;
    Step step;
    step.name = name;
    step.viewBefore = {was.ZoomBase, was.ZoomScale, was.OriginX, was.OriginY};
    step.viewAfter = {doc.ZoomBase, doc.ZoomScale, doc.OriginX, doc.OriginY};
    Diff(was.Lines, doc.Lines, step.lines, step.bytes);
    Diff(was.Dims, doc.Dims, step.dims, step.bytes);
    step.loadBefore = was.Load;
    step.loadAfter = doc.Load;
    step.counterBefore = was.LineCounter;
    step.counterAfter = doc.LineCounter;
    const size_t touched = LinesTouched(step.lines);
    const bool changed = touched > 0 || !step.dims.before.empty() || !step.dims.after.empty() ||
                         !Same(was.Load, doc.Load) || was.LineCounter != doc.LineCounter;
    before_.reset();
    if (!changed) return false;
    if (countLines) step.name = Named(name, touched);
    step.bytes += sizeof(Step) + step.name.capacity();
    while (steps_.size() > done_) {
        bytes_ -= steps_.back().bytes;
        steps_.pop_back();
    }
    bytes_ += step.bytes;
    steps_.push_back(std::move(step));
    done_ = steps_.size();
    Trim();
    return true;
}

void History::Trim() {
    // The oldest steps go first; the newest always stays.
    while (bytes_ > budget_ && steps_.size() > 1 && done_ > 0) {
        bytes_ -= steps_.front().bytes;
        steps_.pop_front();
        --done_;
    }
}

std::string History::UndoText() const { return CanUndo() ? "Undo " + steps_[done_ - 1].name : "Undo"; }
std::string History::RedoText() const { return CanRedo() ? "Redo " + steps_[done_].name : "Redo"; }

void History::Apply(LayoutDocument& doc, const Step& step, bool forward) const {
    auto lines = forward ? step.lines.after : step.lines.before;
    auto dims = forward ? step.dims.after : step.dims.before;
    LoadRec load = forward ? step.loadAfter : step.loadBefore;
    const View now{doc.ZoomBase, doc.ZoomScale, doc.OriginX, doc.OriginY};
    const View& recorded = forward ? step.viewAfter : step.viewBefore;
    const View& other = forward ? step.viewBefore : step.viewAfter;
    if (!(now == recorded) && now == other) {
        // The step itself changed the view (an import fitted to its lines):
        // taking it back takes the view back too, and the rows need no carrying.
        doc.ZoomBase = recorded.ZoomBase;
        doc.ZoomScale = recorded.ZoomScale;
        doc.OriginX = recorded.OriginX;
        doc.OriginY = recorded.OriginY;
    } else if (!(now == recorded)) {
        Carry carry{doc, {}};
        carry.from.ZoomBase = recorded.ZoomBase;
        carry.from.ZoomScale = recorded.ZoomScale;
        carry.from.OriginX = recorded.OriginX;
        carry.from.OriginY = recorded.OriginY;
        for (LineRec& r : lines) {
            carry(r.EndPt);
            carry(r.StartPt);
            // The middle stays the mean of the ends, as every line's is.
            r.MidPt.X = static_cast<float>((static_cast<double>(r.StartPt.X) + r.EndPt.X) / 2);
            r.MidPt.Y = static_cast<float>((static_cast<double>(r.StartPt.Y) + r.EndPt.Y) / 2);
        }
        for (DimensionRec& d : dims)
            for (PointRec* p : {&d.DimP1, &d.DimP2, &d.DimMid, &d.DimPos}) carry(*p);
        carry(load.LoadPoint);
    }
    const size_t lineCount = (forward ? step.lines.before : step.lines.after).size();
    const size_t dimCount = (forward ? step.dims.before : step.dims.after).size();
    Replace(doc.Lines, step.lines.first, lineCount, lines);
    Replace(doc.Dims, step.dims.first, dimCount, dims);
    doc.Load = load;
    doc.LineCounter = forward ? step.counterAfter : step.counterBefore;
}

bool History::Undo(LayoutDocument& doc) {
    if (!CanUndo()) return false;
    before_.reset();
    Apply(doc, steps_[--done_], false);
    return true;
}

bool History::Redo(LayoutDocument& doc) {
    if (!CanRedo()) return false;
    before_.reset();
    Apply(doc, steps_[done_++], true);
    return true;
}

void History::Clear() {
    steps_.clear();
    done_ = 0;
    bytes_ = 0;
    before_.reset();
}

}  // namespace Undo
