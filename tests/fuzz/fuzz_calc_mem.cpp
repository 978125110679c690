// The CalcMem.mem reader on arbitrary bytes: what it accepts writes back as
// the bytes it was read from.
#include <cmath>

#include "FuzzCheck.h"
#include "calc/core/CalculatorFiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = FuzzBytes(data, size);
    CalculatorFiles::RegisterArray registers;
    const CalculatorFiles::FileStatus st = CalculatorFiles::Decode_Registers(bytes, registers);
    if (st.outcome != CalculatorFiles::FileStatus::Outcome::Loaded) {
        FUZZ_CHECK(st.outcome == CalculatorFiles::FileStatus::Outcome::Damaged && st.ErrorNumber != 0);
        return 0;
    }
    for (const auto& r : registers) FUZZ_CHECK(std::isfinite(r.Value));
    FUZZ_CHECK(StartsWith(bytes, CalculatorFiles::Encode_Registers(registers)));
    return 0;
}
