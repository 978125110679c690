// The main window driven as a user drives it: its menus, the start-up with a
// path, the mode bar, keys and buttons reaching the board, and the document
// commands with their questions and dialogs.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QToolBar>
#include <filesystem>

#include "board/core/LayoutFile.h"
#include "shell/ui/QtText.h"
#include "shell/ui/RecentFiles.h"
#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"

using Layout::LayoutDocument;

namespace {

const QString kStartCaption = "Ferrolith v1.1  [INSTANTANEOUS CENTER OF ROTATION METHOD]";
const QString kBadFormat = "The document's format is invalid or not supported.";

// A layout of two lines (one horizontal, one vertical) on a new board.
QString WriteLayout(const QString& path) {
    LayoutDocument doc;
    Viewport::Add_Drawn_Line(doc, {1.0f, 2.0f, 0}, {3.0f, 2.0f, 0});
    Viewport::Add_Drawn_Line(doc, {1.0f, 2.0f, 0}, {1.0f, 3.5f, 0});
    EXPECT_FALSE(LayoutFile::Write_Layout(doc, SPath(path)).Failed());
    return path;
}

int Lines(MainWindow& w) { return Viewport::Line_Count(w.Document().Lines); }

// The texts of the message boxes the watchdog answered, and their icons.
QStringList Texts(const guitest::ModalWatchdog& dog) {
    QStringList out;
    for (const guitest::SeenBox& box : dog.Seen()) out << box.text;
    return out;
}
QList<QMessageBox::Icon> Icons(const guitest::ModalWatchdog& dog) {
    QList<QMessageBox::Icon> out;
    for (const guitest::SeenBox& box : dog.Seen()) out << box.icon;
    return out;
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

// A failed read or write afterwards loses nothing.
TEST_F(MainFrmBoard, StartsWithAPathInQuotesAndKeepsItAfterAFailedReadOrWrite) {
    const QString path = WriteLayout(Path("two.wld"));
    MainWindow w(nullptr, "\"" + path + "\"");
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - TWO.WLD");
    EXPECT_EQ(Lines(w), 2);
    EXPECT_EQ(recent::RecentPaths().value(0), path);
    EXPECT_EQ(w.findChild<QLabel*>("DumLabel")->text(), "   Active Mode:  DRAW MODE");

    QFile junk(Path("junk.wld"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("not a layout");
    junk.close();
    guitest::ModalWatchdog dog;
    seam.open = Path("junk.wld");
    w.action("mnuOpenData")->trigger();
    EXPECT_EQ(Lines(w), 2) << "the drawing stays";
    EXPECT_EQ(w.FileName(), path) << "and its name";
    seam.save = Path("no/such/folder/x.wld");
    w.action("mnuSaveAs")->trigger();
    EXPECT_EQ(Texts(dog), QStringList({kBadFormat, "Error No. 76:  Path not found"}));
    EXPECT_EQ(dog.Seen().value(1).title, "Warning:");
    LayoutDocument back;
    EXPECT_TRUE(LayoutFile::Read_Layout(back, path.toStdString())) << "the old file is untouched";
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
    const std::vector<std::pair<QString, QString>> cases = {{"damaged.wld", kBadFormat},
                                                            {"junk.wld", "Error No. 7:  Out of memory"},
                                                            {"folder.wld", "Error No. 75:  Path/File access error"},
                                                            {"gone.wld", "Cannot find " + Path("gone.wld").toUpper()}};
    for (const auto& [name, message] : cases) {
        guitest::ModalWatchdog dog;
        MainWindow w(nullptr, Path(name));
        seam.open = Path(name);
        w.action("mnuOpenData")->trigger();
        EXPECT_EQ(Texts(dog), QStringList({message, message})) << "Open Data says the same";
        EXPECT_EQ(w.windowTitle(), kStartCaption);
        EXPECT_EQ(w.FileName(), "UnNamed.wld");
    }
    guitest::ModalWatchdog dog;
    MainWindow w(nullptr, Path("notes.txt"));
    EXPECT_EQ(Texts(dog), QStringList({kBadFormat}));
    EXPECT_EQ(Icons(dog), QList({QMessageBox::Critical}));
    EXPECT_TRUE(recent::RecentPaths().isEmpty());
}

// A name that is not UTF-8 reaches the file as its bytes, both ways.
TEST_F(MainFrmBoard, StartupOpensAPathThatIsNotUtf8AndSavesToIt) {
    const std::string latin1 = dir.path().toStdString() + "/caf\xE9.wld";
    WriteLayout(QPath(latin1));
    MainWindow w(nullptr, QPath(latin1));
    EXPECT_EQ(Lines(w), 2);
    w.action("mnuSaveData")->trigger();
    LayoutDocument back;
    EXPECT_TRUE(LayoutFile::Read_Layout(back, latin1));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path().toStdString()), {}), 1)
        << "saved over the same file";
    std::filesystem::remove(latin1);  // Qt cannot name it to remove it
}

// A new window: its caption, menus and about box, and an empty board that
// keeps world zero on its lower edge as it grows.
TEST_F(MainFrmBoard, StartsEmptyWithItsCaptionMenusAndAbout) {
    MainWindow w;
    EXPECT_EQ(w.windowTitle(), kStartCaption);
    for (const char* name : {"mnuSciCal", "mnuBoltCoefficient", "mnuWeldCoefficient", "mnuClose", "mnuRefresh"})
        EXPECT_TRUE(w.action(name) && w.action(name)->isEnabled()) << name;
    EXPECT_EQ(w.action("mnuLoadMode")->text(), "Calculation Mode   ");
    w.resize(1200, 900);
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    const LayoutDocument& doc = w.Document();
    EXPECT_NEAR(doc.ScaleHeight, w.Surface().ScaleHeight(), 1e-6);
    EXPECT_NEAR(Viewport::To_WorldY(doc, doc.ScaleHeight), 0.0, 1e-6);
    guitest::ModalWatchdog dog;
    QString version;
    dog.SetDialogHandler([&](QDialog* d) {
        version = d->findChild<QLabel*>("lblVersion")->text();
        d->accept();
        return true;
    });
    w.action("mnuAbout")->trigger();
    EXPECT_EQ(version, "Version 1.1");
    EXPECT_EQ(dog.Seen().value(0).title, "About Ferrolith");
}

// The mode bar and its menu, the keys and the boxes, pointer events and the
// zoom buttons reach the board, and what it shows reaches the controls.
TEST_F(MainFrmBoard, ModeBarKeysPointerAndZoomReachTheBoard) {
    boardwindow::BoardWindow b;
    for (int index : {6, 8, 10, 12, 14, 4, 2}) {
        b.Mode(index);
        EXPECT_EQ(b.Board().Mode().Index(), index);
        EXPECT_EQ(b.box->isEnabled(), index <= 4);
        EXPECT_EQ(b.box->text(), index <= 4 ? "" : " <CommandLine response disabled>");
    }
    b.w.action("mnuPanMode")->trigger();
    EXPECT_EQ(b.Board().Mode().Index(), 10);
    EXPECT_TRUE(b.w.action("mnuPanMode")->isChecked());
    EXPECT_FALSE(b.w.action("mnuDrawMode")->isChecked());
    const auto acts = b.w.findChild<QToolBar*>("ModeBar")->actions();
    ASSERT_EQ(acts.size(), 14);
    for (int i = 0; i < 14; ++i) EXPECT_EQ(acts[i]->isSeparator(), i % 2 == 0) << i;
    b.Mode(2);
    b.Snap(3);
    EXPECT_TRUE(b.Board().SnapMode == 3 && b.w.action("mnuNearest")->isChecked());
    b.w.action("mnuFreeSnap")->trigger();
    EXPECT_EQ(b.Board().SnapMode, 0);

    auto* ortho = b.w.findChild<QCheckBox*>("OrthoBox");
    b.Key(Qt::Key_F8);
    EXPECT_TRUE(ortho->isChecked() && b.Board().OrthoMode);
    QTest::mouseClick(ortho, Qt::LeftButton, {}, QPoint(6, ortho->height() / 2));
    EXPECT_FALSE(b.Board().OrthoMode);

    // A line by the pointer, then a band that Esc takes off the picture.
    b.ClickAt(b.Px(1, 4));
    b.ClickAt(b.Px(3, 4));
    ASSERT_EQ(Lines(b.w), 1);
    b.ClickAt(b.Px(1, 3));
    const QImage before = b.s.Image();
    b.MoveTo(b.Px(4, 2));
    EXPECT_NE(b.s.Image(), before);
    QTest::keyClick(b.box, Qt::Key_Escape);
    EXPECT_EQ(b.s.Image(), before);
    EXPECT_EQ(b.w.findChild<QLabel*>("StatusPanel1")->text(), "  X = 4.00000,   Y = 2.00000");

    b.Press("zUPButton");
    EXPECT_FLOAT_EQ(b.Doc().ZoomScale, 1.05f);
    b.Press("ZoomExtentButton");
    EXPECT_NEAR(b.Doc().Lines[0].MidPt.X, b.Doc().ScaleWidth / 2, 0.01) << "the group stands in the middle";
}

TEST_F(MainFrmBoard, OpenSaveAndSaveAsThroughTheDialogs) {
    const QString a = WriteLayout(Path("a.wld"));
    guitest::ModalWatchdog dog(QMessageBox::No);
    MainWindow w;
    w.action("mnuSaveAs")->trigger();
    EXPECT_EQ(Texts(dog), QStringList({"No Data to save !  "}));
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 1, 0});
    w.action("mnuSaveData")->trigger();  // the dialog is cancelled
    EXPECT_EQ(w.FileName(), "UnNamed.wld");
    EXPECT_TRUE(LayoutFile::Layout_Changed(w.Document())) << "nothing counted as saved";
    seam.open = a;
    w.action("mnuOpenData")->trigger();
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - A.WLD");
    EXPECT_EQ(Lines(w), 2);
    // Save As to a new name: the file holds the document, caption follows.
    seam.save = Path("b.wld");
    w.action("mnuSaveAs")->trigger();
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - B.WLD");
    EXPECT_EQ(recent::RecentPaths().mid(0, 2), QStringList({Path("b.wld"), a}));
    // Save on a named document asks nothing and writes in place.
    Viewport::Add_Drawn_Line(w.Document(), {0.5f, 0.5f, 0}, {0.5f, 1.5f, 0});
    w.action("mnuSaveData")->trigger();
    EXPECT_EQ(seam.saves, 2) << "the cancelled one and Save As";
    LayoutDocument back;
    ASSERT_TRUE(LayoutFile::Read_Layout(back, Path("b.wld").toStdString()));
    EXPECT_EQ(Viewport::Line_Count(back.Lines), 3);
}

