#include "board/ui/BoardSurface.h"

#include <functional>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTextLayout>

#include "shell/ui/QtText.h"

namespace {

QColor FromBgr(uint32_t c) { return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF); }

int ButtonCode(Qt::MouseButton b) {
    switch (b) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

}  // namespace

BoardSurface::BoardSurface(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("DrawingBoard"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    // The design size of the board: 9,975 by 7,305 twips.
    setMinimumSize(qRound(9975.0 / 1440.0 * logicalDpiX()), qRound(7305.0 / 1440.0 * logicalDpiY()));
    Allocate();
}

// The screen's density, read again whenever the picture is cleared or made
// anew: asking the screen at every point of a large display costs more than
// drawing it.
void BoardSurface::Read_Density() const {
    density_ = {static_cast<double>(logicalDpiX()), static_cast<double>(logicalDpiY()), devicePixelRatioF()};
}

double BoardSurface::UnitPx() const { return density_.dpiX * density_.dpr; }

double BoardSurface::ScaleWidth() const { return width() / density_.dpiX; }
double BoardSurface::ScaleHeight() const { return height() / density_.dpiY; }

QPointF BoardSurface::ToDevice(double x, double y) const {
    return {x * density_.dpiX * density_.dpr, y * density_.dpiY * density_.dpr};
}

QPointF BoardSurface::ToBoard(const QPointF& p) const { return {p.x() / density_.dpiX, p.y() / density_.dpiY}; }

QPainter& BoardSurface::Painter() {
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing, false);
    }
    return *painter_;
}

void BoardSurface::EndPainting() const { painter_.reset(); }

const QImage& BoardSurface::Image() const {
    EndPainting();
    return image_;
}

void BoardSurface::Allocate() {
    EndPainting();
    Read_Density();
    const qreal dpr = devicePixelRatioF();
    QImage img(qMax(1, qRound(width() * dpr)), qMax(1, qRound(height() * dpr)), QImage::Format_RGB32);
    img.setDevicePixelRatio(1.0);
    img.fill(Qt::black);
    image_ = img;
    CurrentX = CurrentY = 0.0;
}

void BoardSurface::resizeEvent(QResizeEvent*) {
    if (image_.width() == qRound(width() * devicePixelRatioF()) &&
        image_.height() == qRound(height() * devicePixelRatioF()))
        return;
    Allocate();
    emit Resized();
}

void BoardSurface::Cls() {
    EndPainting();
    Read_Density();
    image_.fill(Qt::black);
    CurrentX = CurrentY = 0.0;
}

void BoardSurface::Line(double x1, double y1, double x2, double y2, uint32_t color) {
    const QPointF a = ToDevice(x1, y1), b = ToDevice(x2, y2);
    CurrentX = x2;
    CurrentY = y2;
    const bool invert = DrawMode == board::PenMode::Invert;
    // A figure of no length inverts nothing, so drawing it twice stays exact.
    if (invert && a.toPoint() == b.toPoint()) return;
    QPainter& p = Painter();
    const qreal dpr = density_.dpr;
    QPen pen(FromBgr(color));
    pen.setWidthF(invert ? 1.0 : qMax<qreal>(1.0, DrawWidth * dpr));
    if (invert) pen.setCosmetic(true);
    pen.setCapStyle(Qt::FlatCap);
    switch (DrawStyle) {
    case board::PenStyle::Dot: pen.setStyle(Qt::DotLine); break;
    case board::PenStyle::Dash: pen.setStyle(Qt::DashLine); break;
    // A wide solid line ends square: it closes the corner where two lines
    // meet, and the raster engine fills it as one polygon, where a round end
    // sends every line through the general stroker (a display of a thousand
    // lines then spends a fifth of its time on the ends).
    default: pen.setStyle(Qt::SolidLine); pen.setCapStyle(invert ? Qt::RoundCap : Qt::SquareCap); break;
    }
    p.setCompositionMode(invert ? QPainter::RasterOp_NotDestination : QPainter::CompositionMode_SourceOver);
    p.setPen(pen);
    p.drawLine(a, b);
}

