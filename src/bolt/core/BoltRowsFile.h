// The rows of the bolt coefficient table kept between runs in one binary
// file, BoltInputData.dat, in the program's data folder.
//
// Layout, little-endian, no padding: int16 number of dimensions (1), int32
// element count, int32 lower bound (0), then per element an int16 row number
// followed by eight texts (M, N, Sv, Sh, Ex, Angle, C, CPrime), each a uint16
// byte length and that many Windows-1252 bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/core/FileIO.h"

namespace BoltRows {

inline constexpr const char* kBoltDataFileName = "BoltInputData.dat";

// One row of the grid: its row number and the eight cell texts as shown
// (UTF-8 in memory), trailing blanks of their formats included.
struct BoltRecord {
    int16_t Row = 0;
    std::string M, N, Sv, Sh, Ex, Angle, C, CPrime;
    bool operator==(const BoltRecord&) const = default;
};

// The largest file the program writes: 32,766 grid rows, each with eight
// texts as long as the longest cell text, a formatted number with a sign, the
// 309 digits and 102 thousands separators of the largest double, three
// decimals and two trailing blanks. A longer file is refused from its size.
inline constexpr size_t kMaxRecords = 32766;
inline constexpr size_t kLongestText = 1 + 309 + 102 + 4 + 2;
inline constexpr size_t kMaxFileBytes = 10 + kMaxRecords * (2 + 8 * (2 + kLongestText));

// What a read of the file came to. Only Malformed deletes the file.
enum class ReadResult {
    Loaded,      // records replaced
    NoFile,      // no file, or an empty one (then removed): no message
    Unreadable,  // the file could not be opened or read: message shown, file left alone
    TooLarge,    // longer than kMaxFileBytes: message shown, file renamed aside (fileio::SetAside)
    Malformed,   // the bytes are not a table: message shown, file deleted
};

// Receives the text of an error message ("Error No. 62:  Input past end of
// file"); the window shows it with the title "Warning:" and the critical icon.
using ErrorFn = std::function<void(const std::string& message)>;

// An error of a read or a write, numbered as the program reports it.
using BoltDataError = fileio::IoError;

// The whole file image of `records`; false (with the error, Overflow) when a
// text is longer than a length field can tell or the image is longer than
// kMaxFileBytes.
bool EncodeBoltRecords(const std::vector<BoltRecord>& records, std::string& bytes,
                       BoltDataError& error);
// Reads a file image. The element count must be one the program writes (at
// most kMaxRecords), and every count and length is checked against the bytes
// held, before anything is allocated; false (with the error, `records`
// untouched) when they do not fit. Bytes after the last element are ignored.
bool DecodeBoltRecords(std::string_view bytes, std::vector<BoltRecord>& records,
                       BoltDataError& error);

// Reads the file into `records`. With no file, or an empty one, nothing is
// said. A file whose bytes are malformed is deleted after the error message.
// One longer than kMaxFileBytes is reported ("Error No. 7:  Out of memory")
// and renamed aside. A file that cannot be opened or read (permissions, an
// I/O error, not a regular file) is left alone after the message. `records`
// is changed only when the file was loaded. No file is created.
ReadResult BoltData_Read(std::vector<BoltRecord>& records, const std::string& path, const ErrorFn& ShowError);

// Writes `records` to the file. The new file replaces the old one only once
// it is completely written, so a failed write leaves the old file as it was;
// the failure is shown through `ShowError`.
void BoltData_Write(const std::vector<BoltRecord>& records, const std::string& path,
                    const ErrorFn& ShowError);

}  // namespace BoltRows