TEST_F(MainFrmBoard, NewAndCloseAskAboutChangesYesNoCancel) {
    guitest::ModalWatchdog dog(QMessageBox::Cancel);
    MainWindow w;
    w.show();
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 1, 0});
    w.action("mnuFileNew")->trigger();
    EXPECT_EQ(Texts(dog), QStringList({"Save Changes To UNNAMED.WLD ?"}));
    EXPECT_EQ(dog.Seen().value(0).title, "Ferrolith v1.1 Warning");
    EXPECT_EQ(Icons(dog), QList({QMessageBox::Warning}));
    EXPECT_EQ(Lines(w), 1) << "Cancel keeps the drawing";
    dog.SetAnswer(QMessageBox::No);
    w.action("mnuFileNew")->trigger();
    EXPECT_EQ(Lines(w), 0);
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - UNNAMED.WLD");
    // Yes on an unnamed drawing: the save dialog, then a new board; a later
    // Save goes to the same file.
    dog.SetAnswer(QMessageBox::Yes);
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 2, 0});
    seam.save = Path("yes.wld");
    w.action("mnuFileNew")->trigger();
    EXPECT_TRUE(QFile::exists(Path("yes.wld")));
    EXPECT_EQ(w.FileName(), Path("yes.wld"));
    EXPECT_EQ(Lines(w), 0);
    EXPECT_EQ(recent::RecentPaths().value(0), Path("yes.wld"));
    // Close asks the same; Cancel keeps the window, Yes saves.
    Viewport::Add_Drawn_Line(w.Document(), {1, 1, 0}, {2, 1, 0});
    dog.SetAnswer(QMessageBox::Cancel);
    EXPECT_FALSE(w.close());
    EXPECT_TRUE(w.isVisible());
    dog.SetAnswer(QMessageBox::Yes);
    EXPECT_TRUE(w.close());
    // Unchanged since the last save: no question.
    dog.Clear();
    MainWindow w2(nullptr, Path("yes.wld"));
    w2.show();
    EXPECT_TRUE(w2.close());
    EXPECT_TRUE(dog.Seen().isEmpty());
}

