// The main window driven as a user drives it: the board, its modes, keys,
// zoom and pan, and the document commands with their questions.
#include <gtest/gtest.h>

#include <filesystem>

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"
#include "board/ui/BoardSurface.h"
#include "board/core/Viewport.h"
#include "board/ui/FileDialogs.h"
#include "board/core/LayoutFile.h"
#include "board/ui/MainWindow.h"
#include "shell/ui/QtText.h"
#include "shell/ui/RecentFiles.h"

using Layout::LayoutDocument;

namespace {

const QColor kMagenta(128, 0, 128);

// A layout of two lines (one horizontal, one vertical) on a new board.
QString WriteLayout(const QString& path, float y = 2.0f) {
    LayoutDocument doc;
    Viewport::Add_Drawn_Line(doc, {1.0f, y, 0}, {3.0f, y, 0});
    Viewport::Add_Drawn_Line(doc, {1.0f, y, 0}, {1.0f, y + 1.5f, 0});
    EXPECT_FALSE(LayoutFile::Write_Layout(doc, SPath(path)).Failed());
    return path;
}

QColor PixelAt(BoardSurface& s, double x, double y) {
    const QPointF p = s.ToDevice(x, y);
    return s.Image().pixelColor(qRound(p.x()), qRound(p.y()));
}

class MainFrmBoard : public ::testing::Test {
protected:
    void SetUp() override {
        QFile::remove(recent::RecentFilePath());
        ASSERT_TRUE(dir.isValid());
    }
    QString Path(const QString& name) const { return dir.filePath(name); }
    QTemporaryDir dir;
    boardwindow::DialogSeam seam;
};

TEST_F(MainFrmBoard, StartsWithAPathAndShowsItsLines) {
    const QString path = WriteLayout(Path("two.wld"));
    MainWindow w(nullptr, path);
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - TWO.WLD");
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 2);
    w.RepaintBoard();
    EXPECT_EQ(PixelAt(w.Surface(), 2.0, 2.0), kMagenta) << "line pen at the midpoint";
    EXPECT_EQ(PixelAt(w.Surface(), 4.5, 1.0), QColor(Qt::black)) << "background elsewhere";
    EXPECT_EQ(recent::RecentPaths().value(0), path);
    EXPECT_EQ(w.findChild<QLabel*>("DumLabel")->text(), "   Active Mode:  DRAW MODE");
}

TEST_F(MainFrmBoard, StartupTakesOnePairOfQuotesAndRefusesOtherFiles) {
    const QString path = WriteLayout(Path("q.wld"));
    {
        MainWindow w(nullptr, "\"" + path + "\"");
        EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - Q.WLD");
    }
    guitest::ModalWatchdog dog;
    MainWindow w(nullptr, Path("notes.txt"));
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "The document's format is invalid or not supported.");
    EXPECT_EQ(dog.Seen()[0].title, "Warning:");
    EXPECT_EQ(dog.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1  [INSTANTANEOUS CENTER OF ROTATION METHOD]");
}

