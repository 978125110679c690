// From the drawing board to the solver: the board's line table and load,
// turned into the solver's weld lines in world inches with the load on the
// right of the group, and solved.
#pragma once

#include <functional>
#include <optional>

#include "board/core/LayoutDocument.h"
#include "weld/core/WeldElementModel.h"
#include "weld/core/InstantaneousCenter.h"

namespace weld {

// Capacity of the board's group for electrode Fexx and weld size D (the
// capacity window passes 1 and 1 and scales the result). Reads doc.Lines,
// doc.Load and the viewport; the document itself is never changed. The run
// is controlled through state and hooks as for Locate_InstantaneousCenter.
double Weld_UnitCapacity(double Fexx, double D, const Layout::LayoutDocument& doc,
                         WeldRunState& state, const WeldRunHooks& hooks,
                         SolveReport* report = nullptr);

// The board's lines as the solvers take them: world inches, moved into the
// positive quadrant, mirrored in x when the load stands on the left.
WeldLineTable Board_WeldLines(const Layout::LayoutDocument& doc, const WeldRunHooks& hooks);

// Capacity of the board's group by the element model, for electrode Fexx and
// weld size D at the given strip (segments per inch). The same hand-over as
// Weld_UnitCapacity; the solve has no run control because it always ends.
WeldElementModel::ElementReport Weld_ElementCapacity(double Fexx, double D,
                                                     const Layout::LayoutDocument& doc,
                                                     int16_t SegmentsPerInch);

// The element model's unit capacity (Fexx = D = 1) of the board's group as
// a call that owns copies of the group and load, for a cross-check solved
// away from the window: empty when the model finds no equilibrium.
std::function<std::optional<double>()> Board_ElementCheck(const Layout::LayoutDocument& doc,
                                                          int16_t SegmentsPerInch);

// Smallest x (or y) of all end points, kept as a single at every step; ok is
// set true at the end. Lets window events run after each line.
float Lines_MinX(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks = {});
float Lines_MinY(const WeldLineTable& lines, bool& ok, const WeldRunHooks& hooks = {});

}  // namespace weld
