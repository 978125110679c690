#include "weld/core/WeldPicture.h"

#include <algorithm>
#include <cmath>

#include "shell/core/MathUtil.h"
#include "weld/core/WeldConfigurations.h"

namespace WeldPicture {

namespace {

// Where the L and kL dimensions go for each configuration: the measured
// points in units of L, and the side that keeps them off the welds. They
// stand left of and above the shape; the arm aL is measured below it.
void AddDimensions(Model& m, int16_t config, double k) {
    const Point o{0, 0};
    const Point up{0, 1};
    switch (config) {
        case 1:
            m.dims.push_back({o, up, Side::Left, "L"});
            break;
        case 2:
        case 4:
            m.dims.push_back({o, up, Side::Left, "L"});
            if (k > 0) m.dims.push_back({up, {k, 1}, Side::Above, "kL"});
            break;
        case 3:
        case 5:
            m.dims.push_back({{0, k}, {1, k}, Side::Above, "L"});
            if (k > 0) m.dims.push_back({o, {0, k}, Side::Left, "kL"});
            break;
        case 6:
        case 7:
        case 8:
            m.dims.push_back({o, up, Side::Left, "L"});
            if (k > 0) m.dims.push_back({up, {k, 1}, Side::Above, "kL"});
            break;
        case 9:
            // The only vertical stands at the right end of the top leg.
            m.dims.push_back({{k, 0}, {k, 1}, k > 0 ? Side::Right : Side::Left, "L"});
            if (k > 0) m.dims.push_back({up, {k, 1}, Side::Above, "kL"});
            break;
        default:
            break;
    }
}

void Grow(Model& m, const Point& p) {
    m.min.x = std::min(m.min.x, p.x);
    m.min.y = std::min(m.min.y, p.y);
    m.max.x = std::max(m.max.x, p.x);
    m.max.y = std::max(m.max.y, p.y);
}

}  // namespace

Model Picture(int16_t config, double k, double a, double angleDegrees) {
    Model m;
    if (config < 1 || config > 9) return m;
    if (config == 1 || !(k > 0)) k = 0;
    a = std::fabs(a);
    const weld::WeldLineTable lines = weld::Config_Lines(config, 1.0, k);
    for (const auto& l : lines) m.welds.push_back({{l.x1, l.y1}, {l.x2, l.y2}});
    m.centroid = {weld::Centroid_X(lines), weld::Centroid_Y(lines)};
    AddDimensions(m, config, k);

    // The load stands on the right of the centroid, at the arm aL, which is
    // dimensioned below the welds, clear of them.
    m.loadPoint = {m.centroid.x + a, m.centroid.y};
    if (a > 0) m.dims.push_back({{m.centroid.x, 0}, {m.loadPoint.x, 0}, Side::Below, "aL"});
    m.angle = angleDegrees;
    const double length = 0.45;
    const double r = shell::Radians(angleDegrees);
    m.loadTail = {m.loadPoint.x + length * std::sin(r), m.loadPoint.y + length * std::cos(r)};

    m.min = m.max = m.centroid;
    for (const Segment& s : m.welds) {
        Grow(m, s.a);
        Grow(m, s.b);
    }
    Grow(m, m.loadPoint);
    Grow(m, m.loadTail);
    return m;
}

}  // namespace WeldPicture
