// The calculation sheet of a weld group's capacity: the layout drawn to
// scale with its load, center and segment forces, the inputs as the
// capacity window holds them, the capacity for the chosen method and all
// three, the coefficient C, the center, how the run settled, the other
// model's capacity beside it, and a statement of the method.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "board/core/LayoutDocument.h"
#include "shell/core/Sheet.h"
#include "weld/core/WeldSolve.h"

namespace capsheet {

// The capacity window's choices by list index, and the model.
struct Inputs {
    int16_t Electrode = 3;  // E90XX
    int16_t Size = 3;       // 1/4"
    int16_t Method = 0;     // Nominal
    int16_t Strip = 3;      // 1/32"
    shell::SolverModel Model = shell::SolverModel::Iterative;
};

// A converged run at Fexx = D = 1 and the other model's unit capacity
// (empty when it found no equilibrium or did not converge).
struct Run {
    weld::SolveResult Result;
    std::optional<double> Other;
};

// Solves the layout by both models without a window; the iteration stops
// after `maxPasses`. Result.Converged tells whether the sheet can be made.
Run Solve_Both(const Layout::LayoutDocument& doc, const Inputs& in, int64_t maxPasses = 100000);

// The other model's unit capacity for a run already made (the window's).
std::optional<double> Other_Model(const Layout::LayoutDocument& doc, const Inputs& in, int64_t maxPasses = 100000);

sheet::Sheet Capacity_Sheet(const Layout::LayoutDocument& doc, const Inputs& in, const Run& run,
                            const sheet::TitleBlock& title, const std::string& fileName, const std::string& version);

}  // namespace capsheet
