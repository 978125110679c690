#include "shell/print/SheetPrinter.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "shell/core/FileIO.h"

namespace sheetprint {

namespace {

using sheet::Figure;

constexpr double kMargin = 43;        // points, about 0.6 in
constexpr double kFooter = 22;        // the foot line and its gap
constexpr double kFigureHeight = 300;  // the frame of one figure
constexpr double kRowGap = 2;

QColor Rgb(uint32_t rgb) { return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF); }
QString Q(const std::string& s) { return QString::fromStdString(s); }

// The usual scales of structural drawings, largest first.
struct Usual {
    double factor;
    const char* text;
};
constexpr Usual kScales[] = {
    {2.0, "2\" = 1\""},          {1.0, "1\" = 1\" (full size)"}, {1.0 / 2, "6\" = 1'-0\""},
    {1.0 / 4, "3\" = 1'-0\""},   {1.0 / 8, "1-1/2\" = 1'-0\""},  {1.0 / 12, "1\" = 1'-0\""},
    {1.0 / 16, "3/4\" = 1'-0\""}, {1.0 / 24, "1/2\" = 1'-0\""},  {1.0 / 32, "3/8\" = 1'-0\""},
    {1.0 / 48, "1/4\" = 1'-0\""}, {1.0 / 64, "3/16\" = 1'-0\""}, {1.0 / 96, "1/8\" = 1'-0\""},
    {1.0 / 192, "1/16\" = 1'-0\""},
};

// Page geometry in points, and the painter working in them.
class Pages {
public:
    Pages(QPainter* painter, QPagedPaintDevice* device, const sheet::Sheet& s, int total)
        : p_(painter), device_(device), s_(s), total_(total) {
        const QSizeF size = device != nullptr ? device->pageLayout().paintRectPoints().size()
                                              : QPageSize(QPageSize::Letter).sizePoints();
        width_ = size.width();
        height_ = size.height();
        if (p_ != nullptr) {
            // One unit is one point whatever the device's resolution.
            const double k = device->logicalDpiX() / 72.0;
            p_->scale(k, device->logicalDpiY() / 72.0);
        }
        y_ = kMargin;
    }

    int Count() const { return page_; }
    double Width() const { return width_ - 2 * kMargin; }
    double Left() const { return kMargin; }
    double Y() const { return y_; }
    void Down(double h) { y_ += h; }
    bool Drawing() const { return p_ != nullptr; }
    QPainter& P() { return *p_; }

    // Room for `h` more points on this page, or a new page.
    void Need(double h) {
        if (y_ + h <= height_ - kMargin - kFooter || y_ <= kMargin) return;
        Foot();
        if (p_ != nullptr) device_->newPage();
        ++page_;
        y_ = kMargin;
    }

    void Foot() {
        if (p_ == nullptr) return;
        const double y = height_ - kMargin - kFooter + 8;
        p_->setPen(QPen(Rgb(sheet::kAxis), 0.5));
        p_->drawLine(QPointF(kMargin, y), QPointF(width_ - kMargin, y));
        const QRectF r(kMargin, y + 2, Width(), 12);
        Text(r, Qt::AlignLeft | Qt::AlignTop, Q(s_.FileName + "   Ferrolith " + s_.Version), Font(7.5));
        Text(r, Qt::AlignRight | Qt::AlignTop, QStringLiteral("Page %1 of %2").arg(page_).arg(total_), Font(7.5));
    }

    static QFont Font(double points, bool bold = false) {
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPointSizeF(points);
        f.setBold(bold);
        // No ligatures: a reader searching the PDF for "fi" must find it.
        f.setStyleStrategy(QFont::PreferNoShaping);
        return f;
    }
    // The height a text takes in `width` points at this font.
    static double TextHeight(const QFont& font, double width, const QString& text) {
        // Metrics at 72 dpi: font points are then painter points.
        QFont f(font);
        f.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pointSizeF()))));
        return QFontMetricsF(f).boundingRect(QRectF(0, 0, width, 1e6), Qt::TextWordWrap, text).height();
    }
    // Sets text in points: the font is given in pixels of the point grid.
    void Text(const QRectF& r, int flags, const QString& text, const QFont& font, uint32_t rgb = sheet::kInk) {
        if (p_ == nullptr) return;
        QFont f(font);
        f.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pointSizeF()))));
        p_->setFont(f);
        p_->setPen(Rgb(rgb));
        p_->drawText(r, flags, text);
    }

