#include "weld/ui/WeldPictureView.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <algorithm>
#include <cmath>

#include "shell/core/Primitives.h"
#include "shell/ui/ResultPictureView.h"

namespace {

using WeldPicture::Point;
using WeldPicture::Side;

const QColor kWeld(0x00, 0x30, 0x90);
const QColor kDim(0x40, 0x40, 0x40);
const QColor kLoad(0xC0, 0x00, 0x00);

// Board to widget: uniform scale, Y down, the picture centred in the area.
struct Mapping {
    double scale = 1.0;
    QPointF origin;  // widget point of (min.x, max.y)
    double minX = 0, maxY = 0;
    QPointF operator()(const Point& p) const {
        return {origin.x() + (p.x - minX) * scale, origin.y() + (maxY - p.y) * scale};
    }
};

Mapping Fit(const QRectF& area, const WeldPicture::Model& m, double margin) {
    const double spanX = std::max(m.max.x - m.min.x, 0.05);
    const double spanY = std::max(m.max.y - m.min.y, 0.05);
    Mapping map;
    map.scale = std::max(1.0, std::min((area.width() - 2 * margin) / spanX, (area.height() - 2 * margin) / spanY));
    map.minX = m.min.x;
    map.maxY = m.max.y;
    const double w = (m.max.x - m.min.x) * map.scale;
    const double h = (m.max.y - m.min.y) * map.scale;
    map.origin = {area.left() + (area.width() - w) / 2, area.top() + (area.height() - h) / 2};
    return map;
}

// Room around the shape for the dimensions (or a thin edge for icons).
double Margin(const QPainter& p, bool labels) {
    return labels ? std::max(40.0, QFontMetricsF(p.font()).height() * 3.6) : 3.0;
}

void Arrowhead(QPainter& p, const QPointF& tip, const QPointF& from, double size) {
    const QPointF d = tip - from;
    const double len = std::hypot(d.x(), d.y());
    if (len <= 0) return;
    const QPointF u = d / len;
    const QPointF n(-u.y(), u.x());
    QPainterPath head;
    head.moveTo(tip);
    head.lineTo(tip - u * size + n * size * 0.45);
    head.lineTo(tip - u * size - n * size * 0.45);
    head.closeSubpath();
    p.fillPath(head, p.pen().color());
}

void PaintDimension(QPainter& p, const Mapping& map, const WeldPicture::Dimension& d, double offset) {
    QPointF a = map(d.from);
    QPointF b = map(d.to);
    if (QLineF(a, b).length() < 2) return;
    QPointF shift;
    switch (d.side) {
        case Side::Left: shift = {-offset, 0}; break;
        case Side::Right: shift = {offset, 0}; break;
        case Side::Below: shift = {0, offset}; break;
        case Side::Above: shift = {0, -offset}; break;
    }
    const QPointF a2 = a + shift;
    const QPointF b2 = b + shift;
    p.setPen(QPen(kDim, 1));
    p.drawLine(a, a2 + shift * 0.25);
    p.drawLine(b, b2 + shift * 0.25);
    p.drawLine(a2, b2);
    Arrowhead(p, a2, b2, 7);
    Arrowhead(p, b2, a2, 7);
    const QString text = QString::fromStdString(d.text);
    const QFontMetricsF fm(p.font());
    const QPointF mid = (a2 + b2) / 2;
    QRectF box(0, 0, fm.horizontalAdvance(text) + 4, fm.height());
    switch (d.side) {
        case Side::Left: box.moveCenter(mid - QPointF(box.width() / 2 + 3, 0)); break;
        case Side::Right: box.moveCenter(mid + QPointF(box.width() / 2 + 3, 0)); break;
        case Side::Below: box.moveCenter(mid + QPointF(0, box.height() / 2 + 1)); break;
        case Side::Above: box.moveCenter(mid - QPointF(0, box.height() / 2 + 1)); break;
    }
    p.drawText(box, Qt::AlignCenter, text);
}

}  // namespace

