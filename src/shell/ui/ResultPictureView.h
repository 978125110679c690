// The small picture of a solved group in a window: the group (weld lines or
// bolts) on black with the center and force arrows of ResultPicture, drawn
// through a DrawSurface over the widget's painter. PainterSurface serves any
// widget that wants to draw the results into its own picture.
#pragma once

#include <QPainter>
#include <QWidget>

#include "shell/core/ResultPicture.h"

// A DrawSurface over an open painter: units are inches of the logical screen.
class PainterSurface : public shell::DrawSurface {
public:
    PainterSurface(QPainter& painter, const QSizeF& logicalSize, double dpi);
    double ScaleWidth() const override { return size_.width() / dpi_; }
    double ScaleHeight() const override { return size_.height() / dpi_; }
    void Cls() override;
    void Line(double x1, double y1, double x2, double y2, uint32_t color) override;
    void Circle(double x, double y, double radius, uint32_t color) override;
    void Print(const std::string& text) override;
    double TextWidth(const std::string& text) const override;
    double TextHeight() const override;

private:
    QFont Font() const;
    QPen Pen(uint32_t color) const;
    QPainter& p_;
    QSizeF size_;
    double dpi_;
};

class ResultPictureView : public QWidget {
public:
    explicit ResultPictureView(QWidget* parent = nullptr);
    // The group to show; mirrorX when the solver saw it mirrored.
    void SetGroup(const ResultPicture::Outline& outline, bool mirrorX);
    // The center and forces to show over it (none: the group alone).
    void SetResults(const shell::SolveRecord& record, const ResultPicture::Labels& labels);
    void ClearResults();
    const shell::SolveRecord& Results() const { return record_; }
    const ResultPicture::Placement& Where() const { return where_; }
    // Room to read the arrows; the window may still shrink it to its minimum.
    QSize sizeHint() const override { return {fontMetrics().height() * 24, fontMetrics().height() * 15}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ResultPicture::Outline outline_;
    bool mirrorX_ = false;
    shell::SolveRecord record_;
    ResultPicture::Labels labels_;
    ResultPicture::Placement where_;
};