// A layout that cannot be read is named as Open Data names it, and the board
// starts as a new drawing without a name, so that no save goes over the file.
TEST_F(MainFrmBoard, StartupSaysWhyALayoutIsNotReadAndStaysUnnamed) {
    QFile(Path("damaged.wld")).open(QIODevice::WriteOnly);
    QFile junk(Path("junk.wld"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("not a layout");
    junk.resize(8 << 20);  // past the largest layout, as well
    junk.close();
    QDir(dir.path()).mkdir("folder.wld");
    const QString format = "The document's format is invalid or not supported.";
    const std::vector<std::pair<QString, QString>> cases = {
        {"damaged.wld", format},
        {"junk.wld", "Error No. 7:  Out of memory"},
        {"folder.wld", "Error No. 75:  Path/File access error"},
        {"gone.wld", "Cannot find " + Path("gone.wld").toUpper()}};
    for (const auto& [name, message] : cases) {
        guitest::ModalWatchdog dog;
        MainWindow w(nullptr, Path(name));
        seam.open = Path(name);
        w.action("mnuOpenData")->trigger();
        ASSERT_EQ(dog.Seen().size(), 2) << name.toStdString();
        EXPECT_EQ(dog.Seen()[0].text, message);
        EXPECT_EQ(dog.Seen()[1].text, message) << "Open Data says the same";
        EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1  [INSTANTANEOUS CENTER OF ROTATION METHOD]");
        EXPECT_EQ(w.FileName(), "UnNamed.wld");
    }
    EXPECT_TRUE(recent::RecentPaths().isEmpty());
}

// A name that is not UTF-8 reaches the file as its bytes, both ways.
TEST_F(MainFrmBoard, StartupOpensAPathThatIsNotUtf8AndSavesToIt) {
    const std::string latin1 = dir.path().toStdString() + "/caf\xE9.wld";
    WriteLayout(QPath(latin1));
    MainWindow w(nullptr, QPath(latin1));
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 2);
    w.action("mnuSaveData")->trigger();
    LayoutDocument back;
    EXPECT_TRUE(LayoutFile::Read_Layout(back, latin1));
    size_t files = 0;
    for (const auto& e : std::filesystem::directory_iterator(dir.path().toStdString())) files += e.is_regular_file();
    EXPECT_EQ(files, 1u) << "saved over the same file";
    std::filesystem::remove(latin1);  // Qt cannot name it to remove it
}

TEST_F(MainFrmBoard, AnEmptyBoardKeepsWorldZeroOnItsLowerEdge) {
    MainWindow w;
    w.resize(1200, 900);
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    const LayoutDocument& doc = w.Document();
    EXPECT_NEAR(doc.ScaleHeight, w.Surface().ScaleHeight(), 1e-6);
    EXPECT_NEAR(Viewport::To_WorldY(doc, doc.ScaleHeight), 0.0, 1e-6);
    EXPECT_EQ(Viewport::To_WorldX(doc, 0.0), 0.0f);
}

TEST_F(MainFrmBoard, ModeButtonsSetPromptAndCommandBox) {
    MainWindow w;
    w.show();
    auto* box = w.findChild<QLineEdit*>("CommandBox");
    auto* prompt = w.findChild<QLabel*>("CommandName");
    struct Case {
        int index;
        const char* prompt;
        bool enabled;
    };
    const Case cases[] = {{6, "[Pick First Dimension Point]", false},
                          {8, "[Double Click or Right Click on Line Object to Edit]", false},
                          {10, "[Pick, Drag and Drop to Pan Drawing]", false},
                          {12, "[Specify Zoom Window]", false},
                          {14, "[Pick on either Left or Right to specify Load Location]", false},
                          {4, "[Pick Object or Type 'W' <Window> or 'C' <Crossing> or 'A' <All> or 'R' <Remove>]", true},
                          {2, "[Pick Start Point]      -> Input Format: 'X,Y'", true}};
    for (const Case& c : cases) {
        auto* button = w.findChild<QWidget*>(QStringLiteral("ModeBarButton_%1").arg(c.index));
        ASSERT_NE(button, nullptr) << c.index;
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(prompt->text(), c.prompt);
        EXPECT_EQ(box->isEnabled(), c.enabled);
        EXPECT_EQ(box->text(), c.enabled ? "" : " <CommandLine response disabled>");
        EXPECT_EQ(w.Board().Mode().Index(), c.index);
    }
    // The menu entry leads to the same switch and carries the check mark.
    w.action("mnuPanMode")->trigger();
    EXPECT_EQ(w.Board().Mode().Index(), 10);
    EXPECT_TRUE(w.action("mnuPanMode")->isChecked());
    EXPECT_FALSE(w.action("mnuDrawMode")->isChecked());
    // Separators stand at the odd indexes of the mode bar.
    auto* bar = w.findChild<QToolBar*>("ModeBar");
    const auto acts = bar->actions();
    ASSERT_EQ(acts.size(), 14);
    for (int i = 0; i < 14; ++i) EXPECT_EQ(acts[i]->isSeparator(), i % 2 == 0) << i;
}

TEST_F(MainFrmBoard, F8AndF9FlipTheirBoxes) {
    MainWindow w;
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    auto* box = w.findChild<QLineEdit*>("CommandBox");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_F8);
    EXPECT_TRUE(w.findChild<QCheckBox*>("OrthoBox")->isChecked());
    EXPECT_TRUE(w.Board().OrthoMode);
    QTest::keyClick(box, Qt::Key_F9);
    EXPECT_TRUE(w.findChild<QCheckBox*>("PolyBox")->isChecked());
    QTest::keyClick(box, Qt::Key_F8);
    EXPECT_FALSE(w.findChild<QCheckBox*>("OrthoBox")->isChecked());
    EXPECT_FALSE(w.Board().OrthoMode);
    // Clicking the box itself keeps the flag in step.
    QTest::mouseClick(w.findChild<QCheckBox*>("PolyBox"), Qt::LeftButton);
    EXPECT_FALSE(w.Board().PolyMode);
}

