// Drawing and editing on the main window's board as a user does it: replies
// typed in the command box, picks with snaps, box selection, move, rotate,
// delete and the line data dialog, checked against the saved file.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QTemporaryDir>

#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"
#include "board/core/LayoutFile.h"
#include "board/ui/LineDataDialog.h"

using boardwindow::BoardWindow;
using Layout::LayoutDocument;

namespace {

QByteArray Bytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The line rows that ferrolith-cli wld-info prints for a layout file.
QStringList CliLines(const QString& path) {
    QProcess cli;
    cli.start(QStringLiteral(FERROLITH_CLI), {"wld-info", path});
    EXPECT_TRUE(cli.waitForFinished(20000));
    QStringList rows;
    for (const QString& row : QString::fromUtf8(cli.readAllStandardOutput()).split('\n'))
        if (row.startsWith("  Line Number")) rows << row;
    return rows;
}

// World coordinates of a row's start and end.
QList<double> Ends(LayoutDocument& doc, int row) {
    const auto& l = doc.Lines[static_cast<size_t>(row)];
    return {Viewport::To_WorldX(doc, l.StartPt.X), Viewport::To_WorldY(doc, l.StartPt.Y),
            Viewport::To_WorldX(doc, l.EndPt.X), Viewport::To_WorldY(doc, l.EndPt.Y)};
}

class BoardEditing : public ::testing::Test {
protected:
    QString Path(const QString& name) const { return dir.filePath(name); }
    // A saved layout: a box of lines to select from, in world inches.
    QString Scene() {
        LayoutDocument doc;
        auto add = [&](float x1, float y1, float x2, float y2) {
            Viewport::Add_Drawn_Line(doc, {Viewport::To_BoardX(doc, x1), Viewport::To_BoardY(doc, y1), 0},
                                            {Viewport::To_BoardX(doc, x2), Viewport::To_BoardY(doc, y2), 0});
        };
        add(2, 2, 3, 3);  // inside the box (1,1)-(4,4)
        add(3, 2, 6, 2);  // half inside
        add(5, 4, 6, 4);  // outside
        EXPECT_FALSE(LayoutFile::Write_Layout(doc, Path("scene.wld").toStdString()).Failed());
        return Path("scene.wld");
    }
    QTemporaryDir dir;
    boardwindow::DialogSeam seam;
};

TEST_F(BoardEditing, TypedRepliesAndSnappedPicksDrawTheSameFile) {
    BoardWindow typed;
    typed.Type("1,1");
    typed.Type("0'-5\",1");  // absolute, feet and inches
    typed.Type("5,4");
    typed.MoveTo(typed.Px(3, 3));  // the echo takes the anchor as the base of relative replies
    typed.Type("0'-4\"<180");      // polar
    typed.Type("1,4");
    typed.MoveTo(typed.Px(1, 2));  // the band points down
    typed.Type("3");               // a distance along the band
    seam.save = Path("typed.wld");
    typed.w.action("mnuSaveAs")->trigger();
    EXPECT_EQ(CliLines(Path("typed.wld")), QStringList({"  Line Number 1: (1, 1) to (5, 1)  length 4",
                                                       "  Line Number 2: (5, 4) to (1, 4)  length 4",
                                                       "  Line Number 3: (1, 4) to (1, 1)  length 3"}));
    EXPECT_FALSE(LayoutFile::Layout_Changed(typed.Doc()));

    typed.w.hide();
    BoardWindow picked;
    for (const QPoint p : {picked.Px(1, 1), picked.Px(5, 1), picked.Px(5, 4), picked.Px(1, 4)}) picked.ClickAt(p);
    picked.Snap(1);  // EndPoint: a pick beside the end of the top flange lands on it
    picked.ClickAt(picked.Px(1, 4) + QPoint(2, -2));
    EXPECT_EQ(picked.w.findChild<QLabel*>("StatusPanel2")->text(), "  End Snap Point found !");
    picked.Snap(5);  // Perpendicular: from the web's top down onto the bottom flange
    picked.ClickAt(picked.Px(2.5, 1));
    seam.save = Path("picked.wld");
    picked.w.action("mnuSaveAs")->trigger();
    EXPECT_EQ(Bytes(Path("picked.wld")), Bytes(Path("typed.wld")));
}

TEST_F(BoardEditing, EveryChangeThroughTheBoardCountsForTheSaveQuestion) {
    guitest::ModalWatchdog dog(QMessageBox::No);
    BoardWindow b(Scene());
    EXPECT_FALSE(LayoutFile::Layout_Changed(b.Doc()));
    b.Mode(4);
    b.ClickAt(b.Px(5.5, 4));  // pick the last row, the one the question compares
    EXPECT_FALSE(LayoutFile::Layout_Changed(b.Doc())) << "a selection is no change";
    b.Press("MoveButton");
    b.Type("0,0");
    b.Type("0,1");
    EXPECT_TRUE(LayoutFile::Layout_Changed(b.Doc()));
    b.w.close();
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Save Changes To " + Path("scene.wld").toUpper() + " ?");
}

TEST_F(BoardEditing, WindowTakesLinesWhollyInsideCrossingAlsoThoseCut) {
    struct Case {
        const char* reply;
        std::vector<int16_t> selected;
    };
    for (const Case& c : {Case{"w", {-1, 0, 0}}, Case{"C", {-1, -1, 0}}}) {
        BoardWindow b(Scene());
        b.Mode(4);
        b.Type(c.reply);
        EXPECT_EQ(b.w.findChild<QLabel*>("CommandName")->text(), "[Pick First Corner Point]");
        EXPECT_EQ(b.s.MousePointer(), board::Pointer::WindowBox);
        const QImage before = b.s.Image();
        b.MoveTo(b.Px(4, 1));
        QTest::mousePress(&b.s, Qt::LeftButton, {}, b.Px(4, 1));
        EXPECT_EQ(b.w.findChild<QLabel*>("CommandName")->text(), "[Pick Second Corner Point]");
        b.MoveTo(b.Px(1, 4), Qt::LeftButton);
        EXPECT_NE(b.s.Image(), before) << "the box is drawn while it is dragged";
        QTest::mouseRelease(&b.s, Qt::LeftButton, {}, b.Px(1, 4));
        const QImage after = b.s.Image();
        b.Board().Repaint(true);
        EXPECT_EQ(b.s.Image(), after) << "no trace of the box is left";
        std::vector<int16_t> got;
        for (const auto& l : b.Doc().Lines) got.push_back(l.Selected);
        EXPECT_EQ(got, c.selected) << c.reply;
        EXPECT_EQ(b.Board().Sel.SelectKind, 0) << "each box needs its own reply";
        EXPECT_EQ(b.s.MousePointer(), board::Pointer::PickBox);
    }
}

TEST_F(BoardEditing, PicksToggleAndThePopUpMenuTypesTheKind) {
    BoardWindow b(Scene());
    b.Mode(4);
    {
        guitest::ModalWatchdog dog;
        b.Press("RotateButton");  // nothing selected yet
        ASSERT_EQ(dog.Seen().size(), 1);
        EXPECT_EQ(dog.Seen()[0].text, "No Line(s) selected !   ");
        EXPECT_EQ(dog.Seen()[0].icon, QMessageBox::Critical);
        EXPECT_FALSE(b.Board().Sel.RotatePending);
    }
    b.ClickAt(b.Px(5.5, 4));
    EXPECT_EQ(b.Doc().Lines[2].Selected, -1);
    b.ClickAt(b.Px(2.5, 2.5));
    b.ClickAt(b.Px(5.5, 4));
    EXPECT_EQ(b.Doc().Lines[2].Selected, 0);
    EXPECT_EQ(b.Doc().Lines[0].Selected, -1);
    b.ClickAt(b.Px(7, 1));  // beside every line: the selection stays
    EXPECT_EQ(b.Doc().Lines[0].Selected, -1);

    b.ClickAt(b.Px(7, 1), Qt::RightButton);
    QMenu* pop = b.w.menu("mnuSelection");
    ASSERT_TRUE(pop->isVisible());
    QStringList captions;
    for (QAction* a : pop->actions()) captions << a->text();
    EXPECT_EQ(captions, QStringList({"Window  ", "Crossing  ", "Select All", "Remove from Selection", "Clear Selection"}));
    b.w.action("mnuAllSelect")->trigger();
    pop->close();
    for (const auto& l : b.Doc().Lines) EXPECT_EQ(l.Selected, -1);
    b.w.action("mnuClearSelect")->trigger();
    for (const auto& l : b.Doc().Lines) EXPECT_EQ(l.Selected, 0);
    // With a move pending the right button offers the snaps instead.
    b.ClickAt(b.Px(2.5, 2.5));
    b.Press("MoveButton");
    b.ClickAt(b.Px(7, 1), Qt::RightButton);
    EXPECT_TRUE(b.w.menu("mnuOsnap")->isVisible());
    b.w.menu("mnuOsnap")->close();
}

TEST_F(BoardEditing, MoveAndRotateByTypedAndPickedPoints) {
    struct Case {
        const char* name;
        std::function<void(BoardWindow&)> run;
        QList<double> ends;  // of row 0, the line (2,2)-(3,3), after the command
    };
    const Case cases[] = {
        {"move typed", [](BoardWindow& b) { b.Press("MoveButton"); b.Type("2,2"); b.Type("2,0'-6\""); }, {2, 6, 3, 7}},
        {"move picked", [](BoardWindow& b) { b.Press("MoveButton"); b.ClickAt(b.Px(2, 2)); b.ClickAt(b.Px(1, 2)); },
         {1, 2, 2, 3}},
        {"move picked in ortho",
         [](BoardWindow& b) {
             b.Key(Qt::Key_F8);
             b.Press("MoveButton");
             b.ClickAt(b.Px(2, 2));
             b.ClickAt(b.Px(1, 2.25));  // pulled onto the horizontal through the base
         },
         {1, 2, 2, 3}},
        {"rotate typed", [](BoardWindow& b) { b.Press("RotateButton"); b.Type("2,2"); b.Type("90"); }, {2, 2, 1, 3}},
        {"rotate picked", [](BoardWindow& b) { b.Press("RotateButton"); b.ClickAt(b.Px(3, 3)); b.Type("-90"); },
         {2, 4, 3, 3}},
    };
    for (const Case& c : cases) {
        BoardWindow b(Scene());
        b.Mode(4);
        b.ClickAt(b.Px(2.5, 2.5));
        c.run(b);
        const QList<double> got = Ends(b.Doc(), 0);
        for (int i = 0; i < 4; ++i) EXPECT_NEAR(got[i], c.ends[i], 1e-4) << c.name << " " << i;
        EXPECT_EQ(b.Doc().Lines[0].Selected, -1) << c.name << ": the selection stays";
        EXPECT_EQ(Ends(b.Doc(), 1), QList<double>({3, 2, 6, 2})) << c.name << ": unselected rows stay";
        EXPECT_EQ(b.w.findChild<QLabel*>("CommandName")->text(),
                  "[Pick Object or Type 'W' <Window> or 'C' <Crossing> or 'A' <All> or 'R' <Remove>]");
    }
}

TEST_F(BoardEditing, EditHoverDeleteAndTheLineDataDialog) {
    BoardWindow b(Scene());
    b.Mode(8);
    b.MoveTo(b.Px(4.5, 2));
    EXPECT_EQ(b.w.findChild<QLabel*>("StatusPanel2")->text(), "  Line Found   <Line ID:  Line Number 2>");
    EXPECT_EQ(b.s.toolTip(), "Line Number 1");
    EXPECT_TRUE(b.s.Marks().MidBox.Visible);
    b.Key(Qt::Key_Delete);
    ASSERT_EQ(Viewport::Line_Count(b.Doc().Lines), 2);
    EXPECT_EQ(b.Doc().Lines[1].LineName, "Line Number 3");

    // A double-click on a line opens the dialog on that row; Apply sets its length.
    guitest::ModalWatchdog dog;
    QString title;
    dog.SetDialogHandler([&](QDialog* d) {
        title = d->windowTitle();
        d->findChild<QLineEdit*>("LenBox")->setText("3");
        QTest::mouseClick(d->findChild<QPushButton*>("ApplyButton"), Qt::LeftButton);
        EXPECT_EQ(d->findChild<QLineEdit*>("LenBox")->text(), "3\"");
        return false;
    });
    b.DoubleClickAt(b.Px(5.5, 4));
    EXPECT_EQ(title, "Line Data");
    EXPECT_EQ(Viewport::Line_Count(b.Doc().Lines), 2) << "a double-click is no second pick";
    EXPECT_EQ(Ends(b.Doc(), 1), QList<double>({5, 4, 8, 4}));
    // The right button opens it as well.
    title.clear();
    b.ClickAt(b.Px(2.5, 2.5), Qt::RightButton);
    EXPECT_EQ(title, "Line Data");

    // A line turned by the dialog under the pointer: moving off it paints no
    // copy of the line as it stood before.
    dog.SetDialogHandler([&](QDialog* d) {
        d->findChild<QLineEdit*>("RotBox")->setText("0");
        QTest::mouseClick(d->findChild<QPushButton*>("ApplyButton"), Qt::LeftButton);
        return false;
    });
    b.ClickAt(b.Px(2.5, 2.5), Qt::RightButton);
    ASSERT_EQ(Ends(b.Doc(), 0)[3], Ends(b.Doc(), 0)[1]);
    const QImage shown = b.s.Image().copy();
    b.MoveTo(b.Px(0.5, 0.5));
    EXPECT_TRUE(b.s.Image() == shown);
}

TEST_F(BoardEditing, AnInvalidReplyIsShownInRedAndChangesNothing) {
    BoardWindow b(Scene());
    const std::string before = LayoutFile::Layout_Bytes(b.Doc());
    for (const char* reply : {"5<30", ",5", "0", "1,x"}) {
        b.Type(reply);
        EXPECT_EQ(b.box->text(), "**INVALID REPLY TO COMMAND**") << reply;
        EXPECT_EQ(b.box->palette().color(QPalette::Text), QColor(255, 0, 0));
        EXPECT_EQ(b.Board().Ui.Prompt, "[Pick Start Point]      -> Input Format: 'X,Y'");
    }
    b.Mode(4);
    b.Type("Q");
    EXPECT_EQ(b.box->text(), "**INVALID REPLY TO COMMAND**");
    EXPECT_EQ(LayoutFile::Layout_Bytes(b.Doc()), before);
    b.Mode(2);
    b.MoveTo(b.Px(1, 1));  // the next echo replaces the message in black
    EXPECT_EQ(b.box->text(), "1.0,1.0");
    EXPECT_EQ(b.box->palette().color(QPalette::Text), QColor(0, 0, 0));
}

}  // namespace
