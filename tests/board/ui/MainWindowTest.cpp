#include <gtest/gtest.h>

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QLabel>
#include <QTest>

#include "support/GuiTestSupport.h"
#include "board/ui/MainWindow.h"
#include "shell/ui/AboutBox.h"
#include "shell/ui/RecentFiles.h"

namespace {

TEST(MainWindow, StartsWithItsCaptionAndMenus) {
    MainWindow w;
    w.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    EXPECT_EQ(w.windowTitle(), "Ferrolith v1.1  [INSTANTANEOUS CENTER OF ROTATION METHOD]");
    QStringList titles;
    for (QAction* a : w.menuBar()->actions()) titles << a->text().remove('&');
    for (const char* m : {"File", "Mode", "Calcs", "Help"}) EXPECT_TRUE(titles.contains(m)) << m;
    for (const char* name : {"mnuFile", "mnuMode", "mnuOsnap", "mnuSelection", "mnuCalcs", "mnuHelp"})
        EXPECT_NE(w.menu(name), nullptr) << name;
    for (const char* name : {"mnuSciCal", "mnuBoltCoefficient", "mnuWeldCoefficient", "mnuAbout", "mnuClose",
                             "mnuDrawMode", "mnuLoadMode", "mnuFreeSnap", "mnuWindowSelect"})
        EXPECT_NE(w.action(name), nullptr) << name;
    EXPECT_EQ(w.action("mnuLoadMode")->text(), "Calculation Mode   ");
    EXPECT_TRUE(w.action("mnuAbout")->isEnabled());
    EXPECT_NE(w.findChild<QWidget*>("DrawingBoard"), nullptr);
}

TEST(MainWindow, AboutBoxShowsTitleAndVersion) {
    MainWindow w;
    guitest::ModalWatchdog dog;
    QString seenTitle, seenVersion;
    dog.SetDialogHandler([&](QDialog* d) {
        if (auto* t = d->findChild<QLabel*>("lblTitle")) seenTitle = t->text();
        if (auto* v = d->findChild<QLabel*>("lblVersion")) seenVersion = v->text();
        d->accept();
        return true;
    });
    w.action("mnuAbout")->trigger();
    EXPECT_EQ(seenTitle, "Ferrolith v1.1");
    EXPECT_EQ(seenVersion, "Version 1.1");
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen().first().title, "About Ferrolith");
}

TEST(MainWindow, FileMenuListsRecentFiles) {
    QFile::remove(recent::RecentFilePath());
    MainWindow w;
    w.mnuFile_Click();
    QAction* first = w.action("mnuRecDocs");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->text(), "Empty");
    EXPECT_FALSE(first->isEnabled());

    recent::SaveAsRecent("/tmp/a.wld");
    recent::SaveAsRecent("/tmp/b.wld");
    w.mnuFile_Click();
    QStringList shown;
    for (QAction* a : w.menu("mnuFile")->actions())
        if (a->objectName() == "mnuRecDocs") shown << a->text();
    EXPECT_EQ(shown, QStringList({"/tmp/b.wld", "/tmp/a.wld"}));
    w.mnuFile_Click();
    int count = 0;
    for (QAction* a : w.menu("mnuFile")->actions()) count += a->objectName() == "mnuRecDocs";
    EXPECT_EQ(count, 2) << "opening the menu again does not pile up entries";
}

}  // namespace
