// The last capacity run drawn over the calculation display: the center's
// mark where the run put it, gone with "Show Results" off and once a line moves.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include "board/core/CalculationDisplay.h"
#include "board/ui/BoardSurface.h"
#include "board/ui/CapacityWindow.h"
#include "board/ui/MainWindow.h"
#include "support/GuiTestSupport.h"

namespace {

// Whether the center's colour stands within a pixel of the run's center.
bool MarkAt(MainWindow& w) {
    const CalculationView::RunResults& r = w.Board().Load_Inputs().Results;
    const QPoint c = w.Surface().ToDevice(r.Where.X(r.Record.CenterX), r.Where.Y(r.Record.CenterY)).toPoint();
    const QImage& img = w.Surface().Image();
    const uint32_t bgr = ResultPicture::kCenterColor;
    const QRgb mark = qRgb(bgr & 0xFF, (bgr >> 8) & 0xFF, bgr >> 16);
    for (int dx = -1; dx <= 1; ++dx)
        for (int dy = -1; dy <= 1; ++dy)
            if (img.valid(c.x() + dx, c.y() + dy) &&
                (img.pixel(c.x() + dx, c.y() + dy) & 0xFFFFFF) == (mark & 0xFFFFFF))
                return true;
    return false;
}

TEST(ResultsPicture, CenterMarkFollowsTheRunTheToggleAndTheLayout) {
    guitest::ModalWatchdog dog;
    MainWindow w{nullptr, QStringLiteral(FERROLITH_SOURCE_DIR "/examples/c-shape-right.wld")};
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    QTest::mouseClick(w.findChild<QWidget*>("ModeBarButton_14"), Qt::LeftButton);
    dog.SetDialogHandler([](QDialog* d) {
        auto* frm = qobject_cast<CapacityWindow*>(d);
        if (frm != nullptr && !frm->RunActive()) d->close();
        return frm != nullptr;
    });
    QTest::mouseClick(w.findChild<QPushButton*>("CalcWeldCapButton"), Qt::LeftButton);

    const CalculationView::RunResults& r = w.Board().Load_Inputs().Results;
    ASSERT_TRUE(r.Drawn);
    EXPECT_LT(r.Record.CenterX, 0.0);  // behind the web, away from the load on the right
    EXPECT_TRUE(MarkAt(w));
    if (const QString dir = qEnvironmentVariable("FERROLITH_SHOTS"); !dir.isEmpty())
        w.grab().save(dir + "/board-results-x" + qEnvironmentVariable("QT_SCALE_FACTOR", "1") + ".png");

    // Over a segment the tool tip tells its line and force.
    const shell::ElementForce& e = r.Record.Forces.front();
    BoardSurface& b = w.Surface();
    const QPointF at(r.Where.X(e.X) * b.logicalDpiX(), r.Where.Y(e.Y) * b.logicalDpiY());
    QMouseEvent move(QEvent::MouseMove, at, b.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&b, &move);
    EXPECT_TRUE(b.toolTip().startsWith(QString::fromStdString(w.Document().Lines[e.Line].LineName) + "\nForce = "));
    EXPECT_TRUE(b.toolTip().contains("k/in"));

    QAction* show = w.findChild<QAction*>("mnuShowResults");
    show->trigger();
    EXPECT_FALSE(r.Drawn);
    EXPECT_FALSE(MarkAt(w));
    show->trigger();
    EXPECT_TRUE(MarkAt(w));

    for (auto* p : {&w.Document().Lines[0].StartPt, &w.Document().Lines[0].EndPt, &w.Document().Lines[0].MidPt})
        p->X += 0.25f;
    w.findChild<QAction*>("mnuRefresh")->trigger();
    EXPECT_FALSE(r.Valid);
    EXPECT_FALSE(MarkAt(w));
}

}  // namespace
