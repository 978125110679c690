// The SdfInput.sdf reader on arbitrary bytes: a list it accepts holds only
// finite numbers and writes back as the bytes it was read from.
#include <cmath>

#include "FuzzCheck.h"
#include "calc/core/CalculatorFiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = FuzzBytes(data, size);
    CalculatorFiles::DataList list;
    const CalculatorFiles::FileStatus st = CalculatorFiles::Decode_Data(bytes, list);
    if (st.outcome != CalculatorFiles::FileStatus::Outcome::Loaded) {
        FUZZ_CHECK(st.outcome == CalculatorFiles::FileStatus::Outcome::Damaged && st.ErrorNumber != 0);
        return 0;
    }
    if (!list.IsList()) return 0;
    FUZZ_CHECK(!list.Values.empty());
    for (double v : list.Values) FUZZ_CHECK(std::isfinite(v));
    FUZZ_CHECK(StartsWith(bytes, CalculatorFiles::Encode_Data(list)));
    return 0;
}
