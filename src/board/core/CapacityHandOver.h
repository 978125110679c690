// From the drawing board to the solver: the board's line table and load,
// turned into the solver's weld lines in world inches with the load on the
// right of the group, and solved.
#pragma once

#include "board/core/LayoutDocument.h"
#include "weld/core/WeldSolve.h"

namespace weld {

// The board's lines as the solvers take them: world inches, moved into the
// positive quadrant, mirrored in x when the load stands on the left.
WeldLineTable Board_WeldLines(const Layout::LayoutDocument& doc, const WeldRunHooks& hooks);

// The board's group under the board's load (eccentricity in inches). Reads
// doc.Lines, doc.Load and the viewport; the document itself is never changed.
LoadedGroup Layout_Group(const Layout::LayoutDocument& doc, const WeldRunHooks& hooks = {});

// The capacity of the board's group by weld::Solve (the capacity window
// solves at Fexx = D = 1 and scales the result), the run controlled through
// state and hooks.
SolveResult Solve_Layout(const Layout::LayoutDocument& doc, const SolveOptions& options, WeldRunState& state,
                         const WeldRunHooks& hooks);

// Whether two groups are the same under the same load, to a thousandth of
// an inch: a zoom or a pan of the board keeps a group the same, an edit does not.
bool Same_Group(const LoadedGroup& a, const LoadedGroup& b);

// Smallest x (or y) of all end points, kept as a single at every step; ok is
// set true at the end. Lets window events run after each line.
float Lines_MinX(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks = {});
float Lines_MinY(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks = {});

}  // namespace weld
