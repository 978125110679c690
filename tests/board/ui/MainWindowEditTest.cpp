// The board's editing reaches the main window's controls: pop-up menus, line
// data dialog, status, tool tip, the red of an invalid reply (board_modes.script tells the rest).
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMenu>

#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"

using boardwindow::BoardWindow;

namespace {

QString Label(BoardWindow& b, const char* name) { return b.w.findChild<QLabel*>(name)->text(); }

TEST(BoardEditing, PopUpMenusTypeTheKindOrOfferTheSnaps) {
    BoardWindow b;
    b.Type("5<30");  // an invalid reply stays red until the box is written anew
    EXPECT_EQ(b.box->palette().color(QPalette::Text), QColor(255, 0, 0));
    for (const char* reply : {"2,2", "3,3", "3,2", "6,2"}) b.Type(reply);
    EXPECT_EQ(b.box->palette().color(QPalette::Text), QColor(0, 0, 0));
    b.Mode(4);
    b.ClickAt(b.Px(7, 1), Qt::RightButton);
    QMenu* pop = b.w.menu("mnuSelection");
    ASSERT_TRUE(pop->isVisible());
    QStringList captions;
    for (QAction* a : pop->actions()) captions << a->text();
    EXPECT_EQ(captions,
              QStringList({"Window  ", "Crossing  ", "Select All", "Remove from Selection", "Clear Selection"}));
    b.w.action("mnuAllSelect")->trigger();
    pop->close();
    EXPECT_EQ(Viewport::Selected_Count(b.Doc().Lines), 2);
    b.w.action("mnuClearSelect")->trigger();
    EXPECT_EQ(Viewport::Selected_Count(b.Doc().Lines), 0);
    b.w.action("mnuWindowSelect")->trigger();
    EXPECT_EQ(Label(b, "CommandName"), "[Pick First Corner Point]");
    EXPECT_EQ(b.s.MousePointer(), board::Pointer::WindowBox);
    b.Drag(b.Px(1, 1), b.Px(4, 4));
    EXPECT_EQ(b.Doc().Lines[0].Selected, -1);
    EXPECT_EQ(b.Doc().Lines[1].Selected, 0);
    // With a move pending the right button offers the snaps instead.
    b.Press("MoveButton");
    b.ClickAt(b.Px(7, 1), Qt::RightButton);
    EXPECT_TRUE(b.w.menu("mnuOsnap")->isVisible());
    b.w.menu("mnuOsnap")->close();
}

TEST(BoardEditing, EditHoverDeleteAndTheLineDataDialog) {
    BoardWindow b;
    for (const char* reply : {"2,2", "3,3", "3,2", "6,2", "5,4", "6,4"}) b.Type(reply);
    b.Mode(8);
    b.MoveTo(b.Px(4.5, 2));
    EXPECT_EQ(Label(b, "StatusPanel2"), "  Line Found   <Line ID:  Line Number 2>");
    EXPECT_TRUE(b.s.toolTip() == "Line Number 1" && b.s.Marks().MidBox.Visible);
    b.Key(Qt::Key_Delete);
    ASSERT_EQ(Viewport::Line_Count(b.Doc().Lines), 2);

    // A double-click on a line opens the dialog on that row; Apply sets its length.
    guitest::ModalWatchdog dog;
    QString title;
    dog.SetDialogHandler([&](QDialog* d) {
        title = d->windowTitle();
        d->findChild<QLineEdit*>("LenBox")->setText("3");
        QTest::mouseClick(d->findChild<QPushButton*>("ApplyButton"), Qt::LeftButton);
        return false;
    });
    b.DoubleClickAt(b.Px(5.5, 4));
    EXPECT_EQ(title, "Line Data");
    EXPECT_EQ(Viewport::Line_Count(b.Doc().Lines), 2) << "a double-click is no second pick";
    EXPECT_NEAR(Viewport::To_WorldX(b.Doc(), b.Doc().Lines[1].EndPt.X), 8, 1e-4);

    // The right button opens it as well. A line the dialog turned under the
    // pointer: moving off it paints no copy of the line as it stood before.
    dog.SetDialogHandler([&](QDialog* d) {
        d->findChild<QLineEdit*>("RotBox")->setText("0");
        QTest::mouseClick(d->findChild<QPushButton*>("ApplyButton"), Qt::LeftButton);
        return false;
    });
    b.ClickAt(b.Px(2.5, 2.5), Qt::RightButton);
    ASSERT_EQ(b.Doc().Lines[0].EndPt.Y, b.Doc().Lines[0].StartPt.Y);
    const QImage shown = b.s.Image().copy();
    b.MoveTo(b.Px(0.5, 0.5));
    EXPECT_TRUE(b.s.Image() == shown);
}

}  // namespace