TEST_F(MainFrmBoard, DrawingWithThePointerAndEscape) {
    boardwindow::BoardWindow b;
    b.ClickAt(b.Px(1, 4));
    b.ClickAt(b.Px(3, 4));
    ASSERT_EQ(Viewport::Line_Count(b.Doc().Lines), 1);
    EXPECT_EQ(PixelAt(b.s, 2.0, 1.0), kMagenta);
    // A band, then Esc: the picture is as before the band.
    b.ClickAt(b.Px(1, 3));
    const QImage before = b.s.Image();
    b.MoveTo(b.Px(4, 2));
    EXPECT_NE(b.s.Image(), before);
    QTest::keyClick(b.box, Qt::Key_Escape);
    EXPECT_EQ(b.s.Image(), before);
    EXPECT_EQ(b.Board().Ui.Prompt, "[Pick Start Point]      -> Input Format: 'X,Y'");
    EXPECT_EQ(b.w.findChild<QLabel*>("StatusPanel1")->text(), "  X = 4.00000,   Y = 2.00000");
}

TEST_F(MainFrmBoard, ZoomChangesWorldCoordinatesAndPanDoesNot) {
    const QString path = WriteLayout(Path("z.wld"));
    MainWindow w(nullptr, path);
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    LayoutDocument& doc = w.Document();
    auto world = [&] {
        return QPointF(Viewport::To_WorldX(doc, doc.Lines[0].StartPt.X),
                       Viewport::To_WorldY(doc, doc.Lines[0].StartPt.Y));
    };
    const float len = doc.Lines[0].EndPt.X - doc.Lines[0].StartPt.X;
    const QPointF w0 = world();
    QTest::mouseClick(w.findChild<QPushButton*>("zUPButton"), Qt::LeftButton);
    EXPECT_FLOAT_EQ(doc.ZoomScale, 1.05f);
    EXPECT_NEAR(doc.Lines[0].EndPt.X - doc.Lines[0].StartPt.X, len * 1.05, 1e-5);
    EXPECT_NE(world(), w0) << "a zoom moves absolute world positions";
    QTest::mouseClick(w.findChild<QPushButton*>("zDNButton"), Qt::LeftButton);
    EXPECT_NEAR(doc.ZoomScale, 1.05 * 0.95, 1e-6);

    QTest::mouseClick(w.findChild<QPushButton*>("ZoomExtentButton"), Qt::LeftButton);
    const auto& l = doc.Lines[0];
    EXPECT_NEAR((l.StartPt.X + l.EndPt.X) / 2, doc.ScaleWidth / 2, 0.01) << "the group stands in the middle";

    // Pan by a drag: the lines move, world positions stay.
    w.action("mnuPanMode")->trigger();
    BoardSurface& s = w.Surface();
    const QPointF w1 = world();
    const float x0 = l.StartPt.X;
    const QPoint from(100, 100), to(100 + s.logicalDpiX() / 2, 100);
    QTest::mousePress(&s, Qt::LeftButton, {}, from);
    QTest::mouseMove(&s, to);
    QTest::mouseRelease(&s, Qt::LeftButton, {}, to);
    EXPECT_NEAR(l.StartPt.X - x0, 0.5, 1e-4);
    EXPECT_NEAR(world().x(), w1.x(), 1e-4);
    EXPECT_NEAR(world().y(), w1.y(), 1e-4);
}

