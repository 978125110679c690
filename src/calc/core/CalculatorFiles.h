// The calculator's two data files, kept in the program's data folder:
//   CalcMem.mem   the 100 memory registers
//   SdfInput.sdf  the statistics data list
// Both are read whole when the calculator window opens and written whole when
// it closes. Readers check every count and length against the bytes in hand.
// A file whose bytes are malformed is deleted (Outcome::Damaged); a file that
// cannot be opened or read at all is left alone (Outcome::Unreadable); one
// longer than any the program writes is renamed aside (Outcome::TooLarge).
// All carry the message the window shows, and the calculator starts empty. Writers
// go through a temporary file in the same folder and a rename, so a failed
// write leaves the old file intact.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace CalculatorFiles {

inline constexpr const char* kRegisterFileName = "CalcMem.mem";
inline constexpr const char* kDataFileName = "SdfInput.sdf";

// ---- Memory registers ------------------------------------------------------

constexpr int kRegisterCount = 100;

struct RegisterRecord {
    double Value = 0.0;       // the stored number; 0 means free
    std::string Description;  // what the user typed, may be empty (UTF-8)
};

// Registers 0 to 99, shown as "Reg-001" to "Reg-100".
using RegisterArray = std::array<RegisterRecord, kRegisterCount>;

// "Reg-" and the register number (index + 1) in three digits.
std::string Register_Name(int index);

// ---- Statistics data ---------------------------------------------------------

// The statistics data of the calculator: either no list (never set, or the
// empty text left after deleting every row) or a list of numbers in entry
// order. A list read from a file always holds at least one number.
struct DataList {
    enum class Kind : int16_t { Empty, EmptyText, List };
    Kind kind = Kind::Empty;
    std::vector<double> Values;  // used only when kind == List

    bool IsList() const { return kind == Kind::List; }
};

// "Data-" and the row number (index + 1) in at least two digits.
std::string Data_Name(int index);

// The largest files the program writes; a longer one is refused from its size
// alone, as too big to hold (error 7). Registers: 100 records with the longest
// descriptions. Data: a list as long as the data window's 16-bit row counter
// allows; a longer list is not saved (error 6, overflow).
constexpr uintmax_t kRegisterFileMax = uintmax_t(kRegisterCount) * (10 + 65535);
constexpr size_t kMaxDataValues = 32767;
constexpr uintmax_t kDataFileMax = 12 + 10 * uintmax_t(kMaxDataValues);

// ---- Outcome of a load or save -----------------------------------------------

struct FileStatus {
    enum class Outcome {
        Loaded,    // the file was read
        FirstRun,  // no file (or an empty one): registers clear / no data
        Damaged,     // the bytes are malformed: the file has been deleted
        Unreadable,  // the file could not be opened or read: it is left as it was
        TooLarge,    // longer than any file the program writes (error 7): renamed aside
        Saved,     // the file was written
        Failed     // the file could not be written; the old one is untouched
    };
    Outcome outcome = Outcome::Loaded;
    int32_t ErrorNumber = 0;         // set for Damaged, Unreadable, TooLarge and Failed
    std::string ErrorDescription;    // e.g. "Input past end of file"
    bool FileDeleted = false;        // Damaged: the damaged file is gone
    std::string SetAsideTo;          // TooLarge: where the file now is ("" when it could not be moved)

    // True when the window must show the warning box (stop icon, MessageTitle).
    bool ShowMessage() const {
        return outcome == Outcome::Damaged || outcome == Outcome::Unreadable || outcome == Outcome::TooLarge ||
               outcome == Outcome::Failed;
    }
    // "Error No. " & number & ":  " & description.
    std::string Message() const;
    static constexpr const char* MessageTitle = "Warning:";
};

// ---- Byte layouts -------------------------------------------------------------

// CalcMem.mem: 100 records, no header, no padding, little-endian:
// 8-byte IEEE double, 16-bit unsigned length L, L bytes of Windows-1252 text.
std::string Encode_Registers(const RegisterArray& registers);
// Fills `registers` only on success (Outcome::Loaded); otherwise the status
// says why (Outcome::Damaged, FileDeleted false) and `registers` is untouched.
FileStatus Decode_Registers(std::string_view bytes, RegisterArray& registers);

// SdfInput.sdf: the data as a variant. A list is tag 0x200C, 16-bit number of
// dimensions (1), 32-bit count n, 32-bit lower bound (0), then n items of tag
// 0x0005 and an IEEE double. No list is 0x0000 (empty) or 0x0008 with a 16-bit
// length 0 (the empty text).
std::string Encode_Data(const DataList& data);
FileStatus Decode_Data(std::string_view bytes, DataList& data);

// ---- Files ----------------------------------------------------------------------

// Clears the registers, then reads them from `path`. A missing or empty file
// is the first run (all registers clear). A damaged file is deleted, an
// unreadable one left alone, one too large renamed aside (fileio::SetAside);
// in each case the registers stay clear.
FileStatus Load_Registers(const std::filesystem::path& path, RegisterArray& registers);
// Writes all registers to `path` (folder created if needed).
FileStatus Save_Registers(const std::filesystem::path& path, const RegisterArray& registers);

// Clears the data (no list), then reads it from `path`, as Load_Registers.
FileStatus Load_Data(const std::filesystem::path& path, DataList& data);
// Writes the data; a list of more than kMaxDataValues values is not written
// (Failed, error 6) and the old file stays.
FileStatus Save_Data(const std::filesystem::path& path, const DataList& data);

}  // namespace CalculatorFiles
