// The CalcMem.mem reader on arbitrary bytes: what it accepts writes back as
// the bytes it was read from.
#include "FuzzCheck.h"
#include "calc/CalcFiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = FuzzBytes(data, size);
    CalcFiles::RegisterArray registers;
    const CalcFiles::FileStatus st = CalcFiles::Decode_Registers(bytes, registers);
    if (st.outcome != CalcFiles::FileStatus::Outcome::Loaded) {
        FUZZ_CHECK(st.outcome == CalcFiles::FileStatus::Outcome::Damaged);
        return 0;
    }
    FUZZ_CHECK(StartsWith(bytes, CalcFiles::Encode_Registers(registers)));
    return 0;
}
