#include "shell/ui/ResultPictureView.h"

#include "shell/ui/QtText.h"

namespace {
QColor FromBgr(uint32_t c) { return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF); }
}  // namespace

PainterSurface::PainterSurface(QPainter& painter, const QSizeF& logicalSize, double dpi)
    : p_(painter), size_(logicalSize), dpi_(dpi) {
    p_.setRenderHint(QPainter::Antialiasing, true);
}

void PainterSurface::Cls() {
    p_.fillRect(QRectF(QPointF(0, 0), size_), Qt::black);
    CurrentX = CurrentY = 0.0;
}

QPen PainterSurface::Pen(uint32_t color) const {
    QPen pen(FromBgr(color));
    pen.setWidthF(qMax(1, static_cast<int>(DrawWidth)));
    pen.setCapStyle(Qt::RoundCap);
    return pen;
}

void PainterSurface::Line(double x1, double y1, double x2, double y2, uint32_t color) {
    p_.setPen(Pen(color));
    p_.drawLine(QPointF(x1 * dpi_, y1 * dpi_), QPointF(x2 * dpi_, y2 * dpi_));
    CurrentX = x2;
    CurrentY = y2;
}

void PainterSurface::Circle(double x, double y, double radius, uint32_t color) {
    p_.setPen(Pen(color));
    p_.setBrush(Qt::NoBrush);
    p_.drawEllipse(QPointF(x * dpi_, y * dpi_), radius * dpi_, radius * dpi_);
}

QFont PainterSurface::Font() const {
    QFont f;
    f.setFamilies({Q(FontName), QStringLiteral("DejaVu Sans Condensed")});
    f.setPixelSize(qMax(1, qRound(FontSize / 72.0 * dpi_)));
    f.setBold(FontBold);
    return f;
}

void PainterSurface::Print(const std::string& text) {
    const QFont f = Font();
    p_.setFont(f);
    p_.setPen(FromBgr(ForeColor));
    p_.drawText(QPointF(CurrentX * dpi_, CurrentY * dpi_ + QFontMetricsF(f).ascent()), Q(text));
    CurrentX = 0.0;
    CurrentY += TextHeight();
}

double PainterSurface::TextWidth(const std::string& text) const {
    return QFontMetricsF(Font()).horizontalAdvance(Q(text)) / dpi_;
}

double PainterSurface::TextHeight() const { return QFontMetricsF(Font()).height() / dpi_; }

ResultPictureView::ResultPictureView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ResultPicture"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ResultPictureView::SetGroup(const ResultPicture::Outline& outline, bool mirrorX) {
    outline_ = outline;
    mirrorX_ = mirrorX;
    update();
}

void ResultPictureView::SetResults(const shell::SolveRecord& record, const ResultPicture::Labels& labels) {
    record_ = record;
    labels_ = labels;
    update();
}

void ResultPictureView::ClearResults() { SetResults({}, {}); }

void ResultPictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PainterSurface s(painter, size(), logicalDpiX());
    s.Cls();
    where_ = ResultPicture::Fit(outline_, record_, s.ScaleWidth(), s.ScaleHeight(), mirrorX_);
    ResultPicture::Draw_Group(s, outline_, record_, where_, labels_);
}
