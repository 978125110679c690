// The CalcMem.mem reader on arbitrary bytes: what it accepts writes back as
// the bytes it was read from.
#include <cmath>

#include "FuzzCheck.h"
#include "calc/CalcFiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = FuzzBytes(data, size);
    CalcFiles::RegisterArray registers;
    const CalcFiles::FileStatus st = CalcFiles::Decode_Registers(bytes, registers);
    if (st.outcome != CalcFiles::FileStatus::Outcome::Loaded) {
        FUZZ_CHECK(st.outcome == CalcFiles::FileStatus::Outcome::Damaged && st.ErrorNumber != 0);
        return 0;
    }
    for (const auto& r : registers) FUZZ_CHECK(std::isfinite(r.Value));
    FUZZ_CHECK(StartsWith(bytes, CalcFiles::Encode_Registers(registers)));
    return 0;
}
