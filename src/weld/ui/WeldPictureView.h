// Painting of the standard weld configurations: the shape's welds, the
// dimensions L, kL and aL, the centroid and the load P at its angle, drawn
// from the geometry of WeldPicture so that every k and a is shown true.
#pragma once

#include <QIcon>
#include <QWidget>

#include "shell/core/ResultPicture.h"
#include "weld/core/WeldPicture.h"

class QPainter;

// Paints `picture` into `area`; without labels (list icons) only the welds
// and the load are drawn.
void PaintWeldPicture(QPainter& painter, const QRectF& area, const WeldPicture::Model& picture, bool labels);

// A small icon of a configuration for the configuration list.
QIcon WeldConfigIcon(int16_t config, int size, qreal devicePixelRatio);

// WeldImage: the picture of the chosen configuration.
class WeldImageView : public QWidget {
public:
    explicit WeldImageView(QWidget* parent = nullptr);
    void SetPicture(const WeldPicture::Model& picture);
    const WeldPicture::Model& Picture() const { return picture_; }
    // The center and forces of the last run over the picture; the run's
    // positions are in the units of the base length L.
    void SetResults(const shell::SolveRecord& record, double L);
    void ClearResults();
    const shell::SolveRecord& Results() const { return results_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    WeldPicture::Model picture_;
    shell::SolveRecord results_;
    double length_ = 1.0;
};
