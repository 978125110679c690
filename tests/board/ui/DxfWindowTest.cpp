// File > Import DXF... through the dialog seam: one of two layers ticked
// off, only the other's lines on the board, a summary, one undo step; and
// File > Export DXF... read back.
#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>

#include "board/core/DxfLayout.h"
#include "shell/core/FileIO.h"
#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"
#include "support/TempFolder.h"

using boardwindow::BoardWindow;

namespace {

// Two lines on WEB, one on FLANGE, written as a CAD program would.
std::string TwoLayers() {
    Dxf::Output out;
    out.Layers = {{"WEB", 1}, {"FLANGE", 2}};
    out.Lines = {{0, 0, 0, 10, "WEB"}, {5, 0, 5, 10, "WEB"}, {0, 10, 5, 10, "FLANGE"}};
    return Dxf::Write(out);
}

class BoardDxf : public testutil::TempFolder {};

TEST_F(BoardDxf, ImportsTheTickedLayerAsOneStepAndExportsTheLayout) {
    const QString in = QString::fromStdString(P("two.dxf")), out = QString::fromStdString(P("out.dxf"));
    ASSERT_FALSE(fileio::WriteReplacing(in.toStdString(), TwoLayers()).Failed());
    guitest::ModalWatchdog dog;
    QStringList layers;
    dog.SetDialogHandler([&](QDialog* d) {
        if (d->objectName() != "DxfImportFrm") return false;
        auto* list = d->findChild<QListWidget*>("DxfLayerList");
        for (int i = 0; i < list->count(); ++i) layers << list->item(i)->text();
        guitest::SaveScreenFits(d, "DxfImportFrm");
        list->setFocus();
        list->setCurrentRow(1);
        QTest::keyClick(list, Qt::Key_Space);  // FLANGE off
        QTest::mouseClick(d->findChild<QPushButton*>("DxfOkButton"), Qt::LeftButton);
        return true;
    });
    BoardWindow b;
    boardwindow::DialogSeam seam;
    seam.open = in;
    b.w.action("mnuImportDxf")->trigger();
    EXPECT_EQ(layers, QStringList({"WEB  (2)", "FLANGE  (1)"}));
    ASSERT_EQ(Viewport::Line_Count(b.Doc().Lines), 2);
    for (const Layout::LineRec& l : b.Doc().Lines)
        EXPECT_FLOAT_EQ(Viewport::To_WorldY(b.Doc(), l.EndPt.Y) - Viewport::To_WorldY(b.Doc(), l.StartPt.Y), 10);
    ASSERT_FALSE(dog.Seen().isEmpty());
    EXPECT_EQ(dog.Seen().back().text, "Imported 2 weld lines.");
    EXPECT_EQ(b.w.action("mnuUndo")->text(), "Undo Import DXF");

    // The layout out and read back: its two lines on WELD.
    seam.save = out;
    b.w.action("mnuExportDxf")->trigger();
    Dxf::Drawing back;
    ASSERT_EQ(Dxf::Read(out.toStdString(), back), Dxf::ReadError::None);
    EXPECT_EQ(DxfLayout::UsableCounts(back).at(0), 2);
    EXPECT_EQ(back.Layers.at(0), "WELD");

    b.w.action("mnuUndo")->trigger();
    EXPECT_EQ(Viewport::Line_Count(b.Doc().Lines), 0);

    // Not a drawing: one message, the layout as it was.
    ASSERT_FALSE(fileio::WriteReplacing(in.toStdString(), "not a drawing\n").Failed());
    dog.Clear();
    b.w.action("mnuImportDxf")->trigger();
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen().front().icon, QMessageBox::Warning);
    EXPECT_EQ(Viewport::Line_Count(b.Doc().Lines), 0);
}

}  // namespace
