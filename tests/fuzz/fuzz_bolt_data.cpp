// The BoltInputData.dat reader on arbitrary bytes: what it accepts holds no
// more rows than the program writes and writes back as the bytes it was read
// from.
#include "FuzzCheck.h"
#include "bolt/core/BoltRowsFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes = FuzzBytes(data, size);
    std::vector<BoltRows::BoltRecord> records;
    BoltRows::BoltDataError error;
    if (!BoltRows::DecodeBoltRecords(bytes, records, error)) {
        FUZZ_CHECK(error.Number == 62 || error.Number == 13);
        return 0;
    }
    FUZZ_CHECK(records.size() <= BoltRows::kMaxRecords);
    std::string written;
    FUZZ_CHECK(BoltRows::EncodeBoltRecords(records, written, error));
    FUZZ_CHECK(StartsWith(bytes, written));
    return 0;
}
