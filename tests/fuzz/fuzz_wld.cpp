// The .wld layout reader on arbitrary bytes: no crash, no read past the bytes
// held, a refused file leaves the document as it was, and a layout it accepts
// keeps its blank last rows and writes out and reads back to the same file.
#include "FuzzCheck.h"
#include "board/core/LayoutFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Layout::LayoutDocument doc;
    doc.LineCounter = 12345;
    doc.Lines[0].LineName = "sentinel";
    const std::string before = LayoutFile::Layout_Bytes(doc);
    if (!LayoutFile::Layout_FromBytes(FuzzBytes(data, size), doc)) {
        FUZZ_CHECK(LayoutFile::Layout_Bytes(doc) == before);
        return 0;
    }
    FUZZ_CHECK(!doc.Lines.empty() && !doc.Dims.empty());
    const std::string written = LayoutFile::Layout_Bytes(doc);
    Layout::LayoutDocument again;
    FUZZ_CHECK(LayoutFile::Layout_FromBytes(written, again));
    FUZZ_CHECK(LayoutFile::Layout_Bytes(again) == written);
    return 0;
}
