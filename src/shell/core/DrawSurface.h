// The picture surface the program's drawing procedures paint on: lines,
// circles and text in surface units (inches, Y down), with the pen and font
// properties of a picture control. The board implements it over an image,
// the windows' small pictures over a painter, tests with a recorder.
#pragma once

#include <cstdint>
#include <string>

namespace shell {

// Pen modes: copy paints the colour, invert flips every pixel it touches so
// that drawing the same figure twice restores the picture.
enum class PenMode : int16_t { Invert = 6, Copy = 13 };
enum class PenStyle : int16_t { Solid = 0, Dash = 1, Dot = 2 };

// Pointer shapes of the board: the default arrow, the cross, and the three
// custom cursors (pick box, pan hand, window box).
enum class Pointer : int16_t { Default = 0, Cross = 2, PickBox = 101, PanHand = 102, WindowBox = 103 };

constexpr uint32_t kWhite = 0xFFFFFF;  // colours are 0x00BBGGRR

class DrawSurface {
public:
    virtual ~DrawSurface() = default;

    // Pen, text position and font; read by the drawing operations below.
    PenMode DrawMode = PenMode::Copy;
    PenStyle DrawStyle = PenStyle::Solid;
    int16_t DrawWidth = 1;  // in pixels of the logical screen
    uint32_t ForeColor = kWhite;
    double CurrentX = 0.0;
    double CurrentY = 0.0;
    std::string FontName = "Tahoma";
    double FontSize = 8.0;
    bool FontBold = false;
    bool AutoRedraw = true;

    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;

    // Clears to the background and puts the text position at the corner.
    virtual void Cls() = 0;
    // A line with the present pen; leaves CurrentX, CurrentY at its end.
    virtual void Line(double x1, double y1, double x2, double y2, uint32_t color) = 0;
    virtual void Circle(double x, double y, double radius, uint32_t color) = 0;
    // Text at CurrentX, CurrentY (its top left) in ForeColor and the font;
    // then the position moves to the start of the next text line.
    virtual void Print(const std::string& text) = 0;
    // Size of a text in the present font, in board units. This estimate from
    // the character count serves surfaces that cannot measure text.
    virtual double TextWidth(const std::string& text) const {
        size_t chars = 0;
        for (unsigned char c : text) chars += (c & 0xC0) != 0x80;  // UTF-8 lead bytes
        return static_cast<double>(chars) * FontSize * 0.0075;
    }
    virtual double TextHeight() const { return FontSize / 72.0 * 1.2; }
    // Shows what was drawn since the last refresh.
    virtual void Refresh() {}

    virtual void SetMousePointer(Pointer) {}
    virtual void SetToolTipText(const std::string&) {}
};

}  // namespace shell