void PaintWeldPicture(QPainter& p, const QRectF& area, const WeldPicture::Model& m, bool labels) {
    if (m.welds.empty()) return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const Mapping map = Fit(area, m, Margin(p, labels));

    p.setPen(QPen(kWeld, labels ? 4 : 2.5, Qt::SolidLine, Qt::SquareCap));
    for (const auto& s : m.welds) {
        const QPointF a = map(s.a), b = map(s.b);
        if (QLineF(a, b).length() < 0.5) p.drawPoint(a);
        else p.drawLine(a, b);
    }

    const QPointF load = map(m.loadPoint);
    const QPointF tail = map(m.loadTail);
    if (labels) {
        const double offset = QFontMetricsF(p.font()).height() * 0.9;
        for (const auto& d : m.dims) {
            // The arm is measured below the welds: dashed lines bring the
            // centroid and the load down to it.
            const bool arm = d.text == "aL";
            if (arm) {
                p.setPen(QPen(kDim, 1, Qt::DashLine));
                p.drawLine(map(m.centroid), map(d.from));
                p.drawLine(load, map(d.to));
            }
            PaintDimension(p, map, d, arm ? offset * 2.4 : offset);
        }
        // The centroid: a small cross in a circle.
        const QPointF c = map(m.centroid);
        p.setPen(QPen(kDim, 1));
        p.drawEllipse(c, 4, 4);
        p.drawLine(c - QPointF(7, 0), c + QPointF(7, 0));
        p.drawLine(c - QPointF(0, 7), c + QPointF(0, 7));
        // The vertical from which the angle is measured.
        if (m.angle != 0) {
            p.setPen(QPen(kDim, 1, Qt::DashLine));
            p.drawLine(load, QPointF(load.x(), tail.y()));
        }
    }
    p.setPen(QPen(kLoad, labels ? 2 : 1.5));
    p.drawLine(tail, load);
    Arrowhead(p, load, tail, labels ? 10 : 5);
    if (labels) {
        p.setPen(kLoad);
        QFont bold = p.font();
        bold.setBold(true);
        p.setFont(bold);
        const QFontMetricsF fm(bold);
        p.drawText(QRectF(tail.x() + 4, tail.y() - fm.height(), fm.horizontalAdvance("P") + 4, fm.height()),
                   Qt::AlignCenter, QStringLiteral("P"));
        if (m.angle != 0) {
            const QString phi = QStringLiteral("\u00D8");
            const QPointF at((load.x() + tail.x()) / 2, tail.y() + (load.y() - tail.y()) * 0.25);
            const double w = fm.horizontalAdvance(phi) + 4;
            // On the far side of the vertical from the arrow, clear of it.
            const bool right = tail.x() >= load.x();
            p.drawText(QRectF(right ? load.x() - w - 2 : load.x() + 2, at.y() - fm.height() / 2, w, fm.height()),
                       Qt::AlignCenter, phi);
        }
    }
    p.restore();
}

QIcon WeldConfigIcon(int16_t config, int size, qreal devicePixelRatio) {
    QPixmap pix(QSize(size, size) * devicePixelRatio);
    pix.setDevicePixelRatio(devicePixelRatio);
    pix.fill(Qt::white);
    QPainter p(&pix);
    PaintWeldPicture(p, QRectF(0, 0, size, size), WeldPicture::Picture(config, 0.6, 0.5, 0), false);
    p.end();
    return QIcon(pix);
}

WeldImageView::WeldImageView(QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, Qt::white);
    setPalette(pal);
}

void WeldImageView::SetPicture(const WeldPicture::Model& picture) {
    picture_ = picture;
    update();
}

void WeldImageView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setPen(QPen(palette().color(QPalette::Mid), 1));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    PaintWeldPicture(p, QRectF(rect()), picture_, true);
    if (results_.Forces.empty() || picture_.welds.empty()) return;
    // The run's group axes stand at the centroid, in units of L of the picture.
    const Mapping map = Fit(QRectF(rect()), picture_, Margin(p, true));
    const QPointF c = map(picture_.centroid);
    const double dpi = logicalDpiX();
    ResultPicture::Placement where;
    where.OriginX = c.x() / dpi;
    where.OriginY = c.y() / dpi;
    where.Scale = map.scale / dpi / length_;
    PainterSurface s(p, size(), dpi);
    const double most = ResultPicture::Largest(results_);
    ResultPicture::Labels labels{"IC  x = " + prim::Format(results_.CenterX / length_, "0.000") + " L   y = " +
                                     prim::Format(results_.CenterY / length_, "0.000") + " L",
                                 "Max. force = " + prim::Format(most, "0.000") + " k/in", 0, true};
    // The picture's P points down its line of action, the solver's load up
    // it: the same center, every force reversed.
    shell::SolveRecord shown = results_;
    for (shell::ElementForce& e : shown.Forces) {
        e.DirX = -e.DirX;
        e.DirY = -e.DirY;
    }
    ResultPicture::Draw_Results(s, shown, where, labels);
}

void WeldImageView::SetResults(const shell::SolveRecord& record, double L) {
    results_ = record;
    length_ = L > 0.0 ? L : 1.0;
    update();
}

void WeldImageView::ClearResults() { SetResults({}, 1.0); }
