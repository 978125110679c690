#include "board/core/DxfLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <tuple>

#include "board/core/LayoutRender.h"
#include "board/core/LoadSymbol.h"
#include "board/core/ResultsOverlay.h"
#include "shell/core/ResultPicture.h"
#include "weld/core/WeldConfigurations.h"
#include "board/core/Viewport.h"

namespace DxfLayout {

namespace {

using Layout::LayoutDocument;

double Length(double x1, double y1, double x2, double y2) { return std::hypot(x2 - x1, y2 - y1); }

// No weld group is drawn a billion inches from its origin: a coordinate
// beyond that is a damaged drawing, not a connection.
constexpr double kFarthest = 1e9;

// The world extents of the lines of a document and of new segments.
struct Extents {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
    bool any = false;
    void Add(double x, double y) {
        if (!any) {
            minX = maxX = x;
            minY = maxY = y;
            any = true;
            return;
        }
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
        minY = std::min(minY, y);
        maxY = std::max(maxY, y);
    }
};

// A fresh view that holds the extents in 90 % of the board: a scale that is
// a power of two and an origin on a sixty-fourth of a board unit, so that the
// board's single precision keeps whole and binary-fraction inches exact.
void FitExactly(LayoutDocument& doc, const Extents& e) {
    const double w = e.maxX - e.minX, h = e.maxY - e.minY;
    double fit = 1.0;
    if (w > 0 && h > 0)
        fit = std::min(doc.ScaleWidth / w, doc.ScaleHeight / h);
    else if (w > 0)
        fit = doc.ScaleWidth / w;
    else if (h > 0)
        fit = doc.ScaleHeight / h;
    const double scale = std::exp2(std::floor(std::log2(fit * 0.9)));
    auto snap = [](double v) { return std::round(v * 64.0) / 64.0; };
    doc.ZoomBase = 1.0f;
    doc.ZoomScale = static_cast<float>(scale);
    doc.OriginX = static_cast<float>(snap(doc.ScaleWidth / 2.0 - (e.minX + e.maxX) / 2.0 * scale));
    doc.OriginY = static_cast<float>(snap(-(e.minY + e.maxY) / 2.0 * scale - doc.ScaleHeight / 2.0));
}

// The lines and texts that the board's drawing procedures paint, in world
// inches on the present layer: the export reuses the board's own pictures of
// dimensions and of the load.
class DxfSurface : public board::DrawSurface {
public:
    DxfSurface(const LayoutDocument& doc, Dxf::Output& out) : doc_(doc), out_(out) {}
    std::string layer;

    double ScaleWidth() const override { return doc_.ScaleWidth; }
    double ScaleHeight() const override { return doc_.ScaleHeight; }
    void Cls() override {}
    void Line(double x1, double y1, double x2, double y2, uint32_t) override {
        out_.Lines.push_back({X(x1), Y(y1), X(x2), Y(y2), layer});
        CurrentX = x2;
        CurrentY = y2;
    }
    void Circle(double x, double y, double radius, uint32_t) override {
        out_.Circles.push_back({X(x), Y(y), radius / Scale(), layer});
    }
    void Print(const std::string& text) override {
        // The board's text position is its top left; a DXF text stands on its baseline.
        const double height = TextHeight() / Scale();
        out_.Texts.push_back({X(CurrentX), Y(CurrentY) - height, height * 0.8, 0.0, text, layer});
        CurrentY += TextHeight();
    }

private:
    double Scale() const { return static_cast<double>(doc_.ZoomBase) * doc_.ZoomScale; }
    double X(double x) const { return Viewport::To_WorldX(doc_, x); }
    double Y(double y) const { return Viewport::To_WorldY(doc_, y); }