private:
    QPainter* p_;
    QPagedPaintDevice* device_;
    const sheet::Sheet& s_;
    int total_;
    double width_ = 612, height_ = 792, y_ = 0;
    int page_ = 1;
};

void TitleBlock(Pages& pg, const sheet::TitleBlock& t) {
    const double h = 74, x = pg.Left(), w = pg.Width(), y = pg.Y();
    if (pg.Drawing()) {
        QPainter& p = pg.P();
        p.setPen(QPen(Rgb(sheet::kInk), 1.0));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRectF(x, y, w, h));
        p.setPen(QPen(Rgb(sheet::kInk), 0.5));
        p.drawLine(QPointF(x, y + 28), QPointF(x + w, y + 28));
        p.drawLine(QPointF(x, y + 51), QPointF(x + w, y + 51));
        for (double f : {0.5, 0.78}) p.drawLine(QPointF(x + w * f, y + 28), QPointF(x + w * f, y + h));
    }
    pg.Text(QRectF(x + 6, y + 4, w - 12, 22), Qt::AlignLeft | Qt::AlignVCenter, Q(t.Title), Pages::Font(13, true));
    const struct {
        double fx, fy;
        const char* label;
        const std::string& value;
    } cells[] = {{0, 28, "Project", t.Project},   {0.5, 28, "Job No.", t.JobNumber}, {0.78, 28, "Date", t.Date},
                 {0, 51, "Engineer", t.Engineer}, {0.5, 51, "Checker", t.Checker}, {0.78, 51, "", std::string()}};
    for (const auto& c : cells) {
        const double cx = x + w * c.fx + 5, cw = w * (c.fx == 0 ? 0.5 : c.fx == 0.5 ? 0.28 : 0.22) - 10;
        pg.Text(QRectF(cx, y + c.fy + 1, cw, 9), Qt::AlignLeft | Qt::AlignTop, QString::fromLatin1(c.label),
                Pages::Font(6.5), sheet::kAxis);
        pg.Text(QRectF(cx, y + c.fy + 9, cw, 13), Qt::AlignLeft | Qt::AlignVCenter, Q(c.value), Pages::Font(9));
    }
    pg.Down(h + 14);
}

