#include "calc/core/CalculatorFiles.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "shell/core/FileIO.h"
#include "shell/core/Primitives.h"

namespace CalculatorFiles {

namespace fs = std::filesystem;

namespace {

// Error numbers the warning box shows.
using fileio::kErrOutOfMemory;
using fileio::kErrPastEnd;
using fileio::kErrTypeMismatch;

FileStatus Make(FileStatus::Outcome outcome, int32_t error = 0) {
    FileStatus st;
    st.outcome = outcome;
    if (error != 0) {
        st.ErrorNumber = error;
        st.ErrorDescription = fileio::ErrorDescription(error);
    }
    return st;
}

FileStatus Bad(int32_t error) { return Make(FileStatus::Outcome::Damaged, error); }

// Variant type tags as the data file holds them.
constexpr uint16_t kTagEmpty = 0x0000;
constexpr uint16_t kTagDouble = 0x0005;
constexpr uint16_t kTagText = 0x0008;
constexpr uint16_t kTagVariantArray = 0x200C;

// Little-endian writing and bounds-checked reading.
void PutU16(std::string& out, uint16_t v) {
    out.push_back(char(v & 0xFF));
    out.push_back(char(v >> 8));
}
void PutU32(std::string& out, uint32_t v) {
    for (int i = 0; i < 4; ++i) out.push_back(char((v >> (8 * i)) & 0xFF));
}
void PutDouble(std::string& out, double v) {
    uint64_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    for (int i = 0; i < 8; ++i) out.push_back(char((bits >> (8 * i)) & 0xFF));
}

class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}
    size_t Left() const { return bytes_.size() - pos_; }
    bool U16(uint16_t& v) {
        uint64_t x;
        if (!Bytes(2, x)) return false;
        v = uint16_t(x);
        return true;
    }
    bool U32(uint32_t& v) {
        uint64_t x;
        if (!Bytes(4, x)) return false;
        v = uint32_t(x);
        return true;
    }
    bool Double(double& v) {
        uint64_t x;
        if (!Bytes(8, x)) return false;
        std::memcpy(&v, &x, sizeof v);
        return true;
    }
    bool Text(size_t n, std::string_view& v) {
        if (Left() < n) return false;
        v = bytes_.substr(pos_, n);
        pos_ += n;
        return true;
    }

private:
    bool Bytes(size_t n, uint64_t& v) {
        if (Left() < n) return false;
        v = 0;
        for (size_t i = 0; i < n; ++i) v |= uint64_t(uint8_t(bytes_[pos_ + i])) << (8 * i);
        pos_ += n;
        return true;
    }
    std::string_view bytes_;
    size_t pos_ = 0;
};

// Reads and decodes one file. No file, or an empty one, is the first run. A
// file that cannot be opened or read stays where it is; one longer than any
// file the program writes is renamed aside; one whose bytes are malformed is
// deleted.
template <class Decode>
FileStatus LoadFile(const fs::path& path, uintmax_t cap, Decode decode) {
    std::string bytes;
    fileio::IoError e;
    FileStatus st;
    switch (fileio::ReadWhole(path.string(), static_cast<size_t>(cap), bytes, e)) {
        case fileio::ReadOutcome::Missing: return Make(FileStatus::Outcome::FirstRun);
        case fileio::ReadOutcome::Unreadable: return Make(FileStatus::Outcome::Unreadable, e.Number);
        case fileio::ReadOutcome::TooLarge:
            st = Make(FileStatus::Outcome::TooLarge, kErrOutOfMemory);
            st.SetAsideTo = fileio::SetAside(path.string());
            return st;
        case fileio::ReadOutcome::Read:
            if (bytes.empty()) return Make(FileStatus::Outcome::FirstRun);
            st = decode(bytes);
            break;
    }
    if (st.outcome == FileStatus::Outcome::Damaged) {
        std::error_code ec;
        if (fs::is_regular_file(fs::symlink_status(path, ec))) fs::remove(path, ec);
        st.FileDeleted = !fs::exists(fs::symlink_status(path, ec));
    }
    return st;
}

// The program's data folder is made on the first save.
FileStatus WriteFileReplacing(const fs::path& path, const std::string& bytes) {
    std::error_code ec;
    if (path.has_parent_path() && !fs::exists(path.parent_path(), ec)) fs::create_directories(path.parent_path(), ec);
    const fileio::IoError e = fileio::WriteReplacing(path.string(), bytes);
    return e.Failed() ? Make(FileStatus::Outcome::Failed, e.Number) : Make(FileStatus::Outcome::Saved);
}

}  // namespace

std::string FileStatus::Message() const {
    return "Error No. " + std::to_string(ErrorNumber) + ":  " + ErrorDescription;
}

std::string Register_Name(int index) { return "Reg-" + prim::Format(index + 1, "000"); }

