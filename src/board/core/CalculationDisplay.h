// The calculation display of the board: the weld group fitted to the middle
// of the board with its center of gravity, a label at each line, the layout
// data in the lower left corner and the load symbol; the pick of the load's
// side; and the texts of the load panel's two boxes, which the window copies
// to its controls.
#pragma once

#include <cstdint>
#include <string>

#include "board/core/BoardState.h"
#include "board/core/ResultsOverlay.h"

namespace CalculationView {

using board::DrawSurface;
using Layout::LayoutDocument;
using Layout::LineTable;
using Layout::LoadRec;

// Share of the board the group fills on the calculation display.
constexpr float kFitFactor = 0.65f;

// What the display keeps between calls: the center of gravity of the last
// fit, in board units, and the texts the load panel's boxes are to show.
struct CalcState {
    double cx = 0.0;
    double cy = 0.0;
    std::string EcInput;
    std::string RotInput;
    int EcSerial = 0;  // each grows when its text is written anew
    int RotSerial = 0;
    RunResults Results;  // the last capacity run's, drawn over the display
};

// Fits the group to k of the board, draws it with its center of gravity, the
// line labels and the layout data, and stores the center in `s`. False, with
// nothing drawn, when the board holds no line.
bool Zoom_Fit_Load(BoardState::Board& b, CalcState& s, float k);
// "L=" and the length above the middle of each line, "Ø=" and its angle to
// the horizontal below it.
void Label_Lines(DrawSurface& board, const LayoutDocument& doc, const LineTable& t);
// The count and the total length of the lines in the lower left corner.
void Layout_Data(DrawSurface& board, const LayoutDocument& doc, const LineTable& t);

// Repaints the display and draws the load symbol. `how` 1 (a click) takes the
// side of the pointer; `how` 0 keeps a placed load's side and moves it onto
// the new center of gravity.
void Place_Load(BoardState::Board& b, CalcState& s, int how);
// Place_Load, then the load counts as placed when the board has lines.
void Refresh_Load(BoardState::Board& b, CalcState& s, int how);

// The load's eccentricity (feet and inches) and angle (degrees) written into
// the boxes' texts.
void Write_Inputs(const LoadRec& load, CalcState& s);
// A typed eccentricity or angle applied to the load, and the box's text
// rewritten in its usual form (feet and inches; the angle brought into 0 up
// to 360 with a degree sign). False, with load and text unchanged, when the
// text is not a length or not a number.
bool Apply_Eccentricity(const std::string& text, LoadRec& load, CalcState& s);
bool Apply_Rotation(const std::string& text, LoadRec& load, CalcState& s);

// The steps of entering CALCULATION once the board was cleared, and the left
// click on the board in CALCULATION.
void Enter_Calculation(BoardState::Board& b, CalcState& s);
void Calculation_Click(BoardState::Board& b, CalcState& s);

}  // namespace CalculationView
