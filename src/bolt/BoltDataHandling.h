// The rows of the bolt coefficient table kept between runs in one binary
// file, BoltInputData.dat, in the program's data folder.
//
// Layout, little-endian, no padding: int16 number of dimensions (1), int32
// element count, int32 lower bound (0), then per element an int16 row number
// followed by eight texts (M, N, Sv, Sh, Ex, Angle, C, CPrime), each a uint16
// byte length and that many Windows-1252 bytes.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/FileIO.h"

namespace BoltDataHandling {

inline constexpr const char* kBoltDataFileName = "BoltInputData.dat";

// One row of the grid: its row number and the eight cell texts as shown
// (UTF-8 in memory), trailing blanks of their formats included.
struct BoltRecord {
    int16_t Row = 0;
    std::string M, N, Sv, Sh, Ex, Angle, C, CPrime;
    bool operator==(const BoltRecord&) const = default;
};

// Receives the text of an error message ("Error No. 62:  Input past end of
// file"); the window shows it with the title "Warning:" and the critical icon.
using ErrorFn = std::function<void(const std::string& message)>;

// An error of a read or a write, numbered as the program reports it.
using BoltDataError = fileio::IoError;

// The whole file image of `records`; false (with the error) when a text is
// longer than a length field can tell.
bool EncodeBoltRecords(const std::vector<BoltRecord>& records, std::string& bytes,
                       BoltDataError& error);
// Reads a file image. Every count and length is checked against the bytes
// held; false (with the error, `records` untouched) when they do not fit.
// Bytes after the last element are ignored.
bool DecodeBoltRecords(std::string_view bytes, std::vector<BoltRecord>& records,
                       BoltDataError& error);

// Reads the file into `records` and sets `status` to 0. With no file, or an
// empty one, `status` becomes -1 and nothing is said. A file that cannot be
// read is deleted after the error message; `status` then stays as it was.
// No file is created.
void BoltData_Read(std::vector<BoltRecord>& records, const std::string& path, int16_t& status,
                   const ErrorFn& ShowError);

// Writes `records` to the file. The new file replaces the old one only once
// it is completely written, so a failed write leaves the old file as it was;
// the failure is shown through `ShowError`.
void BoltData_Write(const std::vector<BoltRecord>& records, const std::string& path,
                    const ErrorFn& ShowError);

}  // namespace BoltDataHandling