TEST_F(MainFrmBoard, OpenSaveAndSaveAsThroughTheDialogs) {
    const QString a = WriteLayout(Path("a.wld"));
    MainWindow w;
    seam.open = a;
    w.action("mnuOpenData")->trigger();
    EXPECT_EQ(seam.opens, 1);
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - A.WLD");
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 2);

    // Save As to a new name: the file holds the document, caption follows.
    seam.save = Path("b.wld");
    w.action("mnuSaveAs")->trigger();
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - B.WLD");
    LayoutDocument back;
    ASSERT_TRUE(LayoutFile::Read_Layout(back, Path("b.wld").toStdString()));
    EXPECT_EQ(Viewport::Line_Count(back.Lines), 2);
    EXPECT_EQ(recent::RecentPaths().mid(0, 2), QStringList({Path("b.wld"), a}));

    // Save on a named document asks nothing and writes in place.
    Viewport::Add_Drawn_Line(w.Document(), {0.5f, 0.5f, 0}, {0.5f, 1.5f, 0});
    w.action("mnuSaveData")->trigger();
    EXPECT_EQ(seam.saves, 1);
    ASSERT_TRUE(LayoutFile::Read_Layout(back, Path("b.wld").toStdString()));
    EXPECT_EQ(Viewport::Line_Count(back.Lines), 3);
}

TEST_F(MainFrmBoard, SaveRefusesAnEmptyBoardAndCancelChangesNothing) {
    guitest::ModalWatchdog dog;
    MainWindow w;
    w.action("mnuSaveData")->trigger();
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "No Data to save !  ");
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 1, 0});
    seam.save.clear();  // the dialog is cancelled
    w.action("mnuSaveData")->trigger();
    EXPECT_EQ(w.FileName(), "UnNamed.wld");
    EXPECT_TRUE(LayoutFile::Layout_Changed(w.Document())) << "nothing counted as saved";
}

TEST_F(MainFrmBoard, NewAsksAboutChangesYesNoCancel) {
    guitest::ModalWatchdog dog(QMessageBox::Cancel);
    MainWindow w;
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 1, 0});
    w.action("mnuFileNew")->trigger();
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Save Changes To UNNAMED.WLD ?");
    EXPECT_EQ(dog.Seen()[0].title, "Ferrolith v1.1 Warning");
    EXPECT_EQ(dog.Seen()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 1) << "Cancel keeps the drawing";

    dog.SetAnswer(QMessageBox::No);
    w.action("mnuFileNew")->trigger();
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 0);
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - UNNAMED.WLD");

    // Yes on an unnamed drawing: the save dialog, then a new board; a later
    // Save goes to the same file.
    dog.SetAnswer(QMessageBox::Yes);
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 2, 0});
    seam.save = Path("yes.wld");
    w.action("mnuFileNew")->trigger();
    EXPECT_TRUE(QFile::exists(Path("yes.wld")));
    EXPECT_EQ(w.FileName(), Path("yes.wld"));
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 0);
    EXPECT_EQ(recent::RecentPaths().value(0), Path("yes.wld"));
}