    const LayoutDocument& doc_;
    Dxf::Output& out_;
};

}  // namespace

std::vector<int32_t> UsableCounts(const Dxf::Drawing& drawing) {
    std::vector<int32_t> counts(drawing.Layers.size(), 0);
    for (const Dxf::Segment& s : drawing.Segments)
        if (Length(s.x1, s.y1, s.x2, s.y2) > 0.0 && s.layer >= 0 && static_cast<size_t>(s.layer) < counts.size())
            ++counts[static_cast<size_t>(s.layer)];
    return counts;
}

ImportResult Import(LayoutDocument& doc, const Dxf::Drawing& drawing, const ImportOptions& options) {
    ImportResult result;
    ImportSummary& sum = result.summary;
    sum.skipped = drawing.Skipped;
    const double k = Dxf::InchesPer(options.units);

    // The segments that become lines, in world inches, in the drawing's order.
    std::vector<std::array<double, 4>> lines;
    std::set<std::array<double, 4>> seen;
    for (const Dxf::Segment& s : drawing.Segments) {
        const auto layer = static_cast<size_t>(s.layer);
        if (!options.layers.empty() && (layer >= options.layers.size() || !options.layers[layer])) continue;
        const std::array<double, 4> v = {s.x1 * k, s.y1 * k, s.x2 * k, s.y2 * k};
        if (std::any_of(v.begin(), v.end(), [](double c) { return !(std::fabs(c) <= kFarthest); })) {
            ++sum.outOfRange;
            continue;
        }
        const double length = Length(v[0], v[1], v[2], v[3]);
        if (!(length > 0.0)) {
            ++sum.zeroLength;
            continue;
        }
        if (length <= options.shortest) {
            ++sum.tooShort;
            continue;
        }
        // The same line drawn either way round is a duplicate.
        const std::array<double, 4> key = std::tie(v[0], v[1]) <= std::tie(v[2], v[3])
                                              ? v
                                              : std::array<double, 4>{v[2], v[3], v[0], v[1]};
        if (!seen.insert(key).second) {
            ++sum.duplicates;
            continue;
        }
        lines.push_back(v);
    }
    if (lines.empty()) {
        result.error = ImportError::NoUsableSegment;
        return result;
    }
    const int64_t kept = options.replace ? 0 : Viewport::Line_Count(doc.Lines);
    result.lines = kept + static_cast<int64_t>(lines.size());
    if (result.lines > INT16_MAX || doc.LineCounter > INT16_MAX - static_cast<int64_t>(lines.size())) {
        result.error = ImportError::TooMany;
        return result;
    }

    LayoutDocument next = doc;
    if (options.replace) {
        next = LayoutDocument{};
        next.ScaleWidth = doc.ScaleWidth;
        next.ScaleHeight = doc.ScaleHeight;
        Extents e;
        for (const auto& v : lines) {
            e.Add(v[0], v[1]);
            e.Add(v[2], v[3]);
        }
        FitExactly(next, e);
    }
    for (const auto& v : lines) {
        const Layout::PointRec a{Viewport::To_BoardX(next, v[0]), Viewport::To_BoardY(next, v[1])};
        const Layout::PointRec b{Viewport::To_BoardX(next, v[2]), Viewport::To_BoardY(next, v[3])};
        Viewport::Add_Drawn_Line(next, a, b);
    }
    // Lines added to a drawing: the board's own fit brings all of it into view.
    if (!options.replace) Viewport::Zoom_Fit(next, 0.9f);
    Viewport::Build_Intersections(next.Lines, next.Intersections, next.IntersectionsFound);
    sum.added = static_cast<int32_t>(lines.size());
    doc = std::move(next);
    return result;
}

std::string SummaryText(const ImportSummary& s) {
    auto count = [](int64_t n, const char* one, const char* many) {
        return std::to_string(n) + " " + (n == 1 ? one : many);
    };
    std::string text = "Imported " + count(s.added, "weld line", "weld lines");
    std::vector<std::string> dropped;
    if (s.tooShort > 0) dropped.push_back(std::to_string(s.tooShort) + " not longer than the strip");
    if (s.zeroLength > 0) dropped.push_back(std::to_string(s.zeroLength) + " of zero length");
    if (s.outOfRange > 0) dropped.push_back(std::to_string(s.outOfRange) + " out of range");
    if (s.duplicates > 0) dropped.push_back(count(s.duplicates, "duplicate", "duplicates"));
    if (!dropped.empty()) {
        text += "; dropped ";
        for (size_t i = 0; i < dropped.size(); ++i) text += (i ? ", " : "") + dropped[i];
    }
    if (s.skipped > 0) text += "; skipped " + std::to_string(s.skipped) + " arcs, circles, curves, texts or blocks";
    return text + ".";
}

std::string ErrorText(const ImportResult& r) {
    switch (r.error) {
        case ImportError::None: return {};
        case ImportError::NoUsableSegment: return "The drawing holds no straight segment that can be a weld line.";
        case ImportError::TooMany:
            return "The drawing would give " + std::to_string(r.lines) +
                   " weld lines; a layout holds at most 32767.";
    }
    return {};
}

Dxf::Output ExportOf(const LayoutDocument& doc, const shell::SolveRecord* run) {
    Dxf::Output out;
    out.Layers = {{"WELD", 5}, {"DIMS", 8}, {"LOAD", 2}};
    for (const Layout::LineRec& l : doc.Lines) {
        if (l.Exists == 0) continue;
        // The first point picked is the line's start in the file as on the board.
        out.Lines.push_back({Viewport::To_WorldX(doc, l.StartPt.X), Viewport::To_WorldY(doc, l.StartPt.Y),
                             Viewport::To_WorldX(doc, l.EndPt.X), Viewport::To_WorldY(doc, l.EndPt.Y), "WELD"});
    }
    DxfSurface surface(doc, out);
    surface.layer = "DIMS";
    LayoutRender::Draw_Dims(surface, doc.Dims);
    if (doc.Load.LoadPlaced != 0 && !Viewport::Lines_Empty(doc.Lines)) {
        surface.layer = "LOAD";
        LoadSymbol::Draw_LoadSymbol(surface, doc.Lines, doc.Load.LoadPoint, doc.Load.LoadSide, doc.Load.LoadAngle,
                                    doc.Load.LoadEccentricity);
    }
    if (run != nullptr && run->Converged) {
        // The run's picture about the group's centroid, as on the board.
        weld::WeldLineTable world;
        for (const Layout::LineRec& l : doc.Lines)
            if (l.Exists != 0)
                world.push_back({Viewport::To_WorldX(doc, l.StartPt.X), Viewport::To_WorldY(doc, l.StartPt.Y),
                                 Viewport::To_WorldX(doc, l.EndPt.X), Viewport::To_WorldY(doc, l.EndPt.Y)});
        out.Layers.push_back({"RESULTS", 1});
        surface.layer = "RESULTS";
        const ResultPicture::Placement where{Viewport::To_BoardX(doc, weld::Centroid_X(world)),
                                             Viewport::To_BoardY(doc, weld::Centroid_Y(world)),
                                             static_cast<double>(doc.ZoomBase) * doc.ZoomScale, doc.Load.LoadSide == 0};
        ResultPicture::Draw_Results(surface, *run, where, CalculationView::Results_Labels(*run, doc.Load.LoadSide));
    }
    return out;
}

}  // namespace DxfLayout