std::string Data_Name(int index) { return "Data-" + prim::Format(index + 1, "00"); }

// ---- Registers ------------------------------------------------------------------

std::string Encode_Registers(const RegisterArray& registers) {
    std::string out;
    out.reserve(kRegisterCount * 10);
    for (const RegisterRecord& r : registers) {
        std::string text = prim::ToCp1252(r.Description);
        if (text.size() > 0xFFFF) text.resize(0xFFFF);  // the length field holds 16 bits
        PutDouble(out, r.Value);
        PutU16(out, uint16_t(text.size()));
        out += text;
    }
    return out;
}

FileStatus Decode_Registers(std::string_view bytes, RegisterArray& registers) {
    Reader in(bytes);
    RegisterArray read;
    for (RegisterRecord& r : read) {
        uint16_t length = 0;
        std::string_view text;
        if (!in.Double(r.Value) || !in.U16(length) || !in.Text(length, text)) return Bad(kErrPastEnd);
        if (!std::isfinite(r.Value)) return Bad(kErrTypeMismatch);
        r.Description = prim::FromCp1252(text);
    }
    // Bytes after the 100th record are not looked at.
    registers = std::move(read);
    return Make(FileStatus::Outcome::Loaded);
}

FileStatus Load_Registers(const fs::path& path, RegisterArray& registers) {
    registers = RegisterArray{};
    return LoadFile(path, kRegisterFileMax, [&](std::string_view b) { return Decode_Registers(b, registers); });
}

FileStatus Save_Registers(const fs::path& path, const RegisterArray& registers) {
    return WriteFileReplacing(path, Encode_Registers(registers));
}

// ---- Statistics data ---------------------------------------------------------------

std::string Encode_Data(const DataList& data) {
    std::string out;
    switch (data.kind) {
        case DataList::Kind::Empty:
            PutU16(out, kTagEmpty);
            break;
        case DataList::Kind::EmptyText:
            PutU16(out, kTagText);
            PutU16(out, 0);
            break;
        case DataList::Kind::List:
            out.reserve(12 + 10 * data.Values.size());
            PutU16(out, kTagVariantArray);
            PutU16(out, 1);  // dimensions
            PutU32(out, uint32_t(data.Values.size()));
            PutU32(out, 0);  // lower bound
            for (double v : data.Values) {
                PutU16(out, kTagDouble);
                PutDouble(out, v);
            }
            break;
    }
    return out;
}

FileStatus Decode_Data(std::string_view bytes, DataList& data) {
    Reader in(bytes);
    uint16_t tag = 0;
    if (!in.U16(tag)) return Bad(kErrPastEnd);
    DataList read;
    switch (tag) {
        case kTagEmpty:
            read.kind = DataList::Kind::Empty;
            break;
        case kTagText: {
            // Any text is "no list"; the program itself only writes the empty one.
            uint16_t length = 0;
            std::string_view text;
            if (!in.U16(length) || !in.Text(length, text)) return Bad(kErrPastEnd);
            read.kind = DataList::Kind::EmptyText;
            break;
        }
        case kTagVariantArray: {
            uint16_t dims = 0;
            uint32_t count = 0, lower = 0;
            if (!in.U16(dims)) return Bad(kErrPastEnd);
            if (dims != 1) return Bad(kErrTypeMismatch);
            if (!in.U32(count) || !in.U32(lower)) return Bad(kErrPastEnd);
            if (lower != 0) return Bad(kErrTypeMismatch);
            if (in.Left() / 10 < count) return Bad(kErrPastEnd);
            if (count == 0) {
                read.kind = DataList::Kind::Empty;  // a list with nothing in it holds no data
                break;
            }
            read.kind = DataList::Kind::List;
            read.Values.reserve(count);
            for (uint32_t i = 0; i < count; ++i) {
                uint16_t itemTag = 0;
                double v = 0.0;
                in.U16(itemTag);
                in.Double(v);
                if (itemTag != kTagDouble || !std::isfinite(v)) return Bad(kErrTypeMismatch);
                read.Values.push_back(v);
            }
            break;
        }
        default:
            return Bad(kErrTypeMismatch);
    }
    data = std::move(read);
    return Make(FileStatus::Outcome::Loaded);
}

FileStatus Load_Data(const fs::path& path, DataList& data) {
    data = DataList{};
    return LoadFile(path, kDataFileMax, [&](std::string_view b) { return Decode_Data(b, data); });
}

FileStatus Save_Data(const fs::path& path, const DataList& data) {
    if (data.IsList() && data.Values.size() > kMaxDataValues) return Make(FileStatus::Outcome::Failed, fileio::kErrOverflow);
    return WriteFileReplacing(path, Encode_Data(data));
}

}  // namespace CalculatorFiles
