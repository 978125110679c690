// The calculation sheet of the bolt coefficient window: for each chosen row,
// the bolt pattern drawn with its load, center and the force on each bolt,
// and C and C' by the window's model with the other model's C beside them.
#pragma once

#include <string>
#include <vector>

#include "bolt/core/BoltSolve.h"
#include "shell/core/Sheet.h"

namespace bolt {

struct SheetCase {
    BoltPattern Pattern;
    BoltLoad Load;  // eccentricity and angle (never the couple)
};

// Solves every case by both models and lays them out, one figure each.
sheet::Sheet Bolt_Sheet(const std::vector<SheetCase>& cases, shell::SolverModel model, const sheet::TitleBlock& title,
                        const std::string& version);

}  // namespace bolt
