// A calculation sheet out of a window: the title block asked before the
// first sheet of a run (project, job number, engineer and checker
// remembered in the settings, with the paper and whether to open the PDF),
// then written as a PDF through the file dialog seam, or printed through
// the print dialog with the same painter.
#pragma once

#include <functional>

#include "shell/core/Sheet.h"

class QPrinter;
class QPushButton;
class QWidget;

namespace sheetui {

// The remembered title block with today's date; the dialog first when it
// has not been shown in this run, or when `ask` says so. False when cancelled.
bool Title_Block(QWidget* parent, sheet::TitleBlock& title, bool ask = false);

// Builds the sheet with the title block and writes it as a PDF the user
// names, or prints it. A message says why when it cannot; false then, or
// when the user cancelled.
bool Export_Pdf(QWidget* parent, const std::function<sheet::Sheet(const sheet::TitleBlock&)>& make);
bool Print(QWidget* parent, const std::function<sheet::Sheet(const sheet::TitleBlock&)>& make);

// The two buttons of a tool window, "Sheet as PDF..." (SheetPdfButton,
// Ctrl+E) and "Print Sheet..." (SheetPrintButton, Ctrl+P), disabled until the
// window enables them; a click asks `maker` for the sheet's builder.
using Maker = std::function<sheet::Sheet(const sheet::TitleBlock&)>;
struct SheetButtons {
    QPushButton* Pdf = nullptr;
    QPushButton* Print = nullptr;
    void SetEnabled(bool on) const;
};
SheetButtons Make_SheetButtons(QWidget* parent, std::function<Maker()> maker);

// The print dialog behind a seam: a test sets the printer up (to a PDF file)
// and answers true to print; an empty function puts the dialog back.
using PrintSeam = std::function<bool(QWidget* parent, QPrinter& printer)>;
void SetPrintSeam(PrintSeam seam);

}  // namespace sheetui
