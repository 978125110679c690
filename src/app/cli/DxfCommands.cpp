// DXF drawings from the command line: weld lines from a CAD drawing into a
// new layout, and a layout out to a drawing.
#include <iostream>
#include <string>

#include "Cli.h"
#include "board/core/DxfFile.h"
#include "board/core/DxfLayout.h"
#include "board/core/LayoutFile.h"
#include "board/core/LoadSymbol.h"
#include "board/core/Viewport.h"
#include "shell/core/FileIO.h"

namespace {

int DxfImport(const cli::Parsed& p) {
    if (p.positional.size() != 2) return cli::UsageError(p, "dxf-import needs IN.dxf and OUT.wld");
    const std::string& in = p.positional[0];
    const std::string& out = p.positional[1];
    const std::string side = p.Value("--load-side", "right");
    if (side != "left" && side != "right") return cli::UsageError("--load-side must be left or right");
    Dxf::Units units = Dxf::Units::Inches;
    if (p.Has("--units") && !Dxf::ParseUnitWord(p.Value("--units"), units))
        return cli::UsageError("--units must be in, ft, mm, cm or m, not " + cli::Quote(p.Value("--units")));
    long long strip = 32;
    std::string error;
    if (p.Has("--strip") && !cli::ReadWhole("--strip", p.Value("--strip"), 4, 64, strip, error))
        return cli::UsageError(error);

    Dxf::Drawing drawing;
    const Dxf::ReadError read = Dxf::Read(in, drawing);
    if (read != Dxf::ReadError::None) return cli::Fail(Dxf::ErrorText(read, in), 1);
    // The drawing's own units unless --units says otherwise; a drawing
    // without units is read in inches.
    if (!p.Has("--units")) {
        if (drawing.units == Dxf::Units::Other)
            return cli::Fail(in + " is drawn in units the board does not take: give --units", 1);
        if (drawing.units != Dxf::Units::Unitless) units = drawing.units;
    }

    DxfLayout::ImportOptions options;
    options.units = units;
    options.shortest = 1.0 / static_cast<double>(strip);
    if (p.Has("--layer")) {
        options.layers.assign(drawing.Layers.size(), false);
        for (const std::string& name : p.All("--layer")) {
            bool found = false;
            for (size_t i = 0; i < drawing.Layers.size(); ++i)
                if (drawing.Layers[i] == name) options.layers[i] = found = true;
            if (!found) return cli::Fail("the drawing has no layer " + cli::Quote(name) + " with lines", 1);
        }
    }
    Layout::LayoutDocument doc;
    Viewport::Set_Viewport(doc);
    const DxfLayout::ImportResult result = DxfLayout::Import(doc, drawing, options);
    if (result.error != DxfLayout::ImportError::None) return cli::Fail(DxfLayout::ErrorText(result), 1);
    LoadSymbol::Place_Beside(doc, side == "left" ? 0 : 1);
    doc.LinesSaved = doc.Lines;
    doc.DimsSaved = doc.Dims;
    const LayoutFile::FileError e = LayoutFile::Write_Layout(doc, out);
    if (e.Number != 0)
        return cli::Fail("cannot write " + cli::Quote(out) + ": Error No. " + std::to_string(e.Number) + ":  " +
                             e.Description,
                         1);
    std::cout << DxfLayout::SummaryText(result.summary) << "\n";
    return 0;
}

int DxfExport(const cli::Parsed& p) {
    if (p.positional.size() != 2) return cli::UsageError(p, "dxf-export needs IN.wld and OUT.dxf");
    const std::string& in = p.positional[0];
    const std::string& out = p.positional[1];
    Layout::LayoutDocument doc;
    const LayoutFile::LayoutRead read = LayoutFile::Read_Layout_Checked(doc, in);
    if (!read.Ok()) return cli::Fail("cannot read layout " + cli::Quote(in) + ": " + read.Cause(), 1);
    const std::string bytes = Dxf::Write(DxfLayout::ExportOf(doc));
    if (bytes.empty()) return cli::Fail("cannot make the drawing of " + cli::Quote(in), 1);
    const fileio::IoError e = fileio::WriteReplacing(out, bytes);
    if (e.Failed()) return cli::Fail("cannot write " + cli::Quote(out) + ": " + e.Message(), 1);
    return 0;
}

const cli::Registrar kDxfImport({
    "dxf-import",
    "IN.dxf OUT.wld",
    "writes a layout of the straight lines of a DXF drawing, as weld lines",
    {{"--layer", "NAME", "take only the lines of this layer (all layers when not given)", true},
     {"--units", "in|ft|mm|cm|m", "units of the drawing's numbers (default: its $INSUNITS, inches without)"},
     {"--strip", "4|8|16|32|64", "segments per inch of weld: a line not longer than one is dropped (default 32)"},
     {"--load-side", "left|right", "side of the group the load symbol stands on (default right)"}},
    {"Reads LINEs and the straight pieces of LWPOLYLINEs and POLYLINEs (closed ones closed);",
     "arcs, circles, splines, texts and blocks are skipped and counted. Duplicates, lines of zero",
     "length and lines not longer than the strip are dropped. Prints a one-line summary."},
    {"dxf-import examples/c-shape-right.dxf /tmp/c-shape-right.wld --layer WELD"},
    DxfImport});

const cli::Registrar kDxfExport({
    "dxf-export",
    "IN.wld OUT.dxf",
    "writes a layout as a DXF drawing in inches",
    {},
    {"Weld lines on the layer WELD, dimensions as lines and texts on DIMS, the load symbol on LOAD."},
    {"dxf-export examples/c-shape-right.wld /tmp/c-shape-right.dxf"},
    DxfExport});

}  // namespace
