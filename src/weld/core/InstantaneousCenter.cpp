#include "weld/core/InstantaneousCenter.h"

#include <algorithm>
#include <cmath>

#include "shell/core/GuardedMath.h"
#include "shell/core/Primitives.h"

namespace weld {

namespace {

// A statement whose result is not a finite number (overflow, division by
// zero, a power with no real value) is skipped: the target keeps its value.
using guarded::Let;
// Guarded division for the places where the quotient feeds a function that
// would hide a division by zero (arctangent of an infinite ratio).
constexpr auto Div = guarded::Divide;

inline void YieldNow(const WeldRunHooks& hooks) { shell::YieldNow(hooks.Yield); }

inline void SwapEnds(WeldLineRec& ln) {
    std::swap(ln.x1, ln.x2);
    std::swap(ln.y1, ln.y2);
}

constexpr double kHalfPi = kPi / 2;
constexpr int32_t kMaxRows = 32767;  // 16-bit table indices

}  // namespace

double LineAngle(const WeldLineRec& line) {
    if (line.x1 == line.x2) return kHalfPi;
    if (line.y1 == line.y2) return 0.0;
    double result = 0.0;
    double q = 0.0;
    if (line.x1 >= line.x2) {
        if (Div(line.y1 - line.y2, line.x1 - line.x2, q)) result = std::atan(q);
    } else {
        if (Div(line.y2 - line.y1, line.x2 - line.x1, q)) result = std::atan(q);
    }
    return result;
}

double LineSlope(double x1, double y1, double x2, double y2) {
    // A vertical line divides by zero; the slope then stays 0.
    double result = 0.0;
    if (x1 >= x2)
        Div(y1 - y2, x1 - x2, result);
    else
        Div(y2 - y1, x2 - x1, result);
    return result;
}

void Prepare_WeldLines(WeldLineTable& lines, int16_t segmentsPerInch, const WeldRunHooks& hooks) {
    WeldLineTable kept;
    kept.reserve(lines.size());
    for (WeldLineRec& ln : lines) {
        const double angle = LineAngle(ln);
        if (angle != kHalfPi) {
            if (ln.x1 > ln.x2) SwapEnds(ln);
        } else {
            if (ln.y1 > ln.y2) SwapEnds(ln);
        }
        const double len = ExactLength(ln);
        // This procedure has no skip rule: a failing step abandons it, leaving
        // the lines sorted so far and the old table in force.
        if (!std::isfinite(len) || segmentsPerInch == 0) return;
        if (1.0 / segmentsPerInch < len) kept.push_back(ln);
        YieldNow(hooks);
    }
    // Trimming the new table to no rows fails: the old table then stays.
    if (!kept.empty()) lines = std::move(kept);
}

double Total_WeldLength(const WeldLineTable& lines) {
    double total = 0.0;
    for (const WeldLineRec& ln : lines) Let(total, total + ExactLength(ln));
    return total;
}

namespace {

// Build_Segments; without withDeltaM the segments' DeltaM stays 0, for the
// solver, which takes the largest Dm of a pass from the least angle instead.
void BuildSegments(const WeldLineTable& lines, double xo, double yo, WeldSegmentTable& segments, double D,
                   int16_t segmentsPerInch, const WeldRunHooks& hooks, bool withDeltaM) {
    segments.clear();  // keeps the storage of the previous pass

    // Locals of one call: a skipped statement leaves the value of the
    // previous segment (or line) in place.
    int32_t Lr = 0, n = 0;
    double SegLength = 0.0, stepX = 0.0, stepY = 0.0;
    double dX = 0.0, dY = 0.0, r = 0.0, Phi = 0.0, Theta = 0.0, m = 0.0;
    double thetaDeg = 0.0, DeltaM = 0.0, DeltaU = 0.0, DeltaUOverR = 0.0, q = 0.0;

    const double spi = segmentsPerInch;
    for (size_t i = 0; i < lines.size(); ++i) {
        const WeldLineRec& ln = lines[i];
        const double len = ExactLength(ln);

        // The segment count comes from the length rounded to whole inches
        // (ties to even); the spacing below comes from the true length.
        prim::ToInt32(len, Lr);
        double perSeg = 0.0;
        if (Div(1.0, spi, perSeg) && Div(static_cast<double>(Lr), perSeg, q))
            prim::ToInt32(prim::Fix(q), n);
        Div(static_cast<double>(Lr), static_cast<double>(n), SegLength);
        Div(std::fabs(ln.x2 - ln.x1), static_cast<double>(n), stepX);
        Div(std::fabs(ln.y2 - ln.y1), static_cast<double>(n), stepY);
        const double xLow = MinOf({ln.x1, ln.x2});
        const double yLow = MinOf({ln.y1, ln.y2});

        const bool horizontal = ln.Angle == 0.0;
        const bool vertical = !horizontal && ln.Angle == kHalfPi;
        // Inclined lines step y by Sgn(Slope) from the lower y: for a negative
        // slope the segments lie on a parallel below the line by its rise.
        const double slopeSign = prim::Sgn(ln.Slope);
        const int16_t lineNo = static_cast<int16_t>(i + 1);

        for (int32_t j = 0; j < n; ++j) {
            const double t = (j + 0.5);
            if (horizontal) {
                Let(dX, t * stepX + xLow - xo);
                Let(dY, ln.y1 - yo);
            } else if (vertical) {
                Let(dY, t * stepY + yLow - yo);
                Let(dX, ln.x1 - xo);
            } else {
                Let(dX, t * stepX + xLow - xo);
                Let(dY, t * stepY * slopeSign + yLow - yo);
            }
            Let(r, std::sqrt(dY * dY + dX * dX));
            if (r == 0.0) {
                // The midpoint is the trial center: no part in this pass.
                YieldNow(hooks);
                continue;
            }

            if (horizontal) {
                if (dX == 0.0)
                    Phi = kHalfPi;
                else if (Div(dY, dX, q))
                    Phi = std::fabs(std::atan(q));
                Theta = kHalfPi - Phi;
            } else if (vertical) {
                if (dX == 0.0)
                    Phi = kHalfPi;
                else if (Div(dY, dX, q))
                    Phi = std::atan(std::fabs(q));
                Theta = Phi;
            } else {
                if (Div(dY, dX, q)) Phi = std::atan(q);
                // m is the slope of the force; with dY = 0 it cannot be formed
                // and Theta keeps its previous value.
                if (Div(-dX, dY, m)) {
                    if (Div(ln.Slope - m, 1 + m * ln.Slope, q)) Theta = std::fabs(std::atan(q));
                }
            }
            Theta = MinOf({Theta, kPi - Theta});
            thetaDeg = Degrees(Theta);
            if (withDeltaM) Let(DeltaM, 0.209 * D * std::pow(thetaDeg + 2, -0.32));
            if (Let(q, 1.087 * std::pow(thetaDeg + 6, -0.65))) Let(DeltaU, MinOf({q, 0.17}) * D);
            Let(DeltaUOverR, DeltaU / r);

            WeldSegmentRec& s = segments.emplace_back();
            s.r = r;
            s.Phi = Phi;
            s.DeltaM = DeltaM;
            s.LineAngle = ln.Angle;
            s.LineNo = lineNo;
            s.Theta = Theta;
            s.SegLength = SegLength;
            s.DeltaU = DeltaU;
            s.DeltaUOverR = DeltaUOverR;
            s.dX = dX;
            s.dY = dY;
            YieldNow(hooks);
        }
        YieldNow(hooks);
    }
    // The table always holds one row: a group without segments keeps one
    // all-zero row.
    if (segments.empty()) segments.emplace_back();
}

// The largest DeltaM of a pass, 0.209 D (thetaDeg + 2)^-0.32 over the
// segments, 0 for the all-zero row of a group without segments. The power
// falls as theta grows, so the largest Dm stands at the least angle (at the
// greatest for a negative D): only the few segments whose (thetaDeg + 2) lies
// within a relative 1e-12 of that extreme can hold it. Every other segment's
// power differs by far more than the power's own rounding, so one power (two
// for a twin) gives the very value the largest of all the powers would.
double LargestDeltaM(const WeldSegmentTable& segments, double D) {
    const bool least = !(D < 0);
    double extreme = 0.0;
    bool any = false;
    for (const WeldSegmentRec& s : segments) {
        if (s.r == 0.0) continue;  // the all-zero row
        const double t = Degrees(s.Theta) + 2;
        if (!any || (least ? t < extreme : t > extreme)) extreme = t;
        any = true;
    }
    double largest = 0.0;
    if (!any) return largest;
    const double band = extreme * 1e-12;
    bool first = true;
    for (const WeldSegmentRec& s : segments) {
        const double t = Degrees(s.Theta) + 2;
        if (s.r == 0.0 || (least ? t > extreme + band : t < extreme - band)) continue;
        double dm = 0.0;
        // A value that fails leaves the segment's DeltaM at 0, as the skip rule would.
        Let(dm, 0.209 * D * std::pow(t, -0.32));
        largest = first ? dm : MaxOf({largest, dm});
        first = false;
    }
    return largest;
}

// The force of one segment in a pass whose critical ratio and largest Dm are
// given, as the pass sums it; false when a step fails and the pass skipped it.
bool SegmentForce(const WeldSegmentRec& s, double RatioCrit, double DeltaMMax, double Fexx, double D, double& R) {
    double p = 0.0, f = 0.0;
    return Div(RatioCrit * s.r, DeltaMMax, p) && Let(f, std::pow((1.9 - 0.9 * p) * p, 0.3)) &&
           Let(R, (0.6 * Fexx) * (1 + 0.5 * std::pow(std::sin(s.Theta), 1.5)) * f * (s.SegLength * 0.707106781 * D));
}

// The forces of the last pass's segments, turned back into the group's own
// axes (the pass's center at (cx, cy) there). A segment pushes at right
// angles to its radius, in the sense the load turns the group; `given` maps
// each prepared line to its index in the group as given.
std::vector<shell::ElementForce> PassForces(const WeldLineTable& lines, const WeldSegmentTable& segs, double RatioCrit,
                                            double DeltaMMax, double Fexx, double D, double sgn, double cosNegA,
                                            double sinNegA, double cx, double cy, const std::vector<int32_t>& given) {
    auto back = [&](double x, double y, double& gx, double& gy) {
        gx = x * sgn * cosNegA - y * sinNegA;
        gy = x * sgn * sinNegA + y * cosNegA;
    };
    std::vector<shell::ElementForce> out;
    out.reserve(segs.size());
    for (const WeldSegmentRec& s : segs) {
        double R = 0.0;
        if (s.r == 0.0 || !SegmentForce(s, RatioCrit, DeltaMMax, Fexx, D, R)) continue;
        shell::ElementForce e;
        back(s.dX, s.dY, e.ArmX, e.ArmY);
        e.ArmX += cx;
        e.ArmY += cy;
        // A falling inclined line had its segments laid below it by its rise.
        const size_t line = static_cast<size_t>(s.LineNo - 1);
        double rise = 0.0;
        if (line < lines.size() && s.LineAngle != 0.0 && s.LineAngle != kHalfPi && lines[line].Slope < 0)
            rise = std::fabs(lines[line].y2 - lines[line].y1);
        back(s.dX, s.dY + rise, e.X, e.Y);
        e.X += cx;
        e.Y += cy;
        back(-s.dY / s.r, s.dX / s.r, e.DirX, e.DirY);
        e.Force = R;
        e.Length = s.SegLength;
        e.Line = line < given.size() ? given[line] : s.LineNo - 1;
        e.Theta = Degrees(s.Theta);
        if (s.DeltaU != 0.0) e.Deformation = RatioCrit * s.r / s.DeltaU;
        out.push_back(e);
    }
    return out;
}

// The index in the group as given of every line that Prepare_WeldLines kept:
// it drops the lines not longer than one segment, unless it dropped them all.
std::vector<int32_t> GivenIndex(const WeldLineTable& given, size_t kept, int16_t spi) {
    std::vector<int32_t> index;
    for (size_t i = 0; i < given.size(); ++i)
        if (kept == given.size() || 1.0 / spi < ExactLength(given[i])) index.push_back(static_cast<int32_t>(i));
    return index;
}

}  // namespace

void Build_Segments(const WeldLineTable& lines, double xo, double yo, WeldSegmentTable& segments, double D,
                    int16_t segmentsPerInch, const WeldRunHooks& hooks) {
    BuildSegments(lines, xo, yo, segments, D, segmentsPerInch, hooks, true);
}

double ConcentricCapacity(const WeldLineTable& lines, double Fexx, double D) {
    double sum = 0.0, t = 0.0, l = 0.0;
    for (const WeldLineRec& ln : lines) {
        Let(t, kHalfPi - std::fabs(ln.Angle));
        t = MinOf({t, kPi - t});
        Let(l, ExactLength(ln));
        // The exact length and the exact throat factor, unlike the iteration.
        Let(sum, sum + (1 + 0.5 * std::pow(std::sin(t), 1.5)) *
                           (0.6 * Fexx * std::sqrt(2.0) / 2 * D * l));
    }
    return sum;
}

double Locate_InstantaneousCenter(const LoadedGroup& group, const SolveOptions& options, WeldRunState& state,
                                  const WeldRunHooks& hooks, IterationReport* report) {
    IterationReport scratch;
    IterationReport& rep = report ? *report : scratch;
    rep = IterationReport{};

    const double ex = group.Ex, angle = group.Angle, Fexx = options.Fexx, D = options.D;
    const int16_t spi = options.SegmentsPerInch;
    state.IterationStartTime = WeldRunState::Clock::now();
    state.DisplayClearTime = state.IterationStartTime;
    state.DisplayClearCount = 0;

    using ForcesFn = std::function<std::vector<shell::ElementForce>()>;
    auto show = [&](double x, double y, bool computed, ForcesFn forces = {}) {
        if (hooks.Display)
            hooks.Display(PassShown{rep.Passes, x, y, options.DisplayDivisor, angle, computed, std::move(forces)});
    };

    double a = 0.0, armEx = 0.0;
    Let(a, Radians(angle));
    const double cosA = std::cos(a);
    const double sinA = std::sin(a);
    Let(armEx, std::fabs(cosA * ex));
    const double sgn = prim::Sgn(cosA) == -1 ? -1.0 : 1.0;

    WeldLineTable work = group.Lines;
    Prepare_WeldLines(work, spi, hooks);
    (void)Total_WeldLength(work);  // computed as the solve always did; not used
    if (work.size() > static_cast<size_t>(kMaxRows)) {
        rep.Refused = true;
        return 0.0;
    }

    // Centroid by exact lengths; lines that will get no segments count too.
    double SumL = 0.0, SumLX = 0.0, SumLY = 0.0, l = 0.0, Cx = 0.0, Cy = 0.0;
    for (const WeldLineRec& ln : work) {
        Let(l, ExactLength(ln));
        Let(SumL, SumL + l);
        Let(SumLX, SumLX + (ln.x2 + ln.x1) * l / 2);
        Let(SumLY, SumLY + (ln.y2 + ln.y1) * l / 2);
        YieldNow(hooks);
    }
    Div(SumLX, SumL, Cx);
    Div(SumLY, SumL, Cy);

    for (WeldLineRec& ln : work) {
        Let(ln.x1, ln.x1 - Cx);
        Let(ln.x2, ln.x2 - Cx);
        Let(ln.y1, ln.y1 - Cy);
        Let(ln.y2, ln.y2 - Cy);
        YieldNow(hooks);
    }

    // Rotate so that the load runs along +y; sgn flips x so that the load
    // stays on the +x side for angles between 90 and 270 degrees.
    for (WeldLineRec& ln : work) {
        double tx = ln.x1, ty = ln.y1;
        Let(tx, (ln.x1 * cosA - ln.y1 * sinA) * sgn);
        Let(ty, ln.x1 * sinA + ln.y1 * cosA);
        ln.x1 = tx;
        ln.y1 = ty;
        tx = ln.x2;
        ty = ln.y2;
        Let(tx, (ln.x2 * cosA - ln.y2 * sinA) * sgn);
        Let(ty, ln.x2 * sinA + ln.y2 * cosA);
        ln.x2 = tx;
        ln.y2 = ty;
        ln.Angle = LineAngle(ln);
        ln.Slope = LineSlope(ln.x1, ln.y1, ln.x2, ln.y2);
        YieldNow(hooks);
    }

    if (armEx == 0.0) {
        // The load passes through the centroid: nothing to iterate.
        const double capacity = ConcentricCapacity(work, Fexx, D);
        show(0.0, 0.0, false);
        rep.Concentric = true;
        rep.Converged = true;
        return capacity;
    }

    // The counters of the segment table are 16-bit: refuse a group that
    // could exceed them rather than run with undefined sums.
    double bound = 0.0;
    for (const WeldLineRec& ln : work) bound += prim::RoundEven(ExactLength(ln)) * spi;
    if (!(bound <= kMaxRows)) {
        rep.Refused = true;
        return 0.0;
    }

    double xo = 0.0, yo = 0.0;
    if (state.IterationResume) xo = state.ResumeCenterX;  // only x survives a stop

    // Locals of the solve: they keep their values from pass to pass, which
    // the skip rule relies on (Pm and kCorr of the previous pass).
    double Pm = 0.0, SumM = 0.0, SumFx = 0.0, SumFy = 0.0, SumR2 = 0.0;
    double dP = 0.0, dF = 0.0, kCorr = 0.0, RatioCrit = 0.0, DeltaMMax = 0.0;
    double Delta = 0.0, p = 0.0, f = 0.0, R = 0.0, xR = 0.0, yR = 0.0, q = 0.0;
    int16_t n = 0;
    const double cosNegA = std::cos(-a);
    const double sinNegA = std::sin(-a);

    WeldSegmentTable segs;
    segs.reserve(static_cast<size_t>(bound) + 1);
    // The forces of the pass just run, for the display and the result.
    const std::vector<int32_t> given =
        options.WithForces ? GivenIndex(group.Lines, work.size(), spi) : std::vector<int32_t>{};
    auto passForces = [&] {
        return PassForces(work, segs, RatioCrit, DeltaMMax, Fexx, D, sgn, cosNegA, sinNegA, xR, yR, given);
    };
    auto forcesShown = [&]() -> ForcesFn { return options.WithForces ? ForcesFn(passForces) : ForcesFn(); };
    shell::Settling settling(kWeldSettling);

    for (;;) {
        // Read only here: a pass that has begun is finished.
        if (state.IterationStop) {
            state.ResumeCenterX = xo;
            break;
        }

        BuildSegments(work, xo, yo, segs, D, spi, hooks, false);
        n = static_cast<int16_t>(segs.size());

        for (size_t k = 0; k < segs.size(); ++k) {
            if (k == 0)
                RatioCrit = segs[0].DeltaUOverR;
            else
                RatioCrit = MinOf({RatioCrit, segs[k].DeltaUOverR});
            YieldNow(hooks);
        }
        DeltaMMax = LargestDeltaM(segs, D);

        SumM = 0.0;
        SumFy = 0.0;
        SumFx = 0.0;
        SumR2 = 0.0;
        for (const WeldSegmentRec& s : segs) {
            Let(Delta, RatioCrit * s.r);
            // One DeltaMMax serves the whole pass, and p is not clipped.
            Div(Delta, DeltaMMax, p);
            Let(f, std::pow((1.9 - 0.9 * p) * p, 0.3));
            Let(R, (0.6 * Fexx) * (1 + 0.5 * std::pow(std::sin(s.Theta), 1.5)) * f *
                       (s.SegLength * 0.707106781 * D));
            Let(SumR2, SumR2 + s.r * s.r);
            Let(SumM, SumM + R * s.r);
            if (Div(s.dX, s.r, q)) Let(SumFy, SumFy + q * R);
            if (Div(s.dY, s.r, q)) Let(SumFx, SumFx + q * R);
            YieldNow(hooks);
        }

        Div(SumM, armEx - xo, Pm);
        dF = -SumFx;
        Let(dP, Pm - SumFy);

        // This pass's center in the group's own axes, before its correction.
        Let(xR, xo * sgn * cosNegA - yo * sinNegA);
        Let(yR, xo * sgn * sinNegA + yo * cosNegA);
        ++rep.Passes;
        rep.CenterX = xR;
        rep.CenterY = yR;
        rep.Segments = n;
        show(xR, yR, true, forcesShown());

        Div(SumR2, n * SumM, kCorr);
        // The factor is exactly 1 until the run swings into a cycle.
        settling.Observe(xo, yo, dP, dF);
        const double k = settling.Factor();
        Let(xo, xo - dP * kCorr * k);
        Let(yo, yo - dF * kCorr * k);

        if (std::fabs(dP) <= 0.00001 && std::fabs(dF) <= 0.00001) {
            rep.Converged = true;
            break;
        }
        if (settling.GaveUp()) {
            rep.Unsettled = true;
            state.ResumeCenterX = xo;
            break;
        }
        YieldNow(hooks);
    }
    rep.Relaxation = settling.Factor();
    if (options.WithForces && rep.Passes > 0) rep.Forces = passForces();

    show(xR, yR, true, rep.Passes > 0 ? forcesShown() : ForcesFn());
    double capacity = 0.0;
    Let(capacity, (Pm + SumFy) / 2);
    return capacity;
}

std::string Format_ElapsedTime(double seconds) {
    const double hours = prim::Fix(seconds / 3600);
    const double minutes = (seconds / 60 / 60 - prim::Fix(seconds / 60 / 60)) * 60;
    const double secs = (seconds / 60 - prim::Fix(seconds / 60)) * 60;
    return prim::Format(hours, "00") + "h:" + prim::Format(minutes, "00") + "m:" +
           prim::Format(secs, "00") + "s ";
}

}  // namespace weld
