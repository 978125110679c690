#include "bolt/core/BoltRowsFile.h"

#include <unistd.h>

#include <cstdint>

#include "shell/core/Primitives.h"

namespace BoltRows {

namespace {

// The smallest element: a row number and eight empty texts.
constexpr size_t kMinElementBytes = 2 + 8 * 2;

const BoltDataError kPastEnd = fileio::MakeError(fileio::kErrPastEnd);
const BoltDataError kBadHeader = fileio::MakeError(fileio::kErrTypeMismatch);
const BoltDataError kOverflow = fileio::MakeError(fileio::kErrOverflow);

std::string* Field(BoltRecord& r, int i) {
    std::string* fields[8] = {&r.M, &r.N, &r.Sv, &r.Sh, &r.Ex, &r.Angle, &r.C, &r.CPrime};
    return fields[i];
}

void PutU16(std::string& out, uint16_t v) {
    out.push_back(static_cast<char>(v & 0xFF));
    out.push_back(static_cast<char>(v >> 8));
}

void PutI32(std::string& out, int32_t v) {
    const auto u = static_cast<uint32_t>(v);
    for (int s = 0; s < 32; s += 8) out.push_back(static_cast<char>((u >> s) & 0xFF));
}

// A cursor over the bytes held that refuses to read past their end.
struct Reader {
    std::string_view bytes;
    size_t pos = 0;

    size_t Left() const { return bytes.size() - pos; }
    bool U16(uint16_t& v) {
        if (Left() < 2) return false;
        v = static_cast<uint16_t>(static_cast<uint8_t>(bytes[pos]) |
                                  (static_cast<uint8_t>(bytes[pos + 1]) << 8));
        pos += 2;
        return true;
    }
    bool I32(int32_t& v) {
        if (Left() < 4) return false;
        uint32_t u = 0;
        for (int i = 0; i < 4; ++i) u |= static_cast<uint32_t>(static_cast<uint8_t>(bytes[pos + i])) << (8 * i);
        v = static_cast<int32_t>(u);
        pos += 4;
        return true;
    }
    bool Text(std::string& out) {
        uint16_t len = 0;
        if (!U16(len) || Left() < len) return false;
        out = prim::FromCp1252(bytes.substr(pos, len));
        pos += len;
        return true;
    }
};

// Only a regular file is ever deleted (unlink never removes a folder).
void Remove(const std::string& path) { ::unlink(path.c_str()); }

}  // namespace

bool EncodeBoltRecords(const std::vector<BoltRecord>& records, std::string& bytes,
                       BoltDataError& error) {
    if (records.size() > static_cast<size_t>(INT32_MAX)) {
        error = kOverflow;
        return false;
    }
    std::string out;
    PutU16(out, 1);
    PutI32(out, static_cast<int32_t>(records.size()));
    PutI32(out, 0);
    for (const BoltRecord& rec : records) {
        PutU16(out, static_cast<uint16_t>(rec.Row));
        BoltRecord copy = rec;
        for (int i = 0; i < 8; ++i) {
            const std::string text = prim::ToCp1252(*Field(copy, i));
            if (text.size() > 0xFFFF) {
                error = kOverflow;
                return false;
            }
            PutU16(out, static_cast<uint16_t>(text.size()));
            out += text;
        }
    }
    if (out.size() > kMaxFileBytes) {
        error = kOverflow;
        return false;
    }
    bytes = std::move(out);
    return true;
}

bool DecodeBoltRecords(std::string_view bytes, std::vector<BoltRecord>& records,
                       BoltDataError& error) {
    Reader in{bytes};
    uint16_t dims = 0;
    int32_t count = 0, lower = 0;
    if (!in.U16(dims) || !in.I32(count) || !in.I32(lower)) {
        error = kPastEnd;
        return false;
    }
    // The program writes no more rows than its grid holds.
    if (dims != 1 || lower != 0 || count < 0 || static_cast<size_t>(count) > kMaxRecords) {
        error = kBadHeader;
        return false;
    }
    // Every element takes at least its row number and eight lengths.
    if (static_cast<uint64_t>(count) * kMinElementBytes > in.Left()) {
        error = kPastEnd;
        return false;
    }
    std::vector<BoltRecord> out(static_cast<size_t>(count));
    for (BoltRecord& rec : out) {
        uint16_t row = 0;
        if (!in.U16(row)) {
            error = kPastEnd;
            return false;
        }
        rec.Row = static_cast<int16_t>(row);
        for (int i = 0; i < 8; ++i) {
            if (!in.Text(*Field(rec, i))) {
                error = kPastEnd;
                return false;
            }
        }
    }
    records = std::move(out);
    return true;
}

ReadResult BoltData_Read(std::vector<BoltRecord>& records, const std::string& path, const ErrorFn& ShowError) {
    std::string bytes;
    BoltDataError error;
    switch (fileio::ReadWhole(path, kMaxFileBytes, bytes, error)) {
        case fileio::ReadOutcome::Missing:
            return ReadResult::NoFile;
        case fileio::ReadOutcome::Unreadable:
            // Perhaps a good file the user cannot open now: it stays.
            if (ShowError) ShowError(error.Message());
            return ReadResult::Unreadable;
        case fileio::ReadOutcome::TooLarge:
            // Not the program's, but perhaps the user's: kept under another name.
            fileio::SetAside(path);
            if (ShowError) ShowError(error.Message());
            return ReadResult::TooLarge;
        case fileio::ReadOutcome::Read:
            break;
    }
    if (bytes.empty()) {
        // What an interrupted first session leaves: the first-run case.
        Remove(path);
        return ReadResult::NoFile;
    }
    std::vector<BoltRecord> loaded;
    if (DecodeBoltRecords(bytes, loaded, error)) {
        records = std::move(loaded);
        return ReadResult::Loaded;
    }
    Remove(path);
    if (ShowError) ShowError(error.Message());
    return ReadResult::Malformed;
}

void BoltData_Write(const std::vector<BoltRecord>& records, const std::string& path,
                    const ErrorFn& ShowError) {
    std::string bytes;
    BoltDataError error;
    if (EncodeBoltRecords(records, bytes, error)) {
        error = fileio::WriteReplacing(path, bytes);
        if (!error.Failed()) return;
    }
    if (ShowError) ShowError(error.Message());
}

}  // namespace BoltRows
