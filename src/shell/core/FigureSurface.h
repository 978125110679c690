// A drawing surface that records what is drawn on it into a sheet figure,
// so that the pictures of a result are drawn for paper by the same routine
// as on the screen. Surface units are figure inches times `unitsPerInch`,
// measured right and down from the region's upper left corner (the figure
// measures up).
#pragma once

#include <string>

#include "shell/core/DrawSurface.h"
#include "shell/core/Sheet.h"

namespace shell {

class FigureSurface : public DrawSurface {
public:
    // The region of the figure (its inches) the surface covers.
    FigureSurface(sheet::Figure& figure, double minX, double minY, double maxX, double maxY, double unitsPerInch)
        : f_(figure), left_(minX), top_(maxY), k_(unitsPerInch), w_((maxX - minX) * k_), h_((maxY - minY) * k_) {}

    double ScaleWidth() const override { return w_; }
    double ScaleHeight() const override { return h_; }
    void Cls() override {}
    void Line(double x1, double y1, double x2, double y2, uint32_t color) override {
        f_.Lines.push_back({X(x1), Y(y1), X(x2), Y(y2), Rgb(color), 0.5 + 0.3 * DrawWidth, DrawStyle != PenStyle::Solid,
                            false});
        CurrentX = x2;
        CurrentY = y2;
    }
    void Circle(double x, double y, double radius, uint32_t color) override {
        // Surface units stand for paper inches, near enough, at the figure's scale.
        f_.Circles.push_back({X(x), Y(y), radius * 72.0, Rgb(color), false});
    }
    void Print(const std::string& text) override {
        f_.Labels.push_back({X(CurrentX), Y(CurrentY + TextHeight() / 2), text, Rgb(ForeColor),
                             sheet::Figure::Align::Left, 0.0, 0.0});
        CurrentY += TextHeight();
    }
    // Where the group's point (gx, gy) of a run lies for the result painter:
    // the figure point (x0 + gx, y0 + gy), gx negated when mirrored.
    double OriginX(double x0) const { return (x0 - left_) * k_; }
    double OriginY(double y0) const { return (top_ - y0) * k_; }
    double UnitsPerInch() const { return k_; }

private:
    double X(double x) const { return left_ + x / k_; }
    double Y(double y) const { return top_ - y / k_; }
    // The surface's colours are 0x00BBGGRR, the figure's 0xRRGGBB; the
    // screen's white becomes black on paper.
    static uint32_t Rgb(uint32_t bgr) {
        if (bgr == kWhite) return sheet::kInk;
        return ((bgr & 0xFF) << 16) | (bgr & 0xFF00) | ((bgr >> 16) & 0xFF);
    }

    sheet::Figure& f_;
    double left_, top_, k_, w_, h_;
};

}  // namespace shell
