// The DXF reader and the import on arbitrary bytes: no crash, no hang, and
// whatever it reads becomes a layout within the board's limits or a refusal
// that leaves the document as it was.
#include <cmath>

#include "FuzzCheck.h"
#include "board/core/DxfFile.h"
#include "board/core/DxfLayout.h"
#include "board/core/LayoutFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::FILE* file = fmemopen(const_cast<uint8_t*>(data), size, "rb");
    if (file == nullptr) return 0;
    Dxf::Drawing drawing;
    const Dxf::ReadError read = Dxf::Read(file, static_cast<long>(size), drawing);
    std::fclose(file);
    if (read != Dxf::ReadError::None) return 0;
    for (const Dxf::Segment& s : drawing.Segments)
        FUZZ_CHECK(s.layer >= 0 && static_cast<size_t>(s.layer) < drawing.Layers.size());

    Layout::LayoutDocument doc;
    const std::string before = LayoutFile::Layout_Bytes(doc);
    DxfLayout::ImportOptions options;
    options.shortest = 1.0 / 32;
    const DxfLayout::ImportResult result = DxfLayout::Import(doc, drawing, options);
    if (result.error != DxfLayout::ImportError::None) {
        FUZZ_CHECK(LayoutFile::Layout_Bytes(doc) == before);
        return 0;
    }
    FUZZ_CHECK(result.summary.added > 0 && doc.LineCounter == result.summary.added);
    for (const Layout::LineRec& l : doc.Lines)
        FUZZ_CHECK(std::isfinite(l.StartPt.X) || l.Exists == 0);
    return 0;
}
