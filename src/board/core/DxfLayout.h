// Weld lines from a DXF drawing into the layout document, and the layout
// out to a DXF drawing: layer choice, units, the lines that cannot be weld
// lines, the one-line summary of an import, and the layers of an export
// (WELD, DIMS, LOAD and, after a run, RESULTS).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/core/DxfFile.h"
#include "board/core/LayoutDocument.h"
#include "shell/core/SolveRecord.h"

namespace DxfLayout {

// The segments of each layer of the drawing that could become weld lines (not
// of zero length), in the drawing's order of layers.
std::vector<int32_t> UsableCounts(const Dxf::Drawing& drawing);

struct ImportOptions {
    std::vector<bool> layers;  // chosen layers by index; empty: all of them
    Dxf::Units units = Dxf::Units::Inches;  // how the drawing's numbers are read
    double shortest = 0.0;     // inches; a segment not longer than this is dropped (one strip)
    bool replace = true;       // a new layout, or the lines added to the open one
};

struct ImportSummary {
    int32_t added = 0;
    int32_t tooShort = 0;    // not longer than the strip
    int32_t zeroLength = 0;
    int32_t outOfRange = 0;  // a coordinate beyond a billion inches, or not a number
    int32_t duplicates = 0;  // the same two end points as a line kept before
    int64_t skipped = 0;     // arcs, circles, splines, texts, blocks ... of the drawing
};

enum class ImportError { None, NoUsableSegment, TooMany };

struct ImportResult {
    ImportError error = ImportError::None;
    int64_t lines = 0;  // with TooMany: the lines the layout would have had
    ImportSummary summary;
};

// Turns the chosen segments into weld lines named as the board names them,
// in world inches, and fits the view to the layout. The document changes
// only when the result has no error. A replaced layout starts as a new one
// whose view is a power of two with the origin on a sixty-fourth, so that
// coordinates that are whole or binary fractions of an inch come through
// the board's single precision unchanged.
ImportResult Import(Layout::LayoutDocument& doc, const Dxf::Drawing& drawing, const ImportOptions& options);

// "Imported 12 weld lines; dropped 1 shorter than the strip, 2 of zero
// length, 1 duplicate; skipped 3 arcs, circles, texts or blocks."
std::string SummaryText(const ImportSummary& summary);
// The message for an import that changed nothing.
std::string ErrorText(const ImportResult& result);

// A layout as a DXF drawing in world inches: weld lines on WELD, each
// dimension as its line and its length as text on DIMS, the load as a line
// from its anchor along its angle and its text on LOAD; with a run of the
// layout, its center, the force on each segment and the legend on RESULTS,
// as the board draws them.
Dxf::Output ExportOf(const Layout::LayoutDocument& doc, const shell::SolveRecord* run = nullptr);

}  // namespace DxfLayout
