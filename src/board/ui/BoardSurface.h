// The drawing board's picture control: a persistent image in device pixels
// on which the board's procedures draw in inches. The widget shows the image
// and reports pointer events in board units.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <memory>
#include <optional>
#include <string>
#include <QWidget>

#include "board/core/DrawSurface.h"

class BoardSurface : public QWidget, public board::DrawSurface {
    Q_OBJECT
public:
    explicit BoardSurface(QWidget* parent = nullptr);

    double ScaleWidth() const override;
    double ScaleHeight() const override;
    void Cls() override;
    void Line(double x1, double y1, double x2, double y2, uint32_t color) override;
    void Circle(double x, double y, double radius, uint32_t color) override;
    void Print(const std::string& text) override;
    double TextWidth(const std::string& text) const override;
    double TextHeight() const override;
    void Refresh() override;
    void SetMousePointer(board::Pointer p) override;
    void SetToolTipText(const std::string& text) override;

    // The picture as drawn so far.
    const QImage& Image() const;
    board::Pointer MousePointer() const { return pointer_; }
    // Board units to device pixels of the image, and widget pixels to units.
    QPointF ToDevice(double x, double y) const;
    QPointF ToBoard(const QPointF& widgetPos) const;
    // The marks over the picture (snap box, grips, rotate base); not part of it.
    void SetMarks(const board::BoardMarks& marks);
    const board::BoardMarks& Marks() const { return marks_; }
    // One of the three custom cursors, drawn here.
    static QCursor CustomCursor(board::Pointer p, qreal dpr);

signals:
    void MouseDown(int button, bool shift, double x, double y);
    void MouseMove(int buttons, bool shift, double x, double y);
    // `click`: the release came where the press was, and not after a
    // double-click, which is an event of its own; a drag makes no click.
    void MouseUp(int button, bool shift, double x, double y, bool click);
    void DoubleClick();
    // The size in board units changed; the picture was cleared.
    void Resized();

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;

private:
    void Allocate();
    // One painter stays open on the image while drawing goes on; it is
    // closed before the image is read or replaced.
    QPainter& Painter();
    void EndPainting() const;
    double UnitPx() const;  // device pixels per inch
    void Read_Density() const;
    struct Density {
        double dpiX = 96, dpiY = 96, dpr = 1;
    };
    mutable Density density_;
    // The text font, sized for the image's device pixels, and its metrics:
    // made anew only when the face, size, weight or pixel density change
    // (a display of many labels asks for them thousands of times).
    const QFont& CurrentFont() const;
    const QFontMetricsF& CurrentMetrics() const;
    struct FontKey {
        std::string name;
        double size = 0.0;
        bool bold = false;
        int pixels = 0;
        bool operator==(const FontKey&) const = default;
    };
    mutable FontKey fontKey_;
    mutable QFont font_;
    mutable std::optional<QFontMetricsF> metrics_;
    // Texts laid out once in the current font: a display prints the same
    // labels many times, and shaping is most of what a text costs.
    const QList<QGlyphRun>& Shaped(const QString& text);
    QHash<QString, QList<QGlyphRun>> shaped_;
    QImage image_;
    mutable std::unique_ptr<QPainter> painter_;
    board::Pointer pointer_ = board::Pointer::Default;
    board::BoardMarks marks_;
    QPointF pressPos_;  // board units
    bool doubleClicked_ = false;
};
