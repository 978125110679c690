// The board's picture on its image: pens, the background, inverting figures
// and the device-pixel scale.
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include "board/ui/BoardSurface.h"
#include "board/core/Viewport.h"
#include "board/core/LayoutRender.h"
#include "board/ui/MainWindow.h"

using Layout::LayoutDocument;

namespace {

QColor PixelAt(BoardSurface& s, double x, double y) {
    const QPointF p = s.ToDevice(x, y);
    return s.Image().pixelColor(qRound(p.x()), qRound(p.y()));
}

TEST(BoardSurface, UnitsAreInchesOfTheLogicalScreen) {
    BoardSurface s;
    s.resize(s.logicalDpiX() * 8, s.logicalDpiY() * 6);
    s.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&s));
    EXPECT_DOUBLE_EQ(s.ScaleWidth(), 8.0);
    EXPECT_DOUBLE_EQ(s.ScaleHeight(), 6.0);
    EXPECT_EQ(s.Image().width(), qRound(s.width() * s.devicePixelRatioF()));
    EXPECT_EQ(PixelAt(s, 1, 1), QColor(Qt::black));
}

TEST(BoardSurface, LinePensAndBackground) {
    BoardSurface s;
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
    EXPECT_GT(s.CurrentY, 1.05);
    EXPECT_EQ(s.CurrentX, 0.0);
    bool white = false;
    const QPointF a = s.ToDevice(1.0, 1.0), b = s.ToDevice(2.0, s.CurrentY);
    for (int x = qRound(a.x()); x < qRound(b.x()) && !white; ++x)
        for (int y = qRound(a.y()); y < qRound(b.y()) && !white; ++y) white = s.Image().pixelColor(x, y).red() > 200;
    EXPECT_TRUE(white);
}

TEST(BoardSurface, CustomCursorsAreDrawnAtTheScreenScale) {
    for (auto p : {board::Pointer::PickBox, board::Pointer::PanHand, board::Pointer::WindowBox}) {
        const QCursor c = BoardSurface::CustomCursor(p, 2.0);
        EXPECT_EQ(c.pixmap().width(), 64);
        EXPECT_EQ(c.pixmap().devicePixelRatio(), 2.0);
    }
    BoardSurface s;
    s.SetMousePointer(board::Pointer::PanHand);
    EXPECT_EQ(s.MousePointer(), board::Pointer::PanHand);
    s.SetToolTipText("Line Number 0");
    EXPECT_EQ(s.toolTip(), "Line Number 0");
}

// Pictures of the main window with each example layout, fitted, with a
// vertical and a horizontal dimension, when FERROLITH_SHOTS names a folder.
TEST(BoardSurface, ScreenshotsOfTheExamples) {
    const QString out = qEnvironmentVariable("FERROLITH_SHOTS");
    if (out.isEmpty()) GTEST_SKIP() << "set FERROLITH_SHOTS to a folder to take pictures";
    QDir().mkpath(out);
    const QDir examples(QStringLiteral(FERROLITH_SOURCE_DIR) + "/examples");
    for (const QString& name : examples.entryList({"*.wld"})) {
        MainWindow w(nullptr, examples.filePath(name));
        w.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
        w.Board().ZoomExtentButton_Click();
        w.Board().Zoom_Button(0.8f);  // room round the group for the dimensions
        LayoutDocument& doc = w.Document();
        bool f = false;
        float minX = 0, maxX = 0, minY = 0, maxY = 0;
        Viewport::Bound_MinX(doc, f, minX);
        Viewport::Bound_MaxX(doc, f, maxX);
        Viewport::Bound_MinY(doc, f, minY);
        Viewport::Bound_MaxY(doc, f, maxY);
        // Dimensions across the whole group, as DIMENSION mode makes them.
        auto& b = w.Board();
        b.Set_Mode(BoardState::DIMENSION);
        auto pick = [&](double x, double y) {
            b.DrawingBoard_MouseMove(BoardState::Button::None, false, x, y);
            b.DrawingBoard_MouseDown(BoardState::Button::Left, false, x, y);
        };
        pick(minX, maxY);
        pick(minX, minY);
        pick(minX - 0.4, (minY + maxY) / 2);
        pick(minX, maxY);
        pick(maxX, maxY);
        pick((minX + maxX) / 2, maxY + 0.3);
        b.Set_Mode(BoardState::DRAW);
        w.SyncUi();
        const QString file = QStringLiteral("%1/%2_x%3.png").arg(out, QFileInfo(name).baseName()).arg(w.devicePixelRatioF());
        EXPECT_TRUE(w.grab().save(file));
    }
}

}  // namespace