void DrawFigure(Pages& pg, const Figure& f) {
    pg.Need(kFigureHeight + 30);
    const double x0 = pg.Left(), y0 = pg.Y(), w = pg.Width(), h = kFigureHeight;
    // The extent of the drawing; labels get a margin of their own.
    double minX = 1e300, maxX = -1e300, minY = 1e300, maxY = -1e300;
    auto take = [&](double x, double y) {
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
        minY = std::min(minY, y);
        maxY = std::max(maxY, y);
    };
    for (const Figure::Line& l : f.Lines) take(l.x1, l.y1), take(l.x2, l.y2);
    for (const Figure::Circle& c : f.Circles) take(c.x, c.y);
    for (const Figure::Label& l : f.Labels) take(l.x, l.y);
    if (minX > maxX) minX = maxX = minY = maxY = 0;
    const double pad = 20;  // points around the drawing for its labels
    const Scale sx = Fit_Scale(maxX - minX, (w - 2 * pad) / 72), sy = Fit_Scale(maxY - minY, (h - 2 * pad) / 72);
    const Scale& s = sx.factor < sy.factor ? sx : sy;
    const double k = s.factor * 72;  // points per drawing inch
    const double cx = x0 + w / 2 - (minX + maxX) / 2 * k, cy = y0 + h / 2 + (minY + maxY) / 2 * k;
    auto at = [&](double x, double y) { return QPointF(cx + x * k, cy - y * k); };

    if (pg.Drawing()) {
        QPainter& p = pg.P();
        p.save();
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(Rgb(sheet::kAxis), 0.5));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRectF(x0, y0, w, h));
        p.setClipRect(QRectF(x0, y0, w, h));
        for (const Figure::Line& l : f.Lines) {
            QPen pen(Rgb(l.rgb), l.widthPt);
            if (l.dashed) pen.setDashPattern({6, 3});
            p.setPen(pen);
            const QPointF a = at(l.x1, l.y1), b = at(l.x2, l.y2);
            p.drawLine(a, b);
            if (l.arrow && a != b) {
                const double len = std::hypot(b.x() - a.x(), b.y() - a.y());
                const double head = std::min(7.0, len * 0.4);
                const QPointF u((b.x() - a.x()) / len, (b.y() - a.y()) / len), n(-u.y(), u.x());
                QPainterPath tip;
                tip.moveTo(b);
                tip.lineTo(b - u * head + n * head * 0.35);
                tip.lineTo(b - u * head - n * head * 0.35);
                tip.closeSubpath();
                p.fillPath(tip, Rgb(l.rgb));
            }
        }
        for (const Figure::Circle& c : f.Circles) {
            p.setPen(QPen(Rgb(c.rgb), 0.8));
            p.setBrush(c.filled ? QBrush(Rgb(c.rgb)) : QBrush(Qt::NoBrush));
            p.drawEllipse(at(c.x, c.y), c.radiusPt, c.radiusPt);
        }
        p.restore();
    }
    for (const Figure::Label& l : f.Labels) {
        const QPointF a = at(l.x, l.y) + QPointF(l.dxPt, l.dyPt);
        const int align = l.align == Figure::Align::Left    ? Qt::AlignLeft
                          : l.align == Figure::Align::Right ? Qt::AlignRight
                                                            : Qt::AlignHCenter;
        const double bw = 160;
        const double left = l.align == Figure::Align::Left    ? a.x()
                            : l.align == Figure::Align::Right ? a.x() - bw
                                                              : a.x() - bw / 2;
        if (pg.Drawing()) {
            // On a white ground of its own, readable over the arrows.
            QFont f = Pages::Font(7.5);
            f.setPixelSize(8);
            const double tw = QFontMetricsF(f).horizontalAdvance(Q(l.text)) + 2;
            const double tl = l.align == Figure::Align::Left    ? a.x() - 1
                              : l.align == Figure::Align::Right ? a.x() - tw + 1
                                                                : a.x() - tw / 2;
            pg.P().fillRect(QRectF(tl, a.y() - 5, tw, 10), Qt::white);
        }
        pg.Text(QRectF(left, a.y() - 6, bw, 12), align | Qt::AlignVCenter, Q(l.text), Pages::Font(7.5), l.rgb);
    }
    pg.Down(h + 3);
    // The caption wraps beside the scale, which keeps the right end.
    const double scaleW = 130;
    const QFont small = Pages::Font(8.5);
    const double ch = std::max(12.0, Pages::TextHeight(small, w - scaleW - 8, Q(f.Caption)));
    pg.Text(QRectF(x0, pg.Y(), w - scaleW - 8, ch), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, Q(f.Caption),
            small);
    pg.Text(QRectF(x0 + w - scaleW, pg.Y(), scaleW, 12), Qt::AlignRight | Qt::AlignTop,
            QStringLiteral("Scale: ") + Q(s.text), small);
    pg.Down(ch + 10);
}