void BoardSurface::Circle(double x, double y, double radius, uint32_t color) {
    QPainter& p = Painter();
    const qreal dpr = density_.dpr;
    QPen pen(FromBgr(color));
    pen.setWidthF(qMax<qreal>(1.0, DrawWidth * dpr));
    const bool invert = DrawMode == board::PenMode::Invert;
    p.setCompositionMode(invert ? QPainter::RasterOp_NotDestination : QPainter::CompositionMode_SourceOver);
    p.setRenderHint(QPainter::Antialiasing, !invert);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    const QPointF c = ToDevice(x, y);
    const double r = radius * UnitPx();
    p.drawEllipse(c, r, r);
    p.setRenderHint(QPainter::Antialiasing, false);
}

const QFont& BoardSurface::CurrentFont() const {
    // The size in points, on the image's device pixels, so text keeps its size at any scale.
    const FontKey key{FontName, FontSize, FontBold, qMax(1, qRound(FontSize / 72.0 * density_.dpiY * density_.dpr))};
    if (metrics_ && key == fontKey_) return font_;
    QFont f;
    // Without the requested face, a condensed sans keeps texts placed for its
    // narrow letters from running into each other.
    f.setFamilies({Q(FontName), QStringLiteral("DejaVu Sans Condensed")});
    f.setPixelSize(key.pixels);
    f.setBold(FontBold);
    fontKey_ = key;
    font_ = f;
    metrics_.emplace(font_);
    return font_;
}

const QFontMetricsF& BoardSurface::CurrentMetrics() const {
    CurrentFont();
    return *metrics_;
}

double BoardSurface::TextWidth(const std::string& text) const {
    return CurrentMetrics().horizontalAdvance(Q(text)) / UnitPx();
}

double BoardSurface::TextHeight() const { return CurrentMetrics().height() / (density_.dpiY * density_.dpr); }

void BoardSurface::Print(const std::string& text) {
    QPainter& p = Painter();
    const QFont& f = CurrentFont();
    if (p.font() != f) p.setFont(f);
    p.setPen(FromBgr(ForeColor));
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    const QPointF at = ToDevice(CurrentX, CurrentY);
    const QFontMetricsF& fm = CurrentMetrics();
    for (const QGlyphRun& run : Shaped(Q(text))) p.drawGlyphRun(at, run);
    CurrentX = 0.0;
    CurrentY += fm.height() / (density_.dpiY * density_.dpr);
}

const QList<QGlyphRun>& BoardSurface::Shaped(const QString& text) {
    constexpr qsizetype kMostTexts = 4096;
    const QFont& f = CurrentFont();
    if (shaped_.size() >= kMostTexts) shaped_.clear();
    const QString key = text + QChar(0) + Q(fontKey_.name) + QChar(fontKey_.bold ? 1 : 2) + QString::number(fontKey_.pixels);
    auto it = shaped_.constFind(key);
    if (it != shaped_.constEnd()) return *it;
    // Glyph positions come with the baseline at the font's ascent, so a run
    // is drawn at the text's top left corner.
    QTextLayout layout(text, f);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    return *shaped_.insert(key, layout.glyphRuns());
}

void BoardSurface::Refresh() {
    EndPainting();
    update();
}

void BoardSurface::SetMarks(const board::BoardMarks& marks) {
    auto same = [](const board::BoardMarks::Box& a, const board::BoardMarks::Box& b) {
        return a.Visible == b.Visible && (!a.Visible || (a.X == b.X && a.Y == b.Y));
    };
    const board::BoardMarks& m = marks_;
    if (same(m.PickBox, marks.PickBox) && same(m.StartBox, marks.StartBox) && same(m.MidBox, marks.MidBox) &&
        same(m.EndBox, marks.EndBox) && same(m.RotBox, marks.RotBox) && m.RotLines == marks.RotLines)
        return;
    marks_ = marks;
    update();
}

void BoardSurface::paintEvent(QPaintEvent*) {
    EndPainting();
    QPainter p(this);
    QImage view = image_;
    view.setDevicePixelRatio(devicePixelRatioF());
    p.drawImage(QPointF(0, 0), view);

    // The marks, in widget pixels over the picture.
    auto centre = [this](const board::BoardMarks::Box& b) {
        return QPointF(b.X * logicalDpiX(), b.Y * logicalDpiY());
    };
    auto square = [&](const board::BoardMarks::Box& b, double side, const QColor& pen, const QColor& fill) {
        if (!b.Visible) return;
        p.setPen(QPen(pen, 1.5));
        p.setBrush(fill.isValid() ? QBrush(fill) : Qt::NoBrush);
        const QPointF c = centre(b);
        p.drawRect(QRectF(c.x() - side / 2, c.y() - side / 2, side, side));
    };
    p.setRenderHint(QPainter::Antialiasing, false);
    if (marks_.RotLines && marks_.RotBox.Visible) {
        const QPointF c = centre(marks_.RotBox);
        p.setPen(QPen(QColor(0, 160, 160), 1, Qt::DashLine));
        p.drawLine(QPointF(0, c.y()), QPointF(width(), c.y()));
        p.drawLine(QPointF(c.x(), 0), QPointF(c.x(), height()));
    }
    const QColor grip(0, 96, 255);
    square(marks_.StartBox, 8, grip, grip);
    square(marks_.MidBox, 8, grip, grip);
    square(marks_.EndBox, 8, grip, grip);
    square(marks_.RotBox, 12, QColor(0, 200, 200), QColor());
    square(marks_.PickBox, 12, QColor(255, 220, 0), QColor());
}

