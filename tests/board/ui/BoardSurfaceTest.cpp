// The board's picture on its image: pens, the background, inverting figures
// and the device-pixel scale.
#include <gtest/gtest.h>

#include <QTest>

#include "board/core/LayoutRender.h"
#include "board/core/Viewport.h"
#include "board/ui/BoardSurface.h"

using Layout::LayoutDocument;

namespace {

QColor PixelAt(BoardSurface& s, double x, double y) {
    const QPointF p = s.ToDevice(x, y);
    return s.Image().pixelColor(qRound(p.x()), qRound(p.y()));
}

TEST(BoardSurface, UnitsAreInchesLinePensAndBackground) {
    BoardSurface s;
    s.resize(s.logicalDpiX() * 8, s.logicalDpiY() * 6);
    s.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&s));
    EXPECT_DOUBLE_EQ(s.ScaleWidth(), 8.0);
    EXPECT_DOUBLE_EQ(s.ScaleHeight(), 6.0);
    EXPECT_EQ(s.Image().width(), qRound(s.width() * s.devicePixelRatioF()));
    LayoutDocument doc;
    Viewport::Add_Drawn_Line(doc, {1, 1, 0}, {3, 1, 0});
    Viewport::Add_Drawn_Line(doc, {1, 2, 0}, {3, 3, 0});
    doc.Lines[1].Selected = -1;
    LayoutRender::Draw_Lines(s, doc.Lines, 5, 13, true);
    EXPECT_EQ(PixelAt(s, 2, 1), QColor(128, 0, 128));
    EXPECT_EQ(PixelAt(s, 2, 2.5), QColor(255, 0, 255)) << "selected pen at the midpoint";
    EXPECT_EQ(PixelAt(s, 2, 1.5), QColor(Qt::black));
    s.Cls();
    EXPECT_EQ(PixelAt(s, 2, 1), QColor(Qt::black));
}

TEST(BoardSurface, ABandDrawnTwiceRestoresTheImageExactly) {
    BoardSurface s;
    LayoutDocument doc;
    Viewport::Add_Drawn_Line(doc, {1, 1, 0}, {3, 2, 0});
    Viewport::Add_Drawn_Line(doc, {2, 0.5f, 0}, {2, 3, 0});
    LayoutRender::Repaint(s, doc, true);
    const QImage before = s.Image().copy();
    for (int pass = 0; pass < 2; ++pass) {
        LayoutRender::Band_Line(s, {0.5f, 0.7f, 0}, {3.3f, 2.9f, 0});
        LayoutRender::Band_Box(s, 0.4f, 0.4f, 3.7f, 2.6f);
        if (pass == 0) {
            EXPECT_NE(s.Image(), before);
        }
    }
    EXPECT_EQ(s.Image(), before);
    LayoutRender::PanGhost g;
    LayoutRender::Pan_Ghost(s, g, 1.2, 0.3, 0.0f, 0.0f, false);
    LayoutRender::Pan_Ghost(s, g, 1.7, 0.9, 0.0f, 0.0f, false);
    LayoutRender::Pan_Ghost(s, g, 1.7, 0.9, 0.0f, 0.0f, true);
    EXPECT_EQ(s.Image(), before);
}

TEST(BoardSurface, TextPrintsAtTheTextPositionAndMovesDown) {
    BoardSurface s;
    s.CurrentX = 1.0;
    s.CurrentY = 1.0;
    s.ForeColor = board::kWhite;
    s.Print("WELD LAYOUT DATA:");
    EXPECT_TRUE(s.CurrentY > 1.05 && s.CurrentX == 0.0);
    bool white = false;
    const QPointF a = s.ToDevice(1.0, 1.0), b = s.ToDevice(2.0, s.CurrentY);
    for (int x = qRound(a.x()); x < qRound(b.x()) && !white; ++x)
        for (int y = qRound(a.y()); y < qRound(b.y()) && !white; ++y) white = s.Image().pixelColor(x, y).red() > 200;
    EXPECT_TRUE(white);

    // A text is laid out once per face, size and weight: printed again it
    // gives the same pixels, and in another weight or size other pixels.
    auto printed = [&s](double y, bool bold, double size) {
        s.FontBold = bold;
        s.FontSize = size;
        s.CurrentX = 0.5;
        s.CurrentY = y;
        s.Print("L=1'-6 3/16\"  \xC3\x98=45\xC2\xB0");
        const QPointF a = s.ToDevice(0.5, y), b = s.ToDevice(3.0, y + 0.5);
        return s.Image().copy(QRectF(a, b).toRect());
    };
    s.Cls();
    const QImage plain = printed(1.0, false, 8.0);
    EXPECT_NE(plain, printed(2.0, true, 8.0));
    EXPECT_NE(plain, printed(3.0, false, 10.0));
    EXPECT_EQ(plain, printed(4.0, false, 8.0));
}

}  // namespace
