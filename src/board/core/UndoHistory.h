// Undo and redo of the layout document. Every command that changes the
// lines, the dimensions or the load is one step: the history takes the
// document before the command (Begin) and after it (Commit), and keeps only
// what changed: for each table the run of rows between the unchanged rows at
// its start and at its end, before and after, and the load and the line
// counter. So a step that moves three lines of a large layout costs three
// rows, and Delete All costs the table once.
//
// Zoom and pan are views, not steps, but they rewrite the coordinates the
// rows hold. A step keeps the view it was recorded in; undone or redone in
// another view, its rows are carried through world coordinates into the
// present one. In the view it was recorded in, undo gives back the document
// exactly: every row, every value, the counter the file stores.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "board/core/LayoutDocument.h"

namespace Undo {

class History {
public:
    // The history drops its oldest steps to stay within `budgetBytes`.
    explicit History(size_t budgetBytes = size_t{64} << 20);

    // Before a command that may change the document.
    void Begin(const Layout::LayoutDocument& doc);
    // After it: records the step `name` ("Delete All", "Dimension") when the
    // document changed, and forgets the steps that could be redone. With
    // `countLines` the name is followed by the number of lines the step
    // touched: "Move" gives "Move Line" or "Move 3 Lines", "" gives "Line".
    // A change of the selection alone is no step. Returns whether a step was
    // recorded.
    bool Commit(const Layout::LayoutDocument& doc, const std::string& name, bool countLines = false);
    // A command that did not finish (a rubber band given up): no step.
    void Cancel() { before_.reset(); }
    bool Pending() const { return before_.has_value(); }

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    // "Undo Move 3 Lines", "Redo Line"; "Undo" and "Redo" when there is none.
    std::string UndoText() const;
    std::string RedoText() const;

    // Puts the document back as it was before (or after) the step. The
    // intersections are rebuilt by the caller. False when there is no step.
    bool Undo(Layout::LayoutDocument& doc);
    bool Redo(Layout::LayoutDocument& doc);

    // New and Open start a history of their own.
    void Clear();

    size_t Steps() const { return steps_.size(); }
    // What the steps hold, by the measure the budget is kept in.
    size_t Bytes() const { return bytes_; }

private:
    // The rows [first, first + before.size()) of a table, replaced by `after`.
    template <class Row>
    struct Splice {
        size_t first = 0;
        std::vector<Row> before, after;
    };
    struct View {
        float ZoomBase = 1, ZoomScale = 1, OriginX = 0, OriginY = 0;
        bool operator==(const View&) const = default;
    };
    struct Step {
        std::string name;
        View viewBefore, viewAfter;  // of the rows before and after
        Splice<Layout::LineRec> lines;
        Splice<Layout::DimensionRec> dims;
        Layout::LoadRec loadBefore, loadAfter;
        int16_t counterBefore = 0, counterAfter = 0;
        size_t bytes = 0;
    };

    void Apply(Layout::LayoutDocument& doc, const Step& step, bool forward) const;
    void Trim();

    size_t budget_;
    // What Begin keeps of the document: the tables a step may change, not
    // the crossings or the saved copies.
    struct Before {
        float ZoomBase = 1, ZoomScale = 1, OriginX = 0, OriginY = 0;
        Layout::LineTable Lines;
        std::vector<Layout::DimensionRec> Dims;
        Layout::LoadRec Load;
        int16_t LineCounter = 0;
    };
    std::optional<Before> before_;
    std::deque<Step> steps_;
    size_t done_ = 0;  // steps_[0, done_) are done, the rest can be redone
    size_t bytes_ = 0;
};

}  // namespace Undo
