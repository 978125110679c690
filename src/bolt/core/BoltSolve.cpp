#include "bolt/core/BoltSolve.h"

#include "bolt/core/BoltElementModel.h"
#include "bolt/core/BoltSolver.h"
#include "shell/core/Primitives.h"

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

ResultPicture::Outline Pattern_Outline(const BoltPattern& g) {
    ResultPicture::Outline o;
    if (g.M < 1 || g.N < 1 || static_cast<int32_t>(g.M) * g.N > 32767) return o;
    for (int32_t i = 0; i < g.M; ++i)
        for (int32_t j = 0; j < g.N; ++j)
            o.Bolts.push_back({g.Sh * j - g.Sh * (g.N - 1) / 2.0, g.Sv * i - g.Sv * (g.M - 1) / 2.0});
    return o;
}

ResultPicture::Labels Pattern_Labels(const SolveResult& r) {
    if (r.Forces.empty()) return {};
    return {"IC  x = " + prim::Format(r.CenterX, "0.000") + "\"   y = " + prim::Format(r.CenterY, "0.000") + "\"",
            "Max. bolt force = " + prim::Format(ResultPicture::Largest(r), "0.000") + " Rult"};
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
