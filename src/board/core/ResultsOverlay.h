// The results of the last capacity run over the calculation display: the
// instantaneous center, the force on each segment and the legend, drawn by
// the one result painter (shell/core/ResultPicture) at the group's place on
// the board, and the tool tip of a segment under the pointer. The picture
// belongs to the run that made it: once the lines or the load differ from
// that run's, it is dropped.
#pragma once

#include <string>

#include "board/core/DrawSurface.h"
#include "board/core/LayoutDocument.h"
#include "shell/core/ResultPicture.h"
#include "weld/core/WeldSolve.h"

namespace CalculationView {

struct RunResults {
    bool Valid = false;  // a converged run's forces are kept
    bool Show = true;    // the View menu's "Show Results"
    weld::SolveResult Record;
    weld::LoadedGroup Group;         // what the run solved: the board's lines and load then
    int16_t LoadSide = 1;            // the load's side then (the solver saw a left load mirrored)
    ResultPicture::Placement Where;  // where the picture was drawn last
    bool Drawn = false;              // it stands on the display now
};

// Keeps the forces of a converged run (with forces) of `group`, the board's
// group under its load as Layout_Group gives it; anything else is dropped.
void Keep_Results(RunResults& r, const weld::SolveResult& run, const weld::LoadedGroup& group, int16_t loadSide);
// Whether the board's lines and load are still those of the run (to a
// thousandth of an inch, which zooming and panning keep).
bool Results_Current(const Layout::LayoutDocument& doc, const RunResults& r);
// Draws the results over the calculation display whose center of gravity
// stands at (cx, cy), when they are kept, current and shown; drops them
// when they are no longer current.
void Draw_Run_Results(board::DrawSurface& s, const Layout::LayoutDocument& doc, double cx, double cy, RunResults& r);
// The texts of the center's mark (feet and inches from the center of
// gravity, as the board shows the group) and of the legend, for a run whose
// load stood on `loadSide`.
ResultPicture::Labels Results_Labels(const shell::SolveRecord& run, int16_t loadSide);
// The tool tip of the segment under (x, y) on the display: its line's name,
// its force in kips and kips per inch, its angle to the weld and its share of
// the ultimate deformation; empty away from any segment.
std::string Results_ToolTip(const Layout::LayoutDocument& doc, const RunResults& r, double x, double y);

}  // namespace CalculationView
