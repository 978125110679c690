// DXF drawings as the board exchanges them with CAD programs: the straight
// segments of a drawing read through dxflib, and a drawing of lines and
// texts on named layers written through it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace Dxf {

// Units of a drawing from its $INSUNITS header variable.
enum class Units { Unitless, Inches, Feet, Millimetres, Centimetres, Metres, Other };

// Inches in one drawing unit (1 for Unitless and Other).
double InchesPer(Units units);
// "in", "ft", "mm", "cm", "m", or "" for unitless and other units.
const char* UnitWord(Units units);
// Reads "in", "ft", "mm", "cm" or "m"; false (units untouched) otherwise.
bool ParseUnitWord(const std::string& word, Units& units);

// One straight segment in drawing units, with the layer it was drawn on.
struct Segment {
    double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
    int32_t layer = 0;  // index into Drawing::Layers
};

struct Drawing {
    Units units = Units::Unitless;
    std::vector<std::string> Layers;  // in the order they were first met
    std::vector<Segment> Segments;    // LINEs and straight polyline pieces, in file order
    int64_t Skipped = 0;              // arcs, circles, splines, texts, blocks, curved polyline pieces ...
};

// Why a file gave no drawing.
enum class ReadError { None, CannotOpen, NotDxf, CutShort, Cancelled };

// Reads the file. `progress` (may be empty) is called now and then with the
// share of the file read so far; returning false cancels the read. Only the
// segments are held, never the file's text, so a large file costs little
// more than its segments.
ReadError Read(const std::string& path, Drawing& drawing, const std::function<bool(double)>& progress = {});
// The same from an open file of `size` bytes (a memory file in the fuzz test).
ReadError Read(std::FILE* file, long size, Drawing& drawing, const std::function<bool(double)>& progress = {});

// What a reader says about a failed read, in one line.
std::string ErrorText(ReadError error, const std::string& path);

// ---- Writing -------------------------------------------------------------------

struct Line {
    double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
    std::string layer;
};
struct Text {
    double x = 0.0, y = 0.0, height = 0.0, angle = 0.0;  // angle in degrees
    std::string text, layer;
};
struct Circle {
    double x = 0.0, y = 0.0, radius = 0.0;
    std::string layer;
};
struct Layer {
    std::string name;
    int colour = 7;  // the CAD colour number
};

// A drawing to write: layers, lines, circles and texts in inches ($INSUNITS = 1).
struct Output {
    std::vector<Layer> Layers;
    std::vector<Line> Lines;
    std::vector<Circle> Circles;
    std::vector<Text> Texts;
};

// The bytes of the drawing as a DXF file (AutoCAD 2000 format); empty when
// the library could not write it.
std::string Write(const Output& output);

}  // namespace Dxf
