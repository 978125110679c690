#include "bolt/core/BoltSolve.h"

#include "bolt/core/BoltElementModel.h"
#include "bolt/core/BoltSolver.h"

namespace bolt {

namespace {

using shell::SolverModel;

SolveResult ByElements(const BoltPattern& g, const BoltLoad& load, bool withForces) {
    BoltElementModel::BoltReport rep =
        load.Couple ? BoltElementModel::BoltGroup_CPrime(g.M, g.N, g.Sv, g.Sh, withForces)
                    : BoltElementModel::BoltGroup_C(g.M, g.N, g.Sv, g.Sh, load.Ex, load.Angle, withForces);
    SolveResult r;
    r.SetElementOutcome(rep.Converged, rep.Refused, rep.Motion, 0.0, 0.0);
    r.Value = rep.Value;
    r.Concentric = rep.Concentric;
    r.Passes = rep.Iterations;
    r.Forces = std::move(rep.Forces);
    return r;
}

SolveResult ByIteration(const BoltPattern& g, const BoltLoad& load, const shell::YieldFn& yield, bool withForces) {
    BoltRunInfo info;
    SolveResult r;
    // C' turns the group about its centroid, with no iteration.
    const std::optional<double> value = load.Couple ? BoltGroup_CPrime(g.M, g.N, g.Sv, g.Sh)
                                                    : BoltGroup_C(g.M, g.N, g.Sv, g.Sh, load.Ex, load.Angle, yield,
                                                                  &info, withForces ? &r.Forces : nullptr);
    r.Model = SolverModel::Iterative;
    r.Refused = !value;
    r.Value = value.value_or(0.0);
    r.Converged = value.has_value();  // the loop ends only when it has converged
    r.Concentric = value && !load.Couple && info.Passes == 0;
    r.CenterAtInfinity = r.Concentric;
    r.Relaxation = info.Relaxation;
    r.Passes = info.Passes;
    r.CenterX = info.CenterX;
    r.CenterY = info.CenterY;
    return r;
}

}  // namespace

SolveResult Solve(const BoltPattern& pattern, const BoltLoad& load, const SolveOptions& options,
                  const shell::YieldFn& yield) {
    if (options.Model == SolverModel::AiscElement) return ByElements(pattern, load, options.WithForces);
    return ByIteration(pattern, load, yield, options.WithForces);
}

std::function<std::optional<double>()> CrossCheck(const BoltPattern& pattern, const BoltLoad& load,
                                                  const SolveOptions& options) {
    const auto other = shell::CrossCheckModel(options.Model);
    if (!other) return {};
    const SolveOptions o{*other, false};
    return [pattern, load, o]() -> std::optional<double> {
        const SolveResult r = Solve(pattern, load, o);
        if (!r.Converged) return std::nullopt;
        return r.Value;
    };
}

}  // namespace bolt
