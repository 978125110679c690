// The .wld layout file and the change test of the document.
//
// A .wld file is the image of the document in one record, little-endian, no
// padding: the viewport as four doubles (ZoomBase, ZoomScale, OriginY,
// OriginX), the line table, the dimension table, LineCounter and the load.
// Each table starts with a 10-byte header (dimension count 1, row count,
// lower bound 0).
#pragma once

#include <string>
#include <string_view>

#include "board/core/LayoutDocument.h"
#include "shell/core/FileIO.h"

namespace LayoutFile {

using Layout::DimTable;
using Layout::LayoutDocument;
using Layout::LineTable;

// A failed write: Number and Description make the window's message
// "Error No. <Number>:  <Description>". Number 0 means success.
using FileError = fileio::IoError;

// The bytes of the file for a document.
std::string Layout_Bytes(const LayoutDocument& doc);
// Reads the bytes of a file into the document (viewport, Dims, Lines,
// LineCounter, Load). On any inconsistency, or a value the program never
// writes (a point whose world coordinates overflow a single, a load beyond a
// single, a view other than the program's), the document is left untouched
// and the result is false.
bool Layout_FromBytes(std::string_view bytes, LayoutDocument& doc);

// Writes the document to path through a temporary file in the same folder and
// a rename: the old file survives a failed write.
FileError Write_Layout(const LayoutDocument& doc, const std::string& path);
// The largest file that can hold a layout the program makes: 32,767 lines
// with the longest names and 32,767 dimensions. A longer file is refused from
// its size alone.
size_t Layout_MaxFileBytes();
// Why a layout was not read.
enum class ReadFailure { None, Missing, NoPermission, NotRegular, Unreadable, TooLarge, Empty, Damaged };
struct LayoutRead {
    ReadFailure Failure = ReadFailure::None;
    // The system's error for a file that could not be opened or read (Missing,
    // NoPermission, NotRegular, Unreadable) and for one too large (error 7).
    FileError Error;
    bool Ok() const { return Failure == ReadFailure::None; }
    // The cause in a few words: "no permission", "damaged", "too large", ...
    std::string Cause() const;
};
// Replaces the document by the file's content. The document is unchanged and
// the result says why when the file cannot be read, is longer than
// Layout_MaxFileBytes() or does not hold a layout.
LayoutRead Read_Layout_Checked(LayoutDocument& doc, const std::string& path);
// The same, true when the document was replaced.
bool Read_Layout(LayoutDocument& doc, const std::string& path);

// The text behind the last path separator of path (the whole text when there
// is none). Both "/" and "\" separate.
std::string File_Title(const std::string& path);

// Whether the document differs from what was last loaded or saved. Only the
// last row of each table is compared (after the row counts), and the Y of
// DimP2 is not compared: edits elsewhere do not count as a change.
bool Layout_Changed(const LayoutDocument& doc);
bool Lines_Differ(const LayoutDocument& doc, const LineTable& a, const LineTable& b);
bool Dims_Differ(const LayoutDocument& doc, const DimTable& a, const DimTable& b);

}  // namespace LayoutFile
