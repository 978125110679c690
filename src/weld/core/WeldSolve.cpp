#include "weld/core/WeldSolve.h"

#include "shell/core/GuardedMath.h"
#include "weld/core/WeldElementModel.h"

namespace weld {

namespace {

using shell::SolverModel;

SolveResult ByElements(const LoadedGroup& group, const SolveOptions& options) {
    const WeldElementModel::ElementReport rep = WeldElementModel::Solve(group, options);
    SolveResult r;
    r.SetElementOutcome(rep.Converged, rep.Refused, rep.Motion, rep.CentroidX, rep.CentroidY);
    r.Value = rep.Capacity;
    r.Concentric = rep.Concentric;
    r.Passes = rep.Iterations;
    r.Segments = rep.Elements;
    r.Forces = std::move(rep.Forces);
    return r;
}

SolveResult ByIteration(const LoadedGroup& group, const SolveOptions& options, WeldRunState& run,
                        const WeldRunHooks& hooks) {
    IterationReport rep;
    const double value = Locate_InstantaneousCenter(group, options, run, hooks, &rep);
    SolveResult r;
    r.Model = SolverModel::Iterative;
    r.Value = value;
    r.Converged = rep.Converged;
    r.Concentric = rep.Concentric;
    r.Refused = rep.Refused;
    r.Stopped = run.IterationStop;
    r.Unsettled = rep.Unsettled;
    r.Relaxation = rep.Relaxation;
    r.Passes = rep.Passes;
    r.Segments = rep.Segments;
    r.CenterAtInfinity = rep.Concentric;  // shown at the centroid
    r.CenterX = rep.CenterX;
    r.CenterY = rep.CenterY;
    r.Forces = std::move(rep.Forces);
    return r;
}

// A solve of the same case by the model a result of `options` is checked
// against, giving the value of an equilibrium or nothing.
template <class Case>
CheckFn CrossCheckOf(const Case& c, const SolveOptions& options) {
    const auto other = shell::CrossCheckModel(options.Model);
    if (!other) return {};
    SolveOptions o = options;
    o.Model = *other;
    return [c, o]() -> std::optional<double> {
        const SolveResult r = Solve(c, o);
        if (!r.Converged) return std::nullopt;
        return r.Value;
    };
}

}  // namespace

SolveResult Solve(const LoadedGroup& group, const SolveOptions& options, WeldRunState& run, const WeldRunHooks& hooks) {
    if (options.Model == SolverModel::AiscElement) return ByElements(group, options);
    return ByIteration(group, options, run, hooks);
}

SolveResult Solve(const LoadedGroup& group, const SolveOptions& options) {
    WeldRunState run;
    run.IterationStop = false;
    return Solve(group, options, run, {});
}

SolveResult Solve(const StandardConfig& config, const SolveOptions& options, WeldRunState& run,
                  const WeldRunHooks& hooks) {
    if (!Config_Known(config.Number)) {
        SolveResult none;
        none.Model = options.Model;
        none.Stopped = run.IterationStop;
        return none;
    }
    const ConfigShape shape = Config_Shape(config);
    SolveOptions o = options;
    o.Fexx = 70.0;
    o.D = 0.0625;
    o.DisplayDivisor = shape.Scale;
    SolveResult r = Solve(shape.Group, o, run, hooks);

    // Per inch of scaled base length, per sixteenth of weld. A negative kL
    // turns the shape over and its base length negative: the element model
    // then gives no coefficient, the iteration divides as it always has.
    double perInch = 0.0, c = 0.0;
    if (guarded::Divide(r.Value, shape.BaseLength, perInch)) guarded::Let(c, perInch / 16 / 0.0625);
    if (r.Model == SolverModel::AiscElement && !(shape.BaseLength > 0.0)) c = 0.0;
    r.Value = c;
    if (shape.Scale != 0.0) {
        r.CenterX /= shape.Scale;
        r.CenterY /= shape.Scale;
        for (shell::ElementForce& e : r.Forces) {
            e.X /= shape.Scale;
            e.Y /= shape.Scale;
            e.ArmX /= shape.Scale;
            e.ArmY /= shape.Scale;
        }
    }
    return r;
}

SolveResult Solve(const StandardConfig& config, const SolveOptions& options) {
    WeldRunState run;
    run.IterationStop = false;
    return Solve(config, options, run, {});
}

CheckFn CrossCheck(const LoadedGroup& group, const SolveOptions& options) { return CrossCheckOf(group, options); }

CheckFn CrossCheck(const StandardConfig& config, const SolveOptions& options) { return CrossCheckOf(config, options); }

}  // namespace weld