void DrawTable(Pages& pg, const sheet::Table& t) {
    const size_t cols = t.Header.size();
    if (cols == 0) return;
    const double w = pg.Width(), cw = w / static_cast<double>(cols), rh = 14;
    auto row = [&](const std::vector<std::string>& cells, bool head) {
        pg.Need(rh);
        const double y = pg.Y();
        if (pg.Drawing()) {
            QPainter& p = pg.P();
            p.setPen(QPen(Rgb(sheet::kAxis), 0.4));
            p.setBrush(Qt::NoBrush);
            p.drawRect(QRectF(pg.Left(), y, w, rh));
        }
        for (size_t i = 0; i < cols && i < cells.size(); ++i)
            pg.Text(QRectF(pg.Left() + cw * static_cast<double>(i) + 4, y, cw - 8, rh),
                    (i == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter, Q(cells[i]),
                    Pages::Font(8.5, head));
        pg.Down(rh);
    };
    pg.Need(rh * static_cast<double>(std::min<size_t>(t.Rows.size(), 3) + 1));  // no header alone at a foot
    row(t.Header, true);
    for (const auto& r : t.Rows) row(r, false);
    pg.Down(6);
}

void DrawSection(Pages& pg, const sheet::Section& s) {
    pg.Need(40);
    pg.Text(QRectF(pg.Left(), pg.Y(), pg.Width(), 16), Qt::AlignLeft | Qt::AlignVCenter, Q(s.Heading),
            Pages::Font(10.5, true));
    pg.Down(18);
    const QFont body = Pages::Font(9);
    const double labelW = pg.Width() * 0.42;
    for (const sheet::Row& r : s.Rows) {
        const double h = std::max(12.0, Pages::TextHeight(body, pg.Width() - labelW, Q(r.Value))) + kRowGap;
        pg.Need(h);
        pg.Text(QRectF(pg.Left() + 8, pg.Y(), labelW - 8, h), Qt::AlignLeft | Qt::AlignTop, Q(r.Label), body);
        pg.Text(QRectF(pg.Left() + labelW, pg.Y(), pg.Width() - labelW, h), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                Q(r.Value), body);
        pg.Down(h);
    }
    if (!s.Rows.empty()) pg.Down(6);
    for (const sheet::Table& t : s.Tables) DrawTable(pg, t);
    for (const std::string& para : s.Paragraphs) {
        const double h = Pages::TextHeight(body, pg.Width() - 8, Q(para)) + 4;
        pg.Need(h);
        pg.Text(QRectF(pg.Left() + 8, pg.Y(), pg.Width() - 8, h), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                Q(para), body);
        pg.Down(h);
    }
    pg.Down(8);
}

// One pass over the sheet: a dry run (no painter) counts the pages.
int Lay(QPainter* painter, QPagedPaintDevice* device, const sheet::Sheet& s, int total) {
    Pages pg(painter, device, s, total);
    TitleBlock(pg, s.Title);
    for (const Figure& f : s.Figures) DrawFigure(pg, f);
    for (const sheet::Section& sec : s.Sections) DrawSection(pg, sec);
    pg.Foot();
    return pg.Count();
}

}  // namespace

PaintingContext::PaintingContext() {
    if (QCoreApplication::instance() != nullptr) return;
    // The platform's notes (a missing runtime folder, fonts) are no concern
    // of a command that writes a file.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "ferrolith-cli";
    static char* argv[] = {name, nullptr};
    app_ = std::make_unique<QGuiApplication>(argc, argv);
}

PaintingContext::~PaintingContext() = default;

Scale Fit_Scale(double extent, double room) {
    if (!(extent > 0) || !std::isfinite(extent)) return {1.0, kScales[1].text};
    for (const Usual& u : kScales)
        if (extent * u.factor <= room) return {u.factor, u.text};
    // Beyond the usual scales: a round ratio.
    double n = 200;
    while (extent / n > room) n *= 2;
    return {1.0 / n, "1:" + std::to_string(static_cast<long long>(n))};
}

int Paint(QPainter& painter, QPagedPaintDevice& device, const sheet::Sheet& s) {
    const int total = Lay(nullptr, &device, s, 0);
    return Lay(&painter, &device, s, total);
}

std::string PdfBytes(const sheet::Sheet& s, sheet::Paper paper) {
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(paper == sheet::Paper::A4 ? QPageSize::A4 : QPageSize::Letter));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        writer.setTitle(Q(s.Title.Title));
        writer.setCreator(QStringLiteral("Ferrolith"));
        QPainter painter;
        if (!painter.begin(&writer)) return {};
        Paint(painter, writer, s);
        painter.end();
    }
    return bytes.toStdString();
}

std::string WritePdf(const sheet::Sheet& s, sheet::Paper paper, const std::string& path) {
    const std::string bytes = PdfBytes(s, paper);
    if (bytes.empty()) return "the sheet could not be made";
    const fileio::IoError e = fileio::WriteReplacing(path, bytes);
    return e.Failed() ? e.Message() : std::string();
}

}  // namespace sheetprint
