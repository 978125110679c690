// The line data dialog's arithmetic: the texts that describe one line, and
// Apply, which sets a new length and then a new angle about a chosen base
// point. The dialog itself only copies these texts to its widgets.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "board/core/Viewport.h"

namespace LineData {

using Layout::LayoutDocument;
using Layout::PointRec;

// Base points, in the order of the list.
namespace BasePoint {
constexpr int16_t Start = 0;
constexpr int16_t Mid = 1;
constexpr int16_t End = 2;
}  // namespace BasePoint
inline constexpr std::array<const char*, 3> kBasePointEntries = {"   Start Point", "   MidPoint", "   End Point"};

// The read-only captions of the dialog.
struct LineDataTexts {
    std::string LineNameBox;
    std::string StartPTx, StartPTy;
    std::string EndPTx, EndPTy;
    std::string SegLen;
    std::string RotAng, xRotAng;
};

// The captions for a line from selStart to selEnd (board units). With
// `architectural`, coordinates and length read as feet and inches.
LineDataTexts Refresh_LineData(const LayoutDocument& doc, const std::string& lineName, const PointRec& selStart,
                               const PointRec& selEnd, bool architectural);

// Sets the row's length to `inches`, keeping the base point; the row becomes
// selected. False (row unchanged) for a line of length 0 or a length that
// does not fit the board.
bool Apply_Length(LayoutDocument& doc, int16_t index, double inches, int16_t basePoint);
// Turns the row to `degrees` (counterclockwise on the screen) about the base
// point, keeping its length; the row becomes selected. False when nothing changed.
bool Apply_Angle(LayoutDocument& doc, int16_t index, double degrees, int16_t basePoint);

struct ApplyResult {
    bool Refused = false;  // the length did not read: show kInvalidLength, focus LenBox, select its text
    bool Changed = false;  // the row was changed: repaint the board and the grips
    std::string LenBoxText;
    std::string RotBoxText;
};

// The Apply button: the length first (when LenBox holds text), then the
// angle on the result (when RotBox holds text). A refused length leaves
// everything, the angle included, as it was. Crossings are rebuilt.
ApplyResult Apply_LineData(LayoutDocument& doc, int16_t index, std::string_view lenText, std::string_view rotText,
                           int16_t basePoint);

}  // namespace LineData
