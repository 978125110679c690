// A weld group drawn for a calculation sheet: its lines with their lengths
// and angles, the centroid's axes, the load's arrow with its angle and the
// dimension of its eccentricity, and of a run the instantaneous center and
// the force on each segment as an arrow in proportion to it.
#pragma once

#include <string>
#include <vector>

#include "shell/core/Sheet.h"
#include "shell/core/SolveRecord.h"
#include "weld/core/WeldGroup.h"

namespace weld {

struct FigureLoad {
    bool Left = false;   // the load stands left of the group (the solver saw it mirrored)
    double Ex = 0.0;     // inches from the centroid
    double Angle = 0.0;  // degrees from the vertical, turning away from the group
};

// `lines` in inches, Y up; `names` (may be empty) label them. A run's center
// and forces are in the group's axes from its centroid, mirrored in x for a
// load on the left, as the solver gives them.
// With `lengths` false the lines carry their names only. The run's center
// and forces are drawn by the result painter of the screen (ResultPicture),
// with a legend of the largest force in `legendUnit` (none when empty).
sheet::Figure Group_Figure(const WeldLineTable& lines, const std::vector<std::string>& names, const FigureLoad& load,
                           const shell::SolveRecord* run, bool lengths = true, const std::string& legendUnit = "");

// "1'-6\"" for 18 inches: feet and inches to a sixteenth.
std::string Inches_Text(double inches);

}  // namespace weld