// The recent list (its rolling is the shell's) in the File menu.
TEST_F(MainFrmBoard, RecentListInTheFileMenuOpensItsEntries) {
    MainWindow w;
    w.mnuFile_Click();
    EXPECT_TRUE(w.action("mnuRecDocs")->text() == "Empty" && !w.action("mnuRecDocs")->isEnabled());
    const QStringList paths = {WriteLayout(Path("f1.wld")), WriteLayout(Path("f2.wld"))};
    for (const QString& p : paths) {
        seam.open = p;
        w.action("mnuOpenData")->trigger();
    }
    w.mnuFile_Click();
    w.mnuFile_Click();  // opening the menu again piles up no entries
    QList<QAction*> items;
    for (QAction* a : w.menu("mnuFile")->actions())
        if (a->objectName() == "mnuRecDocs") items << a;
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items.first()->text(), paths[1]);
    items.last()->trigger();
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1 - F1.WLD");
    EXPECT_EQ(recent::RecentPaths(), QStringList({paths[0], paths[1]}));
    guitest::ModalWatchdog dog;
    w.mnuRecDocs_Click(Path("gone.wld"));
    EXPECT_EQ(Texts(dog), QStringList({"Cannot find " + Path("gone.wld").toUpper()}));
}

// The board's messages in the window's message boxes, with their icons.
TEST_F(MainFrmBoard, TheBoardsMessagesAndTheirIcons) {
    guitest::ModalWatchdog dog(QMessageBox::Yes);
    boardwindow::BoardWindow b;
    b.Press("ClearButton");
    b.Mode(4);
    b.Press("RotateButton");
    b.Press("ClearDimButton");
    b.Mode(2);
    b.Type("1,1");
    b.Type("2,1");
    b.w.action("mnuDeleteAll")->trigger();
    EXPECT_EQ(Texts(dog), QStringList({"Drawing Board is empty ! ", "No Line(s) selected !   ",
                                       "Are you sure you really want to Delete Drawing?  "}));
    EXPECT_EQ(Icons(dog), QList({QMessageBox::Warning, QMessageBox::Critical, QMessageBox::Critical}));
    EXPECT_EQ(Lines(b.w), 0);
}

}  // namespace