TEST_F(MainFrmBoard, CloseAsksAndCancelKeepsTheWindow) {
    guitest::ModalWatchdog dog(QMessageBox::Cancel);
    MainWindow w;
    w.show();
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 1, 0});
    EXPECT_FALSE(w.close());
    EXPECT_TRUE(w.isVisible());
    dog.SetAnswer(QMessageBox::Yes);
    seam.save = Path("closing.wld");
    EXPECT_TRUE(w.close());
    EXPECT_TRUE(QFile::exists(Path("closing.wld")));
    // Unchanged since the last save: no question.
    dog.Clear();
    MainWindow w2(nullptr, Path("closing.wld"));
    w2.show();
    EXPECT_TRUE(w2.close());
    EXPECT_TRUE(dog.Seen().isEmpty());
}

TEST_F(MainFrmBoard, RecentListRollsAtEightAndOpensItsEntries) {
    QStringList paths;
    for (int i = 1; i <= 9; ++i) paths << WriteLayout(Path(QStringLiteral("f%1.wld").arg(i)));
    MainWindow w;
    for (const QString& p : paths) {
        seam.open = p;
        w.action("mnuOpenData")->trigger();
    }
    w.mnuFile_Click();
    QList<QAction*> items;
    for (QAction* a : w.menu("mnuFile")->actions())
        if (a->objectName() == "mnuRecDocs") items << a;
    ASSERT_EQ(items.size(), 8);
    EXPECT_EQ(items.first()->text(), paths.last());
    EXPECT_EQ(items.last()->text(), paths[1]) << "the first file fell off";
    // Re-opening an entry moves it to the top without a duplicate.
    items.last()->trigger();
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - F2.WLD");
    EXPECT_EQ(recent::RecentPaths().size(), 8);
    EXPECT_EQ(recent::RecentPaths().value(0), paths[1]);

    // A missing file is named in capitals.
    guitest::ModalWatchdog dog;
    w.mnuRecDocs_Click(Path("gone.wld"));
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Cannot find " + Path("gone.wld").toUpper());
}

TEST_F(MainFrmBoard, AFailedReadOrWriteLosesNothing) {
    const QString good = WriteLayout(Path("good.wld"));
    QFile junk(Path("junk.wld"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("not a layout");
    junk.close();
    MainWindow w(nullptr, good);
    guitest::ModalWatchdog dog;
    seam.open = Path("junk.wld");
    w.action("mnuOpenData")->trigger();
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 2) << "the drawing stays";
    EXPECT_EQ(w.FileName(), good) << "and its name";
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "The document's format is invalid or not supported.");

    dog.Clear();
    seam.save = Path("no/such/folder/x.wld");
    w.action("mnuSaveAs")->trigger();
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_TRUE(dog.Seen()[0].text.startsWith("Error No. ")) << dog.Seen()[0].text.toStdString();
    EXPECT_EQ(dog.Seen()[0].title, "Warning:");
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 2);
    LayoutDocument back;
    EXPECT_TRUE(LayoutFile::Read_Layout(back, good.toStdString())) << "the old file is untouched";
}

TEST_F(MainFrmBoard, DeleteAllAsksAndClearDimensionsDoesNot) {
    guitest::ModalWatchdog dog(QMessageBox::Yes);
    MainWindow w;
    QTest::mouseClick(w.findChild<QPushButton*>("ClearButton"), Qt::LeftButton);
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Drawing Board is empty ! ");
    EXPECT_EQ(dog.Seen()[0].icon, QMessageBox::Warning);
    dog.Clear();
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 1, 0});
    w.Document().Dims[0].Exists = -1;
    QTest::mouseClick(w.findChild<QPushButton*>("ClearDimButton"), Qt::LeftButton);
    EXPECT_TRUE(dog.Seen().isEmpty());
    EXPECT_EQ(w.Document().Dims[0].Exists, 0);
    QTest::mouseClick(w.findChild<QPushButton*>("ClearButton"), Qt::LeftButton);
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Are you sure you really want to Delete Drawing?  ");
    EXPECT_EQ(Viewport::Line_Count(w.Document().Lines), 0);
    EXPECT_EQ(w.Document().LineCounter, 0);
}

}  // namespace
