// Undo and redo from the Edit menu and the keys: the captions name the step,
// the keys reach the layout from the board and from an idle command box, and
// edit the text while one is typed there.
#include <gtest/gtest.h>

#include <QAction>
#include <QMessageBox>

#include "board/core/LayoutFile.h"
#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"

using boardwindow::BoardWindow;

namespace {

TEST(BoardUndo, KeysTakeBackTheLastCommandAndTheMenuNamesIt) {
    guitest::ModalWatchdog dog{QMessageBox::Yes};
    BoardWindow b;
    b.w.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&b.w));
    QAction* undo = b.w.action("mnuUndo");
    QAction* redo = b.w.action("mnuRedo");
    auto lines = [&] { return Viewport::Line_Count(b.Doc().Lines); };
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_FALSE(redo->isEnabled());

    for (const char* reply : {"1,1", "4,1", "1,1", "1,4"}) b.Type(reply);
    EXPECT_EQ(undo->text(), "Undo Line");
    QTest::keyClick(b.box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(lines(), 1);
    EXPECT_EQ(redo->text(), "Redo Line");
    EXPECT_TRUE(redo->isEnabled());
    QTest::keyClick(b.box, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(lines(), 2);
    EXPECT_EQ(redo->text(), "Redo");

    // Delete All taken back from the board, which has the focus.
    const std::string drawn = LayoutFile::Layout_Bytes(b.Doc());
    b.w.action("mnuDeleteAll")->trigger();
    EXPECT_EQ(lines(), 0);
    EXPECT_EQ(undo->text(), "Undo Delete All");
    b.w.activateWindow();  // back from the question
    ASSERT_TRUE(QTest::qWaitForWindowActive(&b.w));
    b.s.setFocus();
    QTest::keyClick(&b.s, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(lines(), 2);
    EXPECT_TRUE(LayoutFile::Layout_Bytes(b.Doc()) == drawn);
    QTest::keyClick(&b.s, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(lines(), 0);
    undo->trigger();
    EXPECT_EQ(lines(), 2);

    // Typed text takes the keys for itself.
    b.box->setFocus();
    QTest::keyClicks(b.box, "12");
    QTest::keyClick(b.box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(b.box->text(), "12");
    EXPECT_EQ(lines(), 2);
    EXPECT_EQ(undo->text(), "Undo Line");

    // A new drawing starts a history of its own.
    dog.SetAnswer(QMessageBox::No);
    b.w.action("mnuFileNew")->trigger();
    EXPECT_EQ(lines(), 0);
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_EQ(undo->text(), "Undo");
}

}  // namespace
