// The calculation sheet of the weld coefficient window: the standard shape
// drawn with its load, center and segment forces, the inputs L, kL, aL and
// the angle with k and a, the centroid, and C by both models.
#pragma once

#include <optional>
#include <string>

#include "shell/core/Sheet.h"
#include "weld/core/WeldSolve.h"

namespace weld {

// A converged run of a configuration and the other model's C (empty
// without a converged value).
struct CoefficientRun {
    StandardConfig Config;
    SolveOptions Options;
    SolveResult Result;
    std::optional<double> Other;
};

// C of the configuration by the model the run did not use; the iteration
// stops after `maxPasses`.
std::optional<double> Other_Coefficient(const StandardConfig& config, const SolveOptions& options,
                                        int64_t maxPasses = 100000);

sheet::Sheet Coefficient_Sheet(const CoefficientRun& run, const sheet::TitleBlock& title, const std::string& version);

}  // namespace weld
