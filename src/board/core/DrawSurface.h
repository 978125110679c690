// The board's names for the picture surface (shell/core/DrawSurface.h), its
// colour numbers and the marks that stand over its picture.
#pragma once

#include <cstdint>

#include "shell/core/DrawSurface.h"

namespace board {

using shell::DrawSurface;
using shell::PenMode;
using shell::PenStyle;
using shell::Pointer;
using shell::kWhite;

// Colours are 0x00BBGGRR, as the board's colour numbers are written.
uint32_t QBColor(int index);
constexpr uint32_t kDimGrey = 0x404040;

// Small marks that stand over the picture without being part of it: the
// snap pick box, the grips of a line, the rotate base with its cross hairs.
struct BoardMarks {
    struct Box {
        bool Visible = false;
        double X = 0.0, Y = 0.0;  // centre, board units
    };
    Box PickBox, StartBox, MidBox, EndBox, RotBox;
    bool RotLines = false;  // horizontal and vertical through RotBox
};

}  // namespace board
