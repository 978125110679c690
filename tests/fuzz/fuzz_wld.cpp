// The .wld layout reader on arbitrary bytes: no crash, no read past the bytes
// held, and a layout it accepts writes out and reads back to the same file.
#include "FuzzCheck.h"
#include "board/FileHandling.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    PublicVariables::LayoutDocument doc;
    if (!FileHandling::Layout_FromBytes(FuzzBytes(data, size), doc)) return 0;
    const std::string written = FileHandling::Layout_Bytes(doc);
    PublicVariables::LayoutDocument again;
    FUZZ_CHECK(FileHandling::Layout_FromBytes(written, again));
    FUZZ_CHECK(FileHandling::Layout_Bytes(again) == written);
    return 0;
}
