// A drawing surface for core tests: it records every operation with the pen
// it was drawn with.
#pragma once

#include <string>
#include <vector>

#include "board/core/DrawSurface.h"

struct RecordedOp {
    std::string Kind;  // "Cls", "Line", "Circle", "Print"
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    uint32_t Color = 0;
    board::PenMode Mode = board::PenMode::Copy;
    board::PenStyle Style = board::PenStyle::Solid;
    int Width = 1;
    std::string Text;
};

class RecordingSurface : public board::DrawSurface {
public:
    double W = 9975.0 / 1440.0, H = 7305.0 / 1440.0;
    std::vector<RecordedOp> Ops;
    board::Pointer LastPointer = board::Pointer::Default;
    std::string ToolTip;

    double ScaleWidth() const override { return W; }
    double ScaleHeight() const override { return H; }
    void Cls() override { Add("Cls", 0, 0, 0, 0, 0); }
    void Line(double x1, double y1, double x2, double y2, uint32_t c) override { Add("Line", x1, y1, x2, y2, c); }
    void Circle(double x, double y, double r, uint32_t c) override { Add("Circle", x, y, r, 0, c); }
    void Print(const std::string& t) override { Add("Print", CurrentX, CurrentY, 0, 0, ForeColor, t); }
    void SetMousePointer(board::Pointer p) override { LastPointer = p; }
    void SetToolTipText(const std::string& t) override { ToolTip = t; }

    std::vector<RecordedOp> OfKind(const std::string& k) const {
        std::vector<RecordedOp> out;
        for (const auto& o : Ops)
            if (o.Kind == k) out.push_back(o);
        return out;
    }

private:
    void Add(const char* kind, double x1, double y1, double x2, double y2, uint32_t c, const std::string& t = {}) {
        Ops.push_back({kind, x1, y1, x2, y2, c, DrawMode, DrawStyle, DrawWidth, t});
    }
};