QCursor BoardSurface::CustomCursor(board::Pointer kind, qreal dpr) {
    const int size = 32;
    QPixmap pm(qRound(size * dpr), qRound(size * dpr));
    pm.setDevicePixelRatio(dpr);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing, false);
    auto outlined = [&](const std::function<void()>& draw) {
        p.setPen(QPen(Qt::black, 3));
        draw();
        p.setPen(QPen(Qt::white, 1));
        draw();
    };
    const int c = size / 2;
    switch (kind) {
    case board::Pointer::PanHand:
        // Four arrows from the middle: the whole drawing moves.
        outlined([&] {
            p.drawLine(c - 10, c, c + 10, c);
            p.drawLine(c, c - 10, c, c + 10);
            for (int s : {-1, 1}) {
                p.drawLine(c + s * 10, c, c + s * 7, c - 3);
                p.drawLine(c + s * 10, c, c + s * 7, c + 3);
                p.drawLine(c, c + s * 10, c - 3, c + s * 7);
                p.drawLine(c, c + s * 10, c + 3, c + s * 7);
            }
        });
        break;
    case board::Pointer::WindowBox:
        // A cross with a small window at its lower right: the box selection.
        outlined([&] {
            p.drawLine(c - 8, c, c + 8, c);
            p.drawLine(c, c - 8, c, c + 8);
            p.drawRect(c + 3, c + 3, 9, 7);
        });
        break;
    default:
        // The pick box: a small open square on a cross.
        outlined([&] {
            p.drawLine(c - 10, c, c - 4, c);
            p.drawLine(c + 4, c, c + 10, c);
            p.drawLine(c, c - 10, c, c - 4);
            p.drawLine(c, c + 4, c, c + 10);
            p.drawRect(c - 3, c - 3, 6, 6);
        });
        break;
    }
    p.end();
    return QCursor(pm, c, c);
}

void BoardSurface::SetMousePointer(board::Pointer kind) {
    pointer_ = kind;
    switch (kind) {
    case board::Pointer::Cross: setCursor(Qt::CrossCursor); break;
    case board::Pointer::Default: unsetCursor(); break;
    default: setCursor(CustomCursor(kind, devicePixelRatioF())); break;
    }
}

void BoardSurface::SetToolTipText(const std::string& text) { setToolTip(Q(text)); }

void BoardSurface::mousePressEvent(QMouseEvent* e) {
    const QPointF b = ToBoard(e->position());
    pressPos_ = b;
    emit MouseDown(ButtonCode(e->button()), e->modifiers() & Qt::ShiftModifier, b.x(), b.y());
}

void BoardSurface::mouseMoveEvent(QMouseEvent* e) {
    const QPointF b = ToBoard(e->position());
    emit MouseMove(static_cast<int>(e->buttons()), e->modifiers() & Qt::ShiftModifier, b.x(), b.y());
}

void BoardSurface::mouseReleaseEvent(QMouseEvent* e) {
    const QPointF b = ToBoard(e->position());
    const double slack = QApplication::startDragDistance() / static_cast<double>(logicalDpiX());
    const bool click = !doubleClicked_ && std::abs(b.x() - pressPos_.x()) <= slack &&
                       std::abs(b.y() - pressPos_.y()) <= slack;
    doubleClicked_ = false;
    emit MouseUp(ButtonCode(e->button()), e->modifiers() & Qt::ShiftModifier, b.x(), b.y(), click);
}

// The second press of a double-click is the double-click itself, not another press.
void BoardSurface::mouseDoubleClickEvent(QMouseEvent*) {
    doubleClicked_ = true;
    emit DoubleClick();
}
