// Lays a calculation sheet out on pages with one painter routine, the same
// for a PDF file and for a printer: the title block at the head of the first
// page, the figures to a stated scale, the sections, and at the foot of every
// page the layout's file name, the program's version and the page number.
// Everything is vector: text stays text.
#pragma once

#include <memory>
#include <string>

#include "shell/core/Sheet.h"

class QGuiApplication;
class QPainter;
class QPagedPaintDevice;

namespace sheetprint {

// Text needs a running QGuiApplication; a program without one (the command
// line) holds this while it makes sheets: an application on the offscreen
// platform, which needs no display.
class PaintingContext {
public:
    PaintingContext();
    ~PaintingContext();
    PaintingContext(const PaintingContext&) = delete;
    PaintingContext& operator=(const PaintingContext&) = delete;

private:
    std::unique_ptr<QGuiApplication> app_;
};

// Paints the sheet on a device whose painter is begun; returns the pages.
int Paint(QPainter& painter, QPagedPaintDevice& device, const sheet::Sheet& s);

// The sheet as the bytes of a PDF file on US Letter or A4 (empty on failure).
std::string PdfBytes(const sheet::Sheet& s, sheet::Paper paper);

// Writes the PDF through a temporary file and a rename: "" when written,
// else the reason in one line; nothing half-written is left.
std::string WritePdf(const sheet::Sheet& s, sheet::Paper paper, const std::string& path);

// The largest of the usual drawing scales at which `extent` drawing inches
// fit `room` paper inches, as paper inches per drawing inch, and its text
// ("1-1/2\" = 1'-0\"", or "1:250" beyond the usual ones).
struct Scale {
    double factor = 1.0;
    std::string text;
};
Scale Fit_Scale(double extent, double room);

}  // namespace sheetprint
