// The SdfInput.sdf reader on arbitrary bytes: a list it accepts holds only
// finite numbers and writes back as the bytes it was read from.
#include <cmath>

#include "FuzzCheck.h"
#include "calc/CalcFiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = FuzzBytes(data, size);
    CalcFiles::DataList list;
    const CalcFiles::FileStatus st = CalcFiles::Decode_Data(bytes, list);
    if (st.outcome != CalcFiles::FileStatus::Outcome::Loaded) {
        FUZZ_CHECK(st.outcome == CalcFiles::FileStatus::Outcome::Damaged && st.ErrorNumber != 0);
        return 0;
    }
    if (!list.IsList()) return 0;
    FUZZ_CHECK(!list.Values.empty());
    for (double v : list.Values) FUZZ_CHECK(std::isfinite(v));
    FUZZ_CHECK(StartsWith(bytes, CalcFiles::Encode_Data(list)));
    return 0;
}
