#include "weld/core/WeldConfigurations.h"

#include <cmath>

#include "shell/core/GuardedMath.h"
#include "shell/core/MathUtil.h"

namespace weld {

namespace {

using guarded::Let;
constexpr auto Div = guarded::Divide;

// The scaled lengths of a configuration (configuration 1 with kL = 0).
struct Scaled {
    double s = 0.0, L = 0.0, kL = 0.0;
};
Scaled ScaleOf(int16_t config, double L, double kL) {
    if (config == 1) kL = 0.0;
    Scaled r;
    r.s = Config_Scale(L, kL);
    r.L = L;
    r.kL = kL;
    Let(r.L, r.s * L);
    Let(r.kL, r.s * kL);
    return r;
}

// The centroid along one axis (the two coordinates of that axis) by exact line lengths.
double CentroidAlong(const WeldLineTable& lines, double WeldLineRec::*a, double WeldLineRec::*b) {
    double sumL = 0.0, sumLA = 0.0, result = 0.0;
    for (const WeldLineRec& ln : lines) {
        const double l = ExactLength(ln);
        Let(sumL, sumL + l);
        Let(sumLA, sumLA + (ln.*a + ln.*b) * l / 2);
    }
    Div(sumLA, sumL, result);
    return result;
}

}  // namespace

WeldLineTable Config_Lines(int16_t config, double L, double kL) {
    auto line = [](double x1, double y1, double x2, double y2) { return WeldLineRec{x1, y1, x2, y2}; };
    if (config >= 6 && config <= 9 && kL == 0.0) return {line(0, 0, 0, L)};
    switch (config) {
        case 1:
            return {line(0, 0, 0, L), line(0, 0, 0, L)};
        case 2:
            return {line(0, 0, 0, L), line(kL, 0, kL, L)};
        case 3:
            return {line(0, 0, L, 0), line(0, kL, L, kL)};
        case 4:
            return {line(0, 0, kL, 0), line(kL, 0, kL, L), line(0, L, kL, L), line(0, 0, 0, L)};
        case 5:
            return {line(0, 0, L, 0), line(L, 0, L, kL), line(0, kL, L, kL), line(0, 0, 0, kL)};
        case 6:
            return {line(0, 0, kL, 0), line(0, 0, 0, L), line(0, L, kL, L)};
        case 7:
            return {line(0, 0, kL, 0), line(kL, 0, kL, L), line(0, L, kL, L)};
        case 8:
            return {line(0, 0, 0, L), line(0, L, kL, L)};
        case 9:
            return {line(0, L, kL, L), line(kL, 0, kL, L)};
        default:
            return {};
    }
}

double Config_Scale(double L, double kL) {
    // Line lengths are rounded to whole inches for the segment count, so the
    // shortest given length is brought to at least one inch.
    double s = 0.0;
    if (kL == 0.0) {
        if (L > 1)
            s = 1.0;
        else
            Div(1.0, L, s);
    } else {
        Div(1.0, shell::MinOf({L, kL}), s);
    }
    return s;
}

bool Config_Known(int16_t config) { return config >= 1 && config <= kConfigurations; }

ConfigShape Config_Shape(const StandardConfig& c) {
    const Scaled k = ScaleOf(c.Number, c.L, c.kL);
    ConfigShape shape;
    shape.Scale = k.s;
    shape.BaseLength = k.L;
    shape.Group.Lines = Config_Lines(c.Number, k.L, k.kL);
    Let(shape.Group.Ex, std::fabs(c.aL) * k.s);
    shape.Group.Angle = c.Angle;
    return shape;
}

double Config_xL(int16_t config, double L, double kL) {
    if (!Config_Known(config)) return 0.0;
    const Scaled k = ScaleOf(config, L, kL);
    double v = Centroid_X(Config_Lines(config, k.L, k.kL)), result = 0.0;
    if (config == 7 || config == 9) v = k.kL - v;  // from the back on the right
    Div(v, k.s, result);
    return result;
}

double Config_yL(int16_t config, double L, double kL) {
    if (!Config_Known(config)) return 0.0;
    const Scaled k = ScaleOf(config, L, kL);
    const WeldLineTable lines = Config_Lines(config, k.L, k.kL);
    const double v = (config == 8 || config == 9) ? Centroid_FromTop(lines) : Centroid_Y(lines);
    double result = 0.0;
    Div(v, k.s, result);
    return result;
}

double Centroid_X(const WeldLineTable& lines) { return CentroidAlong(lines, &WeldLineRec::x1, &WeldLineRec::x2); }

double Centroid_Y(const WeldLineTable& lines) { return CentroidAlong(lines, &WeldLineRec::y1, &WeldLineRec::y2); }

double Centroid_FromTop(const WeldLineTable& lines) {
    double lowY = 0.0;
    double highY = lines.empty() ? 0.0 : lines.front().y1;
    for (const WeldLineRec& ln : lines) {
        lowY = shell::MinOf({lowY, ln.y1, ln.y2});
        highY = shell::MaxOf({highY, ln.y1, ln.y2});
    }
    return (highY - lowY) - Centroid_Y(lines);
}

bool Centroid_IsMidpointX(int16_t config) { return config >= 1 && config <= 5; }

bool Centroid_IsMidpointY(int16_t config) { return config >= 1 && config <= 7; }

}  // namespace weld
