// From the drawing board to the solver: the board's line table and load,
// turned into the solver's weld lines in world inches with the load on the
// right of the group, and solved.
#pragma once

#include "board/PublicVariables.h"
#include "weld/WeldFunctions.h"

namespace WeldFunctions {

// Capacity of the board's group for electrode Fexx and weld size D (the
// capacity window passes 1 and 1 and scales the result). Reads doc.Lines,
// doc.Load and the viewport; the document itself is never changed. The run
// is controlled through state and hooks as for Locate_InstantaneousCenter.
double Weld_UnitCapacity(double Fexx, double D, const PublicVariables::LayoutDocument& doc,
                         WeldRunState& state, const WeldRunHooks& hooks,
                         SolveReport* report = nullptr);

// Smallest x (or y) of all end points, kept as a single at every step; ok is
// set true at the end. Lets window events run after each line.
float Lines_MinX(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks = {});
float Lines_MinY(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks = {});

}  // namespace WeldFunctions
